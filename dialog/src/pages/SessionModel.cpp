#include "pages/SessionModel.h"

#include <algorithm>
#include <utility>

#include <QCoreApplication>
#include <QStringList>

#include "pages/ProjectModel.h"
#include "pages/Texts.h"

namespace ZelDebugDialog::dialog {

namespace {

constexpr std::size_t mostTold = 4;

QString effectText(const char *text) {
  return QCoreApplication::translate("Effects", text);
}

/// Whether going from one to the other is a step that undoing takes back.
bool isStep(const SessionState &before, const SessionState &after) {
  if (before.draft != after.draft ||
      before.editedCommand != after.editedCommand)
    return true;
  for (std::size_t i = 0; i < before.settings.size(); ++i)
    if (before.settings[i].value != after.settings[i].value ||
        before.settings[i].draft != after.settings[i].draft)
      return true;
  return false;
}

/// No setting has this name.
constexpr const char *wholeCommand = "";

std::string keyOf(const std::string &typedFor) { return "for " + typedFor; }

} // namespace

SessionModel::SessionModel(const Board &board, const std::string &processor,
                           ProjectModel *project, QObject *parent)
    : QObject(parent), ofBoard(board), ofProject(project),
      live(board, processor) {
  start();
  known = live.State();
  if (ofProject != nullptr)
    connect(ofProject, &ProjectModel::changed, this, [this] {
      if (ofProject->project().Version() != startedFrom)
        start();
      refresh();
    });
}

void SessionModel::start() {
  if (ofProject == nullptr)
    return;
  startedFrom = ofProject->project().Version();
  ofProject->project().Start(live);
  saidNow = ofProject->project().Said(live.Processor());
  noteStart();
}

void SessionModel::noteStart() {
  if (ofProject == nullptr)
    return;
  Session fresh(ofBoard, live.Processor());
  ofProject->project().Start(fresh);
  started.clear();
  for (SettingState &one : fresh.State().settings)
    started.push_back(std::move(one.value));
}

bool SessionModel::isSavedAsSaid() {
  return known.exists && saidNow.command &&
         live.Loaded().text == *saidNow.command;
}

bool SessionModel::isAsOpened() const {
  if (known.exists || ofProject == nullptr)
    return known.differences.empty();
  return std::equal(known.settings.begin(), known.settings.end(),
                    started.begin(), started.end(),
                    [](const SettingState &one, const Value &value) {
                      return one.value == value;
                    });
}

const SettingState *SessionModel::find(const std::string &setting) const {
  const auto found = std::find_if(
      known.settings.begin(), known.settings.end(),
      [&setting](const SettingState &one) { return one.id == setting; });
  return found == known.settings.end() ? nullptr : &*found;
}

bool SessionModel::hasDrafts() const {
  return known.draft.has_value() ||
         std::any_of(
             known.settings.begin(), known.settings.end(),
             [](const SettingState &one) { return one.draft.has_value(); });
}

bool SessionModel::canRedo() const {
  return known.canRedo && (!undoneSince || *undoneSince > 0);
}

bool SessionModel::isModified() const {
  return hasOpenText || hasDrafts() || isGone() || !isAsOpened();
}

bool SessionModel::isGone() const {
  return known.changedOnDisk && !known.exists;
}

void SessionModel::noteOpenText(bool isThere) {
  if (isThere == hasOpenText)
    return;
  hasOpenText = isThere;
  emit openTextNoted();
}

void SessionModel::type(const std::string &setting, const QString &text) {
  performTyping(setting, [&] { return live.Draft(setting, bytesOf(text)); });
}

void SessionModel::typeCommand(const std::string &text) {
  performTyping(wholeCommand, [&] { return live.Edit(text); });
}

/// Each letter takes the place of the one before, so that one step of undoing
/// goes back to where typing began.
void SessionModel::performTyping(const std::string &typedFor,
                                 const Operation &operation) {
  const std::string key = keyOf(typedFor);
  const bool goesOn = typed == key;
  if (!goesOn) {
    beforeTyping = known;
    typingIsStep = false;
  }
  const bool takesBack = goesOn && typingIsStep;
  perform([&] {
    if (takesBack)
      live.Undo();
    typingIsStep = false;
    return operation();
  });
  typed = key;
  typingIsStep = isStep(beforeTyping, known);
  // Back where typing began: the step that was taken back is nobody's.
  if (takesBack && !typingIsStep && known.canRedo) {
    undoneSince = 0;
    emit stateChanged();
  }
}

void SessionModel::endTypingFor(const std::string &setting) {
  if (typed == keyOf(setting))
    endTyping();
}

void SessionModel::endTypingCommand() { endTypingFor(wholeCommand); }

bool SessionModel::change(const std::string &setting, const Value &value) {
  endTyping();
  return perform([&] { return live.Change(SettingValues{{setting, value}}); });
}

void SessionModel::keepDraft(const std::string &setting, const QString &text) {
  endTyping();
  perform([&] { return live.Draft(setting, bytesOf(text)); });
}

void SessionModel::dropDraft(const std::string &setting) {
  endTyping();
  perform([&] { return live.DropDraft(setting); });
}

void SessionModel::reset(const std::vector<std::string> &settings) {
  takeOpenText();
  endTyping();
  perform([&] { return live.Reset(settings); });
}

void SessionModel::undo() {
  takeOpenText();
  endTyping();
  if (undoneSince && known.canUndo)
    ++*undoneSince;
  perform([&] { return live.Undo(); });
}

void SessionModel::redo() {
  takeOpenText();
  endTyping();
  if (!canRedo())
    return;
  if (undoneSince)
    --*undoneSince;
  perform([&] { return live.Redo(); });
}

void SessionModel::revert() {
  takeOpenText();
  endTyping();
  noteStart();
  perform([&] { return live.Revert(); });
}

void SessionModel::copyFrom(SessionModel &other) {
  takeOpenText();
  other.takeOpenText();
  endTyping();
  perform([&] { return live.CopyFrom(other.live); });
}

void SessionModel::lookAtFile() {
  const SessionState now = live.State();
  // One that has changed already may go, or come back.
  if (now.changedOnDisk != known.changedOnDisk || now.exists != known.exists)
    refresh();
}

void SessionModel::refresh() {
  known = live.State();
  if (!known.canRedo)
    undoneSince.reset();
  emit stateChanged();
}

bool SessionModel::perform(const Operation &operation) {
  std::vector<Effect> effects;
  QString refusal;
  try {
    effects = operation();
  } catch (const Refusal &refused) {
    refusal = shown(refused.what());
  }
  refresh();
  emit told(refusal.isEmpty() ? shownEffects(effects) : refusal,
            !refusal.isEmpty());
  return refusal.isEmpty();
}

QString shownEffects(const std::vector<Effect> &effects) {
  // What has one reason is told with it once.
  std::vector<std::pair<QStringList, QString>> groups;
  std::size_t count = 0;
  for (const Effect &effect : effects) {
    const SettingInfo *const info = FindSetting(effect.setting);
    // What follows from others is shown there.
    if (info == nullptr || !info->settable)
      continue;
    if (++count > mostTold)
      continue;
    const QString reason = reasonOf(effect.why);
    if (groups.empty() || groups.back().second != reason)
      groups.push_back({QStringList(), reason});
    const bool isDifferent = effect.before != effect.after;
    const QString text =
        isDifferent ? effectText(QT_TRANSLATE_NOOP("Effects", "%1 becomes %2"))
                    : effectText(QT_TRANSLATE_NOOP("Effects", "%1 stays %2"));
    groups.back().first.append(text.arg(nameOf(effect.setting),
                                        valueOf(effect.setting, effect.after)));
  }
  QStringList lines;
  lines.reserve(static_cast<qsizetype>(groups.size()));
  for (const auto &[changes, reason] : groups)
    lines.append(QStringLiteral("%1 (%2)").arg(
        changes.join(QStringLiteral(", ")), reason));
  if (count > mostTold)
    lines.append(effectText(QT_TRANSLATE_NOOP("Effects", "%1 more"))
                     .arg(count - mostTold));
  return lines.join(QStringLiteral("; "));
}

} // namespace ZelDebugDialog::dialog

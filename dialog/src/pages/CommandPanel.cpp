#include "pages/CommandPanel.h"

#include <QLabel>
#include <QVBoxLayout>

#include "pages/ElidedLabel.h"
#include "pages/Palette.h"
#include "pages/Texts.h"

namespace ZelDebugDialog::dialog {

namespace {

/// Words that stand there once for each setting, once for all.
std::vector<EditWord> joined(const std::vector<StateWord> &words) {
  std::vector<EditWord> result;
  for (const StateWord &word : words) {
    if (result.empty() || result.back().offset != word.offset)
      result.push_back({word.offset, word.length, word.role, {}});
    if (!word.setting.empty())
      result.back().settings.push_back(word.setting);
  }
  return result;
}

std::vector<EditWord> explained(const std::string &text) {
  std::vector<EditWord> result;
  for (const ExplainedWord &word : ExplainCommand(text).words) {
    result.push_back({word.offset, word.length, word.role, {}});
    for (const WordChange &change : word.changes)
      result.back().settings.push_back(change.setting);
  }
  return result;
}

} // namespace

CommandPanel::CommandPanel(SessionModel &sessionModel, QWidget *parent)
    : QWidget(parent), model(&sessionModel), command(new CommandEdit(this)),
      remark(new ElidedLabel(this)) {
  auto *const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  auto *const title = new QLabel(tr("Connect &command"), this);
  title->setBuddy(command);
  title->setToolTip(tr("Ctrl+Space completes, Ctrl+Return leads to the setting "
                       "of a word"));
  command->setAccessibleDescription(title->toolTip());
  // What room there is belongs to the lists below.
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  title->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  layout->addWidget(title);
  layout->addWidget(command);
  layout->addWidget(remark);
  connect(command, &CommandEdit::typed, this, &CommandPanel::send);
  const auto finish = [this] {
    model->endTypingCommand();
    isTyping = false;
    refresh();
  };
  // Not at once: a window that is closed leaves its lines, too.
  connect(command, &CommandEdit::left, this, finish, Qt::QueuedConnection);
  connect(command, &CommandEdit::settingAsked, this,
          &CommandPanel::settingAsked);
  connect(model, &SessionModel::stateChanged, this, &CommandPanel::refresh);
  refresh();
}

void CommandPanel::send() {
  isTyping = true;
  model->typeCommand(command->text());
}

/// A command that was accepted stands there as it was typed, until one leaves.
bool CommandPanel::isAsTyped() const {
  if (!isTyping || !command->hasFocus())
    return false;
  const std::string &text = command->text();
  const SessionState &state = model->state();
  return state.draft
             ? *state.draft == text
             : text == state.editedCommand.value_or(state.command.value_or(""));
}

void CommandPanel::refresh() {
  const SessionState &state = model->state();
  if (!isAsTyped()) {
    isTyping = false;
    command->showText(state.draft ? *state.draft : state.command.value_or(""));
  }
  const CommandMarks marks = marksOf(command->text());
  command->showMarks(marks);
  found = marks.diagnostics;

  const QString error = shown(state.commandError);
  QString text;
  if (!state.draft && !state.command)
    text = tr("No command can be written: %1").arg(error);
  else if (state.draft)
    text = tr("Not taken yet; the settings are as they were.");
  else if (isTyping && command->text() != state.command)
    text = tr("Written as: %1").arg(shown(state.command.value_or("")));
  remark->say(text);
  emit diagnosticsChanged();
  const bool hasFaults = state.draft && !found.empty();
  if (hasFaults && !hadFaults)
    emit faultsCameUp();
  hadFaults = hasFaults;
}

CommandMarks CommandPanel::marksOf(const std::string &text) const {
  const SessionState &state = model->state();
  if (!state.draft && state.command == text)
    return {joined(state.words), state.diagnostics};
  if (state.draft == text)
    return {explained(text), state.diagnostics};
  if (text.empty())
    return {};
  CheckOptions options;
  options.board = &model->board();
  options.processor = state.processor;
  return {explained(text), CheckCommand(text, options).diagnostics};
}

void CommandPanel::apply(const CommandDiagnostic &diagnostic) {
  model->endTyping();
  command->replace(diagnostic.offset, diagnostic.length, diagnostic.suggestion);
  model->endTyping();
}

} // namespace ZelDebugDialog::dialog

#include "dialog/walk/Agreement.h"

#include <algorithm>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolButton>

#include "pages/Banner.h"
#include "pages/CommandEdit.h"
#include "pages/CommandPanel.h"
#include "pages/Lists.h"
#include "pages/ProcessorList.h"
#include "pages/SessionModel.h"
#include "pages/SettingRow.h"
#include "pages/SettingsForm.h"
#include "pages/Texts.h"
#include "pages/ToneLabel.h"

using namespace ZelDebugDialog;
using dialog::bytesOf;
using dialog::shown;

namespace walk {

namespace {

/// Thrown at the first thing that does not agree.
struct Disagreement {
  std::string text;
};

void expect(bool holds, const std::string &otherwise) {
  if (!holds)
    throw Disagreement{otherwise};
}

void expectSame(const QString &seen, const QString &wanted,
                const std::string &place) {
  expect(seen == wanted,
         place + " is '" + bytesOf(seen) + "', not '" + bytesOf(wanted) + "'");
}

// --- The state ---------------------------------------------------------------

/// All of it as a text.
std::string described(const SessionState &state) {
  std::string text = state.problem;
  text += state.exists ? " exists" : "";
  text += state.changedOnDisk ? " changed on disk" : "";
  text += state.dirty ? " dirty" : "";
  text += state.canUndo ? " undo" : "";
  text += state.canRedo ? " redo" : "";
  const std::string none = "\n-";
  text += state.command.value_or(none) + state.commandError +
          state.editedCommand.value_or(none) + state.draft.value_or(none);
  for (const SettingState &one : state.settings)
    text += "\n" + one.id + one.text + one.origin + one.reason +
            one.draft.value_or(none) + one.error + (one.applicable ? "1" : "0");
  for (const Loss &one : state.losses)
    text += "\n" + one.field + one.reason;
  for (const Difference &one : state.differences)
    text += "\n" + one.setting;
  for (const CommandDiagnostic &one : state.diagnostics)
    text += "\n" + std::to_string(one.offset) + one.message;
  return text;
}

void expectSameLines(const std::string &seen, const std::string &wanted) {
  const QStringList left = shown(seen).split(u'\n');
  const QStringList right = shown(wanted).split(u'\n');
  for (qsizetype i = 0; i < std::max(left.size(), right.size()); ++i)
    expectSame(left.value(i), right.value(i),
               "line " + std::to_string(i) + " of the model's state");
}

// --- Settings ----------------------------------------------------------------

bool isOn(const Value &value) {
  return value.IsFlag() ? value.Flag()
                        : value.IsNumber() && value.Number() != 0;
}

void expectLine(const QLineEdit &line, const SettingState &state) {
  const std::string text = bytesOf(line.text());
  if (state.draft)
    return expectSame(line.text(), shown(*state.draft), "the line");
  // What is being typed may mean the value without being written as it is.
  if (line.text() == shown(state.text))
    return;
  expect(line.hasFocus(),
         "the line is '" + text + "', not '" + state.text + "'");
  bool isMeant = text.empty();
  try {
    isMeant = isMeant || ReadSetting(state.id, text) == state.value;
  } catch (const Refusal &) {
    // It is no value, and no draft either.
  }
  expect(isMeant, "the line is '" + text + "', which is not '" + state.text +
                      "', with the focus");
}

void expectBox(QComboBox &box, const SettingState &state) {
  const auto *const items = qobject_cast<QStandardItemModel *>(box.model());
  expect(static_cast<std::size_t>(box.count()) == state.choices.size(),
         "the box has other choices");
  int present = -1;
  for (int i = 0; i < box.count(); ++i) {
    const ChoiceState &choice = state.choices[static_cast<std::size_t>(i)];
    if (choice.choice.value == state.value)
      present = i;
    expect(items->item(i)->isEnabled() == choice.reason.empty(),
           "the choice " + choice.choice.text + " can be chosen, or cannot");
    expect(box.itemText(i).startsWith(dialog::labelOf(choice.choice)),
           "the choice " + choice.choice.text + " is called otherwise");
    expect(present == i || choice.reason.empty() ||
               box.itemText(i).contains(shown(choice.reason)),
           "the choice " + choice.choice.text + " does not say why");
  }
  expect(box.currentIndex() == present, "another choice is shown");
}

void expectTable(const QTableWidget &table, const SettingState &state) {
  const Value::Chain devices =
      state.value.IsChain() ? state.value.Devices() : Value::Chain();
  expect(static_cast<std::size_t>(table.rowCount()) == devices.size(),
         "the table has other devices");
  const QString drafts = state.draft ? shown(*state.draft) : QString();
  for (int row = 0; row < table.rowCount(); ++row)
    for (int column = 0; column < table.columnCount(); ++column) {
      const auto &[name, value] = devices[static_cast<std::size_t>(row)]
                                         [static_cast<std::size_t>(column)];
      const SettingInfo *const info =
          FindSetting(state.id + "[" + std::to_string(row) + "]." + name);
      expect(info != nullptr, "a column has no setting: " + name);
      const QTableWidgetItem &item = *table.item(row, column);
      if (info->kind == SettingKind::flag)
        expect((item.checkState() == Qt::Checked) == isOn(value),
               "the mark of " + name + " is another");
      else if (item.text() != shown(ShowValue(*info, value)))
        expect(drafts.contains(item.text()),
               "the cell of " + name + " is '" + bytesOf(item.text()) + "'");
    }
}

void expectRow(const dialog::SettingRow &row, const SettingState &state) {
  QWidget *const field = row.field();
  // One that is worked on stays open until the person leaves it.
  const bool isOpen = field->isEnabledTo(field->window());
  const bool isWanted =
      !row.setting().settable || state.applicable || state.draft.has_value();
  expect(isOpen || !isWanted, "it is disabled");
  // A window that is not active moves the focus without a word.
  const QWidget *const focus = field->window()->focusWidget();
  expect(isWanted || !isOpen || focus == field || field->isAncestorOf(focus) ||
             !field->window()->isActiveWindow(),
         "it is enabled");
  expect(isOpen || field->accessibleDescription().contains(
                       dialog::reasonOf(state.reason)),
         "it does not say why it is disabled");
  expect(row.error().isHidden() == !state.draft.has_value(),
         "its error is there, or is not");
  expect(state.draft || row.origin().text() == dialog::originOf(state.origin),
         "its value comes from elsewhere");
  if (row.setting().settable)
    expect(row.back()->isEnabled() || state.draft ||
               state.value == state.defaultValue,
           "there is no way back to its default");
  if (const auto *const line = qobject_cast<QLineEdit *>(field))
    expectLine(*line, state);
  else if (const auto *const mark = qobject_cast<QCheckBox *>(field))
    expect(mark->isChecked() == isOn(state.value), "the mark is another");
  else if (auto *const box = qobject_cast<QComboBox *>(field))
    expectBox(*box, state);
  else if (const auto *const table = qobject_cast<QTableWidget *>(field))
    expectTable(*table, state);
  else if (const auto *const label = qobject_cast<QLabel *>(field))
    expectSame(label->text(), dialog::valueOf(state.id, state.value),
               "the text");
  else
    expect(false, "nothing shows it");
}

// --- The command, and the lists ----------------------------------------------

void expectCommand(QWidget &page, const SessionState &state) {
  const auto &line = *page.findChild<dialog::CommandEdit *>();
  const std::string text = line.text();
  const std::string wanted = state.draft.value_or(state.command.value_or(""));
  // One that was accepted stands as it was typed until one leaves.
  expect(text == wanted || (line.hasFocus() && text == state.editedCommand),
         "the command is '" + text + "', not '" + wanted + "'");
  const auto &panel = *page.findChild<dialog::CommandPanel *>();
  const auto &faults = *page.findChild<dialog::FaultList *>();
  const std::vector<CommandDiagnostic> &found = panel.diagnostics();
  expect(faults.topLevelItemCount() == static_cast<int>(found.size()),
         "there are other faults in the list");
  constexpr int columnOfText = 3;
  for (int row = 0; row < faults.topLevelItemCount(); ++row)
    expectSame(faults.topLevelItem(row)->text(columnOfText),
               shown(found[static_cast<std::size_t>(row)].message), "a fault");
  if (text != wanted)
    return;
  expect(found.size() == state.diagnostics.size(),
         "the command has other faults");
  for (std::size_t i = 0; i < found.size(); ++i)
    expect(found[i].message == state.diagnostics[i].message &&
               found[i].offset == state.diagnostics[i].offset,
           "the command has another fault");
}

void expectLists(QWidget &page, const SessionState &state) {
  const auto &losses = *page.findChild<dialog::LossList *>();
  const auto &differences = *page.findChild<dialog::DifferenceList *>();
  expect(losses.topLevelItemCount() == static_cast<int>(state.losses.size()),
         "there are other losses in the list");
  for (int row = 0; row < losses.topLevelItemCount(); ++row) {
    const Loss &loss = state.losses[static_cast<std::size_t>(row)];
    expectSame(losses.topLevelItem(row)->text(0), dialog::nameOf(loss.field),
               "a loss");
    expectSame(losses.topLevelItem(row)->text(4), dialog::reasonOf(loss.reason),
               "the reason of a loss");
  }
  expect(differences.topLevelItemCount() ==
             static_cast<int>(state.differences.size()),
         "there are other differences in the list");
  for (int row = 0; row < differences.topLevelItemCount(); ++row) {
    const Difference &one = state.differences[static_cast<std::size_t>(row)];
    const QTreeWidgetItem &item = *differences.topLevelItem(row);
    expectSame(item.text(0), dialog::nameOf(one.setting), "a difference");
    expectSame(item.text(1), dialog::valueOf(one.setting, one.saved),
               "what is saved of " + one.setting);
    expectSame(item.text(2), dialog::valueOf(one.setting, one.now),
               "what there is of " + one.setting);
  }
  const auto &tabs = *page.findChild<QTabWidget *>();
  const auto expectCount = [&tabs](int tab, std::size_t count) {
    expect(tabs.tabText(tab).contains(u'(') == (count > 0) &&
               (count == 0 ||
                tabs.tabText(tab).endsWith(QStringLiteral("(%1)").arg(count))),
           "the tab '" + bytesOf(tabs.tabText(tab)) + "' counts otherwise");
  };
  expectCount(1, state.losses.size());
  expectCount(2, state.differences.size());
}

void expectBanners(QWidget &page, const SessionState &state) {
  for (const dialog::Banner *const banner :
       page.findChildren<dialog::Banner *>()) {
    const bool asks = banner->findChild<QPushButton *>() != nullptr;
    // A change of the file may have been passed over.
    if (asks)
      expect(banner->isHidden() || state.changedOnDisk,
             "the file has not changed");
    else
      expect(banner->isHidden() == state.problem.empty(),
             "what is saved can be read, or cannot");
  }
}

// --- What is saved -----------------------------------------------------------

/// What counts as saved is what another session opens.
bool expectReadBack(const dialog::SessionModel &model) {
  const SessionState &state = model.state();
  if (model.isModified() || !state.exists || state.changedOnDisk ||
      !state.problem.empty())
    return false;
  const Session fresh(model.board(), state.processor);
  expect(fresh.Problem().empty(),
         "what was saved cannot be read: " + fresh.Problem());
  // What cannot be set tells of the processor, and of what was read last.
  for (const SettingState &setting : state.settings)
    if (FindSetting(setting.id)->settable)
      expect(fresh.Get(setting.id) == setting.value,
             setting.id + " is read back as another value");
  return true;
}

// --- The whole ---------------------------------------------------------------

void expectPage(ConfigurationPage &page, Counts &counts) {
  auto &model = *page.findChild<dialog::SessionModel *>();
  // Others write at any time; it is noticed a little later.
  page.lookAtFile();
  const SessionState state = model.session().State();
  expectSameLines(described(model.state()), described(state));
  const auto &form = *page.findChild<dialog::SettingsForm *>();
  for (const SettingState &setting : state.settings)
    try {
      expectRow(*form.rowFor(setting.id), setting);
      ++counts.settings;
    } catch (const Disagreement &one) {
      throw Disagreement{setting.id + ": " + one.text};
    }
  expectCommand(page, state);
  expectLists(page, state);
  expectBanners(page, state);
  ++counts.pages;
  counts.readBack += expectReadBack(model) ? 1 : 0;
}

void expectSigns(scene::Scene &scene) {
  const auto &list = *scene.window().findChild<dialog::ProcessorList *>();
  constexpr int columnOfSign = 4;
  bool isAnyModified = false;
  for (const ConfigurationPage *const page :
       scene.board().findChildren<ConfigurationPage *>()) {
    isAnyModified = isAnyModified || page->isModified();
    const QString wanted = page->isModified()     ? QStringLiteral("●")
                           : page->isUnreadable() ? QStringLiteral("⚠")
                           : page->isSaved()      ? QStringLiteral("✓")
                                                  : QString();
    for (int row = 0; row < list.topLevelItemCount(); ++row)
      if (list.topLevelItem(row)->text(0) == shown(page->processor()))
        expectSame(list.topLevelItem(row)->text(columnOfSign), wanted,
                   "the sign of " + page->processor());
  }
  expect(scene.window().isWindowModified() == isAnyModified,
         "the title counts other changes");
  using Operation = BoardPage::Operation;
  const ConfigurationPage *const page = scene.board().current();
  const auto expectAction = [&scene](Operation operation, bool isOn) {
    const QAction &action = *scene.action(operation);
    expect(action.isEnabled() == isOn,
           "'" + bytesOf(action.text()) + "' can be done, or cannot");
  };
  expectAction(Operation::save, page != nullptr);
  expectAction(Operation::saveAll, isAnyModified);
  expectAction(Operation::undo, page != nullptr && page->canUndo());
  expectAction(Operation::redo, page != nullptr && page->canRedo());
}

} // namespace

std::string disagreement(scene::Scene &scene, Counts &counts) {
  if (scene.window().board() == nullptr)
    return {};
  try {
    if (ConfigurationPage *const page = scene.board().current())
      expectPage(*page, counts);
    expectSigns(scene);
    ++counts.signs;
  } catch (const Disagreement &one) {
    const ConfigurationPage *const page = scene.board().current();
    return (page == nullptr ? std::string() : page->processor() + ": ") +
           one.text;
  }
  return {};
}

} // namespace walk

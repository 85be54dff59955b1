// A random walk of people's hands: keys, clicks, menus, drops, saving, files
// that change meanwhile. After each step what the widgets show is what the
// session has, and what was saved is read back as the same.
//
//   dialog_walk [STEPS [SEED]]
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "dialog/Scene.h"
#include "pages/Banner.h"
#include "pages/ChainEditor.h"
#include "pages/CommandEdit.h"
#include "pages/LineEditor.h"
#include "pages/SessionModel.h"
#include "pages/SettingRow.h"
#include "pages/SettingsForm.h"
#include "pages/Texts.h"
#include "pages/ValueEditor.h"

using namespace ZelDebugDialog;
using scene::Scene;

namespace {

const std::vector<std::string> processors = {
    "lumacore_0", "lumacore_1", "ppc405_0", "ppc440_0",
    "lumacore_2", "a9_0",       "a9_1",     "r5_0"};

const std::vector<const char *> texts = {
    "0",     "1",      "2",          "200",        "0x10000", "0xffffffff",
    "3 MHz", "12MHz",  "fast",       "",           "not set", "USB21",
    "a b",   "/dev/x", "0x40000000", "4294967296", "-1",      "é",
    "yes",   "a;b",    "localhost"};

const std::vector<const char *> commands = {
    "connect lc hdu",
    "connect lc sim",
    "connect ppc sim -icf board.cfg",
    "connect ppc hw -debugdevice devicenr 3",
    "connect lc hdu -cable type quorla_usb -debugdevice devicenr 200 -foo",
    "connect lc hdu -configdevice devicenr 1 partname x irlength 6 idcode 7",
    "vpconnect lc",
    "connect lc stub -comm serial -port /dev/ttyS0",
    "nonsense",
    "",
    "connect lc hdu -bscan USER9 \xc3\xa9"};

/// Letter by letter, also those that no key has.
void typeText(QWidget &widget, const char *text) {
  for (const QChar letter : QString::fromUtf8(text)) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier,
                    QString(letter));
    QCoreApplication::sendEvent(&widget, &press);
  }
}

class Walk {
public:
  explicit Walk(unsigned seed) : random(seed) {
    scene.board().choose(processors.front());
    // Whatever is asked is answered, somehow.
    QObject::connect(&answers, &QTimer::timeout, [this] { answerDialog(); });
    answers.start(1);
  }

  /// @return what does not agree afterwards; empty for nothing
  std::string step() {
    static const std::vector<void (Walk::*)()> steps = {
        &Walk::typeSetting,   &Walk::typeSetting, &Walk::typeSetting,
        &Walk::chooseWord,    &Walk::switchFlag,  &Walk::typeCommand,
        &Walk::pasteCommand,  &Walk::pressBack,   &Walk::changeChain,
        &Walk::pressKey,      &Walk::pressKey,    &Walk::triggerAction,
        &Walk::chooseAnother, &Walk::changeFile,  &Walk::clickSomething,
        &Walk::answerBanner};
    (this->*pick(steps))();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return disagreement();
  }

private:
  template <class List>
  const typename List::value_type &pick(const List &list) {
    return list[std::uniform_int_distribution<std::size_t>(0, list.size() -
                                                                  1)(random)];
  }
  int below(int end) {
    return std::uniform_int_distribution<int>(0, end - 1)(random);
  }
  bool hasPage() { return scene.board().current() != nullptr; }

  template <class Widget> Widget *anyOf() {
    QList<Widget *> found;
    if (hasPage())
      for (Widget *const one : scene.page().findChildren<Widget *>())
        if (one->isVisible() && one->isEnabled())
          found.append(one);
    return found.isEmpty() ? nullptr
                           : found[below(static_cast<int>(found.size()))];
  }

  void typeSetting() {
    if (auto *const line = anyOf<dialog::SessionLine>()) {
      line->setFocus();
      if (below(4) != 0)
        QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
      typeText(*line, pick(texts));
    }
  }
  void chooseWord() {
    if (auto *const box = anyOf<QComboBox>())
      QTest::keyClick(box, below(2) == 0 ? Qt::Key_Down : Qt::Key_Up);
  }
  void switchFlag() {
    if (auto *const mark = anyOf<QCheckBox>())
      QTest::keyClick(mark, Qt::Key_Space);
  }
  void typeCommand() {
    if (auto *const line = anyOf<dialog::CommandEdit>()) {
      line->setFocus();
      if (below(2) == 0)
        QTest::keyClick(line, Qt::Key_End);
      typeText(*line, " ");
      typeText(*line, pick(texts));
      if (below(3) == 0) {
        QTest::keyClick(line, Qt::Key_Space, Qt::ControlModifier);
        if (QWidget *const popup = QApplication::activePopupWidget())
          QTest::keyClick(popup,
                          below(2) == 0 ? Qt::Key_Return : Qt::Key_Escape);
      }
    }
  }
  void pasteCommand() {
    if (auto *const line = anyOf<dialog::CommandEdit>()) {
      line->setFocus();
      line->selectAll();
      QGuiApplication::clipboard()->setText(QString::fromUtf8(pick(commands)));
      line->paste();
    }
  }
  void pressBack() {
    if (auto *const button = anyOf<QToolButton>())
      QTest::mouseClick(button, Qt::LeftButton);
  }
  void changeChain() {
    if (auto *const chain = anyOf<dialog::ChainEditor>()) {
      const QList<QPushButton *> buttons = chain->findChildren<QPushButton *>();
      QPushButton *const button =
          buttons[below(static_cast<int>(buttons.size()))];
      if (button->isEnabled())
        QTest::mouseClick(button, Qt::LeftButton);
      auto *const table = chain->findChild<QTableWidget *>();
      if (table->rowCount() > 0)
        if (QTableWidgetItem *const item = table->item(
                below(table->rowCount()), below(table->columnCount()))) {
          if ((item->flags() & Qt::ItemIsEditable) != 0)
            item->setText(QString::fromUtf8(pick(texts)));
          else
            item->setCheckState(below(2) == 0 ? Qt::Checked : Qt::Unchecked);
        }
    }
  }
  void pressKey() {
    static const std::vector<Qt::Key> keys = {
        Qt::Key_Tab,  Qt::Key_Tab,   Qt::Key_Backtab, Qt::Key_Return,
        Qt::Key_Down, Qt::Key_Space, Qt::Key_Delete,  Qt::Key_Backspace,
        Qt::Key_X,    Qt::Key_1,     Qt::Key_F2,      Qt::Key_Escape};
    if (QWidget *const focus = QApplication::focusWidget())
      QTest::keyClick(focus, pick(keys));
  }
  void triggerAction() {
    using Operation = BoardPage::Operation;
    static const std::vector<Operation> all = {
        Operation::undo,   Operation::undo,    Operation::redo,
        Operation::revert, Operation::reset,   Operation::save,
        Operation::save,   Operation::saveAll, Operation::copy};
    QAction *const action = scene.action(pick(all));
    if (action->isEnabled())
      action->trigger();
  }
  void chooseAnother() { scene.board().choose(pick(processors)); }
  void changeFile() {
    const std::string &processor = pick(processors);
    if (below(3) == 0)
      QFile::remove(scene.fileOf(processor));
    else
      scene.write(processor, pick(commands));
    if (hasPage())
      scene.page().lookAtFile();
  }
  void clickSomething() {
    if (auto *const widget = anyOf<QWidget>())
      QTest::mouseClick(widget, Qt::LeftButton);
    while (QWidget *const popup = QApplication::activePopupWidget())
      popup->close();
  }
  void answerBanner() {
    if (auto *const banner = anyOf<dialog::Banner>()) {
      const QList<QPushButton *> buttons =
          banner->findChildren<QPushButton *>();
      if (!buttons.isEmpty())
        QTest::mouseClick(buttons[below(static_cast<int>(buttons.size()))],
                          Qt::LeftButton);
    }
  }
  void answerDialog() {
    auto *const dialog =
        qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (dialog == nullptr)
      return;
    const QList<QPushButton *> buttons = dialog->findChildren<QPushButton *>();
    if (buttons.isEmpty())
      dialog->reject();
    else
      buttons[below(static_cast<int>(buttons.size()))]->click();
  }

  /// What a widget shows that the session does not have, or the other way.
  std::string disagreement() {
    if (!hasPage())
      return {};
    auto *const model = scene.page().findChild<dialog::SessionModel *>();
    model->lookAtFile();
    const SessionState state = model->session().State();
    const SessionState &shown = model->state();
    if (state.command != shown.command || state.draft != shown.draft ||
        state.losses.size() != shown.losses.size() ||
        state.differences.size() != shown.differences.size() ||
        state.changedOnDisk != shown.changedOnDisk)
      return "the model is not the session";
    std::string unlike = readBack(*model);
    if (!unlike.empty())
      return unlike;
    auto *const line = scene.page().findChild<dialog::CommandEdit *>();
    const std::string text = line->text();
    if (text != state.draft.value_or(state.command.value_or("")) &&
        !(line->hasFocus() && text == state.editedCommand))
      return "the command is '" + text + "', and should be '" +
             state.draft.value_or(state.command.value_or("")) + "', edited '" +
             state.editedCommand.value_or("none") + "'" +
             (line->hasFocus() ? ", with focus" : "");
    auto *const form = scene.page().findChild<dialog::SettingsForm *>();
    for (const SettingState &setting : state.settings) {
      const std::string problem =
          disagreementOf(*form->rowFor(setting.id), setting);
      if (!problem.empty())
        return setting.id + ": " + problem;
    }
    return {};
  }

  /// What a configuration that counts as saved has and its file does not give.
  static std::string readBack(const dialog::SessionModel &model) {
    const SessionState &state = model.state();
    if (model.isModified() || !state.exists || state.changedOnDisk ||
        !state.problem.empty())
      return {};
    const Session fresh(model.board(), state.processor);
    if (!fresh.Problem().empty())
      return "what was saved cannot be read: " + fresh.Problem();
    for (const SettingState &setting : state.settings)
      if (fresh.Get(setting.id) != setting.value)
        return setting.id + " is read back as another value";
    return {};
  }

  static std::string disagreementOf(const dialog::SettingRow &row,
                                    const SettingState &state) {
    QWidget *const field = row.field();
    const bool isOpen =
        !row.setting().settable || state.applicable || state.draft.has_value();
    if (field->isEnabledTo(field->window()) != isOpen)
      return "it is enabled, or disabled, and should not be";
    if (const auto *const line = qobject_cast<QLineEdit *>(field))
      return disagreementOf(*line, row.setting(), state);
    if (const auto *const mark = qobject_cast<QCheckBox *>(field)) {
      const bool isOn =
          state.value.IsFlag() ? state.value.Flag() : state.value.Number() != 0;
      return mark->isChecked() == isOn ? "" : "the mark is another";
    }
    if (const auto *const box = qobject_cast<QComboBox *>(field)) {
      const int chosen = box->currentIndex();
      const bool isSame =
          chosen < 0 ||
          row.setting().choices[static_cast<std::size_t>(chosen)].value ==
              state.value;
      return isSame ? "" : "another choice is shown";
    }
    if (const auto *const table = qobject_cast<QTableWidget *>(field))
      return static_cast<std::size_t>(table->rowCount()) ==
                     state.value.Devices().size()
                 ? ""
                 : "the table has other devices";
    return {};
  }

  static std::string disagreementOf(const QLineEdit &line,
                                    const SettingInfo &setting,
                                    const SettingState &state) {
    const std::string text = dialog::bytesOf(line.text());
    if (state.draft)
      return text == *state.draft ? "" : "it shows '" + text + "'";
    if (line.text() == dialog::shown(state.text))
      return {};
    if (!line.hasFocus())
      return "it shows '" + text + "'";
    try {
      if (text.empty() || ReadSetting(setting.id, text) == state.value)
        return {};
    } catch (const Refusal &refusal) {
      return refusal.what();
    }
    return "it shows '" + text + "' and has '" + state.text + "'";
  }

  std::mt19937 random;
  Scene scene;
  QTimer answers;
};

} // namespace

int main(int count, char **arguments) {
  constexpr int usualSteps = 300;
  const QApplication application(count, arguments);
  scene::prepare();
  const int steps = count > 1 ? std::atoi(arguments[1]) : usualSteps; // NOLINT
  const unsigned seed =
      count > 2 ? static_cast<unsigned>(std::atoi(arguments[2])) // NOLINT
                : 1;
  Walk walk(seed);
  for (int i = 0; i < steps; ++i) {
    const std::string problem = walk.step();
    if (!problem.empty()) {
      std::printf("seed %u, step %d: %s\n", seed, i, problem.c_str());
      return 1;
    }
  }
  std::printf("%d steps, seed %u\n", steps, seed);
  return 0;
}

#include "pages/ChainEditor.h"

#include <functional>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStringList>
#include <QTableWidget>
#include <QVBoxLayout>

#include "pages/LineEditor.h"
#include "pages/Texts.h"
#include "pages/ToneDelegate.h"

namespace ZelDebugDialog::dialog {

namespace {

constexpr int rowsShown = 4;

std::vector<const SettingInfo *> fieldsOf(const SettingInfo &chain) {
  std::vector<const SettingInfo *> fields;
  const std::string front = chain.id + "[";
  for (const SettingInfo &setting : GetSettings())
    if (setting.id.compare(0, front.size(), front) == 0)
      fields.push_back(&setting);
  return fields;
}

/// "device field text", a line each.
QString written(const CellTexts &texts) {
  QStringList lines;
  for (const auto &[cell, text] : texts)
    lines.append(QStringLiteral("%1 %2 %3")
                     .arg(cell.first)
                     .arg(cell.second)
                     .arg(QString(text).replace(u'\n', u' ')));
  return lines.join(u'\n');
}

CellTexts readTexts(const QString &text) {
  CellTexts texts;
  for (const QString &line : text.split(u'\n')) {
    const QString device = line.section(u' ', 0, 0);
    const QString field = line.section(u' ', 1, 1);
    texts[{device.toInt(), field.toInt()}] = line.section(u' ', 2);
  }
  return texts;
}

/// Why a text is no value of a field; empty if it is one.
QString problemOf(const SettingInfo &field, const QString &text) {
  try {
    ReadSetting(field.id, bytesOf(text));
  } catch (const Refusal &refusal) {
    return shown(refusal.problem);
  }
  return {};
}

/// Says to assistive programs what is being edited, and to the table that it
/// is.
class CellDelegate : public ToneDelegate {
public:
  /// An editor opens over a text.
  using Opened = std::function<void(QLineEdit &, const QString &)>;

  CellDelegate(QObject *parent, Opened whenOpened)
      : ToneDelegate(parent), opened(std::move(whenOpened)) {}

  QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                        const QModelIndex &index) const override {
    QWidget *const editor = ToneDelegate::createEditor(parent, option, index);
    if (editor != nullptr)
      editor->setAccessibleName(
          index.model()->headerData(index.column(), Qt::Horizontal).toString());
    if (auto *const line = qobject_cast<QLineEdit *>(editor)) {
      line->setValidator(new PastedText(line));
      opened(*line, index.data(Qt::EditRole).toString());
    }
    return editor;
  }

private:
  Opened opened;
};

} // namespace

ChainEditor::ChainEditor(const SettingInfo &setting, SessionModel &sessionModel,
                         QWidget *parent)
    : ValueEditor(setting, sessionModel, parent), fields(fieldsOf(setting)),
      table(new QTableWidget(this)) {
  auto *const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  table->setAccessibleName(labelOf(setting));
  table->setColumnCount(static_cast<int>(fields.size()));
  table->setTabKeyNavigation(false);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setSelectionMode(QAbstractItemView::SingleSelection);
  auto *const delegate =
      new CellDelegate(table, [this](QLineEdit &editor, const QString &before) {
        follow(editor, before);
      });
  table->setItemDelegate(delegate);
  connect(delegate, &QAbstractItemDelegate::closeEditor, this,
          [this] { model->noteOpenText(false); });
  connect(model, &SessionModel::openTextWanted, this, &ChainEditor::closeCell);
  QHeaderView *const header = table->horizontalHeader();
  for (int column = 0; column < table->columnCount(); ++column) {
    const SettingInfo &field = *fields[static_cast<std::size_t>(column)];
    auto *const title = new QTableWidgetItem(labelOf(field));
    title->setToolTip(helpOf(field));
    table->setHorizontalHeaderItem(column, title);
  }
  header->setDefaultAlignment(Qt::AlignCenter |
                              static_cast<Qt::Alignment>(Qt::TextWordWrap));
  header->setSectionResizeMode(QHeaderView::Stretch);
  header->setFixedHeight(2 * fontMetrics().height() + 10);
  table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table->setFixedHeight(
      header->height() +
      rowsShown * table->verticalHeader()->defaultSectionSize() + 2);
  connect(table, &QTableWidget::itemChanged, this, &ChainEditor::takeCell);
  connect(table, &QTableWidget::currentCellChanged, this,
          &ChainEditor::updateButtons);
  layout->addWidget(table);

  auto *const buttons = new QHBoxLayout;
  const auto add = [&](const QString &text, const QString &name) {
    auto *const button = new QPushButton(text, this);
    button->setAccessibleName(name);
    button->setToolTip(name);
    buttons->addWidget(button);
    return button;
  };
  QPushButton *const addButton = add(tr("Add"), tr("Add a device"));
  removeButton = add(tr("Remove"), tr("Remove the device"));
  upButton = add(tr("Up"), tr("Move the device up"));
  downButton = add(tr("Down"), tr("Move the device down"));
  buttons->addStretch();
  layout->addLayout(buttons);
  connect(addButton, &QPushButton::clicked, this, &ChainEditor::insert);
  connect(removeButton, &QPushButton::clicked, this, &ChainEditor::remove);
  connect(upButton, &QPushButton::clicked, this, [this] { move(-1); });
  connect(downButton, &QPushButton::clicked, this, [this] { move(1); });
  setFocusProxy(table);
}

/// The table ends editing while it goes, when nothing can be taken any more.
ChainEditor::~ChainEditor() {
  if (editing != nullptr)
    QObject::disconnect(editing, nullptr, this, nullptr);
  QObject::disconnect(table, nullptr, this, nullptr);
  QObject::disconnect(table->itemDelegate(), nullptr, this, nullptr);
}

QWidget *ChainEditor::field() { return table; }

void ChainEditor::follow(QLineEdit &editor, const QString &before) {
  editing = &editor;
  connect(&editor, &QLineEdit::textEdited, &follows,
          [this, before](const QString &text) {
            model->noteOpenText(text != before);
          });
  // Also where its row is taken away. The line that goes may still be pointed
  // to.
  connect(&editor, &QObject::destroyed, &follows, [this](QObject *gone) {
    if (editing == nullptr || editing == gone)
      model->noteOpenText(false);
  });
}

/// As leaving it does. A line that goes loses the focus on its way, and is none
/// any more.
void ChainEditor::closeCell() {
  auto *const editor = qobject_cast<QLineEdit *>(editing.data());
  editing = nullptr;
  if (editor == nullptr)
    return;
  QAbstractItemDelegate *const delegate = table->itemDelegate();
  emit delegate->commitData(editor);
  emit delegate->closeEditor(editor, QAbstractItemDelegate::NoHint);
}

Value::Chain ChainEditor::devices() const {
  const SettingState *const state = model->find(info->id);
  return state != nullptr && state->value.IsChain() ? state->value.Devices()
                                                    : Value::Chain();
}

CellTexts ChainEditor::unfinished() const {
  const SettingState *const state = model->find(info->id);
  return state != nullptr && state->draft ? readTexts(shown(*state->draft))
                                          : CellTexts();
}

QString ChainEditor::errorIn(const SettingState &state) const {
  if (!state.draft)
    return {};
  QStringList problems;
  for (const auto &[cell, text] : readTexts(shown(*state.draft))) {
    const auto column = static_cast<std::size_t>(cell.second);
    if (column < fields.size())
      problems.append(
          tr("Device %1, %2: %3")
              .arg(cell.first + 1)
              .arg(labelOf(*fields[column]), problemOf(*fields[column], text)));
  }
  return problems.join(u'\n');
}

void ChainEditor::display(const SettingState &state) {
  const QSignalBlocker quiet(table);
  const Value::Chain chain =
      state.value.IsChain() ? state.value.Devices() : Value::Chain();
  const CellTexts texts =
      state.draft ? readTexts(shown(*state.draft)) : CellTexts();
  table->setRowCount(static_cast<int>(chain.size()));
  for (int row = 0; row < table->rowCount(); ++row)
    for (int column = 0; column < table->columnCount(); ++column)
      displayCell(row, column, texts);
  updateButtons();
}

void ChainEditor::displayCell(int row, int column, const CellTexts &texts) {
  const SettingInfo &field = *fields[static_cast<std::size_t>(column)];
  const Value::Chain chain = devices();
  const Value &value =
      chain[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]
          .second;
  QTableWidgetItem *item = table->item(row, column);
  if (item == nullptr) {
    item = new QTableWidgetItem;
    table->setItem(row, column, item);
  }
  const bool isFlag = field.kind == SettingKind::flag;
  const auto text = texts.find({row, column});
  const QString problem =
      text == texts.end() ? QString() : problemOf(field, text->second);
  if (isFlag) {
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled |
                   Qt::ItemIsUserCheckable);
    const bool isOn = value.IsFlag() ? value.Flag() : value.Number() != 0;
    item->setCheckState(isOn ? Qt::Checked : Qt::Unchecked);
    item->setData(Qt::AccessibleTextRole, labelOf(field));
  } else {
    item->setText(text == texts.end() ? shown(ShowValue(field, value))
                                      : text->second);
  }
  item->setToolTip(problem.isEmpty() ? helpOf(field) : problem);
  setTone(*item, problem.isEmpty() ? Tone::plain : Tone::fault);
}

void ChainEditor::take(Value::Chain chain, const CellTexts &texts) {
  model->change(info->id, std::move(chain));
  if (!texts.empty())
    model->keepDraft(info->id, written(texts));
  else if (const SettingState *const state = model->find(info->id);
           state != nullptr && state->draft)
    model->dropDraft(info->id);
}

void ChainEditor::takeCell(QTableWidgetItem *item) {
  const int row = item->row();
  const int column = item->column();
  const SettingInfo &field = *fields[static_cast<std::size_t>(column)];
  Value::Chain chain = devices();
  CellTexts texts = unfinished();
  if (static_cast<std::size_t>(row) >= chain.size())
    return;
  Value &value =
      chain[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]
          .second;
  texts.erase({row, column});
  if (field.kind == SettingKind::flag) {
    const bool isOn = item->checkState() == Qt::Checked;
    value = value.IsFlag() ? Value(isOn) : Value(isOn ? 1 : 0);
  } else if (item->text() == shown(ShowValue(field, value))) {
    // As it was: also a text that nobody could type.
  } else if (problemOf(field, item->text()).isEmpty()) {
    value = ReadSetting(field.id, bytesOf(item->text()));
  } else {
    texts[{row, column}] = item->text();
  }
  take(std::move(chain), texts);
}

void ChainEditor::insert() {
  Value::Chain chain = devices();
  const int row = static_cast<int>(chain.size());
  // What is left out has the default of a new device.
  chain.emplace_back();
  take(std::move(chain), unfinished());
  if (row < table->rowCount())
    table->setCurrentCell(row, 0);
}

void ChainEditor::remove() {
  const int row = table->currentRow();
  Value::Chain chain = devices();
  if (row < 0 || static_cast<std::size_t>(row) >= chain.size())
    return;
  chain.erase(chain.begin() + row);
  CellTexts texts;
  for (const auto &[cell, text] : unfinished())
    if (cell.first != row)
      texts[{cell.first - (cell.first > row ? 1 : 0), cell.second}] = text;
  take(std::move(chain), texts);
}

void ChainEditor::move(int by) {
  const int row = table->currentRow();
  const int other = row + by;
  Value::Chain chain = devices();
  if (row < 0 || other < 0 || std::max(row, other) >= table->rowCount())
    return;
  std::swap(chain[static_cast<std::size_t>(row)],
            chain[static_cast<std::size_t>(other)]);
  CellTexts texts;
  for (const auto &[cell, text] : unfinished()) {
    const int place = cell.first == row     ? other
                      : cell.first == other ? row
                                            : cell.first;
    texts[{place, cell.second}] = text;
  }
  const int column = table->currentColumn();
  take(std::move(chain), texts);
  table->setCurrentCell(other, column);
}

void ChainEditor::updateButtons() {
  const int row = table->currentRow();
  const bool isThere = row >= 0 && row < table->rowCount();
  removeButton->setEnabled(isThere);
  upButton->setEnabled(isThere && row > 0);
  downButton->setEnabled(isThere && row + 1 < table->rowCount());
}

/// "chain[2].idcode" without knowing how the chain or its fields are called.
void ChainEditor::lead(const std::string &setting) {
  const std::size_t open = setting.find('[');
  const std::size_t close = setting.find(']');
  if (open == std::string::npos || close == std::string::npos)
    return;
  const int row = shown(setting.substr(open + 1, close - open - 1)).toInt();
  const SettingInfo *const field = FindSetting(setting);
  for (std::size_t i = 0; i < fields.size(); ++i)
    if (fields[i] == field)
      table->setCurrentCell(row, static_cast<int>(i));
}

} // namespace ZelDebugDialog::dialog

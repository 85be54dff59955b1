#include "pages/ValueEditor.h"

#include "pages/ChainEditor.h"
#include "pages/ChoiceEditors.h"
#include "pages/LineEditor.h"
#include "pages/Texts.h"

namespace ZelDebugDialog::dialog {

QString ValueEditor::errorIn(const SettingState &state) const {
  return state.draft ? shown(state.error) : QString();
}

void ValueEditor::lead(const std::string & /*setting*/) {}

ValueEditor *makeEditor(const SettingInfo &setting, SessionModel &model,
                        QWidget *parent) {
  if (!setting.settable)
    return new ShownValue(setting, model, parent);
  switch (setting.kind) {
  case SettingKind::flag:
    return new FlagEditor(setting, model, parent);
  case SettingKind::word:
    return new WordEditor(setting, model, parent);
  case SettingKind::chain:
    return new ChainEditor(setting, model, parent);
  case SettingKind::number:
  case SettingKind::address:
  case SettingKind::frequency:
  case SettingKind::text:
  case SettingKind::file:
    break;
  }
  return new LineEditor(setting, model, parent);
}

} // namespace ZelDebugDialog::dialog

#include "documents/Settings.h"

#include <ZelDebugDialog/ConfigurationModel/Settings.h>

#include "documents/Bytes.h"
#include "documents/Commands.h"
#include "documents/Json.h"
#include "documents/Values.h"

namespace ZelDebugDialog::documents {

namespace {

void addText(Json &row, const char *name, const std::string &text) {
  if (!text.empty())
    row[name] = text;
}

template <class Optional>
void addOptional(Json &row, const char *name, const Optional &value) {
  if (value)
    row[name] = *value;
}

void addBytes(Json &row, const char *name, const Value &value) {
  if (Json bytes = bytesOf(value); !bytes.is_null())
    row["bytes"][name] = std::move(bytes);
}

Json choicesJson(const std::vector<Choice> &choices) {
  Json list = Json::array();
  for (const Choice &choice : choices)
    list.push_back({{"value", toJson(choice.value)}, {"label", choice.label}});
  return list;
}

Json choicesJson(const std::vector<ChoiceState> &choices) {
  Json list = Json::array();
  for (const ChoiceState &each : choices) {
    Json row{{"value", toJson(each.choice.value)},
             {"label", each.choice.label}};
    addText(row, "reason", each.reason);
    list.push_back(std::move(row));
  }
  return list;
}

Json settingJson(const SettingState &setting) {
  Json row{{"value", toJson(setting.value)}, {"text", setting.text}};
  if (Json bytes = bytesOf(setting.value); !bytes.is_null())
    row["bytes"] = std::move(bytes);
  row["default"] = toJson(setting.defaultValue);
  row["origin"] = setting.origin;
  row["applicable"] = setting.applicable;
  addText(row, "reason", setting.reason);
  addOptional(row, "draft", setting.draft);
  addText(row, "error", setting.error);
  if (!setting.choices.empty())
    row["choices"] = choicesJson(setting.choices);
  return row;
}

Json deviceJson(const std::vector<SettingState> &fields) {
  Json device = Json::object();
  for (const SettingState &field : fields)
    device[field.id.substr(field.id.find('.') + 1)] = settingJson(field);
  return device;
}

/// Places in the command as it is shown.
class Places {
public:
  explicit Places(const std::string &command)
      : text(command), isAsShown(isUtf8(command)) {}

  void put(Json &row, std::size_t offset, std::size_t length) const {
    const std::size_t from = at(offset);
    row["offset"] = from;
    row["length"] = at(offset + length) - from;
  }

private:
  std::size_t at(std::size_t offset) const {
    return isAsShown ? offset : shownOffset(text, offset);
  }

  const std::string &text;
  bool isAsShown;
};

Json wordsJson(const std::vector<StateWord> &words, const Places &places) {
  Json list = Json::array();
  for (const StateWord &word : words) {
    Json row = Json::object();
    places.put(row, word.offset, word.length);
    row["role"] = word.role;
    addText(row, "setting", word.setting);
    list.push_back(std::move(row));
  }
  return list;
}

Json diagnosticsJson(const std::vector<CommandDiagnostic> &diagnostics,
                     const Places &places) {
  Json list = Json::array();
  for (const CommandDiagnostic &diagnostic : diagnostics) {
    list.push_back(diagnosticJson(diagnostic));
    places.put(list.back(), diagnostic.offset, diagnostic.length);
  }
  return list;
}

Json differencesJson(const std::vector<Difference> &differences) {
  Json list = Json::array();
  for (const Difference &difference : differences) {
    Json row{{"setting", difference.setting},
             {"saved", toJson(difference.saved)},
             {"now", toJson(difference.now)}};
    addBytes(row, "saved", difference.saved);
    addBytes(row, "now", difference.now);
    list.push_back(std::move(row));
  }
  return list;
}

} // namespace

Json settingsJson() {
  Json list = Json::array();
  for (const SettingInfo &setting : GetSettings()) {
    Json row{{"id", setting.id},
             {"group", setting.group},
             {"label", setting.label},
             {"help", setting.help},
             {"kind", ShowKind(setting.kind)}};
    addText(row, "unit", setting.unit);
    addOptional(row, "minimum", setting.minimum);
    addOptional(row, "maximum", setting.maximum);
    row["settable"] = setting.settable;
    if (!setting.together.empty())
      row["together"] = setting.together;
    if (!setting.choices.empty())
      row["choices"] = choicesJson(setting.choices);
    list.push_back(std::move(row));
  }
  return list;
}

Json lossesJson(const std::vector<Loss> &losses) {
  Json list = Json::array();
  for (const Loss &loss : losses) {
    Json row{{"field", loss.field},
             {"value", toJson(loss.value)},
             {"readBack", toJson(loss.readBack)}};
    addBytes(row, "value", loss.value);
    addBytes(row, "readBack", loss.readBack);
    row["reason"] = loss.reason;
    row["code"] = loss.code;
    addText(row, "anchor", loss.anchor);
    addText(row, "displacedBy", loss.displacedBy);
    row["blocking"] = loss.blocking;
    list.push_back(std::move(row));
  }
  return list;
}

Json effectsJson(const std::vector<Effect> &effects) {
  Json list = Json::array();
  for (const Effect &effect : effects) {
    Json row{{"setting", effect.setting},
             {"before", toJson(effect.before)},
             {"after", toJson(effect.after)}};
    addBytes(row, "before", effect.before);
    addBytes(row, "after", effect.after);
    row["why"] = effect.why;
    list.push_back(std::move(row));
  }
  return list;
}

Json stateJson(const SessionState &state) {
  const std::string command = state.command.value_or("");
  const Places inCommand(command);
  Json shown{{"processor", state.processor},
             {"file", state.file},
             {"exists", state.exists},
             {"changedOnDisk", state.changedOnDisk}};
  addText(shown, "problem", state.problem);
  shown["dirty"] = state.dirty;
  shown["canUndo"] = state.canUndo;
  shown["canRedo"] = state.canRedo;
  shown["command"] = state.command ? Json(command) : Json();
  addText(shown, "commandError", state.commandError);
  addOptional(shown, "editedCommand", state.editedCommand);
  addOptional(shown, "draft", state.draft);
  Json &settings = shown["settings"] = Json::object();
  for (const SettingState &setting : state.settings)
    settings[setting.id] = settingJson(setting);
  Json chain = Json::array();
  for (const std::vector<SettingState> &device : state.chain)
    chain.push_back(deviceJson(device));
  shown["chain"] = std::move(chain);
  shown["words"] = wordsJson(state.words, inCommand);
  shown["losses"] = lossesJson(state.losses);
  shown["differences"] = differencesJson(state.differences);
  shown["diagnostics"] = diagnosticsJson(
      state.diagnostics, state.draft ? Places(*state.draft) : inCommand);
  return shown;
}

} // namespace ZelDebugDialog::documents

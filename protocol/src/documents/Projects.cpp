#include "documents/Projects.h"

#include <ZelDebugDialog/ConfigurationModel/Settings.h>
#include <ZelDebugDialog/ProjectFile/Codes.h>

#include "documents/Bytes.h"
#include "documents/Json.h"
#include "documents/Values.h"

namespace ZelDebugDialog::documents {

namespace {

void addSaidText(Json &row, const char *name, const std::string &text) {
  if (!text.empty())
    row[name] = text;
}

void addPlace(Json &row, const ProjectPlace &place) {
  if (place.line == 0)
    return;
  row["file"] = place.file;
  row["line"] = place.line;
  row["column"] = place.column;
}

Json remarksJson(const std::vector<ProjectFault> &remarks) {
  Json list = Json::array();
  for (const ProjectFault &one : remarks) {
    Json row{{"severity", ShowSeverity(one.severity)},
             {"code", one.code},
             {"message", one.message}};
    addSaidText(row, "setting", one.setting);
    addPlace(row, one.place);
    list.push_back(std::move(row));
  }
  return list;
}

Json saidJson(const std::string &setting, const Value &value,
              const std::string &layer, const ProjectPlace &place) {
  Json row{{"value", toJson(value)}};
  if (const SettingInfo *const info = FindSetting(setting))
    row["text"] = ShowValue(*info, value);
  if (Json bytes = bytesOf(value); !bytes.is_null())
    row["bytes"] = std::move(bytes);
  row["layer"] = layer;
  addPlace(row, place);
  return row;
}

/// What is shown of the connection is another setting than the one that is
/// said, and its value as well.
Json placeJson(const SaidSetting &said) {
  Json row{{"layer", said.layer}};
  addPlace(row, said.value.place);
  return row;
}

const Value *findField(const ChainDevice &device, const std::string &name) {
  for (const auto &[field, value] : device)
    if (field == name)
      return &value;
  return nullptr;
}

/// Of each device that the configuration has as well.
void addDevices(Json &chain, const SaidSetting &said) {
  const auto &places = said.value.devices;
  const Value::Chain &devices = said.value.value.Devices();
  for (std::size_t i = 0; i < chain.size() && i < devices.size(); ++i) {
    if (i >= places.size())
      return;
    for (const auto &[name, place] : places[i]) {
      const Value *const value = findField(devices[i], name);
      if (value != nullptr && chain[i].contains(name))
        chain[i][name]["project"] =
            saidJson("chain[]." + name, *value, said.layer, place);
    }
  }
}

} // namespace

Json faultsJson(const std::vector<ProjectFault> &faults) {
  Json list = Json::array();
  for (const ProjectFault &one : faults)
    list.push_back({{"file", one.place.file},
                    {"line", one.place.line},
                    {"column", one.place.column},
                    {"code", one.code},
                    {"message", one.message},
                    {"accepted", one.accepted},
                    {"suggestion",
                     one.suggestion.empty() ? Json() : Json(one.suggestion)}});
  return list;
}

Json projectJson(const ProjectBoard &project) {
  const Project files = project.Files();
  const ProjectChoice choice = project.Choice();
  Json row{{"file", files.project.file}};
  if (files.local.exists)
    row["local"] = files.local.file;
  addSaidText(row, "probe", choice.probe.name);
  addSaidText(row, "profile", choice.profile.name);
  row["probes"] = project.Probes();
  row["profiles"] = project.Profiles();
  row["warnings"] = remarksJson(project.Warnings());
  return row;
}

Json writtenJson(const WrittenProject &written) {
  return {{"file", written.file},
          {"changed", written.isChanged},
          {"remarks", remarksJson(written.remarks)}};
}

void addSaid(Json &state, const SaidProcessor &said) {
  Json whole{{"command", said.command ? Json(*said.command) : Json()}};
  if (said.refusal) {
    whole["problem"] = said.refusal->problem;
    addPlace(whole, said.place);
  }
  whole["remarks"] = remarksJson(said.remarks);
  state["project"] = std::move(whole);
  for (auto &[id, row] : state["settings"].items()) {
    const SaidSetting *const one = said.Find(id);
    if (one == nullptr)
      continue;
    row["project"] =
        one->value.setting == id
            ? saidJson(id, one->value.value, one->layer, one->value.place)
            : placeJson(*one);
    if (one->value.value.IsChain())
      addDevices(state["chain"], *one);
  }
}

} // namespace ZelDebugDialog::documents

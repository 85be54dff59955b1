// Prints the JSON Schemas of the project file and of the local file, made of
// the tables from which both are read: one object, a member each.
#include <algorithm>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "reading/Keys.h"

namespace {

using namespace ZelDebugDialog;
using namespace ZelDebugDialog::project;
using Json = nlohmann::ordered_json;

/// Only these members.
Json closed(Json properties) {
  return {{"type", "object"},
          {"additionalProperties", false},
          {"properties", std::move(properties)}};
}

/// Members of any name that is none of `none`.
Json named(const Json &schema, const Json &names) {
  return {{"type", "object"},
          {"propertyNames", names},
          {"additionalProperties", schema}};
}

Json listOf(const Json &items) { return {{"type", "array"}, {"items", items}}; }

/// A name that `use` can choose.
Json chosenNames() {
  return {{"pattern", "^[A-Za-z0-9_-]+$"}, {"not", {{"const", noChoice}}}};
}

Json numberSchema(const SettingInfo &setting) {
  Json integer{{"type", "integer"}};
  if (setting.minimum)
    integer["minimum"] = *setting.minimum;
  if (setting.maximum)
    integer["maximum"] = *setting.maximum;
  return {{"anyOf", {integer, {{"type", "string"}, {"minLength", 1}}}}};
}

/// Its texts first: an editor offers them.
Json wordSchema(const SettingInfo &setting) {
  Json values = Json::array();
  for (const Choice &choice : setting.choices)
    values.push_back(choice.text);
  for (const Choice &choice : setting.choices)
    if (choice.value.IsNumber())
      values.push_back(choice.value.Number());
  return {{"enum", values}};
}

Json deviceSchema();

Json valueSchema(const SettingInfo &setting) {
  Json schema;
  switch (setting.kind) {
  case SettingKind::flag:
    schema = {{"type", "boolean"}};
    break;
  case SettingKind::number:
  case SettingKind::address:
  case SettingKind::frequency:
    schema = numberSchema(setting);
    break;
  case SettingKind::text:
  case SettingKind::file:
    schema = {{"type", "string"}};
    break;
  case SettingKind::word:
    schema = wordSchema(setting);
    break;
  case SettingKind::chain:
    schema = listOf(deviceSchema());
    break;
  }
  Json described{{"title", setting.label}, {"description", setting.help}};
  described.update(schema);
  return described;
}

Json deviceSchema() {
  const std::string front = "chain[].";
  Json fields = Json::object();
  for (const SettingInfo &setting : GetSettings())
    if (setting.id.compare(0, front.size(), front) == 0)
      fields[setting.id.substr(front.size())] = valueSchema(setting);
  Json schema = closed(fields);
  schema["required"] = requiredFields();
  return schema;
}

/// The settings that a table takes; TOML makes a table of what stands in front
/// of a dot.
Json tableSchema(std::string_view front = "") {
  Json properties = Json::object();
  for (const std::string &name : acceptedSettings(front)) {
    const SettingInfo &setting = *FindSetting(std::string(front) + name);
    const std::size_t dot = name.find('.');
    if (dot == std::string::npos) {
      properties[name] = valueSchema(setting);
      continue;
    }
    Json &group = properties[name.substr(0, dot)];
    if (group.is_null())
      group = closed(Json::object());
    group["properties"][name.substr(dot + 1)] = valueSchema(setting);
  }
  // In a probe, with what its keys lack in front or without.
  std::vector<std::string> unset = acceptedSettings(front);
  if (!front.empty())
    for (const std::string &name : acceptedSettings(front))
      unset.push_back(std::string(front) + name);
  properties[unsetKey] = listOf({{"enum", unset}});
  properties[unsetKey]["description"] =
      "Settings of which nothing counts that stands below.";
  return closed(properties);
}

Json schemaOf(const KeyRow &row);

Json blockSchema() {
  Json properties = Json::object();
  const std::vector<std::string> &keys = blockKeys();
  for (const KeyRow &row : fileKeys())
    if (std::find(keys.begin(), keys.end(), row.key) != keys.end())
      properties[row.key] = schemaOf(row);
  return closed(properties);
}

Json shapeOf(KeyShape shape) {
  switch (shape) {
  case KeyShape::version:
    return {{"const", 1}};
  case KeyShape::path:
  case KeyShape::text:
    return {{"type", "string"}, {"minLength", 1}};
  case KeyShape::paths:
    return listOf({{"type", "string"}, {"minLength", 1}});
  case KeyShape::use: {
    Json properties = Json::object();
    for (const std::string &key : useKeys())
      properties[key] = {{"type", "string"},
                         {"pattern", "^[A-Za-z0-9_-]+$"},
                         {"description", "A name of the files, or " +
                                             std::string(noChoice) + "."}};
    return closed(properties);
  }
  case KeyShape::settings:
    return {{"$ref", "#/$defs/settings"}};
  case KeyShape::types:
  case KeyShape::processors:
    return named({{"$ref", "#/$defs/settings"}}, {{"minLength", 1}});
  case KeyShape::probes:
    return named({{"$ref", "#/$defs/probe"}}, chosenNames());
  case KeyShape::profiles:
    return named({{"$ref", "#/$defs/block"}}, chosenNames());
  }
  return {};
}

Json schemaOf(const KeyRow &row) {
  Json schema{{"description", row.help}};
  schema.update(shapeOf(row.shape));
  return schema;
}

Json fileSchema(FileKind kind, const char *id, const char *title) {
  Json properties = Json::object();
  const std::vector<std::string> keys = keysOf(kind);
  for (const KeyRow &row : fileKeys())
    if (std::find(keys.begin(), keys.end(), row.key) != keys.end())
      properties[row.key] = schemaOf(row);
  Json schema{{"$schema", "https://json-schema.org/draft/2020-12/schema"},
              {"$id", id},
              {"title", title}};
  schema.update(closed(properties));
  if (kind == FileKind::project)
    schema["required"] = {"design"};
  schema["$defs"] = {{"settings", tableSchema()},
                     {"probe", tableSchema(cableFront)},
                     {"block", blockSchema()}};
  return schema;
}

} // namespace

int main() {
  const Json schemas{
      {"project-file", fileSchema(FileKind::project, "project-file.schema.json",
                                  "The project file, zeldebug.toml")},
      {"project-file-local",
       fileSchema(FileKind::local, "project-file-local.schema.json",
                  "The local file beside it, zeldebug.local.toml")}};
  std::cout << schemas.dump(2) << '\n';
}

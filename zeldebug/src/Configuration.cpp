#include "Configuration.h"

#include <algorithm>
#include <string_view>

#include <fmt/format.h>

namespace zeldebug {

namespace {

using ZelDebugDialog::EngineImp;
using ZelDebugDialog::JtagOption;

template <class Record>
void appendSettings(std::vector<Setting> &settings, const std::string &prefix,
                    const Record &record, const FieldTable<Record> &fields) {
  for (const Field<Record> &field : fields)
    if (field.kind != FieldKind::command)
      settings.push_back({prefix + std::string(field.name), field.kind,
                          valueOf(record, field)});
}

std::string deviceName(std::size_t position) {
  return fmt::format("chain[{}]", position);
}

/// The fields of the devices that both chains have, then the devices that one
/// of them has more.
void appendChainDifferences(std::vector<Difference> &differences,
                            const std::vector<JtagOption> &before,
                            const std::vector<JtagOption> &after) {
  const std::size_t most = std::max(before.size(), after.size());
  for (std::size_t i = 0; i < most; ++i) {
    if (i >= before.size() || i >= after.size()) {
      const Json left =
          i < before.size() ? toJson(before[i], chainFields()) : Json();
      const Json right =
          i < after.size() ? toJson(after[i], chainFields()) : Json();
      differences.push_back({deviceName(i), FieldKind::text, left, right});
      continue;
    }
    for (const Field<JtagOption> &field : chainFields()) {
      const Json left = valueOf(before[i], field);
      const Json right = valueOf(after[i], field);
      if (left != right)
        differences.push_back({deviceName(i) + "." + std::string(field.name),
                               field.kind, left, right});
    }
  }
}

/// Everything but the chain, whose length varies.
std::vector<Setting> fixedSettingsOf(const Configuration &configuration) {
  std::vector<Setting> settings;
  appendSettings(settings, "", configuration.record, processorFields());
  appendSettings(settings, "cable.", configuration.cable, cableFields());
  settings.push_back({"cpuJtag", FieldKind::number, configuration.cpuJtag});
  return settings;
}

template <class Record>
Setting settingIn(const Record &record, const FieldTable<Record> &fields,
                  std::string_view field, const std::string &name) {
  for (const Field<Record> &known : fields)
    if (known.name == field)
      return {name, known.kind, valueOf(record, known)};
  return {name, FieldKind::text, Json()};
}

} // namespace

Configuration configurationOf(const EngineImp &state) {
  Configuration configuration;
  configuration.record = *state.currentProcessor;
  configuration.cable = *state.cableOption;
  configuration.cpuJtag = state.cpuJtag;
  for (const JtagOption *device : state.jtagChain)
    configuration.chain.push_back(*device);
  return configuration;
}

Configuration defaultsBeside(const Configuration &configuration,
                             const ZelDebugDialog::ProcessorInfoImp &identity) {
  Configuration defaults;
  defaults.record = identity;
  defaults.record.ProcessorInfoImpInit();
  defaults.cable.CableOptionInit(configuration.cable.cableType);
  defaults.cable.cableType = ZelDebugDialog::Engine::CABLE_NONE;
  defaults.chain.resize(configuration.chain.size());
  return defaults;
}

Json toJson(const Configuration &configuration) {
  Json json;
  json["record"] = toJson(configuration.record, processorFields());
  json["cable"] = toJson(configuration.cable, cableFields());
  json["cpuJtag"] = configuration.cpuJtag;
  json["chain"] = Json::array();
  for (const JtagOption &device : configuration.chain)
    json["chain"].push_back(toJson(device, chainFields()));
  return json;
}

std::vector<Setting> settingsOf(const Configuration &configuration) {
  std::vector<Setting> settings = fixedSettingsOf(configuration);
  for (std::size_t i = 0; i < configuration.chain.size(); ++i)
    appendSettings(settings, deviceName(i) + ".", configuration.chain[i],
                   chainFields());
  return settings;
}

Setting settingNamed(const Configuration &configuration,
                     const std::string &name) {
  if (name == "cpuJtag")
    return {name, FieldKind::number, configuration.cpuJtag};
  const std::size_t dot = name.find('.');
  if (dot == std::string::npos)
    return settingIn(configuration.record, processorFields(), name, name);
  const std::string_view field = std::string_view(name).substr(dot + 1);
  if (name.compare(0, dot, "cable") == 0)
    return settingIn(configuration.cable, cableFields(), field, name);
  const std::size_t position = std::stoul(name.substr(name.find('[') + 1));
  return position < configuration.chain.size()
             ? settingIn(configuration.chain[position], chainFields(), field,
                         name)
             : Setting{name, FieldKind::text, Json()};
}

std::vector<Difference> differencesBetween(const Configuration &before,
                                           const Configuration &after) {
  std::vector<Difference> differences;
  const std::vector<Setting> left = fixedSettingsOf(before);
  const std::vector<Setting> right = fixedSettingsOf(after);
  for (std::size_t i = 0; i < left.size(); ++i)
    if (left[i].value != right[i].value)
      differences.push_back(
          {left[i].name, left[i].kind, left[i].value, right[i].value});
  appendChainDifferences(differences, before.chain, after.chain);
  return differences;
}

std::string shownSide(const Json &value, FieldKind kind) {
  if (value.is_null())
    return "nothing";
  if (value.is_object())
    return "a device";
  return shownValue(value, kind);
}

Json toJson(const std::vector<Difference> &differences) {
  Json list = Json::array();
  for (const Difference &difference : differences)
    list.push_back({{"name", difference.name},
                    {"before", difference.before},
                    {"after", difference.after}});
  return list;
}

} // namespace zeldebug

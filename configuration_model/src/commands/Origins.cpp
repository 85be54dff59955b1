#include "commands/Origins.h"

#include <map>

#include <fmt/format.h>

#include "ZelDebugDialog/EngineFacts.h"

namespace ZelDebugDialog::model {

namespace {

constexpr const char *engineDefault = "default";
constexpr const char *byDesign = "design";

class Origins {
public:
  Origins(const CommandTrace &trace, bool hasCommand) {
    if (hasCommand)
      places["connectCommand"] = "file:1";
    for (const CommandWord &word : trace.words)
      for (const std::string &field : word.fields) {
        const std::string place = fmt::format("file:{}", word.offset + 1);
        places[field] = place;
        places[settingOf(field)] = place;
      }
  }

  std::string of(const std::string &setting) const {
    const auto found = places.find(setting);
    return found == places.end() ? std::string() : found->second;
  }

private:
  std::map<std::string, std::string> places;
};

std::string orDefault(const std::string &origin) {
  return origin.empty() ? engineDefault : origin;
}

} // namespace

std::string originOfIdentity(const SettingRow &row,
                             const ProcessorInfoImp &selected,
                             const std::string &byCommand) {
  if (row.info.id == "instanceName" || row.info.id == "cpuNr")
    return byDesign;
  if (row.info.id == "fpuType")
    return selected.procFamily == familyPowerPc ? byDesign : engineDefault;
  return byCommand.empty() ? byDesign : byCommand;
}

void appendSettings(CommandSettings &read, const Snapshot &snapshot,
                    const CommandTrace &trace, bool design) {
  const Origins origins(trace, read.line != 0);
  read.chain.resize(snapshot.chain.size());
  for (const SettingRow &row : settingRows()) {
    if (row.isOfDevice()) {
      for (std::size_t i = 0; i < read.chain.size(); ++i) {
        const std::string id = deviceName(i) + "." + row.deviceField();
        read.chain[i].push_back(
            {id, valueIn(snapshot, row, i), orDefault(origins.of(id))});
      }
      continue;
    }
    if (row.info.kind == SettingKind::chain)
      continue;
    const std::string place = origins.of(row.info.id);
    read.settings.push_back({row.info.id, valueIn(snapshot, row),
                             row.isIdentity && design
                                 ? originOfIdentity(row, snapshot.record, place)
                                 : orDefault(place)});
  }
}

} // namespace ZelDebugDialog::model

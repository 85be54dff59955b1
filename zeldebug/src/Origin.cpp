#include "Origin.h"

#include <array>

#include <fmt/format.h>

namespace zeldebug {

namespace {

using ZelDebugDialog::CommandTrace;
using ZelDebugDialog::CommandWord;
using ZelDebugDialog::ProcessorInfoImp;

constexpr std::array<const char *, 5> identityFields{
    "instanceName", "procFamily", "procType", "connectionMask", "cpuNr"};

constexpr const char *fromDesign = "design";
constexpr const char *fromOption = "option";
constexpr std::uint32_t powerPc = 1;

template <class Record>
Json originsOf(const Origins &origins, const std::string &prefix,
               const FieldTable<Record> &fields) {
  Json object = Json::object();
  for (const Field<Record> &field : fields) {
    const std::string name(field.name);
    object[name] = origins.of(prefix + name);
  }
  return object;
}

} // namespace

void Origins::noteDesign() {
  for (const char *field : identityFields)
    known[field] = fromDesign;
}

void Origins::noteCommand(const CommandTrace &trace) {
  known["connectCommand"] = "file:1";
  for (const CommandWord &word : trace.words)
    for (const std::string &field : word.fields)
      known[field] = fmt::format("file:{}", word.offset + 1);
}

void Origins::noteCommandOfLine(const CommandTrace &trace) {
  known["connectCommand"] = fromOption;
  for (const CommandWord &word : trace.words)
    for (const std::string &field : word.fields)
      known[field] = fromOption;
}

void Origins::noteSelection(const ProcessorInfoImp &record) {
  known["cpuNr"] = fromDesign;
  if (record.procFamily == powerPc)
    known["fpuType"] = fromDesign;
  else
    known.erase("fpuType");
}

void Origins::noteOptions(const Configuration &before,
                          const Configuration &after,
                          const std::set<std::string> &given) {
  for (const std::string &field : given)
    known[field] = fromOption;
  for (const Difference &difference : differencesBetween(before, after))
    known[difference.name] = fromOption;
  if (given.count("chain") == 0)
    return;
  for (const Setting &setting : settingsOf(after))
    if (setting.name.compare(0, 6, "chain[") == 0)
      known[setting.name] = fromOption;
}

std::string Origins::of(const std::string &setting) const {
  const auto found = known.find(setting);
  return found == known.end() ? "default" : found->second;
}

Json Origins::toJson(const Configuration &configuration) const {
  Json json{{"record", originsOf(*this, "", processorFields())},
            {"cable", originsOf(*this, "cable.", cableFields())},
            {"cpuJtag", of("cpuJtag")},
            {"chain", Json::array()}};
  for (std::size_t i = 0; i < configuration.chain.size(); ++i)
    json["chain"].push_back(
        originsOf(*this, fmt::format("chain[{}].", i), chainFields()));
  return json;
}

} // namespace zeldebug

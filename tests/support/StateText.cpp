#include "support/StateText.h"

#include "support/Fields.h"

namespace ZelDebugDialog::test {

namespace {

std::string toText(const std::string &value) { return "\"" + value + "\""; }
std::string toText(Engine::CableType value) {
  return std::to_string(static_cast<std::uint32_t>(value));
}
template <class Number> std::string toText(Number value) {
  return std::to_string(value);
}

} // namespace

std::map<std::string, std::string> settingsOf(const EngineImp &imp) {
  std::map<std::string, std::string> settings;
  const auto addAll = [&settings](const std::string &prefix,
                                  const auto &record) {
    support::eachField(record, [&](const char *name, const auto &value) {
      settings[prefix + name] = toText(value);
    });
  };
  addAll("", *imp.currentProcessor);
  settings["cpuJtag"] = toText(imp.cpuJtag);
  addAll("cable.", *imp.cableOption);
  for (std::size_t i = 0; i < imp.jtagChain.size(); ++i)
    addAll("chain[" + std::to_string(i) + "].", *imp.jtagChain[i]);
  return settings;
}

} // namespace ZelDebugDialog::test

#include "CableKeyword.h"

#include <algorithm>

#include <fmt/format.h>
#include <strings.h>

namespace zeldebug {

namespace {

using ZelDebugDialog::CommandCable;
using ZelDebugDialog::Engine;

constexpr const char *noCable = "none";

const CommandCable *findCable(Engine::CableType type) {
  for (const CommandCable &cable : cables())
    if (cable.type == type)
      return &cable;
  return nullptr;
}

} // namespace

const std::vector<CommandCable> &cables() {
  static const std::vector<CommandCable> table = [] {
    std::vector<CommandCable> rows = ZelDebugDialog::GetCommandTables().cables;
    rows.insert(rows.begin(),
                CommandCable()); // no cable, of which no word speaks
    return rows;
  }();
  return table;
}

std::vector<std::string> cableKeywords() {
  std::vector<std::string> words;
  for (const CommandCable &cable : cables())
    words.insert(words.end(), cable.keywords.begin(), cable.keywords.end());
  words.emplace_back(noCable);
  return words;
}

std::optional<Engine::CableType> findCableType(const std::string &keyword) {
  if (strcasecmp(keyword.c_str(), noCable) == 0)
    return Engine::CABLE_NONE;
  for (const CommandCable &cable : cables())
    for (const std::string &word : cable.keywords)
      if (strcasecmp(keyword.c_str(), word.c_str()) == 0)
        return cable.type;
  return std::nullopt;
}

std::string shownCable(Engine::CableType type) {
  const CommandCable *cable = findCable(type);
  if (type == Engine::CABLE_NONE || cable == nullptr || cable->keywords.empty())
    return type == Engine::CABLE_NONE
               ? noCable
               : fmt::format("{}", static_cast<std::uint32_t>(type));
  return cable->keywords.front();
}

std::vector<std::uint32_t> acceptedFrequencies(Engine::CableType type) {
  const CommandCable *cable = findCable(type);
  return cable == nullptr ? std::vector<std::uint32_t>()
                          : cable->acceptedFrequencies;
}

bool acceptsFrequency(Engine::CableType type, std::uint32_t frequency) {
  const std::vector<std::uint32_t> accepted = acceptedFrequencies(type);
  return accepted.empty() || std::find(accepted.begin(), accepted.end(),
                                       frequency) != accepted.end();
}

} // namespace zeldebug

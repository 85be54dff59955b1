#include "line/ChainDevice.h"

#include <algorithm>
#include <array>
#include <set>
#include <vector>

#include <fmt/format.h>

#include <ZelDebugDialog/ConfigurationModel/Refusal.h>
#include <ZelDebugDialog/ConfigurationModel/Settings.h>

#include "line/Refused.h"
#include "output/Failure.h"
#include "output/Output.h"
#include "output/Suggestion.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::ChainDevice;
using ZelDebugDialog::Refusal;
using ZelDebugDialog::SettingInfo;
using ZelDebugDialog::Value;

constexpr const char *deviceOption = "--device";
constexpr const char *settingFront = "chain[].";

// What no device is without.
constexpr std::array<const char *, 4> required{"devicenr", "partname",
                                               "irlength", "idcode"};

/// Those that are required first.
std::vector<std::string> keys() {
  std::vector<std::string> names(required.begin(), required.end());
  const std::string front = settingFront;
  for (const SettingInfo &setting : ZelDebugDialog::GetSettings()) {
    if (setting.id.compare(0, front.size(), front) != 0)
      continue;
    const std::string name = setting.id.substr(front.size());
    if (std::find(names.begin(), names.end(), name) == names.end())
      names.push_back(name);
  }
  return names;
}

Failure wrongUse(const std::string &problem, const std::string &value,
                 FailureDetails about = {}) {
  about.option = deviceOption;
  about.value = value;
  return {ExitStatus::wrongUse, fmt::format("{}: {}", deviceOption, problem),
          about};
}

void expectKey(const std::string &name) {
  const std::vector<std::string> names = keys();
  if (std::find(names.begin(), names.end(), name) == names.end())
    throw wrongUse(fmt::format("unknown key '{}'; accepted are {}{}",
                               printable(name), quotedList(names),
                               didYouMean(name, names)),
                   name, {"", "", "", names, nearestMatch(name, names)});
}

Value valueOf(const std::string &key, const std::string &text) {
  try {
    return ZelDebugDialog::ReadSetting(settingFront + key, text);
  } catch (const Refusal &refusal) {
    throw failureOf(refusal, fmt::format("{} {}", deviceOption, key));
  }
}

std::vector<std::string> piecesOf(const std::string &text) {
  std::vector<std::string> pieces;
  std::size_t start = 0;
  for (std::size_t comma = text.find(','); comma != std::string::npos;
       comma = text.find(',', start)) {
    pieces.push_back(text.substr(start, comma - start));
    start = comma + 1;
  }
  pieces.push_back(text.substr(start));
  return pieces;
}

} // namespace

ChainDevice expectChainDevice(const std::string &text) {
  ChainDevice device;
  std::set<std::string> seen;
  for (const std::string &piece : piecesOf(text)) {
    const std::size_t equals = piece.find('=');
    if (equals == std::string::npos)
      throw wrongUse(fmt::format("'{}' is no KEY=VALUE", printable(piece)),
                     piece);
    const std::string key = piece.substr(0, equals);
    expectKey(key);
    if (!seen.insert(key).second)
      throw wrongUse(fmt::format("'{}' is given twice", key), text);
    device.emplace_back(key, valueOf(key, piece.substr(equals + 1)));
  }
  for (const char *key : required)
    if (seen.count(key) == 0)
      throw wrongUse(
          fmt::format("'{}' is missing in '{}'", key, printable(text)), text);
  return device;
}

} // namespace zeldebug

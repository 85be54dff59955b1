#include "line/ChainDevice.h"

#include <array>
#include <set>
#include <variant>
#include <vector>

#include <fmt/format.h>

#include "line/Number.h"
#include "output/Failure.h"
#include "output/Output.h"
#include "output/SettingText.h"
#include "output/Suggestion.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::JtagOption;

using Member =
    std::variant<std::string JtagOption::*, std::uint32_t JtagOption::*,
                 std::int8_t JtagOption::*, std::uint8_t JtagOption::*>;

struct DeviceKey {
  const char *name;
  bool required;
  Range range;
  Member member;
};

const std::array<DeviceKey, 7> deviceKeys{{
    {"devicenr", true, {0, 127, false}, &JtagOption::devicenr},
    {"partname", true, {}, &JtagOption::partname},
    {"irlength", true, {0, 127, false}, &JtagOption::irlength},
    {"idcode", true, any32Bits, &JtagOption::idcode},
    {"isfpga", false, {0, 1, false}, &JtagOption::isfpga},
    {"hardppc", false, {0, 2, false}, &JtagOption::hardppc},
    {"nppc", false, {0, 255, false}, &JtagOption::nppc},
}};

constexpr const char *option = "--device";

const DeviceKey &expectKey(const std::string &name) {
  std::vector<std::string> names;
  for (const DeviceKey &key : deviceKeys) {
    if (name == key.name)
      return key;
    names.emplace_back(key.name);
  }
  throw Failure(ExitStatus::wrongUse,
                fmt::format("{}: unknown key '{}'; accepted are {}{}", option,
                            printable(name), quotedList(names),
                            didYouMean(name, names)));
}

void store(JtagOption &device, const DeviceKey &key, const std::string &value) {
  const std::string what = fmt::format("{} {}", option, key.name);
  std::visit(
      [&](auto member) {
        using Value = std::decay_t<decltype(device.*member)>;
        if constexpr (std::is_same_v<Value, std::string>)
          device.*member = expectWord(what, value);
        else
          device.*member =
              static_cast<Value>(expectNumber(what, value, key.range));
      },
      key.member);
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

JtagOption expectChainDevice(const std::string &text) {
  JtagOption device;
  std::set<std::string> seen;
  for (const std::string &piece : piecesOf(text)) {
    const std::size_t equals = piece.find('=');
    if (equals == std::string::npos)
      throw Failure(
          ExitStatus::wrongUse,
          fmt::format("{}: '{}' is no KEY=VALUE", option, printable(piece)));
    const DeviceKey &key = expectKey(piece.substr(0, equals));
    if (!seen.insert(key.name).second)
      throw Failure(ExitStatus::wrongUse,
                    fmt::format("{}: '{}' is given twice", option, key.name));
    store(device, key, piece.substr(equals + 1));
  }
  for (const DeviceKey &key : deviceKeys)
    if (key.required && seen.count(key.name) == 0)
      throw Failure(ExitStatus::wrongUse,
                    fmt::format("{}: '{}' is missing in '{}'", option, key.name,
                                printable(text)));
  return device;
}

} // namespace zeldebug

// What the option sets of the three simulators share: the walk over the
// options, and the value of "-ipcport".
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_SIMULATOROPTIONS_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_SIMULATOROPTIONS_H

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "KvoOption_Parser/Descriptions.h"
#include "KvoOption_Parser/Message.h"
#include "KvoOption_Parser/Numbers.h"
#include "KvoOption_Parser/Readers.h"
#include "KvoOption_Parser/Words.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "facts/CurrentRecord.h"

namespace ZelDebugDialog::kvo {

inline constexpr std::string_view ipcPortOption = "-ipcport";

/// An option of a simulator. `value` is the last value that an option of the
/// set has read; it lives for the whole walk.
struct SimulatorOption {
  std::string_view keyword;
  int (*read)(WordCursor &cursor, std::string_view &value, EngineImp &imp);
  DescribeOption describe;
};

/// Reads options to the end of the text. The message about an unknown one
/// quotes the last value, not the option.
template <std::size_t size>
int readSimulatorOptions(WordCursor &cursor, EngineImp &imp,
                         const std::array<SimulatorOption, size> &options,
                         std::string_view unknown, std::string_view value) {
  int next = cursor.goOn(cursor.nextOption());
  while (next == code::option) {
    const auto *const option =
        findRow(options, KvoOption_Parser::current_option, cursor.characters);
    if (option == nullptr) {
      next = refuse(imp, unknown, {value});
      cursor.fault(CommandFaultKind::unknownOption, options);
    } else {
      next = option->read(cursor, value, imp);
      if (next == code::done)
        next = cursor.nextIntoCurrentOption();
    }
    next = cursor.goOn(next);
  }
  return next == code::end ? code::done : code::refused;
}

/// Reads a value whatever it is: an option word counts as one, and at the end
/// of the text the earlier value stays.
inline void readUnexamined(WordCursor &cursor, std::string_view &value,
                           const ValueForm &form) {
  if (cursor.next(value, WordRole::value) == code::end)
    cursor.missing(CommandFaultKind::missingValue);
  else
    cursor.reads(form);
}

/// What a clause of another set ended with is not examined: an option word that
/// it ran into is lost, and so is a refusal. Only a trace that goes on looks at
/// a refusal, to go on at the next option.
inline int endUnexamined(const WordCursor &cursor, int result) {
  if (result == code::option)
    cursor.isNow(WordRole::lost);
  return result == code::refused && cursor.goesOn() ? result : code::done;
}

/// Stores "host:port"; ":port" is on the local host. Without a colon the host
/// stays, and the port becomes the default if there is one.
inline void storeIpcPort(WordCursor &cursor, std::string_view value,
                         std::string &host, std::int32_t &port,
                         std::optional<std::int32_t> defaultPort) {
  const std::size_t colon = value.find(':');
  if (colon == std::string_view::npos) {
    if (defaultPort)
      cursor.store(port, *defaultPort);
    return;
  }
  const std::int64_t number = toSigned(value.substr(colon + 1), 10);
  cursor.store(host, colon == 0 ? "localhost" : value.substr(0, colon));
  cursor.store(port, lowBits<std::int32_t>(number));
}

} // namespace ZelDebugDialog::kvo

#endif

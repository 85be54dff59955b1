// A command read with simdjson as its makers mean it: the keys are known with
// their order, and the text is padded already.
#ifndef ZELDEBUGDIALOG_BENCH_READING_ORDEREDJSON_H
#define ZELDEBUGDIALOG_BENCH_READING_ORDEREDJSON_H

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/ChainCommand.h"

namespace bench {

struct Input;

struct ViewedDevice {
  int number = 0;
  std::string_view partName;
  int irLength = 0;
  std::uint32_t idCode = 0;
};

/// A command with `Text` for its strings and `Held` for a device.
template <class Text, class Held> struct JsonCommand {
  Command::Connection connection = Command::Connection::none;
  Command::CableType cableType = Command::CableType::none;
  Text port;
  std::uint32_t frequency = 0;
  std::vector<Held> chain;
  int debugDevice = 0;
  int cpuNumber = 0;
  std::uint32_t romStart = 0xFFFFFFFF;
  std::uint32_t romSize = 0;
};

/// Its strings stay in the parser, until that reads again.
using ViewedCommand = JsonCommand<std::string_view, ViewedDevice>;

/// As the engine has it: each device a record of its own, and the text kept.
struct KeptCommand : JsonCommand<std::string, std::unique_ptr<Device>> {
  std::string text;
};

bool readBySimdjsonInOrder(const Input &input, ViewedCommand &command);
bool readBySimdjsonKept(const Input &input, KeptCommand &command);

Command toCommand(const ViewedCommand &read);
Command toCommand(const KeptCommand &read);

} // namespace bench

#endif

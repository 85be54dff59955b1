// A command read with simdjson as its makers mean it: the keys are known with
// their order, and the text is padded already.
#ifndef ZELDEBUGDIALOG_BENCH_READING_ORDEREDJSON_H
#define ZELDEBUGDIALOG_BENCH_READING_ORDEREDJSON_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/ChainCommand.h"

namespace bench {

struct Input;

/// Its strings stay in the parser, until that reads again.
using ViewedCommand = CommandOf<std::string_view, DeviceOf<std::string_view>>;

/// As the engine has it: each device a record of its own, and the text kept.
struct KeptCommand : CommandOf<std::string, std::unique_ptr<Device>> {
  std::string text;
};

bool readBySimdjsonInOrder(const Input &input, ViewedCommand &command);
bool readBySimdjsonKept(const Input &input, KeptCommand &command);

Command toCommand(const ViewedCommand &read);
Command toCommand(const KeptCommand &read);

} // namespace bench

#endif

// The ways to write a command that the engine is measured against. Each writes
// the text of a whole command into one string.
#ifndef ZELDEBUGDIALOG_BENCH_WRITING_WRITERS_H
#define ZELDEBUGDIALOG_BENCH_WRITING_WRITERS_H

#include <string>

#include "common/ChainCommand.h"

namespace bench {

struct Writer {
  const char *name;
  std::string (*write)(const Command &command);
};

std::string writeByToChars(const Command &command);
std::string writeBySnprintf(const Command &command);
std::string writeByStream(const Command &command);
std::string writeByFormat(const Command &command);

} // namespace bench

#endif

// Files with a connect command a line.
#ifndef ZELDEBUG_COMMANDLINES_H
#define ZELDEBUG_COMMANDLINES_H

#include <string>
#include <vector>

namespace zeldebug {

struct CommandLineOfFile {
  int number; ///< from 1; 0 for a command that stands in no file
  std::string text;
};

/// The lines that are not empty; of standard input for "-".
/// @throws Failure (unreadable)
std::vector<CommandLineOfFile> expectCommandLines(const std::string &file);

} // namespace zeldebug

#endif

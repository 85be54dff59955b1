// Files with a connect command a line.
#ifndef ZELDEBUG_COMMANDSINFILE_H
#define ZELDEBUG_COMMANDSINFILE_H

#include <string>
#include <vector>

namespace zeldebug {

struct CommandInFile {
  int number; ///< from 1; 0 for a command that stands in no file
  std::string text;
};

/// The lines that are not empty; of standard input for "-".
/// @throws Failure (unreadable)
std::vector<CommandInFile> expectCommandsIn(const std::string &file);

} // namespace zeldebug

#endif

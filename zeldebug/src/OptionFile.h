// The option file of a processor as it lies there, looked at before the engine
// reads it: the engine cannot tell a file that is not there from one that
// cannot be opened, and reads only the beginning of a long line.
#ifndef ZELDEBUG_OPTIONFILE_H
#define ZELDEBUG_OPTIONFILE_H

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <ZelDebugDialog/CommandTrace.h>

namespace zeldebug {

/// The engine reads no more characters of a line than this.
constexpr std::size_t optionLineLimit = 1023;

struct CommandFile {
  bool exists = false;
  std::string problem; ///< why it cannot be read, or empty
  int line = 0;        ///< of the command, from 1; 0 without one
  std::string text;    ///< the first line that is not empty, whole

  bool isCut() const { return text.size() > optionLineLimit; }
  bool isText() const { return text.find('\0') == std::string::npos; }
};

/// Only a regular file is opened: a fifo would make the caller wait.
CommandFile readCommandFile(const std::filesystem::path &file);

/// Below `folder`, as the engine has it below its working directory.
std::filesystem::path optionFilePath(const std::filesystem::path &folder,
                                     const std::string &processor);

/// A head or target word that may stand in a command, but not in an option
/// file.
struct WordNotInFiles {
  std::size_t word; ///< its place in the trace
  std::vector<std::string> accepted;
};

std::optional<WordNotInFiles>
findWordNotInFiles(const std::string &command,
                   const ZelDebugDialog::CommandTrace &trace);

} // namespace zeldebug

#endif

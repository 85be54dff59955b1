// The option file of a processor: one line, its connect command.
//
// Only regular files count; anything else under the name is as good as no file,
// and is never waited for. Opened by the system's own calls, because a stream
// would wait for the other end of a pipe.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string>
#include <string_view>
#include <utility>

#include <boost/filesystem/operations.hpp>

#include "KvoOption_Parser/ConnectCommand.h"
#include "KvoOption_Parser/Message.h"
#include "KvoOption_Parser/Writers.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "facts/CurrentRecord.h"
#include "facts/Results.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

constexpr std::string_view cannotOpen = "Error Opening File";

constexpr mode_t readableByAll = 0666; // less the process's own mask

/// An open regular file, or none.
class RegularFile {
public:
  RegularFile(const std::string &path, int flags) {
    // A null byte would name another file.
    if (path.find('\0') != std::string::npos)
      return;
    descriptor = open(path.c_str(), flags | O_NONBLOCK | O_CLOEXEC | O_NOCTTY,
                      readableByAll);
    struct stat status = {};
    if (isOpen() &&
        (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)))
      shut();
  }
  ~RegularFile() { shut(); }
  RegularFile(const RegularFile &) = delete;
  RegularFile &operator=(const RegularFile &) = delete;

  bool isOpen() const { return descriptor >= 0; }
  bool empty() { return ftruncate(descriptor, 0) == 0; }

  /// @return how much was read; 0 at the end, or where reading fails.
  std::size_t read(char *into, std::size_t room) {
    const ssize_t count = TEMP_FAILURE_RETRY(::read(descriptor, into, room));
    return static_cast<std::size_t>(std::max<ssize_t>(count, 0));
  }
  void write(std::string_view text) {
    while (!text.empty()) {
      const ssize_t count =
          TEMP_FAILURE_RETRY(::write(descriptor, text.data(), text.size()));
      if (count <= 0)
        return;
      text.remove_prefix(static_cast<std::size_t>(count));
    }
  }

private:
  void shut() {
    if (isOpen())
      close(std::exchange(descriptor, -1));
  }

  int descriptor = -1;
};

/// Empty where the working directory is gone.
std::string optionFilePath(const std::string &processorName) {
  boost::system::error_code error;
  std::string path = boost::filesystem::current_path(error).string();
  path += "/etc/kvo_";
  path += processorName;
  path += ".opt";
  return error ? std::string() : path;
}

/// A line ends at a null byte; one that begins with it is empty.
std::string upToNullByte(const std::string &line) {
  return line.substr(0, line.find('\0'));
}

/// Reads the first line that is not empty. Behind the longest length nothing is
/// looked at, in a damaged file of gigabytes either.
std::string readFirstLine(RegularFile &file) {
  std::string line;
  std::array<char, 4096> buffer;
  while (const std::size_t count = file.read(buffer.data(), buffer.size())) {
    for (const char character : std::string_view(buffer.data(), count)) {
      if (character != '\n') {
        if (line.size() == longestOptionLine)
          return upToNullByte(line);
        line += character;
        continue;
      }
      line = upToNullByte(line);
      if (!line.empty())
        return line;
    }
  }
  return upToNullByte(line);
}

int readOptionFile(const std::string &path, EngineImp &imp) {
  std::string line;
  {
    RegularFile file(path, O_RDONLY);
    if (!file.isOpen())
      return result::noOptionFile;
    line = readFirstLine(file);
  }
  if (line.empty())
    return result::noOptionFile;
  currentRecord(imp).connectCommand = line;
  WordCursor cursor(line);
  return readCommand(cursor, imp, CommandSource::optionFile);
}

/// `pathOf` is asked for the file's place once there is a command.
template <class PathOf>
int writeOptionFile(EngineImp &imp, const PathOf &pathOf) {
  std::string command;
  if (!composeCommand(command, imp))
    return result::notSet;
  ProcessorInfoImp &record = currentRecord(imp);
  record.connectCommand = command;
  RegularFile file(pathOf(record), O_WRONLY | O_CREAT);
  if (!file.isOpen() || !file.empty()) {
    setMessage(imp, cannotOpen);
    return result::noOptionFile;
  }
  file.write(command);
  return result::done;
}

} // namespace

} // namespace kvo

int KvoOption_Parser::ReadKvoOptFile(std::string processorName,
                                     EngineImp &imp) {
  return kvo::readOptionFile(kvo::optionFilePath(processorName), imp);
}

int KvoOption_Parser::ReadKvoOptFileFrom(const std::string &path,
                                         EngineImp &imp) {
  return kvo::readOptionFile(path, imp);
}

int KvoOption_Parser::WriteKvoOptFile(EngineImp &imp) {
  return kvo::writeOptionFile(imp, [](const ProcessorInfoImp &record) {
    return kvo::optionFilePath(record.instanceName);
  });
}

int KvoOption_Parser::WriteKvoOptFileTo(const std::string &path,
                                        EngineImp &imp) {
  return kvo::writeOptionFile(
      imp, [&path](const ProcessorInfoImp & /*record*/) -> const std::string & {
        return path;
      });
}

} // namespace ZelDebugDialog

#include "files/OptionFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "ZelDebugDialog/EngineFacts.h"
#include "files/FileDescriptor.h"
#include "files/Place.h"

namespace ZelDebugDialog::model {

namespace fs = std::filesystem;

namespace {

/// The first line that is not empty.
void findCommand(OptionFile &file) {
  std::size_t start = 0;
  for (int line = 1; start < file.bytes.size(); ++line) {
    const std::size_t end =
        std::min(file.bytes.find('\n', start), file.bytes.size());
    if (end > start) {
      file.line = line;
      file.text = file.bytes.substr(start, end - start);
      return;
    }
    start = end + 1;
  }
}

/// Up to the end, or as many as are looked at.
void readBytes(int descriptor, OptionFile &file) {
  std::array<char, 4096> buffer{};
  while (file.bytes.size() < mostBytes) {
    const ssize_t count = read(descriptor, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR)
      continue;
    if (count < 0)
      file.problem = std::generic_category().message(errno);
    if (count <= 0)
      return;
    file.bytes.append(buffer.data(), static_cast<std::size_t>(count));
  }
  file.bytes.resize(mostBytes);
}

} // namespace

bool OptionFile::isCut() const { return text.size() > longestOptionLine; }

bool OptionFile::isText() const { return text.find('\0') == std::string::npos; }

bool OptionFile::isSameAs(const OptionFile &other) const {
  return exists == other.exists && problem == other.problem &&
         bytes == other.bytes;
}

OptionFile readOptionFile(const fs::path &file) {
  OptionFile found;
  Place place = lookAt(file, fs::file_type::regular);
  found.exists = place.exists;
  found.problem = std::move(place.problem);
  if (!found.exists || !found.problem.empty())
    return found;
  // Whatever has come there since: opening must not wait for anybody.
  const FileDescriptor opened(file, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  if (!opened.isOpen()) {
    found.problem = std::generic_category().message(errno);
    return found;
  }
  struct stat status = {};
  if (fstat(opened.number(), &status) != 0 || !S_ISREG(status.st_mode))
    found.problem = "is no regular file";
  else
    readBytes(opened.number(), found);
  findCommand(found);
  return found;
}

std::string whyNoFile(const std::string &processor) {
  if (processor.find('\0') != std::string::npos)
    return "a null byte in a processor's name leads to no file";
  if (processor.find('/') != std::string::npos)
    return "a '/' in a processor's name leads to no file";
  return "";
}

fs::path optionFilePath(const fs::path &folder, const std::string &processor) {
  return folder / ("kvo_" + processor + ".opt");
}

} // namespace ZelDebugDialog::model

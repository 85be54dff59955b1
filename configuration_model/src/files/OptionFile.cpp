#include "files/OptionFile.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <system_error>

#include "commands/OptionLine.h"
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

} // namespace

bool OptionFile::isCut() const { return text.size() > optionLineLimit; }

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
  std::ifstream stream(file, std::ios::binary);
  if (!stream) {
    found.problem = std::generic_category().message(errno);
    return found;
  }
  std::error_code unknownSize;
  const std::uintmax_t size = fs::file_size(file, unknownSize);
  found.bytes.resize(unknownSize ? mostBytes
                                 : static_cast<std::size_t>(std::min(
                                       size, std::uintmax_t{mostBytes})));
  stream.read(found.bytes.data(),
              static_cast<std::streamsize>(found.bytes.size()));
  found.bytes.resize(static_cast<std::size_t>(stream.gcount()));
  findCommand(found);
  return found;
}

fs::path optionFilePath(const fs::path &folder, const std::string &processor) {
  return folder / ("kvo_" + processor + ".opt");
}

} // namespace ZelDebugDialog::model

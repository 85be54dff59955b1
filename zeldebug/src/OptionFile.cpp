#include "OptionFile.h"

#include <cerrno>
#include <fstream>
#include <system_error>

namespace zeldebug {

namespace fs = std::filesystem;

CommandFile readCommandFile(const fs::path &file) {
  CommandFile found;
  std::error_code error;
  const fs::file_status own = fs::symlink_status(file, error);
  found.exists = fs::exists(own);
  if (!found.exists) {
    if (own.type() != fs::file_type::not_found)
      found.problem = error.message();
    return found;
  }
  const fs::file_status target = fs::status(file, error);
  if (!fs::is_regular_file(target)) {
    found.problem = target.type() == fs::file_type::not_found
                        ? "is a link to nothing"
                    : fs::is_directory(target) ? "is a folder, no file"
                    : error                    ? error.message()
                                               : "is no regular file";
    return found;
  }
  std::ifstream stream(file, std::ios::binary);
  if (!stream) {
    found.problem = std::generic_category().message(errno);
    return found;
  }
  int line = 0;
  while (found.text.empty() && std::getline(stream, found.text))
    ++line;
  if (!found.text.empty())
    found.line = line;
  return found;
}

fs::path optionFilePath(const fs::path &folder, const std::string &processor) {
  return folder / "etc" / ("kvo_" + processor + ".opt");
}

} // namespace zeldebug

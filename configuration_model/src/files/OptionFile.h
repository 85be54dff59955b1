// The option file of a processor as it lies there, looked at beside the engine:
// the engine cannot tell a file that is not there from one that cannot be
// opened, and reads only the beginning of a long line.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_FILES_OPTIONFILE_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_FILES_OPTIONFILE_H

#include <filesystem>
#include <string>

namespace ZelDebugDialog::model {

struct OptionFile {
  bool exists = false;
  std::string problem; ///< why it cannot be read, or empty
  int line = 0;        ///< of the command, from 1; 0 without one
  std::string text;    ///< the first line that is not empty, whole
  std::string bytes;   ///< all of it, up to `mostBytes`

  bool isCut() const;
  bool isText() const;
  /// Whether nothing has become of it since: bytes, and being there.
  bool isSameAs(const OptionFile &other) const;
};

/// More than any option file has. What is behind it is not compared.
constexpr std::size_t mostBytes = std::size_t{1024} * 1024;

/// Only a regular file is opened.
OptionFile readOptionFile(const std::filesystem::path &file);

/// Why no file can have a processor's name in its own; empty if one can. A '/'
/// would lead to another folder, and a path ends at a null byte.
std::string whyNoFile(const std::string &processor);

/// `kvo_<processor>.opt` in a folder.
std::filesystem::path optionFilePath(const std::filesystem::path &folder,
                                     const std::string &processor);

} // namespace ZelDebugDialog::model

#endif

// A working directory of a test's own, with the folder of the option files.
#ifndef ZELDEBUGDIALOG_TESTS_LANGUAGE_WORKINGFOLDER_H
#define ZELDEBUGDIALOG_TESTS_LANGUAGE_WORKINGFOLDER_H

#include <filesystem>
#include <string>

namespace LanguageTest {

class WorkingFolder {
public:
  WorkingFolder(); ///< Makes the folder and enters it.
  ~WorkingFolder();
  WorkingFolder(const WorkingFolder &) = delete;
  WorkingFolder &operator=(const WorkingFolder &) = delete;

  std::filesystem::path optionFile(const std::string &processor) const;
  /// The bytes of a file, or "(none)".
  static std::string contentOf(const std::filesystem::path &file);
  static void fill(const std::filesystem::path &file,
                   const std::string &content);

  const std::filesystem::path before;
  const std::filesystem::path folder;
};

} // namespace LanguageTest

#endif

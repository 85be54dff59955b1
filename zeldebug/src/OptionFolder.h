// The folder that an option file is saved in: looked at, made where that is
// wanted, and not left behind empty by a run that saved nothing in it.
#ifndef ZELDEBUG_OPTIONFOLDER_H
#define ZELDEBUG_OPTIONFOLDER_H

#include <filesystem>
#include <system_error>

namespace zeldebug {

/// The folder for as long as a file is being saved in it.
class OptionFolder {
public:
  /// @param mayMake  makes it if there is nothing
  /// @throws Failure (refused)
  OptionFolder(std::filesystem::path path, bool mayMake);
  /// Removes what it has made, unless there is something in it.
  ~OptionFolder();
  OptionFolder(const OptionFolder &) = delete;
  OptionFolder &operator=(const OptionFolder &) = delete;

private:
  std::filesystem::path folder;
  bool isMade = false;
};

/// Refuses what making an OptionFolder and writing in it would, and touches
/// nothing. @return false for a folder that is yet to be made.
/// @throws Failure (refused)
bool isWritableOptionFolder(const std::filesystem::path &path);

constexpr const char *missingFolder =
    "there is no such folder (--mkdir makes it)";

/// @throws Failure (refused)
[[noreturn]] void refuseToWriteIn(const std::filesystem::path &folder,
                                  const std::error_code &error);

} // namespace zeldebug

#endif

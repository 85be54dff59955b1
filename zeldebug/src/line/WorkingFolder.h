// The working directory that -C names.
#ifndef ZELDEBUG_WORKINGFOLDER_H
#define ZELDEBUG_WORKINGFOLDER_H

#include <filesystem>
#include <string>

namespace zeldebug {

/// Goes to `folder`. Call it when the other paths of
/// the line are no longer needed: they are meant from where the program was
/// started.
/// @throws Failure (unreadable)
void enterWorkingFolder(const std::string &folder);

/// A path as seen from where the program was started, if it lies below.
std::string shownPath(const std::filesystem::path &path);

} // namespace zeldebug

#endif

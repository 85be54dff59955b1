// The working directory that -C names, which the program does not enter: only
// the option files are meant from there.
#ifndef ZELDEBUG_WORKINGFOLDER_H
#define ZELDEBUG_WORKINGFOLDER_H

#include <string>

namespace zeldebug {

/// Where option files are in a working directory, as seen from here.
/// @throws Failure (unreadable) for what is no folder, or may not be entered
std::string optionFolder(const std::string &workingFolder);

} // namespace zeldebug

#endif

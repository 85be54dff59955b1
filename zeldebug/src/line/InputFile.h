// A file that the line names, as a whole.
#ifndef ZELDEBUG_INPUTFILE_H
#define ZELDEBUG_INPUTFILE_H

#include <string>

namespace zeldebug {

/// What stands in a file of any kind; in standard input for "-". A pipe is
/// waited for only while somebody writes to it.
/// @throws Failure (unreadable)
std::string expectText(const std::string &file);

} // namespace zeldebug

#endif

// Writing a file so that it is there wholly or not at all.
#ifndef ZELDEBUG_WHOLEFILE_H
#define ZELDEBUG_WHOLEFILE_H

#include <filesystem>
#include <string>

namespace zeldebug {

enum class Existing { refuse, replace };

/// Writes the text beside the place, and moves it there. Nothing but a regular
/// file is ever replaced, also behind a link.
/// @return false: the file is there with just this text, and stays.
/// @throws Failure (refused)
bool writeWholeFile(const std::filesystem::path &file, const std::string &text,
                    Existing existing);

} // namespace zeldebug

#endif

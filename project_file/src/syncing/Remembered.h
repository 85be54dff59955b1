// What each option file held when it was written last: `.zeldebug-sync`, a line
// a processor, sorted, with the name, a tab and the text. A text that is no
// line has a second tab in front, and in it "\n", "\0" and "\\" as C writes
// them.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_SYNCING_REMEMBERED_H
#define ZELDEBUGDIALOG_PROJECTFILE_SYNCING_REMEMBERED_H

#include <map>
#include <string>

namespace ZelDebugDialog::project {

inline constexpr const char *rememberedName = ".zeldebug-sync";

using Remembered = std::map<std::string, std::string>;

struct ReadRemembered {
  Remembered texts;
  std::string problem; ///< why it cannot be read; then there are none
};

/// @param text  the whole file
ReadRemembered readRemembered(const std::string &text);

/// A name that could not be read back is left out: it is a conflict at worst.
std::string writtenRemembered(const Remembered &texts);

} // namespace ZelDebugDialog::project

#endif

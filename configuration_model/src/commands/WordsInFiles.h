// Words that may stand in a command, but not in an option file.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_WORDSINFILES_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_WORDSINFILES_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "ZelDebugDialog/CommandTrace.h"

namespace ZelDebugDialog::model {

/// A head or a target.
struct WordNotInFiles {
  std::size_t word; ///< its place in the trace
  std::vector<std::string> accepted;
};

std::optional<WordNotInFiles> findWordNotInFiles(const std::string &command,
                                                 const CommandTrace &trace);

} // namespace ZelDebugDialog::model

#endif

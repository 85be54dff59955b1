// Words that may stand in a command, but not in an option file.
#pragma once

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

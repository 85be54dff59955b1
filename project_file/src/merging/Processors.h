// A processor of a board, by its name.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_MERGING_PROCESSORS_H
#define ZELDEBUGDIALOG_PROJECTFILE_MERGING_PROCESSORS_H

#include <string>

#include "ZelDebugDialog/ConfigurationModel/Board.h"

namespace ZelDebugDialog::project {

/// @return null for one that is none, or cannot be debugged
const BoardProcessor *findProcessor(const Board &board,
                                    const std::string &name);

/// @throws Refusal (unknownProcessor, with the names and the nearest;
///   notDebuggable, with the reason)
const BoardProcessor &expectProcessor(const Board &board,
                                      const std::string &name);

} // namespace ZelDebugDialog::project

#endif

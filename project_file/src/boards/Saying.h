// What the files say of one processor, with the layer of each value.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_BOARDS_SAYING_H
#define ZELDEBUGDIALOG_PROJECTFILE_BOARDS_SAYING_H

#include "ZelDebugDialog/ProjectFile/ProjectBoard.h"

namespace ZelDebugDialog::project {

SaidProcessor sayingOf(const Project &files, const ProjectChoice &choice,
                       const Board &board, const BoardProcessor &processor);

} // namespace ZelDebugDialog::project

#endif

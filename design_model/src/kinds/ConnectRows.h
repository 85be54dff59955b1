// What a kind table states of the instances of a design: which processor is on
// which debug module.
//
// Each name is that of an instance, or a pattern in which "*" stands for any
// text and "?" for any character, dots included. A pattern for processors means
// all processors whose names fit, in design order; the debug module has to be
// one. What cannot be applied is reported with its line, and left out.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_CONNECTROWS_H
#define ZELDEBUGDIALOG_DESIGNMODEL_CONNECTROWS_H

#include <string>
#include <vector>

#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "kinds/KindTable.h"

namespace ZelDebugDialog {

/// To a model whose instances are complete. `file` is that of the rows.
void applyConnectRows(const std::vector<ConnectRow> &rows,
                      const std::string &file, DesignModel &model);

} // namespace ZelDebugDialog

#endif

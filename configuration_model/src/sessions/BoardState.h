// What a board knows, shared by its sessions.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_SESSIONS_BOARDSTATE_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_SESSIONS_BOARDSTATE_H

#include <filesystem>
#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Board.h"
#include "ZelDebugDialog/ProcessorInfo.h"

namespace ZelDebugDialog {

/// Never changes once it is made.
class BoardState {
public:
  HHSMHwManager *design = nullptr;
  std::vector<std::string> names;
  std::vector<BoardProcessor> processors;
  std::vector<ProcessorInfoImp> records; ///< of `processors`, side by side
  std::vector<UndebuggableProcessor> undebuggable;
  std::string folder;             ///< as it was given
  std::filesystem::path absolute; ///< the same, whatever becomes of the process

  /// The record of a processor as discovery found it.
  /// @throws Refusal (unknownProcessor, notDebuggable)
  const ProcessorInfoImp &expectProcessor(const std::string &name) const;
};

} // namespace ZelDebugDialog

#endif

// What becomes of a configuration that is written and read again.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_LOSSES_ANALYSIS_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_LOSSES_ANALYSIS_H

#include <optional>
#include <string>
#include <vector>

#include "ZelDebugDialog/CommandWriting.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "commands/Desk.h"
#include "losses/Writing.h"
#include "settings/SettingTable.h"
#include "settings/Snapshot.h"

namespace ZelDebugDialog::model {

/// A setting that does not come back, before anybody has judged how much that
/// matters.
struct RawLoss {
  std::string setting; ///< "connectCommand" for all of them
  Value value;
  Value readBack; ///< nothing where the command is refused
  std::string reason;
  std::string code;
  std::string displacedBy;
  bool isRefusal = false; ///< because of it no command can be read at all
};

struct Analysis {
  /// None where no command can be written: `error` says why.
  std::optional<std::string> command;
  std::string error;
  CommandWriting writing;
  std::vector<RawLoss> losses; ///< in the order of the settings

  const RawLoss *findLoss(const std::string &setting) const;
  /// Why the writers leave a setting out; null if they do not.
  const Omission *findOmission(const SettingRow &row) const;
};

/// That no command can be written, with the setting because of which.
Refusal noCommandOf(const Analysis &analysis);

/// Writes in the desk's engine and reads as an option file would be read by
/// another engine with the same design.
Analysis analyse(Desk &desk, const Snapshot &wanted);

/// The losses of a command that was read back.
/// @param readBack  null where the reader refused it, saying `refusal`
std::vector<RawLoss> lossesOf(const Snapshot &wanted,
                              const std::string &command,
                              const CommandWriting &writing,
                              const Snapshot *readBack,
                              const std::string &refusal);

} // namespace ZelDebugDialog::model

#endif

// Whether changing a setting can make a difference, and why not.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_LOSSES_APPLICABILITY_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_LOSSES_APPLICABILITY_H

#include <string>

#include "commands/Desk.h"
#include "losses/Analysis.h"
#include "settings/SettingTable.h"

namespace ZelDebugDialog::model {

struct Applicability {
  bool isApplicable = false;
  std::string reason; ///< why it is not
};

/// A setting is applicable if, under some permitted values of those that its
/// row names as together with it, some permitted value of it makes another
/// command, or a command where there was none, or none where there was one.
/// @param analysis  of the same snapshot
Applicability findApplicability(Desk &desk, const Snapshot &snapshot,
                                const Snapshot &defaults, const SettingRow &row,
                                const Analysis &analysis);

} // namespace ZelDebugDialog::model

#endif

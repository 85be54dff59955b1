// set --into: a change goes to the files of the project, from which the option
// files follow.
#ifndef ZELDEBUG_SETTINGINTO_H
#define ZELDEBUG_SETTINGINTO_H

#include <optional>
#include <string>

#include <ZelDebugDialog/ProjectFile/Edit.h>

#include "line/AskedSettings.h"
#include "line/ProjectOptions.h"
#include "output/Output.h"

namespace zeldebug {

struct IntoOptions {
  std::string target; ///< as the line has it
  /// The target of the change and, unless it is all of them, its processor.
  ZelDebugDialog::ProjectEdit edit;
  bool dryRun = false;
};

/// Plans the change, tells what it makes of the processors, and writes it.
/// @throws Failure; then no file has changed
ExitStatus setInto(const IntoOptions &options, const AskedSettings &asked,
                   const LineProject &line, Output &output);

} // namespace zeldebug

#endif

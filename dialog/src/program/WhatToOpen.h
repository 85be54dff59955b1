// What a person wants to see: a design, or a project that names one.
#ifndef ZELDEBUGDIALOG_DIALOG_WHATTOOPEN_H
#define ZELDEBUGDIALOG_DIALOG_WHATTOOPEN_H

#include <string>

#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "ZelDebugDialog/ProjectFile/Merge.h"

namespace ZelDebugDialog::dialog {

/// Of a project, the design file is the project's, and what stands beside it
/// stands over what that says.
struct WhatToOpen : DesignSources {
  WhatToOpen() = default;
  /// A file by its name: a project is called "*.toml".
  explicit WhatToOpen(const std::string &file);
  explicit WhatToOpen(const DesignSources &sources);

  bool isProject = false;
  ProjectWishes wishes; ///< Of a project.
};

} // namespace ZelDebugDialog::dialog

#endif

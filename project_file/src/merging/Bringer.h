// Which value of the files a setting follows from that they do not name.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_MERGING_BRINGER_H
#define ZELDEBUGDIALOG_PROJECTFILE_MERGING_BRINGER_H

#include <string>

#include "ZelDebugDialog/ProjectFile/Merge.h"

namespace ZelDebugDialog::project {

/// What is said of a setting; of one that is only shown, of the one that is
/// written for it.
/// @return null if no source says anything
const MergedValue *findSaid(const MergedProcessor &merged,
                            const std::string &setting);

/// What has brought a setting a value that nobody has written for it.
/// @return null if it came by itself
const MergedValue *findBringer(const MergedProcessor &merged,
                               const std::string &setting, const Value &value);

} // namespace ZelDebugDialog::project

#endif

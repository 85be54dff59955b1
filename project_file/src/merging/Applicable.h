// Which settings of a configuration mean anything: a serial number takes the
// place of port and frequency, which then say nothing about either.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_MERGING_APPLICABLE_H
#define ZELDEBUGDIALOG_PROJECTFILE_MERGING_APPLICABLE_H

#include <set>
#include <string>

#include "ZelDebugDialog/ConfigurationModel/Session.h"

namespace ZelDebugDialog::project {

/// Those that can change the command; the chain and the connection, also where
/// there is no choice.
std::set<std::string> applicableIn(const Session &session);

} // namespace ZelDebugDialog::project

#endif

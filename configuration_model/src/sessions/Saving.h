// Saving sessions: each whole or not at all, all with one flush.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_SESSIONS_SAVING_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_SESSIONS_SAVING_H

#include <vector>

#include "sessions/SessionImp.h"

namespace ZelDebugDialog::model {

/// The caller holds the mutex of each session; none stands there twice.
/// @return in the order of the sessions
std::vector<SaveOutcome> saveAll(const std::vector<SessionImp *> &sessions,
                                 const SaveOptions &options);

} // namespace ZelDebugDialog::model

#endif

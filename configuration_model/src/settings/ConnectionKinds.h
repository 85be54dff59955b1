// The one choice of how to connect, which the records hold as a connection type
// and a stub type.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_SETTINGS_CONNECTIONKINDS_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_SETTINGS_CONNECTIONKINDS_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ZelDebugDialog/EngineFacts.h"
#include "ZelDebugDialog/ProcessorInfo.h"

namespace ZelDebugDialog::model {

/// What people call a kind.
std::string labelOf(const ConnectionKind &kind);

/// Null for a word that is none.
const ConnectionKind *findConnectionKind(std::string_view word);

/// The kind that a record has; null for a type that is none of them.
const ConnectionKind *kindOf(const ProcessorInfoImp &record);

/// The words that a mask allows.
std::vector<std::string> allowedKinds(std::uint32_t mask);

} // namespace ZelDebugDialog::model

#endif

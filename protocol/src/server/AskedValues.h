// The values that a request asks settings to have.
#ifndef ZELDEBUGDIALOG_PROTOCOL_SERVER_ASKEDVALUES_H
#define ZELDEBUGDIALOG_PROTOCOL_SERVER_ASKEDVALUES_H

#include <ZelDebugDialog/ConfigurationModel/Session.h>

#include "server/Request.h"

namespace ZelDebugDialog::protocol {

/// Of an object with a member a setting: true or false, a whole number, a text,
/// {"bytes": base64} for a text of any bytes, or an array of such objects for
/// the chain. Whether it is a value of the setting is for the model to say.
/// @throws Fault (badParameters) for anything else
SettingValues askedValues(const Given &values);

} // namespace ZelDebugDialog::protocol

#endif

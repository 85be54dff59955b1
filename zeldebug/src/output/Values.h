// Values, losses and effects as JSON, and as messages and tables have them.
#ifndef ZELDEBUG_VALUES_H
#define ZELDEBUG_VALUES_H

#include <string>
#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Session.h>

#include "documents/Values.h"
#include "output/JsonForward.h"

namespace zeldebug {

using ZelDebugDialog::documents::fieldJson;
using ZelDebugDialog::documents::toJson;

/// A field for people, as the records hold it: 3, 0x40000000, "USB21".
std::string shownField(const std::string &name,
                       const ZelDebugDialog::Value &value);

/// A value as the records hold it: "3", "0x40000000", "not set", "\"USB21\"".
std::string shownStored(const std::string &setting,
                        const ZelDebugDialog::Value &value);

/// "debugDevice 3 (comes back as 0): reason [anchor]"
std::string shownLoss(const ZelDebugDialog::Loss &loss);

/// "cable.port \"\" becomes \"USB21\": reason"
std::string shownEffect(const ZelDebugDialog::Effect &effect);

} // namespace zeldebug

#endif

// Losses and effects as JSON, and as messages have them.
#ifndef ZELDEBUG_VALUES_H
#define ZELDEBUG_VALUES_H

#include <string>
#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Session.h>

#include "output/ValueJson.h"

namespace zeldebug {

/// A value as the records hold it: "3", "0x40000000", "not set", "\"USB21\"".
std::string shownStored(const std::string &setting,
                        const ZelDebugDialog::Value &value);

/// "debugDevice 3 (comes back as 0): reason [anchor]"
std::string shownLoss(const ZelDebugDialog::Loss &loss);

/// [{"field", "value", "readBack", "reason", "anchor"}]
Json toJson(const std::vector<ZelDebugDialog::Loss> &losses);

/// "cable.port \"\" becomes \"USB21\": reason"
std::string shownEffect(const ZelDebugDialog::Effect &effect);

/// [{"setting", "before", "after", "why"}]
Json toJson(const std::vector<ZelDebugDialog::Effect> &effects);

} // namespace zeldebug

#endif

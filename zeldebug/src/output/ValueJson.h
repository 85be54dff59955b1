// Values of settings in documents and tables.
#ifndef ZELDEBUG_VALUEJSON_H
#define ZELDEBUG_VALUEJSON_H

#include <string>

#include <ZelDebugDialog/ConfigurationModel/Value.h>

#include "output/Json.h"

namespace zeldebug {

/// As the records hold it: null, a flag, a number, a text, or the devices of a
/// chain.
Json toJson(const ZelDebugDialog::Value &value);

/// The same of a field: a whole device ("chain[2]") is an object.
Json fieldJson(const std::string &name, const ZelDebugDialog::Value &value);

/// A field for people, as the records hold it: 3, 0x40000000, "USB21".
std::string shownField(const std::string &name,
                       const ZelDebugDialog::Value &value);

} // namespace zeldebug

#endif

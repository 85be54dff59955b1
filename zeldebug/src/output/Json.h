// The JSON type of the program: members keep the order in which they were
// added.
#ifndef ZELDEBUG_JSON_H
#define ZELDEBUG_JSON_H

#include <nlohmann/json.hpp>

namespace zeldebug {

using Json = nlohmann::ordered_json;

} // namespace zeldebug

#endif

// Texts that become one word of a connect command.
#ifndef ZELDEBUG_SETTINGTEXT_H
#define ZELDEBUG_SETTINGTEXT_H

#include <string>

namespace zeldebug {

/// Why `text` cannot be one value word of a command: "it is empty", ...; empty
/// when it can.
std::string whyNoWord(const std::string &text);

/// @return `text`. @throws Failure (wrong use) that names `what`.
const std::string &expectWord(const std::string &what, const std::string &text);

} // namespace zeldebug

#endif

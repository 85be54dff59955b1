// Texts that become one word of a connect command.
#ifndef ZELDEBUG_SETTINGTEXT_H
#define ZELDEBUG_SETTINGTEXT_H

#include <optional>
#include <string>

namespace zeldebug {

/// Why a text cannot be one value word of a command.
struct NoWord {
  const char *reason; ///< "it is empty, ..."
  const char *anchor; ///< of docs/round-trip.md, which tells what to do
};

/// @return nothing for what can.
std::optional<NoWord> whyNoWord(const std::string &text);

/// @return `text`. @throws Failure (wrong use) that names `what`.
const std::string &expectWord(const std::string &what, const std::string &text);

} // namespace zeldebug

#endif

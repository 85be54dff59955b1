// Texts that become one value word of a connect command.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_TEXT_WORDS_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_TEXT_WORDS_H

#include <cstdint>
#include <optional>
#include <string_view>

#include "codes/CodeRows.h"

namespace ZelDebugDialog::model {

/// Where the command is written to.
enum class WordPlace : std::uint8_t {
  command,    ///< anywhere
  optionFile, ///< a line of a file, which ends at a line break or a null byte
};

/// Why a text cannot be one value word.
/// @return nothing for one that can.
std::optional<Why> whyNoWord(std::string_view text,
                             WordPlace place = WordPlace::command);

/// The same for words with ';' between them, each of which becomes one.
std::optional<Why> whyNoWords(std::string_view text,
                              WordPlace place = WordPlace::command);

/// The same for a text that readers take whatever it begins with: a simulator
/// file, a host.
std::optional<Why> whyNoOpaqueWord(std::string_view text,
                                   WordPlace place = WordPlace::command);

} // namespace ZelDebugDialog::model

#endif

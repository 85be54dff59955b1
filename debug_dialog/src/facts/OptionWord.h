// What an option word looks like.
#pragma once

#include <string_view>

namespace ZelDebugDialog {

/// Whether a word begins an option clause: '-' and no digit behind it. A lone
/// "-" is neither an option nor a value.
constexpr bool isOptionWord(std::string_view word) {
  return word.size() > 1 && word[0] == '-' && (word[1] < '0' || word[1] > '9');
}

} // namespace ZelDebugDialog

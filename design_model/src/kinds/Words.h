// The words in names, by which parts of a design are told where nothing better
// tells them.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_WORDS_H
#define ZELDEBUGDIALOG_DESIGNMODEL_WORDS_H

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace ZelDebugDialog {

/// In lower case, cut at what is neither letter nor digit, between letters and
/// digits, and as "UARTLite" is: uart, lite. Then each two neighbours as one:
/// "i_mem" has "imem".
std::vector<std::string> wordsOf(std::string_view name);

/// The first of the words in [first, last) that the name has; empty if it has
/// none.
std::string_view findWord(std::string_view name, const std::string_view *first,
                          const std::string_view *last);

template <std::size_t count>
std::string_view findWord(std::string_view name,
                          const std::array<std::string_view, count> &words) {
  return findWord(name, words.data(), words.data() + count);
}

inline std::string_view
findWord(std::string_view name, std::initializer_list<std::string_view> words) {
  return findWord(name, words.begin(), words.end());
}

/// Of an interface, or a kind of bus: debug, jtag and the like, also as parts
/// of words.
bool namesDebugging(std::string_view name);

/// Of an interface, or a kind of bus: clocks, resets and interrupts.
bool namesAuxiliary(std::string_view name);

/// The name in "vendor:library:name:version".
std::string_view nameIn(std::string_view identity);

} // namespace ZelDebugDialog

#endif

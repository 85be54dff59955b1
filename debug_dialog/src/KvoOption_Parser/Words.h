// Words of the command language that more than one file reads or writes.
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_WORDS_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_WORDS_H

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace ZelDebugDialog::kvo {

inline constexpr std::string_view connectHead = "connect";
inline constexpr std::string_view vpConnectHead = "vpconnect";

inline constexpr std::string_view lumacoreTarget = "lc";
inline constexpr std::string_view ppcTarget = "ppc";

inline constexpr std::string_view bscanOption = "-bscan";
inline constexpr std::string_view cableOption = "-cable";
inline constexpr std::string_view commOption = "-comm";
inline constexpr std::string_view configDeviceOption = "-configdevice";
inline constexpr std::string_view debugDeviceOption = "-debugdevice";
inline constexpr std::string_view portOption = "-port";
inline constexpr std::string_view baudOption = "-baud";
inline constexpr std::string_view timeoutOption = "-timeout";

// Kinds of a stub's line, behind "-comm".
inline constexpr std::string_view jtagLine = "jtag";
inline constexpr std::string_view serialLine = "serial";

/// The characters of `joined`.
template <const std::string_view &...words> constexpr auto joinWords() {
  std::array<char, (words.size() + ... + sizeof...(words)) + 1> text{};
  std::size_t size = 0;
  text[size++] = ' ';
  for (const std::string_view word : {words...}) {
    for (const char character : word)
      text[size++] = character;
    text[size++] = ' ';
  }
  return text;
}
template <const std::string_view &...words>
inline constexpr auto joinedText = joinWords<words...>();

/// Words with blanks around and between them, to be appended at once. Where
/// each device of a chain is written, appending word for word takes a third
/// more.
template <const std::string_view &...words>
inline constexpr std::string_view joined{joinedText<words...>.data(),
                                         joinedText<words...>.size()};

/// The same without the blank at the end.
template <const std::string_view &word>
inline constexpr std::string_view behindBlank{joinedText<word>.data(),
                                              joinedText<word>.size() - 1};

/// Appends a word behind a blank.
inline void appendWord(std::string &out, std::string_view word) {
  out += ' ';
  out += word;
}

} // namespace ZelDebugDialog::kvo

#endif

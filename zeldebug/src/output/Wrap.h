// Lines that are no longer than a terminal is wide.
#ifndef ZELDEBUG_WRAP_H
#define ZELDEBUG_WRAP_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zeldebug {

/// What is broken off a line is indented by so much more than the line is.
constexpr std::size_t usualHanging = 2;

/// Columns on a terminal: two for a wide letter, none for colour.
std::size_t widthOf(std::string_view text);

/// The lines of a text without line breaks, broken at blanks; a longer word
/// stays whole, unless `breaksWords`.
/// @param width  0 for any
std::vector<std::string> wrappedLines(std::string_view text, std::size_t width,
                                      bool breaksWords = false);

/// Every line of a text, broken at blanks; what is broken off is indented by
/// `hanging` more than its line is.
std::string wrapped(std::string_view text, std::size_t width,
                    std::size_t hanging = usualHanging);

/// The same for help, whose descriptions stand in the column `column`.
std::string wrappedHelp(std::string_view text, std::size_t width,
                        std::size_t column);

} // namespace zeldebug

#endif

#include "kinds/Words.h"

#include <algorithm>
#include <cstddef>

namespace ZelDebugDialog {
namespace {

enum class Letter { none, small, capital, digit };

Letter letterOf(char c) {
  if (c >= 'a' && c <= 'z')
    return Letter::small;
  if (c >= 'A' && c <= 'Z')
    return Letter::capital;
  return c >= '0' && c <= '9' ? Letter::digit : Letter::none;
}

/// Whether a word begins at `at`, which is not the first.
bool begins(std::string_view name, std::size_t at) {
  const Letter before = letterOf(name[at - 1]);
  const Letter here = letterOf(name[at]);
  if (before == Letter::none)
    return true;
  if ((before == Letter::digit) != (here == Letter::digit))
    return true;
  if (here != Letter::capital)
    return false;
  const bool isBeforeSmall =
      at + 1 < name.size() && letterOf(name[at + 1]) == Letter::small;
  return before == Letter::small || isBeforeSmall;
}

char inLowerCase(char c) {
  return letterOf(c) == Letter::capital ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Names in a design may be long; nobody means words behind this.
constexpr std::size_t mostCharacters = 256;

} // namespace

std::vector<std::string> wordsOf(std::string_view name) {
  name = name.substr(0, mostCharacters);
  std::vector<std::string> words;
  for (std::size_t at = 0; at < name.size(); ++at) {
    if (letterOf(name[at]) == Letter::none)
      continue;
    if (at == 0 || begins(name, at))
      words.emplace_back();
    words.back() += inLowerCase(name[at]);
  }
  const std::size_t single = words.size();
  for (std::size_t at = 0; at + 1 < single; ++at)
    words.push_back(words[at] + words[at + 1]);
  return words;
}

std::string_view findWord(std::string_view name, const std::string_view *first,
                          const std::string_view *last) {
  const std::vector<std::string> found = wordsOf(name);
  const auto *const word =
      std::find_if(first, last, [&found](std::string_view wanted) {
        return std::find(found.begin(), found.end(), wanted) != found.end();
      });
  return word == last ? std::string_view() : *word;
}

bool namesDebugging(std::string_view name) {
  for (const std::string &word : wordsOf(name))
    for (const std::string_view part : {"debug", "dbg", "jtag"})
      if (word.find(part) != std::string::npos)
        return true;
  return !findWord(name, {"dmi"}).empty();
}

bool namesAuxiliary(std::string_view name) {
  return !findWord(name, {"clk", "clock", "clocks", "rst", "reset", "resetn",
                          "rstn", "irq", "irqs", "interrupt", "interrupts"})
              .empty();
}

std::string_view nameIn(std::string_view identity) {
  const std::size_t last = identity.rfind(':');
  if (last == std::string_view::npos || last == 0)
    return identity;
  const std::size_t before = identity.rfind(':', last - 1);
  return before == std::string_view::npos
             ? identity
             : identity.substr(before + 1, last - before - 1);
}

} // namespace ZelDebugDialog

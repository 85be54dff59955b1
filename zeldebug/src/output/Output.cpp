#include "output/Output.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>

#include <fmt/format.h>
#include <unistd.h>

namespace zeldebug {

namespace {

constexpr int formatVersion = 1;

bool wantsColour(int descriptor) {
  const char *refusal = std::getenv("NO_COLOR");
  if (refusal != nullptr && *refusal != '\0')
    return false;
  return isatty(descriptor) == 1;
}

/// @return 0, or the error number.
int writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(descriptor, text.data(), text.size());
    if (written < 0 && errno == EINTR)
      continue;
    if (written < 0)
      return errno;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

/// What is said may be of several lines; what it quotes is not.
std::string printableLines(std::string_view text) {
  std::string lines;
  for (;;) {
    const std::size_t end = text.find('\n');
    lines += printable(text.substr(0, end));
    if (end == std::string_view::npos)
      return lines;
    lines += '\n';
    text.remove_prefix(end + 1);
  }
}

void say(bool colour, const char *colourCode, std::string_view kind,
         std::string_view text) {
  const std::string label =
      kind.empty() ? std::string()
      : colour     ? fmt::format("\x1b[{}m{}:\x1b[0m ", colourCode, kind)
                   : fmt::format("{}: ", kind);
  // Nobody is left to hear that standard error cannot be written.
  writeAll(STDERR_FILENO,
           fmt::format("zeldebug: {}{}\n", label, printableLines(text)));
}

/// The first bytes of UTF-8 sequences, with what may stand behind them.
struct Lead {
  unsigned char first, last;
  std::size_t length;
  unsigned char secondFirst, secondLast;
};

constexpr std::array<Lead, 8> leads{{{0xC2, 0xDF, 2, 0x80, 0xBF},
                                     {0xE0, 0xE0, 3, 0xA0, 0xBF},
                                     {0xE1, 0xEC, 3, 0x80, 0xBF},
                                     {0xED, 0xED, 3, 0x80, 0x9F},
                                     {0xEE, 0xEF, 3, 0x80, 0xBF},
                                     {0xF0, 0xF0, 4, 0x90, 0xBF},
                                     {0xF1, 0xF3, 4, 0x80, 0xBF},
                                     {0xF4, 0xF4, 4, 0x80, 0x8F}}};

bool isContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// Length of the printable character at the front of `text`; 0 if it is a
/// control character, those from U+0080 to U+009F included, or no UTF-8.
std::size_t printableLength(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  if (first < 0x80)
    return first < 0x20 || first == 0x7F ? 0 : 1;
  for (const Lead &lead : leads) {
    if (first < lead.first || first > lead.last || text.size() < lead.length)
      continue;
    const auto second = static_cast<unsigned char>(text[1]);
    const bool isControl = first == 0xC2 && second < 0xA0;
    if (isControl || second < lead.secondFirst || second > lead.secondLast)
      return 0;
    const bool isWhole = std::all_of(
        text.begin() + 2, text.begin() + lead.length, isContinuation);
    return isWhole ? lead.length : 0;
  }
  return 0;
}

} // namespace

Output::Output()
    : colourOut(wantsColour(STDOUT_FILENO)),
      colourErr(wantsColour(STDERR_FILENO)) {}

void Output::printLine(std::string_view text) {
  result += text;
  result += '\n';
}

void Output::document(const Json &members) {
  Json whole;
  whole["version"] = formatVersion;
  whole["command"] = subcommand;
  for (const auto &[name, value] : members.items())
    whole[name] = value;
  // Bytes that are no UTF-8 can stand in an option file; JSON has no place for
  // them.
  result = whole.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
  isDocument = true;
}

void Output::failureDocument(ExitStatus status, const std::string &text) {
  document(
      {{"failure", {{"status", static_cast<int>(status)}, {"message", text}}}});
}

void Output::note(std::string_view text) const {
  say(colourErr, "36", "note", text);
}

void Output::warn(std::string_view text) const {
  say(colourErr, "33", "warning", text);
}

void Output::error(std::string_view text) const {
  say(colourErr, "31", "error", text);
}

std::string Output::heading(std::string_view text) const {
  return colourOut ? fmt::format("\x1b[1m{}\x1b[0m", text) : std::string(text);
}

ExitStatus Output::finish(ExitStatus status) {
  if (jsonWanted && !isDocument)
    document({{"text", result}});
  const int problem = writeAll(STDOUT_FILENO, result);
  if (problem == 0 || problem == EPIPE)
    return status;
  error(fmt::format("standard output: {}",
                    std::generic_category().message(problem)));
  return status == ExitStatus::done ? ExitStatus::refused : status;
}

std::string printable(std::string_view text) {
  std::string shown;
  while (!text.empty()) {
    const std::size_t length = printableLength(text);
    if (length == 0)
      shown += fmt::format("\\x{:02x}", static_cast<unsigned char>(text[0]));
    else
      shown += text.substr(0, length);
    text.remove_prefix(std::max<std::size_t>(1, length));
  }
  return shown;
}

std::string counted(std::size_t number, const std::string &thing) {
  return fmt::format("{} {}{}", number, thing, number == 1 ? "" : "s");
}

} // namespace zeldebug

#include "output/Output.h"

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

void say(bool colour, const char *colourCode, std::string_view kind,
         std::string_view text) {
  const std::string label =
      kind.empty() ? std::string()
      : colour     ? fmt::format("\x1b[{}m{}:\x1b[0m ", colourCode, kind)
                   : fmt::format("{}: ", kind);
  // Nobody is left to hear that standard error cannot be written.
  writeAll(STDERR_FILENO, fmt::format("zeldebug: {}{}\n", label, text));
}

/// Length of the UTF-8 sequence at the front of `text`; 0 if it is none.
std::size_t sequenceLength(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  if (first < 0x80)
    return 1;
  const std::size_t length = first >= 0xF0   ? 4
                             : first >= 0xE0 ? 3
                             : first >= 0xC2 ? 2
                                             : 0;
  if (first > 0xF4 || text.size() < length)
    return 0;
  for (std::size_t i = 1; i < length; ++i)
    if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80)
      return 0;
  return length;
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
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = sequenceLength(text);
    const bool control = first < 0x20 || first == 0x7F;
    if (length == 0 || control) {
      shown += fmt::format("\\x{:02x}", first);
      text.remove_prefix(1);
      continue;
    }
    shown += text.substr(0, length);
    text.remove_prefix(length);
  }
  return shown;
}

std::string counted(std::size_t number, const std::string &thing) {
  return fmt::format("{} {}{}", number, thing, number == 1 ? "" : "s");
}

} // namespace zeldebug

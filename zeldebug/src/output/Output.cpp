#include "output/Output.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>

#include <ZelDebugDialog/ConfigurationModel/Text.h>
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

/// Lines stay lines; what else is no text is shown as \xNN.
std::string printableLines(std::string_view text) {
  std::string shown;
  for (;;) {
    const std::size_t end = text.find('\n');
    shown += printable(text.substr(0, end));
    if (end == std::string_view::npos)
      return shown;
    shown += '\n';
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
  return ZelDebugDialog::ShowText(text);
}

std::string counted(std::size_t number, const std::string &thing) {
  return fmt::format("{} {}{}", number, thing, number == 1 ? "" : "s");
}

} // namespace zeldebug

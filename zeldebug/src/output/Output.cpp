#include "output/Output.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>

#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <ZelDebugDialog/ConfigurationModel/Text.h>

#include "output/Json.h"
#include "output/Wrap.h"
#include "pipe/WriteAll.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::protocol::writeAll;

constexpr int formatVersion = 1;

bool isSet(const char *variable) {
  const char *value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

bool wantsColour(int descriptor) {
  const char *terminal = std::getenv("TERM");
  const bool isDumb =
      terminal != nullptr && std::string_view(terminal) == "dumb";
  return !isSet("NO_COLOR") && !isDumb && isatty(descriptor) == 1;
}

/// 0 for what is no terminal, and for one that does not say.
std::size_t columnsOf(int descriptor) {
  winsize size{};
  return ioctl(descriptor, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
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

const char *codeOf(ExitStatus status) {
  switch (status) {
  case ExitStatus::wrongUse:
    return "wrong-use";
  case ExitStatus::unreadable:
    return "unreadable";
  case ExitStatus::refused:
  case ExitStatus::done:
    break;
  }
  return "refused";
}

} // namespace

/// The parts of a document.
struct Output::Kept {
  Json members;
  Json said = Json::array();
  Json remarks; ///< null unless a design is read
  Json faults;  ///< null unless there are any
  Json failed;  ///< null unless the run has failed
};

struct Output::Severity {
  const char *word;
  const char *colour;
};

const Output::Severity Output::noteSeverity{"note", "36"};
const Output::Severity Output::warningSeverity{"warning", "33"};
const Output::Severity Output::errorSeverity{"error", "31"};

Output::Output()
    : columns(columnsOf(STDOUT_FILENO)), kept(std::make_unique<Kept>()) {
  useColour(Colour::automatic);
}

Output::~Output() = default;

std::unique_ptr<Output> Output::another() const {
  auto other = std::make_unique<Output>();
  other->jsonWanted = jsonWanted;
  other->isQuiet = isQuiet;
  other->isStrict = isStrict;
  other->colourOut = colourOut;
  other->colourErr = colourErr;
  other->columns = columns;
  other->subcommand = subcommand;
  return other;
}

void Output::useColour(Colour choice) {
  const bool isAutomatic = choice == Colour::automatic;
  const bool isAlways = choice == Colour::always;
  colourOut = isAutomatic ? wantsColour(STDOUT_FILENO) : isAlways;
  colourErr = isAutomatic ? wantsColour(STDERR_FILENO) : isAlways;
}

void Output::printLine(std::string_view text) {
  result += text;
  result += '\n';
}

void Output::printSentence(std::string_view text, std::size_t hanging) {
  printLine(wrapped(text, columns, hanging));
}

void Output::document(const Json &ofResult) {
  kept->members = ofResult;
  isDocument = true;
}

void Output::dropResult() {
  result.clear();
  document(Json::object());
}

std::string Output::wholeDocument() const {
  Json whole;
  whole["version"] = formatVersion;
  whole["command"] = subcommand;
  for (const auto &[name, value] : kept->members.items())
    whole[name] = value;
  if (!kept->failed.is_null())
    whole["failure"] = kept->failed;
  if (!kept->faults.is_null())
    whole["faults"] = kept->faults;
  if (!kept->remarks.is_null() && !whole.contains("diagnostics"))
    whole["diagnostics"] = kept->remarks;
  whole["warnings"] = kept->said;
  for (Json &one : whole["warnings"])
    for (const char *const part : {"file", "line", "column"})
      if (hasPlaces && !one.contains(part))
        one[part] = nullptr;
  // Bytes that are no UTF-8 can stand in an option file; JSON has no place for
  // them.
  return whole.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

void Output::say(const Severity &severity, std::string_view text) const {
  const std::string label =
      colourErr
          ? fmt::format("\x1b[{}m{}:\x1b[0m", severity.colour, severity.word)
          : fmt::format("{}:", severity.word);
  const std::string line =
      fmt::format("zeldebug: {} {}", label, printableLines(text));
  // Nobody is left to hear that standard error cannot be written.
  writeAll(STDERR_FILENO, wrapped(line, columnsOf(STDERR_FILENO)) + "\n");
}

void Output::keep(const Severity &severity, std::string_view text,
                  const About &about) {
  kept->said.push_back({{"severity", severity.word},
                        {"code", orNull(about.code)},
                        {"message", printableLines(text)},
                        {"setting", orNull(about.setting)}});
  if (about.line == 0)
    return;
  kept->said.back()["file"] = about.file;
  kept->said.back()["line"] = about.line;
  kept->said.back()["column"] = about.column;
}

void Output::note(std::string_view text, const About &about) {
  if (isQuiet)
    return;
  say(noteSeverity, text);
  keep(noteSeverity, text, about);
}

void Output::warn(std::string_view text, const About &about) {
  hasWarned = true;
  say(warningSeverity, text);
  keep(warningSeverity, text, about);
}

void Output::error(std::string_view text, const About &about) {
  say(errorSeverity, text);
  keep(errorSeverity, text, about);
}

void Output::log(std::string_view text) {
  writeAll(STDERR_FILENO, fmt::format("zeldebug: {}\n", printable(text)));
}

void Output::fail(const Failure &failure) {
  say(errorSeverity, failure.what());
  keepFailure(failure);
}

void Output::keepFailure(const Failure &failure) {
  kept->failed = failureJson(failure);
}

void Output::fault(std::string_view text, const Json &told) {
  say(errorSeverity, text);
  if (kept->faults.is_null())
    kept->faults = Json::array();
  kept->faults.push_back(told);
}

void Output::useRemarks() {
  if (kept->remarks.is_null())
    kept->remarks = Json::array();
}

void Output::keepRemark(const DesignRemark &remark) {
  useRemarks();
  kept->remarks.push_back({{"file", remark.file},
                           {"line", remark.line},
                           {"severity", remark.severity},
                           {"message", remark.message}});
}

void Output::remark(const DesignRemark &remark) {
  keepRemark(remark);
  const std::string text = shownRemark(remark);
  hasWarned = hasWarned || remark.severity != noteSeverity.word;
  for (const Severity *severity :
       {&noteSeverity, &warningSeverity, &errorSeverity})
    if (remark.severity == severity->word &&
        !(isQuiet && severity == &noteSeverity))
      say(*severity, text);
}

std::string Output::heading(std::string_view text) const {
  return colourOut ? fmt::format("\x1b[1m{}\x1b[0m", text) : std::string(text);
}

void Output::expectNoWarnings() const {
  if (failsBecauseOfWarnings())
    throw Failure(ExitStatus::refused,
                  "nothing is written, because a warning is a failure with "
                  "--strict");
}

ExitStatus Output::finish(ExitStatus status) {
  if (status == ExitStatus::done && failsBecauseOfWarnings()) {
    status = ExitStatus::refused;
    fail(Failure(status, "a warning is a failure with --strict"));
  }
  if (isLeft)
    return status;
  if (jsonWanted && !isDocument)
    document({{"text", result}});
  const int problem =
      writeAll(STDOUT_FILENO, isDocument ? wholeDocument() : result);
  if (problem == 0 || problem == EPIPE)
    return status;
  say(errorSeverity, fmt::format("standard output: {}",
                                 std::generic_category().message(problem)));
  return status == ExitStatus::done ? ExitStatus::refused : status;
}

Json failureJson(const Failure &failure) {
  const FailureDetails &about = failure.details();
  Json told{
      {"status", static_cast<int>(failure.status())},
      {"code", about.code.empty() ? codeOf(failure.status()) : about.code},
      {"message", printableLines(failure.what())}};
  const auto add = [&told](const char *name, const std::string &text) {
    if (!text.empty())
      told[name] = text;
  };
  add("option", about.option);
  if (about.value)
    told["value"] = *about.value;
  if (!about.accepted.empty())
    told["accepted"] = about.accepted;
  add("suggestion", about.suggestion);
  add("file", about.file);
  if (about.line > 0)
    told["line"] = about.line;
  return told;
}

std::string shownRemark(const DesignRemark &remark) {
  const std::string file = shownName(remark.file);
  return remark.line > 0
             ? fmt::format("{}:{}: {}", file, remark.line, remark.message)
             : fmt::format("{}: {}", file, remark.message);
}

std::string printable(std::string_view text) {
  return ZelDebugDialog::ShowText(text);
}

std::string shownName(const std::string &name) {
  return name.empty() ? "''" : printable(name);
}

std::string counted(std::size_t number, const std::string &thing) {
  return fmt::format("{} {}{}", number, thing, number == 1 ? "" : "s");
}

} // namespace zeldebug

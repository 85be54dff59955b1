#include "line/Refused.h"

#include <array>
#include <filesystem>
#include <system_error>

#include <fmt/format.h>

#include "output/Output.h"
#include "output/Place.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::Refusal;
using ZelDebugDialog::RefusalKind;

struct KindStatus {
  RefusalKind kind;
  ExitStatus status;
};

// All others are refusals.
constexpr std::array<KindStatus, 5> statuses{{
    {RefusalKind::unknownProcessor, ExitStatus::wrongUse},
    {RefusalKind::unknownSetting, ExitStatus::wrongUse},
    {RefusalKind::notSettable, ExitStatus::wrongUse},
    {RefusalKind::badValue, ExitStatus::wrongUse},
    {RefusalKind::unreadable, ExitStatus::unreadable},
}};

ExitStatus statusOf(RefusalKind kind) {
  for (const KindStatus &row : statuses)
    if (row.kind == kind)
      return row.status;
  return ExitStatus::refused;
}

/// What a person can do about it with this program.
const char *adviceFor(const Refusal &refusal) {
  switch (refusal.kind) {
  case RefusalKind::noFolder: {
    std::error_code ignored;
    // A link to nothing is something: no folder can be made there.
    const auto there = std::filesystem::symlink_status(refusal.file, ignored);
    return std::filesystem::exists(there) ? "" : " (--mkdir makes it)";
  }
  case RefusalKind::changedOnDisk:
  case RefusalKind::readOnly:
    return " (--force writes it all the same)";
  default:
    return "";
  }
}

} // namespace

Failure failureOf(const Refusal &refusal, const std::string &subject) {
  std::string front = subject;
  if (front.empty() && !refusal.file.empty())
    front = printable(shownPath(refusal.file));
  if (!refusal.file.empty() && refusal.line > 0 && subject.empty())
    front += fmt::format(":{}", refusal.line);
  const std::string text = front.empty()
                               ? std::string(refusal.what())
                               : fmt::format("{}: {}", front, refusal.problem);
  FailureDetails about{ZelDebugDialog::ShowKind(refusal.kind),
                       subject.empty() ? refusal.setting
                                       : subject.substr(0, subject.find(' ')),
                       {},
                       refusal.accepted,
                       refusal.suggestion,
                       refusal.file,
                       refusal.line};
  // Of the kinds that are about a value, an empty one is one as well.
  if (!refusal.value.empty() || refusal.kind == RefusalKind::badValue)
    about.value = refusal.value;
  return {statusOf(refusal.kind), text + adviceFor(refusal), about};
}

} // namespace zeldebug

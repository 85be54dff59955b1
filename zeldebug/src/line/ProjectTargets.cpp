#include "line/ProjectTargets.h"

#include <ZelDebugDialog/ProjectFile/ProjectBoard.h>

#include "line/Refused.h"

namespace zeldebug {

namespace {

constexpr const char *option = "--into";

} // namespace

void addTargetOption(Options &options, std::optional<std::string> &value,
                     const std::string &help) {
  options.addOption(option, "WHERE", value, help, ValueKind::target,
                    "The project");
}

void expectTarget(const std::string &text, ZelDebugDialog::ProjectEdit &edit) {
  try {
    ZelDebugDialog::ReadTarget(text, edit);
  } catch (const ZelDebugDialog::Refusal &refusal) {
    throw failureOf(refusal, option);
  }
}

void expectTargetTaken(const ZelDebugDialog::Refusal &refusal) {
  if (refusal.kind == ZelDebugDialog::RefusalKind::badValue &&
      refusal.setting.empty())
    throw failureOf(refusal, option);
}

bool writeFiles(const std::vector<ZelDebugDialog::EditedProject> &files) {
  try {
    WriteProjectFiles(files);
  } catch (const ZelDebugDialog::Refusal &refusal) {
    if (refusal.kind != ZelDebugDialog::RefusalKind::changedOnDisk)
      throw;
    return false;
  }
  return true;
}

void failOvertaken() {
  throw Failure(ExitStatus::refused,
                "somebody else has changed the files of the project meanwhile; "
                "nothing is written, so do it again",
                {ShowKind(ZelDebugDialog::RefusalKind::changedOnDisk)});
}

} // namespace zeldebug

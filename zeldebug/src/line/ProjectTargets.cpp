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

} // namespace zeldebug

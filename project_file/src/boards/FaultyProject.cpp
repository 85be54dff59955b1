#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "ZelDebugDialog/ProjectFile/ProjectBoard.h"

namespace ZelDebugDialog {

namespace {

std::vector<ProjectFault> errorsOf(const std::vector<ProjectFault> &faults) {
  std::vector<ProjectFault> errors;
  std::copy_if(faults.begin(), faults.end(), std::back_inserter(errors),
               [](const ProjectFault &fault) {
                 return fault.severity == ProjectSeverity::error;
               });
  return errors;
}

Refusal refusalOf(const std::vector<ProjectFault> &errors) {
  const ProjectFault first = errors.empty() ? ProjectFault() : errors.front();
  Refusal refusal(RefusalKind::unreadable,
                  fmt::format("{}:{}:{}", ShowText(first.place.file),
                              first.place.line, first.place.column),
                  fmt::format("{} [{}]", first.message, first.code));
  refusal.setting = first.setting;
  refusal.accepted = first.accepted;
  refusal.suggestion = first.suggestion;
  refusal.file = first.place.file;
  refusal.line = first.place.line;
  return refusal;
}

} // namespace

FaultyProject::FaultyProject(const std::vector<ProjectFault> &ofFiles)
    : Refusal(refusalOf(errorsOf(ofFiles))), faults(errorsOf(ofFiles)) {}
FaultyProject::FaultyProject(const FaultyProject &copied) = default;
FaultyProject &FaultyProject::operator=(const FaultyProject &copied) = default;
FaultyProject::~FaultyProject() = default;

} // namespace ZelDebugDialog

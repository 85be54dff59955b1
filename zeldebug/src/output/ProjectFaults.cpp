#include "output/ProjectFaults.h"

#include <algorithm>

#include <fmt/format.h>

#include <ZelDebugDialog/ProjectFile/Origins.h>

#include "output/Json.h"
#include "output/Values.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::AppliedProject;
using ZelDebugDialog::MergedProcessor;
using ZelDebugDialog::ProjectFault;
using ZelDebugDialog::ProjectLoss;
using ZelDebugDialog::ProjectPlace;
using ZelDebugDialog::ProjectSeverity;

bool isError(const ProjectFault &fault) {
  return fault.severity == ProjectSeverity::error;
}

Json faultJson(const ProjectFault &fault) {
  Json told = placeJson(fault.place);
  told["code"] = fault.code;
  told["message"] = fault.message;
  told["accepted"] = fault.accepted;
  told["suggestion"] = orNull(fault.suggestion);
  return told;
}

} // namespace

std::string originAt(const ProjectPlace &place) {
  return printable(ShowOrigin(place));
}

Failure refusedAt(const AppliedProject &applied) {
  const ZelDebugDialog::Refusal &refusal = *applied.refusal;
  const ProjectPlace &place = applied.place;
  // Of a connection, the code of its loss.
  return {ExitStatus::refused,
          fmt::format("{}: {}", shownPlace(place), refusal.problem),
          {applied.lost.empty() ? ShowKind(refusal.kind)
                                : applied.lost.front().loss.code,
           refusal.setting,
           {},
           refusal.accepted,
           refusal.suggestion,
           place.file,
           place.line}};
}

void tellLeftOut(const MergedProcessor &merged,
                 const std::vector<ProjectLoss> &displaced, Output &output) {
  for (const ProjectFault &note : ExplainLeftOut(merged, displaced))
    tellRemark(note, output);
}

std::string shownPlace(const ProjectPlace &place) {
  return place.line == 0 ? "option"
                         : fmt::format("{}:{}:{}", printable(place.file),
                                       place.line, place.column);
}

Json placeJson(const ProjectPlace &place) {
  if (place.line == 0)
    return {{"file", nullptr}, {"line", nullptr}, {"column", nullptr}};
  return {{"file", place.file}, {"line", place.line}, {"column", place.column}};
}

std::string shownFault(const ProjectFault &fault) {
  return fmt::format("{}: {} [{}]", shownPlace(fault.place), fault.message,
                     fault.code);
}

void tellRemark(const ProjectFault &fault, Output &output) {
  const About about{fault.code, fault.setting, fault.place.file,
                    fault.place.line, fault.place.column};
  if (fault.severity == ProjectSeverity::note)
    output.note(shownFault(fault), about);
  else
    output.warn(shownFault(fault), about);
}

void expectNoFaults(const std::vector<ProjectFault> &faults, Output &output) {
  const auto first = std::find_if(faults.begin(), faults.end(), isError);
  if (first == faults.end()) {
    for (const ProjectFault &fault : faults)
      tellRemark(fault, output);
    return;
  }
  for (const ProjectFault &fault : faults)
    if (isError(fault))
      output.fault(shownFault(fault), faultJson(fault));
  throw ToldFailure(ExitStatus::unreadable, shownFault(*first),
                    {first->code,
                     first->setting,
                     {},
                     first->accepted,
                     first->suggestion,
                     first->place.file,
                     first->place.line});
}

} // namespace zeldebug

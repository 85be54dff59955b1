// What became of values that are said and do not count.
#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "ZelDebugDialog/ProjectFile/Origins.h"
#include "reading/Faults.h"

namespace ZelDebugDialog {

namespace {

std::string shownPlace(const ProjectPlace &place) {
  return place.line == 0 ? std::string("the line")
                         : fmt::format("{}:{}:{}", ShowText(place.file),
                                       place.line, place.column);
}

/// "'cable.frequency' 3 MHz of 'cpu0'"
std::string shownValue(const std::string &processor, const std::string &setting,
                       const Value &value) {
  return fmt::format("'{}' {} of '{}'", setting,
                     ShowText(ShowValue(*FindSetting(setting), value)),
                     ShowText(processor));
}

ProjectFault noteOf(const char *code, const std::string &setting,
                    const ProjectPlace &place, const std::string &message) {
  ProjectFault note = project::faultOf(code, place, message);
  note.setting = setting;
  return note;
}

ProjectFault droppedNote(const std::string &processor,
                         const DroppedValue &one) {
  return noteOf(
      "cable-dropped", one.value.setting, one.value.place,
      fmt::format("{} is left out: {} names another cable, or none",
                  shownValue(processor, one.value.setting, one.value.value),
                  shownPlace(one.by)));
}

ProjectFault displacedNote(const MergedProcessor &merged,
                           const ProjectLoss &one) {
  const MergedValue *const by = merged.Find(one.displacer);
  return noteOf(
      "displaced", one.loss.field, one.place,
      fmt::format("{} is not written: '{}' of {} takes its place",
                  shownValue(merged.processor, one.loss.field, one.loss.value),
                  one.displacer,
                  shownPlace(by == nullptr ? one.place : by->value.place)));
}

} // namespace

std::vector<ProjectFault>
ExplainLeftOut(const MergedProcessor &merged,
               const std::vector<ProjectLoss> &displaced) {
  std::vector<ProjectFault> notes;
  for (const DroppedValue &one : merged.dropped)
    notes.push_back(droppedNote(merged.processor, one));
  for (const ProjectLoss &one : displaced)
    notes.push_back(displacedNote(merged, one));
  return notes;
}

} // namespace ZelDebugDialog

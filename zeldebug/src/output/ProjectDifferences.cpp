#include "output/ProjectDifferences.h"

#include <fmt/format.h>

#include "output/Json.h"
#include "output/ProjectFaults.h"
#include "output/Values.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::Difference;
using ZelDebugDialog::DroppedValue;
using ZelDebugDialog::MergedProcessor;
using ZelDebugDialog::MergedValue;
using ZelDebugDialog::ProjectLoss;
using ZelDebugDialog::ProjectPlace;

/// What is said of a setting; "default" where nothing is.
std::string originIn(const MergedProcessor &merged,
                     const std::string &setting) {
  const MergedValue *const value = merged.Find(setting);
  return value == nullptr ? "default" : originAt(value->value.place);
}

} // namespace

std::string originOf(const ProjectPlace &place) {
  return place.line == 0 ? "default" : originAt(place);
}

Json differencesJson(const std::vector<Difference> &differences,
                     const MergedProcessor &merged) {
  Json list = Json::array();
  for (const Difference &one : differences)
    list.push_back({{"setting", one.setting},
                    {"before", toJson(one.saved)},
                    {"after", toJson(one.now)},
                    {"origin", originIn(merged, one.setting)}});
  return list;
}

Json lostJson(const std::vector<ProjectLoss> &losses) {
  Json list = Json::array();
  for (const ProjectLoss &one : losses) {
    Json loss = toJson(std::vector{one.loss}).front();
    loss["origin"] = originOf(one.place);
    list.push_back(loss);
  }
  return list;
}

Json droppedJson(const MergedProcessor &merged,
                 const std::vector<ProjectLoss> &displaced) {
  Json list = Json::array();
  for (const DroppedValue &one : merged.dropped)
    list.push_back({{"setting", one.value.setting},
                    {"value", toJson(one.value.value)},
                    {"origin", originAt(one.value.place)},
                    {"by", originAt(one.by)}});
  for (const ProjectLoss &one : displaced)
    list.push_back({{"setting", one.loss.field},
                    {"value", toJson(one.loss.value)},
                    {"origin", originAt(one.place)},
                    {"by", originIn(merged, one.displacer)}});
  return list;
}

void printDifferences(const std::string &file,
                      const std::vector<Difference> &differences,
                      const MergedProcessor &merged, Output &output) {
  output.printLine(fmt::format("\n{}", printable(file)));
  for (const Difference &one : differences)
    output.printLine(fmt::format("  {}: {} in the file, {} by {}", one.setting,
                                 shownStored(one.setting, one.saved),
                                 shownStored(one.setting, one.now),
                                 originIn(merged, one.setting)));
  if (differences.empty())
    output.printLine("  the same settings, in other words");
}

} // namespace zeldebug

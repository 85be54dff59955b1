#include "project_file/ProjectTest.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "support/ManyOrFew.h"

namespace project_test {

using namespace ZelDebugDialog;

int rounds(int most) {
  // By hand: as many as somebody asks for.
  const char *const asked = std::getenv("ZELDEBUGDIALOG_ROUNDS");
  if (asked != nullptr)
    return std::max(1, std::atoi(asked));
  return support::manyOrFew(most, most / 20);
}

Project read(const std::string &project,
             const std::optional<std::string> &local) {
  return ReadProjectTexts(projectFileName, head + project, local);
}

std::string shown(const ProjectPlace &place) {
  return place.line == 0 ? std::string("option")
                         : place.file + ":" + std::to_string(place.line) + ":" +
                               std::to_string(place.column);
}

std::string shown(const ProjectFault &fault) {
  return shown(fault.place) + " " + fault.code +
         (fault.suggestion.empty() ? "" : " " + fault.suggestion);
}

std::vector<std::string> shown(const std::vector<ProjectFault> &faults) {
  std::vector<std::string> lines;
  for (const ProjectFault &fault : faults)
    lines.push_back(shown(fault));
  return lines;
}

namespace {

std::string shown(const ProjectValue &value) {
  return value.setting + " = " +
         ShowValue(*FindSetting(value.setting), value.value) + " (" +
         project_test::shown(value.place) + ")";
}

} // namespace

std::vector<std::string> shown(const MergedProcessor &merged) {
  std::vector<std::string> lines;
  for (const MergedValue &value : merged.values)
    lines.push_back(shown(value.value));
  return lines;
}

std::vector<std::string> shownDropped(const MergedProcessor &merged) {
  std::vector<std::string> lines;
  for (const DroppedValue &one : merged.dropped)
    lines.push_back(shown(one.value) + " by " + shown(one.by));
  return lines;
}

const BoardProcessor &ProjectTest::processor(const std::string &name) const {
  for (const BoardProcessor &one : board.Processors())
    if (one.name == name)
      return one;
  throw std::logic_error("no processor " + name);
}

MergedProcessor ProjectTest::merge(const std::string &project,
                                   const std::optional<std::string> &local,
                                   const std::string &name,
                                   const SettingValues &line) const {
  const Project files = read(project, local);
  EXPECT_FALSE(files.HasErrors())
      << testing::PrintToString(shown(files.faults));
  return MergeProject(files, ChooseProject(files, {}), processor(name), line);
}

} // namespace project_test

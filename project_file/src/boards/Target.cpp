#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "ZelDebugDialog/ProjectFile/ProjectBoard.h"
#include "reading/Faults.h"
#include "reading/Names.h"

namespace ZelDebugDialog {

namespace {

constexpr const char *localWord = "local";
constexpr const char *projectWord = "project";
constexpr const char *profileFront = "profile:";

} // namespace

void ReadTarget(const std::string &text, ProjectEdit &edit) {
  const std::string front = profileFront;
  if (text == localWord) {
    edit.target = ProjectTarget::local;
    return;
  }
  if (text == projectWord) {
    edit.target = ProjectTarget::project;
    return;
  }
  if (text.compare(0, front.size(), front) == 0) {
    const std::string name = text.substr(front.size());
    project::expectProfileName(name);
    edit.target = ProjectTarget::profile;
    edit.profile = name;
    return;
  }
  const std::vector<std::string> accepted{localWord, projectWord,
                                          front + "NAME"};
  const std::string nearest = FindNearest(text, accepted);
  Refusal refusal(
      RefusalKind::badValue, "",
      fmt::format(
          "'{}' is no part of a project; accepted are "
          "{}{}",
          ShowText(text), project::quotedList(accepted),
          nearest.empty() ? "" : fmt::format("; did you mean '{}'?", nearest)));
  refusal.value = text;
  refusal.suggestion = nearest;
  refusal.accepted = accepted;
  throw refusal;
}

} // namespace ZelDebugDialog

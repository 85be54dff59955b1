#include "line/ProjectTargets.h"

#include <fmt/format.h>

#include "output/Failure.h"
#include "output/Output.h"
#include "output/Suggestion.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::ProjectEdit;
using ZelDebugDialog::ProjectTarget;

constexpr const char *option = "--into";
constexpr const char *localWord = "local";
constexpr const char *projectWord = "project";
constexpr const char *profileFront = "profile:";

} // namespace

void addTargetOption(Options &options, std::optional<std::string> &value,
                     const std::string &help) {
  options.addOption(option, "WHERE", value, help, ValueKind::target,
                    "The project");
}

void expectTarget(const std::string &text, ProjectEdit &edit) {
  const std::string front = profileFront;
  if (text == localWord) {
    edit.target = ProjectTarget::local;
    return;
  }
  if (text == projectWord) {
    edit.target = ProjectTarget::project;
    return;
  }
  if (text.compare(0, front.size(), front) == 0 && text.size() > front.size()) {
    edit.target = ProjectTarget::profile;
    edit.profile = text.substr(front.size());
    return;
  }
  const std::vector<std::string> accepted{localWord, projectWord,
                                          front + "NAME"};
  throw Failure(
      ExitStatus::wrongUse,
      fmt::format("{}: '{}' is no part of a project; accepted are "
                  "{}{}",
                  option, printable(text), quotedList(accepted),
                  didYouMean(text, accepted)),
      {"bad-value", option, text, accepted, nearestMatch(text, accepted)});
}

} // namespace zeldebug

#include <algorithm>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "ZelDebugDialog/ProjectFile/Merge.h"
#include "ZelDebugDialog/ProjectFile/ProjectBoard.h"
#include "reading/Faults.h"
#include "reading/Keys.h"
#include "reading/Names.h"

namespace ZelDebugDialog {

namespace {

using namespace project;

constexpr const char *probeVariable = "ZELDEBUG_PROBE";
constexpr const char *profileVariable = "ZELDEBUG_PROFILE";

/// Of a probe or a profile, all that can be chosen and who chooses.
struct Question {
  const char *what;        ///< "probe"
  const char *option;      ///< "--probe"
  const char *environment; ///< "ZELDEBUG_PROBE"
  std::vector<std::string> names;
};

void expectKnown(const Question &question, const char *asker,
                 const std::string &name) {
  std::vector<std::string> accepted = question.names;
  accepted.emplace_back(noChoice);
  if (std::find(accepted.begin(), accepted.end(), name) != accepted.end())
    return;
  const std::string nearest = FindNearest(name, accepted);
  Refusal refusal(
      RefusalKind::badValue, asker,
      fmt::format(
          "'{}' is no {} of the project; {}", ShowText(name), question.what,
          nearest.empty() ? fmt::format("accepted are {}", quotedList(accepted))
                          : fmt::format("did you mean '{}'?", nearest)));
  refusal.setting = asker;
  refusal.value = name;
  refusal.suggestion = nearest;
  refusal.accepted = std::move(accepted);
  throw refusal;
}

ProjectChosen choose(const Question &question,
                     const std::optional<ProjectText> &inProject,
                     const std::optional<ProjectText> &inLocal,
                     const std::string &environment,
                     const std::optional<std::string> &option) {
  ProjectChosen chosen;
  if (inProject)
    chosen = {inProject->text, "project", inProject->place};
  if (inLocal)
    chosen = {inLocal->text, "local", inLocal->place};
  if (!environment.empty()) {
    chosen = {environment, "environment", {}};
    if (!option)
      expectKnown(question, question.environment, environment);
  }
  if (option) {
    chosen = {*option, "option", {}};
    expectKnown(question, question.option, *option);
  }
  if (chosen.name == noChoice)
    chosen.name.clear();
  return chosen;
}

} // namespace

ProjectWishes AskEnvironment(char *(*lookUp)(const char *)) {
  const auto valueOf = [lookUp](const char *name) {
    const char *const value = lookUp(name);
    return value == nullptr ? std::string() : std::string(value);
  };
  ProjectWishes wishes;
  wishes.environmentProbe = valueOf(probeVariable);
  wishes.environmentProfile = valueOf(profileVariable);
  return wishes;
}

ProjectChoice ChooseProject(const Project &project,
                            const ProjectWishes &wishes) {
  Question probe{"probe", "--probe", probeVariable, {}};
  Question profile{"profile", "--profile", profileVariable, {}};
  for (const ProjectLayer *const layer : {&project.project, &project.local}) {
    addNames(layer->probes, probe.names);
    addNames(layer->profiles, profile.names);
  }
  return {choose(probe, project.project.probe, project.local.probe,
                 wishes.environmentProbe, wishes.probe),
          choose(profile, project.project.profile, project.local.profile,
                 wishes.environmentProfile, wishes.profile)};
}

} // namespace ZelDebugDialog

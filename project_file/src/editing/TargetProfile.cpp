#include "editing/TargetProfile.h"

#include <algorithm>
#include <vector>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "reading/Names.h"

namespace ZelDebugDialog::project {

namespace {

std::vector<std::string> profilesOf(const ProjectLayer &layer) {
  std::vector<std::string> names;
  for (const ProjectProfile &profile : layer.profiles)
    names.push_back(profile.name);
  return names;
}

bool holds(const std::vector<std::string> &names, const std::string &name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

bool isProfileLocal(const Project &project, const std::string &profile) {
  expectProfileName(profile);
  std::vector<std::string> names = profilesOf(project.project);
  if (holds(names, profile))
    return false;
  const std::vector<std::string> local = profilesOf(project.local);
  if (holds(local, profile))
    return true;
  names.insert(names.end(), local.begin(), local.end());
  Refusal refusal(RefusalKind::badValue, "",
                  fmt::format("'{}' is no profile of the project; write "
                              "[profile.{}.settings]",
                              profile, profile));
  refusal.value = profile;
  refusal.suggestion = FindNearest(profile, names);
  refusal.accepted = std::move(names);
  throw refusal;
}

} // namespace ZelDebugDialog::project

#include "adopting/WithEdit.h"

#include <algorithm>

#include "editing/TargetProfile.h"

namespace ZelDebugDialog::project {

namespace {

ProjectBlock &blockOf(ProjectLayer &layer, const ProjectEdit &edit) {
  if (edit.target == ProjectTarget::profile)
    for (ProjectProfile &profile : layer.profiles)
      if (profile.name == edit.profile)
        return profile.tables;
  return layer.block;
}

ProjectTable &tableOf(ProjectBlock &block, const std::string &processor) {
  for (ProjectTable &table : block)
    if (table.scope == ProjectScope::processor && table.name == processor)
      return table;
  block.emplace_back();
  block.back().scope = ProjectScope::processor;
  block.back().name = processor;
  return block.back();
}

void forget(ProjectTable &table, const std::string &setting) {
  const auto saysIt = [&setting](const ProjectValue &one) {
    return one.setting == setting;
  };
  const auto takesAway = [&setting](const ProjectText &one) {
    return one.text == setting;
  };
  table.values.erase(
      std::remove_if(table.values.begin(), table.values.end(), saysIt),
      table.values.end());
  table.unset.erase(
      std::remove_if(table.unset.begin(), table.unset.end(), takesAway),
      table.unset.end());
}

} // namespace

Project withEdit(Project project, const ProjectEdit &edit) {
  const bool isLocal = edit.target == ProjectTarget::profile
                           ? isProfileLocal(project, edit.profile)
                           : edit.target == ProjectTarget::local;
  ProjectLayer &layer = isLocal ? project.local : project.project;
  ProjectTable &table = tableOf(blockOf(layer, edit), edit.processor);
  for (const auto &[setting, value] : edit.values) {
    forget(table, setting);
    table.values.push_back({setting, value, {layer.file, 0, 0}, {}});
  }
  for (const std::string &setting : edit.unset) {
    forget(table, setting);
    table.unset.push_back({setting, {layer.file, 0, 0}});
  }
  return project;
}

} // namespace ZelDebugDialog::project

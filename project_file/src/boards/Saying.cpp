#include "boards/Saying.h"

#include <algorithm>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "ZelDebugDialog/ProjectFile/Origins.h"

namespace ZelDebugDialog {

namespace project {

namespace {

bool isAt(const ProjectPlace &place, const ProjectTable &table) {
  return std::any_of(table.values.begin(), table.values.end(),
                     [&place](const ProjectValue &value) {
                       return value.place.line == place.line &&
                              value.place.column == place.column;
                     });
}

bool isAt(const ProjectPlace &place, const ProjectBlock &block) {
  return std::any_of(
      block.begin(), block.end(),
      [&place](const ProjectTable &table) { return isAt(place, table); });
}

std::string layerOf(const Project &files, const ProjectPlace &place) {
  const bool isLocal = place.file == files.local.file;
  const ProjectLayer &layer = isLocal ? files.local : files.project;
  for (const ProjectTable &probe : layer.probes)
    if (isAt(place, probe))
      return "probe:" + probe.name;
  for (const ProjectProfile &profile : layer.profiles)
    if (isAt(place, profile.tables))
      return "profile:" + profile.name;
  return isLocal ? "local" : "project";
}

ProjectFault lossWarning(const MergedProcessor &merged,
                         const ProjectLoss &one) {
  ProjectFault warning;
  warning.place = one.place;
  warning.severity = ProjectSeverity::warning;
  warning.code = one.loss.code;
  warning.setting = one.loss.field;
  warning.message =
      fmt::format("'{}' of '{}' would not survive: {}", one.loss.field,
                  ShowText(merged.processor), one.loss.reason);
  return warning;
}

} // namespace

SaidProcessor sayingOf(const Project &files, const ProjectChoice &choice,
                       const Board &board, const BoardProcessor &processor) {
  const MergedProcessor merged = MergeProject(files, choice, processor);
  Session session(board, processor.name);
  AppliedProject applied = ApplyProject(files, merged, board, session);
  SaidProcessor said;
  for (const MergedValue &one : merged.values)
    said.settings.push_back({one.value, layerOf(files, one.value.place)});
  said.command = std::move(applied.command);
  said.refusal = std::move(applied.refusal);
  said.place = std::move(applied.place);
  said.remarks = ExplainLeftOut(merged, applied.displaced);
  for (const ProjectLoss &one : applied.lost)
    said.remarks.push_back(lossWarning(merged, one));
  return said;
}

} // namespace project

const SaidSetting *SaidProcessor::Find(const std::string &setting) const {
  const bool isOfConnection =
      setting == "connectionType" || setting == "stubType";
  const std::string wanted = isOfConnection ? "connection" : setting;
  for (const SaidSetting &one : settings)
    if (one.value.setting == wanted)
      return &one;
  return nullptr;
}

} // namespace ZelDebugDialog

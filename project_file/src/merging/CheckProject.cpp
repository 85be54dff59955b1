#include <algorithm>
#include <map>
#include <set>
#include <unordered_set>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/ProcessorTypes.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "ZelDebugDialog/ProjectFile/Merge.h"
#include "merging/Sources.h"
#include "reading/Faults.h"

namespace ZelDebugDialog {

namespace {

using namespace project;

std::string shown(const ProjectPlace &place) {
  return fmt::format("line {}, column {}", place.line, place.column);
}

class Check {
public:
  Check(const Board &ofBoard, std::vector<ProjectFault> &into)
      : board(ofBoard), faults(into) {
    for (const BoardProcessor &processor : board.Processors()) {
      names.push_back(processor.name);
      types.insert(processor.type);
    }
    isDebuggable.insert(names.begin(), names.end());
    for (const UndebuggableProcessor &other : board.Undebuggable()) {
      otherTypes.insert(other.type);
      reasons.emplace(other.name, other.reason);
    }
  }

  void checkBlock(const ProjectBlock &block) {
    std::vector<const ProjectTable *> patterns;
    for (const ProjectTable &table : block) {
      switch (table.scope) {
      case ProjectScope::all:
        break;
      case ProjectScope::type:
        checkType(table);
        break;
      case ProjectScope::pattern:
        patterns.push_back(&table);
        checkPattern(table);
        break;
      case ProjectScope::processor:
        checkProcessor(table);
        break;
      }
    }
    checkConflicts(patterns);
  }

private:
  void checkProcessor(const ProjectTable &table) {
    if (isDebuggable.count(table.name) != 0)
      return;
    const auto reason = reasons.find(table.name);
    if (reason == reasons.end()) {
      faults.push_back(unknownName("unknown-processor", table.place, table.name,
                                   "no processor of the design", names));
      return;
    }
    ProjectFault fault =
        faultOf("unknown-processor", table.place,
                fmt::format("'{}' cannot be debugged: {}", ShowText(table.name),
                            ShowText(reason->second)));
    fault.accepted = names;
    faults.push_back(std::move(fault));
  }

  void checkType(const ProjectTable &table) {
    if (types.count(table.name) != 0)
      return;
    // A design without such a processor may be one of several that share the
    // file.
    std::set<std::string> known = types;
    known.insert(GetProcessorTypes().begin(), GetProcessorTypes().end());
    if (known.count(table.name) != 0 || otherTypes.count(table.name) != 0)
      faults.push_back(
          faultOf("unmatched-type", table.place,
                  fmt::format("no processor that can be debugged is of type "
                              "'{}'",
                              ShowText(table.name))));
    else
      faults.push_back(unknownName("unknown-type", table.place, table.name,
                                   "no type of a processor",
                                   {known.begin(), known.end()}));
  }

  void checkPattern(const ProjectTable &table) {
    const bool isMatched =
        std::any_of(names.begin(), names.end(), [&](const std::string &name) {
          return matches(table.name, name);
        });
    if (!isMatched)
      faults.push_back(
          faultOf("unmatched-pattern", table.place,
                  fmt::format("no processor that can be debugged has a name "
                              "like '{}'",
                              ShowText(table.name))));
  }

  /// What a pattern says of a setting: a value, or that none counts.
  struct Saying {
    const ProjectTable *table;
    const Value *value; ///< null: none counts
    const ProjectPlace *place;
  };

  void checkConflicts(const std::vector<const ProjectTable *> &patterns) {
    if (patterns.size() < 2)
      return;
    std::set<std::pair<int, int>> told;
    for (const std::string &name : names) {
      std::map<std::string, Saying> said;
      for (const ProjectTable *const table : patterns) {
        if (!matches(table->name, name))
          continue;
        for (const ProjectText &unset : table->unset)
          compare(name, unset.text, {table, nullptr, &unset.place}, said, told);
        for (const ProjectValue &value : table->values)
          compare(name, value.setting, {table, &value.value, &value.place},
                  said, told);
      }
    }
  }

  void compare(const std::string &name, const std::string &setting,
               const Saying &saying, std::map<std::string, Saying> &said,
               std::set<std::pair<int, int>> &told) {
    const auto [found, isFirst] = said.emplace(setting, saying);
    const Saying &first = found->second;
    if (isFirst || first.table == saying.table)
      return;
    const bool isSame = first.value == nullptr || saying.value == nullptr
                            ? first.value == saying.value
                            : *first.value == *saying.value;
    if (isSame ||
        !told.emplace(saying.place->line, saying.place->column).second)
      return;
    ProjectFault fault = faultOf(
        "pattern-conflict", *saying.place,
        fmt::format("'{}' and '{}' both match '{}' and say different things "
                    "of '{}': here, and in {}",
                    ShowText(saying.table->name), ShowText(first.table->name),
                    ShowText(name), setting, shown(*first.place)));
    fault.setting = setting;
    faults.push_back(std::move(fault));
  }

  const Board &board;
  std::vector<ProjectFault> &faults;
  std::vector<std::string> names;
  std::unordered_set<std::string> isDebuggable;
  std::set<std::string> types;
  std::set<std::string> otherTypes;
  std::map<std::string, std::string> reasons;
};

} // namespace

std::vector<ProjectFault> CheckProject(const Project &project,
                                       const Board &board) {
  std::vector<ProjectFault> faults;
  Check check(board, faults);
  for (const ProjectLayer *const layer : {&project.project, &project.local}) {
    check.checkBlock(layer->block);
    for (const ProjectProfile &profile : layer->profiles)
      check.checkBlock(profile.tables);
  }
  sortFaults(faults, project.project.file);
  return faults;
}

std::vector<ProjectFault> AllFaults(const Project &project,
                                    const Board &board) {
  std::vector<ProjectFault> faults = project.faults;
  for (ProjectFault &fault : CheckProject(project, board))
    faults.push_back(std::move(fault));
  sortFaults(faults, project.project.file);
  return faults;
}

} // namespace ZelDebugDialog

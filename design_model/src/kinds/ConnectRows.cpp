#include "kinds/ConnectRows.h"

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "messages/Quote.h"
#include "names/WildcardMatch.h"

namespace ZelDebugDialog {
namespace {

using Severity = DesignDiagnostic::Severity;
using InstanceId = DesignModel::InstanceId;

/// A table with many patterns, or long ones, for a design with many instances
/// is a mistake; without a limit it takes its time.
constexpr std::size_t mostCharacters = 1'000'000'000;

bool isPattern(std::string_view text) {
  return text.find_first_of("*?") != std::string_view::npos;
}

class Application {
public:
  Application(const std::string &tableFile, DesignModel &target)
      : file(tableFile), model(target), instances(target.Instances()) {
    for (InstanceId id = 0; id < instances.size(); ++id) {
      byName.emplace(instances[id].name, id);
      if (instances[id].role == DesignRole::processor)
        processors.push_back(id);
      if (instances[id].role == DesignRole::debugModule)
        debugModules.push_back(id);
    }
  }

  void apply(const ConnectRow &row) {
    line = row.line;
    const std::vector<InstanceId> attached =
        find(row.processor, processors, DesignRole::processor);
    const std::vector<InstanceId> modules =
        find(row.debugModule, debugModules, DesignRole::debugModule);
    if (attached.empty() || modules.empty())
      return;
    if (modules.size() > 1)
      return report(Severity::error, quote(row.debugModule) + " means " +
                                         quote(instances[modules[0]].name) +
                                         " as well as " +
                                         quote(instances[modules[1]].name) +
                                         "; a row names one debug module");
    for (const InstanceId processor : attached)
      if (model.Attach(processor, modules.front(), {file, line}))
        statedIn[instances[processor].name] = line;
  }

  /// The debugger would take such a processor for two.
  void warnOfProcessorsOnSeveral() {
    std::unordered_map<std::string, std::string> firstModule;
    for (const std::string &module : model.DebugModules()) {
      std::vector<std::string> names;
      model.getHduConnectedProcessorList(names, module);
      for (const std::string &name : names) {
        const auto [first, isNew] = firstModule.emplace(name, module);
        const auto stated = statedIn.find(name);
        if (isNew || stated == statedIn.end())
          continue;
        line = stated->second;
        report(Severity::warning, quote(name) + " is on " +
                                      quote(first->second) + " as well as on " +
                                      quote(module) +
                                      "; the debugger takes it for two");
      }
    }
  }

private:
  /// Those of the role that the name, or the pattern, means. None: the reason
  /// is reported.
  std::vector<InstanceId> find(const std::string &wanted,
                               const std::vector<InstanceId> &candidates,
                               DesignRole role) {
    if (!isPattern(wanted))
      return findNamed(wanted, role);
    std::vector<InstanceId> found;
    if (!spend(wanted, candidates.size()))
      return found;
    for (const InstanceId candidate : candidates)
      if (matchesWildcard(wanted, instances[candidate].name))
        found.push_back(candidate);
    if (found.empty())
      reportUnfit(wanted, role);
    return found;
  }

  std::vector<InstanceId> findNamed(const std::string &name, DesignRole role) {
    const auto found = byName.find(name);
    if (found == byName.end()) {
      report(Severity::warning, "the design has no instance " + quote(name));
      return {};
    }
    if (instances[found->second].role == role)
      return {found->second};
    reportRole(found->second, role);
    return {};
  }

  /// Of a pattern that none of the role fits.
  void reportUnfit(const std::string &pattern, DesignRole role) {
    if (!spend(pattern, instances.size()))
      return;
    for (InstanceId id = 0; id < instances.size(); ++id)
      if (matchesWildcard(pattern, instances[id].name))
        return reportRole(id, role);
    report(Severity::warning,
           "the design has no instance whose name fits " + quote(pattern));
  }

  void reportRole(InstanceId instance, DesignRole role) {
    report(Severity::error,
           "instance " + quote(instances[instance].name) + " of type " +
               quote(instances[instance].typeName) +
               (role == DesignRole::processor ? " is no processor"
                                              : " is no debug module"));
  }

  bool spend(const std::string &pattern, std::size_t comparisons) {
    if (comparisons <= room / pattern.size()) {
      room -= comparisons * pattern.size();
      return true;
    }
    room = 0;
    report(Severity::error, "the patterns of the table are too many for this "
                            "design: this one is left out");
    return false;
  }

  void report(Severity severity, std::string message) {
    model.Report({severity, file, line, std::move(message)});
  }

  const std::string &file;
  DesignModel &model;
  const std::vector<DesignInstance> &instances;
  /// The first of each name.
  std::unordered_map<std::string_view, InstanceId> byName;
  std::vector<InstanceId> processors;
  std::vector<InstanceId> debugModules;
  /// The last row that put a processor somewhere.
  std::unordered_map<std::string, int> statedIn;
  std::size_t room = mostCharacters;
  int line = 0;
};

} // namespace

void applyConnectRows(const std::vector<ConnectRow> &rows,
                      const std::string &file, DesignModel &model) {
  if (rows.empty())
    return;
  Application application(file, model);
  for (const ConnectRow &row : rows)
    application.apply(row);
  application.warnOfProcessorsOnSeveral();
}

} // namespace ZelDebugDialog

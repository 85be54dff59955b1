// What a design model holds.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_DESIGNCONTENTS_H
#define ZELDEBUGDIALOG_DESIGNMODEL_DESIGNCONTENTS_H

#include <cstdint>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "graph/ConnectionGraph.h"
#include "messages/DiagnosticList.h"
#include "messages/MissingList.h"
#include "names/NameIndex.h"

namespace ZelDebugDialog {

struct DesignContents {
  class Entry;

  /// For what reads a design into a model.
  static DesignContents &of(DesignModel &model) { return *model.contents; }

  ConnectionGraph graph;
  std::vector<DesignInstance> instances; ///< Of the graph, by index.
  DiagnosticList diagnostics;
  MissingList missing;
  NameIndex firstByName;
  /// "parent/name" of the instances whose full name another had before them.
  std::unordered_set<std::string> namesakes;
  std::unordered_map<std::string, std::vector<Index>> byTypeName;
  std::vector<Index> processors;
  std::vector<Index> debugModules;
  std::set<std::string> views; ///< The names of those of all components.
  /// For a debug module the processors that are stated to be on it.
  std::unordered_map<Index, std::vector<Index>> stated;
  /// The pairs of `stated`: processor and module.
  std::unordered_set<std::uint64_t> statedPairs;

  Index find(const std::string &name) const {
    return firstByName.find(name, nameIn(instances));
  }

  bool hasRole(Index instance, DesignRole role) const {
    return instance != noIndex && graph.roleOf(instance) == role;
  }

  void appendNames(const std::vector<Index> &listed,
                   std::vector<std::string> &names) const;

  void report(DesignDiagnostic::Severity severity, const DesignOrigin &origin,
              int line, std::string message) {
    diagnostics.add({severity, origin.file, line, std::move(message)});
  }

  /// False: it is stated already.
  bool state(Index processor, Index module);
  std::string localName(Index instance) const;
  bool isTaken(const std::string &name, const std::string &fullName,
               Index parent) const;
  /// Adds an instance whose name is not taken.
  Index addInstance(const std::string &name, std::string fullName,
                    Index component, Index parent, const DesignOrigin &origin);
  Index findEnd(const DesignEnd &end, const DesignConnection &connection,
                Index within);
  std::string describe(const DesignConnection &connection) const;
};

} // namespace ZelDebugDialog

#endif

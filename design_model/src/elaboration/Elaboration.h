// From records to a model: the instances of a design, and of the designs inside
// them.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_ELABORATION_H
#define ZELDEBUGDIALOG_DESIGNMODEL_ELABORATION_H

#include <cstddef>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "elaboration/DocumentStore.h"
#include "elaboration/ModelLimits.h"
#include "elaboration/ParameterScope.h"
#include "elaboration/ViewChooser.h"
#include "graph/DesignContents.h"
#include "kinds/KindTable.h"
#include "records/Records.h"

namespace ZelDebugDialog {

class Elaboration {
public:
  Elaboration(DocumentStore &documents, const KindTable &table,
              const std::string &view, const ModelLimits &limits,
              DesignModel &target)
      : store(documents), kinds(table),
        views(documents, view, DesignContents::of(target).diagnostics,
              DesignContents::of(target).missing),
        most(limits), room(limits), model(target),
        diagnostics(DesignContents::of(target).diagnostics) {}

  /// A design on its own: its interfaces lead nowhere.
  void elaborate(const DesignRecord &design);

  /// The component on top of a hierarchy. False: no view of it leads to a
  /// design that can be read; an error says so.
  bool elaborate(const ComponentRecord &component);

  /// The components that instances refer to, found or not.
  std::vector<Identity> identities() const;

private:
  /// What is known of a component that instances refer to.
  struct Component {
    const ComponentRecord *record = nullptr; ///< Null when it is missing.
    DesignModel::ComponentId id = 0;
    DesignRole role = DesignRole::other;
    std::size_t bytes = 0; ///< What an instance of it takes, roughly.
  };

  /// A design that is being elaborated, inside those before it.
  struct Level {
    const DesignRecord &design;
    const ConfigurationRecord *configuration;
    const ComponentRecord *component; ///< Around it; null for a lone design.
    DesignModel::InstanceId instance;
    ParameterScope &scope;
  };

  /// An instance that was added.
  struct Placed {
    DesignModel::InstanceId id = 0;
    bool hasInterfaces = false; ///< It was, and its component is known.
  };

  /// What is to be added: "instance", "connection", its name, and its line.
  struct Item {
    const Level &level;
    const char *what;
    const std::string &name;
    int line;
  };

  void elaborate(const Level &level);
  Placed addInstance(const Level &level, const InstanceRecord &instance);
  void addParameters(const ComponentRecord &record, ParameterScope &scope,
                     DesignModel::InstanceId instance, const Item &item);
  void enter(const Item &item, const InstanceRecord &instance,
             const Component &component, DesignModel::InstanceId id,
             ParameterScope &scope);
  bool canEnter(const Item &item, DesignModel::InstanceId id,
                const DesignRecord &inner);
  void addConnection(const Level &level, const ConnectionRecord &connection,
                     const std::vector<Placed> &placed);
  bool hasInterface(const Level &level, const ConnectionRecord &connection,
                    const EndRecord &end);
  void checkSelections(const Level &level);
  const Component &componentOf(const Identity &identity);
  void noteViews(const ComponentRecord &record);
  bool spendInstance(const Item &item);
  bool spend(std::size_t bytes, const Item &item);
  void close(const Item &item, const std::string &reason);
  void report(DesignDiagnostic::Severity severity, const std::string &file,
              int line, std::string message);

  DocumentStore &store;
  const KindTable &kinds;
  ViewChooser views;
  const ModelLimits most;
  ModelLimits room;    ///< What is left of them.
  bool isFull = false; ///< Something didn't go in: no instance comes after it.
  DesignModel &model;
  DiagnosticList &diagnostics; ///< The model's own.
  std::unordered_map<Identity, Component, IdentityHash> components;
  DesignConnection joined;                 ///< The one that is being added.
  std::unordered_set<std::string> outward; ///< The component's on top.
  /// The designs that are being elaborated, outermost first.
  std::vector<const DesignRecord *> open;
};

} // namespace ZelDebugDialog

#endif

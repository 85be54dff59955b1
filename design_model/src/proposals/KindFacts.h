// What the search for kinds knows of a design: its components with their
// instances, and what stands inside what.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_KINDFACTS_H
#define ZELDEBUGDIALOG_DESIGNMODEL_KINDFACTS_H

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "ZelDebugDialog/DesignModel/Kinds.h"

namespace ZelDebugDialog {

class KindFacts {
public:
  /// The model has to stay as it is.
  explicit KindFacts(DesignModel &searched);

  DesignModel &model;
  /// Those with instances, in the order of their first ones.
  std::vector<std::size_t> components;
  /// The instances whose role is `processor`, at most `mostProcessors`.
  std::vector<std::size_t> processors;

  const DesignComponent &componentOf(std::size_t instance) const {
    return model.Component(instances()[instance].component);
  }
  const std::vector<DesignInstance> &instances() const {
    return model.Instances();
  }
  const std::vector<std::size_t> &instancesOf(std::size_t component) const {
    return byComponent[component];
  }
  /// There is something inside one of its instances.
  bool isHierarchy(std::size_t component) const {
    return holdsOthers[component];
  }
  /// It passes accesses on: a bridge, a bus.
  static bool isPassage(const DesignComponent &component);
  /// A kind table has given it another name than its own.
  static bool isSettled(const DesignComponent &component);

  const DesignInterface &interfaceOf(const DesignPort &port) const {
    return componentOf(port.instance).interfaces[port.interface];
  }
  std::string nameOf(const DesignPort &port) const;
  /// The first of that name.
  std::size_t find(const std::string &name) const { return byName.at(name); }

  /// With what every candidate has: identity, instances, wires.
  KindCandidate start(KindPart part, std::size_t component) const;

private:
  void appendWires(std::size_t instance, bool isOnly,
                   KindCandidate &candidate) const;

  std::vector<std::vector<std::size_t>> byComponent;
  std::vector<bool> holdsOthers;
  std::unordered_map<std::string, std::size_t> byName;
};

/// More of them are not asked what they are wired to: each is a walk.
constexpr std::size_t mostProcessors = 1000;

/// A name in a sentence, on one line.
std::string named(std::string_view name);

/// "a", "a and b", "a, b and c"; a long list is cut.
std::string listed(const std::vector<std::string> &names);

} // namespace ZelDebugDialog

#endif

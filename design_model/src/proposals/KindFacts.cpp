#include "proposals/KindFacts.h"

#include "messages/Quote.h"
#include "proposals/Words.h"

namespace ZelDebugDialog {
namespace {

constexpr std::size_t mostListed = 20;
constexpr std::size_t mostInASentence = 4;

} // namespace

KindFacts::KindFacts(DesignModel &searched) : model(searched) {
  const std::vector<DesignInstance> &all = instances();
  for (std::size_t at = 0; at < all.size(); ++at) {
    const DesignInstance &instance = all[at];
    byName.emplace(instance.name, at);
    if (instance.component >= byComponent.size()) {
      byComponent.resize(instance.component + 1);
      holdsOthers.resize(instance.component + 1);
    }
    if (byComponent[instance.component].empty())
      components.push_back(instance.component);
    byComponent[instance.component].push_back(at);
    if (instance.parent != DesignModel::top)
      holdsOthers[all[instance.parent].component] = true;
    if (instance.role == DesignRole::processor &&
        processors.size() < mostProcessors)
      processors.push_back(at);
  }
}

bool KindFacts::isPassage(const DesignComponent &component) {
  if (!component.channels.empty())
    return true;
  for (const DesignInterface &interface : component.interfaces)
    if (!interface.bridgedTo.empty())
      return true;
  return false;
}

bool KindFacts::isSettled(const DesignComponent &component) {
  if (component.identity.empty())
    return false;
  // The name stands before the version, and may hold a colon itself.
  const std::string name = ":" + component.typeName + ":";
  const std::size_t at = component.identity.rfind(name);
  return at == std::string::npos ||
         component.identity.find(':', at + name.size()) != std::string::npos;
}

std::string KindFacts::nameOf(const DesignPort &port) const {
  return instances()[port.instance].name + "." + interfaceOf(port).name;
}

KindCandidate KindFacts::start(KindPart part, std::size_t component) const {
  KindCandidate candidate;
  candidate.part = part;
  const DesignComponent &data = model.Component(component);
  candidate.identity = data.identity;
  for (const std::size_t instance : byComponent[component]) {
    if (candidate.instances.size() == mostListed) {
      candidate.otherInstances = byComponent[component].size() - mostListed;
      break;
    }
    candidate.instances.push_back(instances()[instance].name);
  }
  for (const std::size_t instance : byComponent[component])
    if (candidate.wiredTo.size() < mostListed)
      appendWires(instance, byComponent[component].size() == 1, candidate);
  return candidate;
}

void KindFacts::appendWires(std::size_t instance, bool isOnly,
                            KindCandidate &candidate) const {
  const DesignComponent &data = componentOf(instance);
  for (std::size_t at = 0; at < data.interfaces.size(); ++at) {
    const DesignInterface &interface = data.interfaces[at];
    if (namesAuxiliary(interface.name) ||
        namesAuxiliary(nameIn(interface.busType)))
      continue;
    const std::string name = isOnly ? interface.name : nameOf({instance, at});
    for (const DesignPort &far : model.WiredTo({instance, at}, mostListed))
      if (candidate.wiredTo.size() < mostListed)
        candidate.wiredTo.push_back(name + ": " + nameOf(far));
  }
}

std::string named(std::string_view name) { return quote(name); }

std::string listed(const std::vector<std::string> &names) {
  std::string text;
  for (std::size_t at = 0; at < names.size(); ++at) {
    if (at == mostInASentence && names.size() > mostInASentence + 1)
      return text + " and " + std::to_string(names.size() - at) + " more";
    if (at > 0)
      text += at + 1 == names.size() ? " and " : ", ";
    text += named(names[at]);
  }
  return text;
}

} // namespace ZelDebugDialog

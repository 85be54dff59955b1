#include "records/ComponentReader.h"

#include <array>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "messages/Quote.h"
#include "records/MemoryMaps.h"
#include "records/RecordReader.h"

namespace ZelDebugDialog {
namespace {

struct ModeRow {
  std::string_view element;
  InterfaceMode mode;
};

/// New and old words.
constexpr std::array<ModeRow, 11> modes = {{
    {"initiator", InterfaceMode::initiator},
    {"master", InterfaceMode::initiator},
    {"target", InterfaceMode::target},
    {"slave", InterfaceMode::target},
    {"system", InterfaceMode::system},
    {"mirroredInitiator", InterfaceMode::mirroredInitiator},
    {"mirroredMaster", InterfaceMode::mirroredInitiator},
    {"mirroredTarget", InterfaceMode::mirroredTarget},
    {"mirroredSlave", InterfaceMode::mirroredTarget},
    {"mirroredSystem", InterfaceMode::mirroredSystem},
    {"monitor", InterfaceMode::monitor},
}};

struct NamedParts {
  std::string_view list;
  std::string_view part;
};

/// Those that have parameters of their own.
constexpr std::array<NamedParts, 3> partsWithParameters = {{
    {"busInterfaces", "busInterface"},
    {"addressSpaces", "addressSpace"},
    {"cpus", "cpu"},
}};

/// A map may be referred to by every interface, so that the bridges are more
/// than the file is long.
constexpr std::size_t mostBridgesByMap = 1000000;

class ComponentReader : public RecordReader {
public:
  using RecordReader::RecordReader;

  std::unique_ptr<ComponentRecord> run() {
    const pugi::xml_node root = document.root();
    auto component = std::make_unique<ComponentRecord>();
    component->identity = readIdentity(root);
    component->interfaces.typeName = component->identity.name;
    component->interfaces.origin = {file, lineOf(root)};
    component->interfaces.hasCpus = readCpus(root);
    readInterfaces(root, component->interfaces);
    readChannels(root, component->interfaces);
    readAllParameters(root, component->parameters);
    readViews(findChild(root, "model"), component->views);
    indexViews(*component);
    return component;
  }

private:
  /// That there are any is all that is kept; a condition on one is told, since
  /// the component would be no processor without it.
  bool readCpus(const pugi::xml_node &root) {
    const pugi::xml_node cpus = findChild(root, "cpus");
    forEachChild(cpus, "cpu",
                 [this](const pugi::xml_node &cpu) { noteCondition(cpu); });
    return !cpus.empty();
  }

  void readInterfaces(const pugi::xml_node &root, DesignComponent &component) {
    const MemoryMaps maps(
        root, [this](const pugi::xml_node &part) { noteCondition(part); });
    forEachIn(root, "busInterfaces", "busInterface",
              [&](const pugi::xml_node &node) {
                component.interfaces.push_back(readInterface(node, maps));
              });
  }

  DesignInterface readInterface(const pugi::xml_node &node,
                                const MemoryMaps &maps) {
    DesignInterface interface;
    interface.name = childText(node, "name");
    interface.line = lineOf(node);
    const Identity busType = readReference(findChild(node, "busType"));
    if (busType.isComplete())
      interface.busType = toText(busType);
    for (const pugi::xml_node &child : node.children())
      for (const ModeRow &row : modes)
        if (isNamed(child, row.element)) {
          interface.mode = row.mode;
          if (row.mode == InterfaceMode::target)
            readBridges(child, maps, interface);
          return interface;
        }
    report(Severity::warning, interface.line,
           "interface " + quote(interface.name) +
               " is neither initiator nor target, nor anything else that is "
               "known; nothing is attached to it");
    interface.mode = InterfaceMode::monitor;
    return interface;
  }

  void readBridges(const pugi::xml_node &mode, const MemoryMaps &maps,
                   DesignInterface &interface) {
    const auto add = [&](const pugi::xml_node &bridge, std::string name) {
      if (hasInterface(name))
        interface.bridgedTo.push_back(std::move(name));
      else
        reportUnknown(name, bridge,
                      "interface " + quote(interface.name) + " is bridged to ");
    };
    forEach(mode, "transparentBridge", [&](const pugi::xml_node &bridge) {
      add(bridge, initiatorOf(bridge));
    });
    // The form up to 2009.
    forEachChild(mode, "bridge", [&](const pugi::xml_node &bridge) {
      add(bridge, std::string(attributeOf(bridge, "masterRef")));
    });
    const pugi::xml_node reference = findChild(mode, "memoryMapRef");
    if (reference.empty())
      return;
    const std::string name(attributeOf(reference, "memoryMapRef"));
    const MemoryMap *const map = maps.find(name);
    if (map == nullptr)
      return report(Severity::warning, lineOf(reference),
                    "interface " + quote(interface.name) +
                        " refers to a memory map " + quote(name) +
                        ", which the component does not have");
    if (map->isDefinedElsewhere)
      report(Severity::warning, lineOf(reference),
             "the definition that memory map " + quote(name) +
                 " refers to is not followed; it is taken to have registers");
    interface.answers = map->hasBlocks || map->isDefinedElsewhere;
    interface.isMemory = map->isMemory;
    bridgesByMap += map->subspaces.size();
    if (bridgesByMap > mostBridgesByMap)
      return report(Severity::error, lineOf(reference),
                    "more than " + std::to_string(mostBridgesByMap) +
                        " bridges by memory maps; the rest is left out");
    for (const pugi::xml_node &subspace : map->subspaces)
      add(subspace, initiatorOf(subspace));
  }

  bool hasInterface(const std::string &name) {
    if (interfaces.empty())
      forEachChild(findChild(document.root(), "busInterfaces"), "busInterface",
                   [this](const pugi::xml_node &interface) {
                     interfaces.insert(childText(interface, "name"));
                   });
    return interfaces.count(name) != 0;
  }

  void reportUnknown(const std::string &interface, const pugi::xml_node &node,
                     const std::string &what) {
    report(Severity::error, lineOf(node),
           "component " + quote(childText(document.root(), "name")) + ": " +
               what + quote(interface) + ", which it does not have");
  }

  void readChannels(const pugi::xml_node &root, DesignComponent &component) {
    forEachIn(root, "channels", "channel", [&](const pugi::xml_node &node) {
      std::vector<std::string> members;
      forEach(node, "busInterfaceRef", [&](const pugi::xml_node &member) {
        // The form of 2009 has the name as the element's own text.
        std::string name = childText(member, "localName");
        if (name.empty())
          name = textOf(member);
        if (hasInterface(name))
          members.push_back(std::move(name));
        else
          reportUnknown(name, member,
                        "channel " + quote(childText(node, "name")) +
                            " names ");
      });
      component.channels.push_back(std::move(members));
    });
  }

  /// The component's own, which the model answers; then those of its models and
  /// parts, which overrides and expressions may name. In the form of 2009 those
  /// of the model are what configures the component.
  void readAllParameters(const pugi::xml_node &root,
                         ParameterRecords &parameters) {
    const pugi::xml_node body = findChild(root, "model");
    readParameters(root, "parameters", "parameter", parameters);
    readParameters(body, "modelParameters", "modelParameter", parameters);
    parameters.ownCount = parameters.list.size();
    forEachChild(findChild(body, "instantiations"), "componentInstantiation",
                 [&](const pugi::xml_node &node) {
                   readParameters(node, "moduleParameters", "moduleParameter",
                                  parameters);
                   readParameters(node, "parameters", "parameter", parameters);
                 });
    for (const NamedParts &row : partsWithParameters)
      forEachChild(
          findChild(root, row.list), row.part, [&](const pugi::xml_node &node) {
            readParameters(node, "parameters", "parameter", parameters);
          });
    completeParameters(parameters);
  }

  using References = std::unordered_map<std::string, ReferenceRecord>;

  /// `read` makes a record of the child `reference`.
  void readInstantiations(
      const pugi::xml_node &body, std::string_view element,
      std::string_view reference,
      ReferenceRecord (ComponentReader::*read)(const pugi::xml_node &),
      References &references) {
    forEachChild(findChild(body, "instantiations"), element,
                 [&](const pugi::xml_node &node) {
                   const pugi::xml_node referred = findChild(node, reference);
                   if (!referred.empty())
                     references.emplace(childText(node, "name"),
                                        (this->*read)(referred));
                 });
  }

  void readViews(const pugi::xml_node &body, std::vector<ViewRecord> &views) {
    References designs;
    References configurations;
    readInstantiations(body, "designInstantiation", "designRef",
                       &ComponentReader::readReferenceRecord, designs);
    readInstantiations(body, "designConfigurationInstantiation",
                       "designConfigurationRef",
                       &ComponentReader::readPlainReference, configurations);
    forEachIn(body, "views", "view", [&](const pugi::xml_node &node) {
      ViewRecord view;
      view.name = childText(node, "name");
      view.design = follow(node, "designInstantiationRef", designs);
      view.configuration =
          follow(node, "designConfigurationInstantiationRef", configurations);
      const pugi::xml_node hierarchy = findChild(node, "hierarchyRef");
      if (!hierarchy.empty())
        view.hierarchy = readPlainReference(hierarchy);
      views.push_back(std::move(view));
    });
  }

  void indexViews(ComponentRecord &component) {
    for (std::size_t at = 0; at < component.views.size(); ++at) {
      const ViewRecord &view = component.views[at];
      component.viewByName.emplace(view.name, at);
      component.interfaces.views.push_back(view.name);
      if (component.firstViewWithDesign == nullptr && view.leadsToDesign())
        component.firstViewWithDesign = &view;
    }
  }

  std::optional<ReferenceRecord> follow(const pugi::xml_node &view,
                                        std::string_view element,
                                        const References &references) {
    const pugi::xml_node reference = findChild(view, element);
    if (reference.empty())
      return std::nullopt;
    const auto found = references.find(textOf(reference));
    if (found != references.end())
      return found->second;
    report(Severity::warning, lineOf(reference),
           "view " + quote(childText(view, "name")) +
               " refers to an instantiation " + quote(textOf(reference)) +
               ", which the component does not have");
    return std::nullopt;
  }

  std::unordered_set<std::string> interfaces; ///< Names, once they are needed.
  std::size_t bridgesByMap = 0;
};

} // namespace

std::unique_ptr<ComponentRecord> readComponent(const XmlDocument &document,
                                               const std::string &file,
                                               DiagnosticList &diagnostics) {
  return ComponentReader(document, file, diagnostics).run();
}

} // namespace ZelDebugDialog

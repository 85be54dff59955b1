#include "records/DesignReader.h"

#include <cstdint>
#include <utility>

#include "messages/Quote.h"
#include "names/NameIndex.h"
#include "records/RecordReader.h"

namespace ZelDebugDialog {
namespace {

class DesignReader : public RecordReader {
public:
  using RecordReader::RecordReader;

  std::unique_ptr<DesignRecord> run() {
    const pugi::xml_node root = document.root();
    auto design = std::make_unique<DesignRecord>();
    design->identity = readIdentity(root);
    design->file = file;
    design->line = lineOf(root);
    readParameters(root, "parameters", "parameter", design->parameters);
    design->parameters.ownCount = design->parameters.list.size();
    completeParameters(design->parameters);
    readInstances(findChild(root, "componentInstances"), *design);
    readConnections(root, *design);
    return design;
  }

private:
  void readInstances(const pugi::xml_node &list, DesignRecord &design) {
    design.instances.reserve(countChildren(list));
    forEach(list, "componentInstance", [&](const pugi::xml_node &node) {
      design.instances.push_back(readInstance(node));
      instanceByName.enter(
          design.instances.back().name,
          static_cast<std::uint32_t>(design.instances.size() - 1),
          nameIn(design.instances));
    });
  }

  InstanceRecord readInstance(const pugi::xml_node &node) {
    InstanceRecord instance;
    instance.name = childText(node, "instanceName");
    instance.line = lineOf(node);
    const pugi::xml_node component = findChild(node, "componentRef");
    instance.component = readReferenceRecord(component);
    if (component.empty())
      instance.component.line = instance.line;
    // The form of 2009 has the values beside the reference.
    readOverrides(node, instance.component.overrides);
    return instance;
  }

  /// Ad hoc connections and those of monitors attach nothing.
  void readConnections(const pugi::xml_node &root, DesignRecord &design) {
    const pugi::xml_node between = findChild(root, "interconnections");
    const pugi::xml_node outwards = findChild(root, "hierConnections");
    design.connections.reserve(countChildren(between) +
                               countChildren(outwards));
    forEach(between, "interconnection", [&](const pugi::xml_node &node) {
      readInterconnection(node, design);
    });
    forEachChild(outwards, "hierConnection", [&](const pugi::xml_node &node) {
      readHierConnection(node, design);
    });
  }

  /// Ends as they are written, before it is known whose they are.
  struct WrittenEnd {
    bool isOwn = false;
    std::string_view instance;
    std::string_view interface;
    int line = 0;
  };

  static std::string describe(const WrittenEnd &end) {
    std::string text(end.instance);
    text += end.isOwn ? "" : ".";
    return quote(text.append(end.interface));
  }

  /// The connection between `ends`.
  void add(std::string name, int line, DesignRecord &design) {
    const auto index = static_cast<std::uint32_t>(design.connections.size());
    if (!name.empty() && connectionByName.enter(
                             name, index, nameIn(design.connections)) != index)
      report(Severity::warning, line, "a second connection " + quote(name));
    if (ends.size() < 2)
      report(Severity::warning, line,
             "connection " + quote(name) +
                 (ends.empty() ? " has no ends"
                               : " has one end only: " + describe(ends[0])));
    design.connections.push_back({std::move(name), {}, line});
    design.connections.back().ends.reserve(ends.size());
    for (const WrittenEnd &end : ends)
      resolve(end, design, design.connections.back());
  }

  void resolve(const WrittenEnd &end, DesignRecord &design,
               ConnectionRecord &connection) {
    const std::uint32_t found =
        end.isOwn ? EndRecord::own
                  : instanceByName.find(end.instance, nameIn(design.instances));
    if (found != NameIndex::none) {
      connection.ends.push_back(
          {found, enterName(end.interface, design.interfaceNames), end.line});
      return;
    }
    const WrittenEnd &other =
        &end == &ends.front() ? ends.back() : ends.front();
    report(Severity::error, end.line,
           "connection " + quote(connection.name) + " of " + describe(end) +
               " and " + describe(other) + ": the design has no instance " +
               quote(end.instance));
  }

  std::uint32_t enterName(std::string_view name,
                          std::vector<std::string> &names) {
    const std::uint32_t at =
        interfaceByName.enter(name, static_cast<std::uint32_t>(names.size()),
                              [&names](std::uint32_t index) {
                                return std::string_view(names[index]);
                              });
    if (at == names.size())
      names.emplace_back(name);
    return at;
  }

  void readInterconnection(const pugi::xml_node &node, DesignRecord &design) {
    ends.clear();
    for (const pugi::xml_node &end : node.children()) {
      const bool isActive = isNamed(end, "activeInterface");
      if (!isActive && !isNamed(end, "hierInterface"))
        continue;
      noteCondition(end);
      ends.push_back(isActive ? readActive(end)
                              : WrittenEnd{true, "", attributeOf(end, "busRef"),
                                           lineOf(end)});
    }
    add(childText(node, "name"), lineOf(node), design);
  }

  /// The form up to 2009: an interface of an instance and the design's own.
  void readHierConnection(const pugi::xml_node &node, DesignRecord &design) {
    ends.clear();
    forEachChild(node, "interface", [&](const pugi::xml_node &end) {
      const auto [instance, interface] =
          attributesOf<2>(end, {"componentRef", "busRef"});
      ends.push_back({false, instance, interface, lineOf(end)});
    });
    ends.push_back({true, "", attributeOf(node, "interfaceRef"), lineOf(node)});
    add("", lineOf(node), design);
  }

  WrittenEnd readActive(const pugi::xml_node &end) {
    const auto [instance, oldName, interface] = attributesOf<3>(
        end, {"componentInstanceRef", "componentRef", "busRef"});
    return {false, instance.empty() ? oldName : instance, interface,
            lineOf(end)};
  }

  /// First of each name; the second is refused when it is added to the model.
  NameIndex instanceByName;
  NameIndex connectionByName;
  NameIndex interfaceByName;
  std::vector<WrittenEnd> ends; ///< Of the connection that is read.
};

class ConfigurationReader : public RecordReader {
public:
  using RecordReader::RecordReader;

  std::unique_ptr<ConfigurationRecord> run() {
    const pugi::xml_node root = document.root();
    auto configuration = std::make_unique<ConfigurationRecord>();
    configuration->identity = readIdentity(root);
    configuration->file = file;
    configuration->line = lineOf(root);
    const pugi::xml_node design = findChild(root, "designRef");
    if (!design.empty())
      configuration->design = readPlainReference(design);
    forEach(root, "viewConfiguration", [&](const pugi::xml_node &node) {
      readView(node, *configuration);
    });
    return configuration;
  }

private:
  void readView(const pugi::xml_node &node,
                ConfigurationRecord &configuration) {
    const std::string instance = childText(node, "instanceName");
    ViewSelection choice;
    const pugi::xml_node view = findChild(node, "view");
    choice.view = attributeOf(view, "viewRef");
    readOverrides(view, choice.overrides);
    choice.line = lineOf(node);
    // The form of 2009.
    if (choice.view.empty())
      choice.view = childText(node, "viewName");
    if (!configuration.views.emplace(instance, std::move(choice)).second)
      report(Severity::warning, lineOf(node),
             "a second view for instance " + quote(instance) +
                 "; the first is taken");
  }
};

} // namespace

std::unique_ptr<DesignRecord> readDesignRecord(const XmlDocument &document,
                                               const std::string &file,
                                               DiagnosticList &diagnostics) {
  return DesignReader(document, file, diagnostics).run();
}

std::unique_ptr<ConfigurationRecord>
readConfiguration(const XmlDocument &document, const std::string &file,
                  DiagnosticList &diagnostics) {
  return ConfigurationReader(document, file, diagnostics).run();
}

} // namespace ZelDebugDialog

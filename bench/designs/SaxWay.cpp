#include <array>
#include <string_view>
#include <utility>

#include <libxml/parser.h>

#include "Netlist.h"
#include "Ways.h"
#include "common/Require.h"

namespace bench {

namespace {

std::string_view view(const xmlChar *text) {
  return reinterpret_cast<const char *>(text);
}

/// Of an element; the parser gives five pointers for each.
class Attributes {
public:
  Attributes(const xmlChar **given, int size) : fields(given), count(size) {}

  std::string_view operator[](std::string_view name) const {
    for (int index = 0; index < count; ++index) {
      const xmlChar **const attribute = fields + index * 5;
      if (view(attribute[0]) == name)
        return {reinterpret_cast<const char *>(attribute[3]),
                static_cast<std::size_t>(attribute[4] - attribute[3])};
    }
    return {};
  }
  std::string identity() const {
    return Netlist::identity((*this)["vendor"], (*this)["library"],
                             (*this)["name"], (*this)["version"]);
  }

private:
  const xmlChar **fields;
  int count;
};

/// Collects while the parser goes through one document.
class Collector {
public:
  explicit Collector(Netlist &filled) : netlist(filled) {}

  void start(std::string_view name, const Attributes &attributes) {
    path.push_back(name);
    text.clear();
    if (name == "componentRef") {
      netlist.addInstance(instanceName, attributes.identity());
    } else if (name == "activeInterface") {
      require(endCount < ends.size(), "a connection of more than two");
      ends[endCount++] = {std::string(attributes["componentRef"]),
                          std::string(attributes["busRef"])};
    } else if (name == "busInterface") {
      component.interfaces.emplace_back();
    } else if (name == "master" && isIn("busInterface")) {
      component.interfaces.back().isMaster = true;
    }
  }

  void characters(std::string_view piece) { text.append(piece); }

  void end() {
    const std::string_view name = path.back();
    if (name == "instanceName") {
      instanceName = text;
    } else if (name == "interconnection") {
      netlist.connect(ends[0], ends[1]);
      endCount = 0;
    } else if (name == "name" && isIn("busInterface")) {
      component.interfaces.back().name = text;
    } else if (path.size() == 2) {
      keepIdentity(name);
    } else if (path.size() == 1 && name == "component") {
      const std::string identity =
          Netlist::identity(vendor, library, component.name, version);
      netlist.addComponent(identity, std::move(component));
    }
    path.pop_back();
  }

private:
  bool isIn(std::string_view parent) const {
    return path.size() > 1 && path[path.size() - 2] == parent;
  }

  void keepIdentity(std::string_view name) {
    if (name == "vendor")
      vendor = text;
    else if (name == "library")
      library = text;
    else if (name == "name")
      component.name = text;
    else if (name == "version")
      version = text;
  }

  Netlist &netlist;
  std::vector<std::string_view> path; ///< names are the parser's, until its end
  std::string text;                   ///< since the last start of an element
  std::string instanceName;
  std::array<Netlist::End, 2> ends;
  std::size_t endCount = 0;
  std::string vendor;
  std::string library;
  std::string version;
  Netlist::Component component;
};

Collector &collector(void *context) {
  return *static_cast<Collector *>(context);
}

void onStart(void *context, const xmlChar *name, const xmlChar * /*prefix*/,
             const xmlChar * /*uri*/, int /*namespaceCount*/,
             const xmlChar ** /*namespaces*/, int attributeCount,
             int /*defaulted*/, const xmlChar **attributes) {
  collector(context).start(view(name), {attributes, attributeCount});
}

void onEnd(void *context, const xmlChar * /*name*/, const xmlChar * /*prefix*/,
           const xmlChar * /*uri*/) {
  collector(context).end();
}

void onCharacters(void *context, const xmlChar *characters, int count) {
  collector(context).characters({reinterpret_cast<const char *>(characters),
                                 static_cast<std::size_t>(count)});
}

} // namespace

Answer loadBySax(const std::string &design) {
  xmlSAXHandler handler{};
  handler.initialized = XML_SAX2_MAGIC;
  handler.startElementNs = onStart;
  handler.endElementNs = onEnd;
  handler.characters = onCharacters;
  handler.ignorableWhitespace = onCharacters;
  Netlist netlist;
  for (const std::string &file : filesBeside(design)) {
    Collector collected(netlist);
    require(xmlSAXUserParseFile(&handler, &collected, file.c_str()) == 0,
            "libxml2");
  }
  xmlCleanupParser();
  return netlist.answer();
}

} // namespace bench

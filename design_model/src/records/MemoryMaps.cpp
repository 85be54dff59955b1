#include "records/MemoryMaps.h"

#include "xml/XmlNames.h"

namespace ZelDebugDialog {
namespace {

bool mayHoldBlocks(const pugi::xml_node &node) {
  return isNamed(node, "bank") || isNamed(node, "memoryRemap");
}

/// The form of 2022: what the map, a part of it or a bank consists of stands in
/// another document. What a block does is told inside it.
bool isDefinition(const pugi::xml_node &node) {
  return isNamed(node, "memoryMapDefinitionRef") ||
         isNamed(node, "remapDefinitionRef") ||
         isNamed(node, "bankDefinitionRef");
}

/// Also of a bank as a whole.
bool isSaidToBeMemory(const pugi::xml_node &block) {
  return childText(block, "usage") == "memory";
}

/// Banks hold banks, to any depth.
MemoryMap readMap(const pugi::xml_node &node,
                  const std::function<void(const pugi::xml_node &)> &note) {
  MemoryMap map;
  std::vector<pugi::xml_node> pending = {node};
  while (!pending.empty()) {
    const pugi::xml_node around = pending.back();
    pending.pop_back();
    note(around);
    for (const pugi::xml_node &child : around.children()) {
      if (isDefinition(child))
        map.isDefinedElsewhere = true;
      if (isNamed(child, "addressBlock")) {
        map.hasBlocks = true;
        if (!findChild(child, "addressBlockDefinitionRef").empty())
          map.isDefinedElsewhere = true;
        note(child);
      }
      if (isNamed(child, "addressBlock") || isNamed(child, "bank"))
        map.isMemory = map.isMemory || isSaidToBeMemory(child);
      if (isNamed(child, "subspaceMap")) {
        map.subspaces.push_back(child);
        note(child);
      }
      if (mayHoldBlocks(child))
        pending.push_back(child);
    }
  }
  return map;
}

} // namespace

MemoryMaps::MemoryMaps(
    const pugi::xml_node &component,
    const std::function<void(const pugi::xml_node &part)> &note) {
  forEachChild(findChild(component, "memoryMaps"), "memoryMap",
               [&](const pugi::xml_node &node) {
                 maps.emplace(childText(node, "name"), readMap(node, note));
               });
}

const MemoryMap *MemoryMaps::find(const std::string &name) const {
  const auto found = maps.find(name);
  return found == maps.end() ? nullptr : &found->second;
}

std::string initiatorOf(const pugi::xml_node &node) {
  const std::string_view name = attributeOf(node, "initiatorRef");
  return std::string(name.empty() ? attributeOf(node, "masterRef") : name);
}

} // namespace ZelDebugDialog

#include "records/MemoryMaps.h"

#include "xml/XmlNames.h"

namespace ZelDebugDialog {
namespace {

/// Also of a bank as a whole.
bool isSaidToBeMemory(const pugi::xml_node &block) {
  return childText(block, "usage") == "memory";
}

bool mayHoldBlocks(std::string_view element) {
  return element == "bank" || element == "memoryRemap";
}

/// Banks hold banks, to any depth.
MemoryMap readMap(const pugi::xml_node &node) {
  MemoryMap map;
  std::vector<pugi::xml_node> pending = {node};
  while (!pending.empty()) {
    const pugi::xml_node around = pending.back();
    pending.pop_back();
    for (const pugi::xml_node &child : around.children()) {
      const std::string_view element = localNameOf(child);
      if (element == "addressBlock")
        map.hasBlocks = true;
      if (element == "addressBlock" || element == "bank")
        map.isMemory = map.isMemory || isSaidToBeMemory(child);
      if (element == "subspaceMap")
        map.initiators.push_back(initiatorOf(child));
      if (mayHoldBlocks(element))
        pending.push_back(child);
    }
  }
  return map;
}

} // namespace

MemoryMaps::MemoryMaps(const pugi::xml_node &component) {
  forEachChild(findChild(component, "memoryMaps"), "memoryMap",
               [&](const pugi::xml_node &node) {
                 maps.emplace(childText(node, "name"), readMap(node));
               });
}

const MemoryMap *MemoryMaps::find(const std::string &name) const {
  const auto found = maps.find(name);
  return found == maps.end() ? nullptr : &found->second;
}

std::string initiatorOf(const pugi::xml_node &node) {
  const std::string name = attributeOf(node, "initiatorRef");
  return name.empty() ? attributeOf(node, "masterRef") : name;
}

} // namespace ZelDebugDialog

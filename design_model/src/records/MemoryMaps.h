// The memory maps of a component, as far as accesses pass through them.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_MEMORYMAPS_H
#define ZELDEBUGDIALOG_DESIGNMODEL_MEMORYMAPS_H

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include <pugixml.hpp>

namespace ZelDebugDialog {

struct MemoryMap {
  bool hasBlocks = false; ///< Registers or memory of the component's own.
  bool isDefinedElsewhere = false; ///< All or a part; what it has isn't known.
  bool isMemory = false;           ///< Some of them are said to be memory.
  /// Parts of the map that are passed on to interfaces.
  std::vector<pugi::xml_node> subspaces;
};

class MemoryMaps {
public:
  /// `note` is called for each map and each part that is read of one.
  MemoryMaps(const pugi::xml_node &component,
             const std::function<void(const pugi::xml_node &part)> &note);

  /// Null when there is none of that name.
  const MemoryMap *find(const std::string &name) const;

private:
  std::unordered_map<std::string, MemoryMap> maps;
};

/// The interface that a bridge or part of a map is passed on to.
std::string initiatorOf(const pugi::xml_node &node);

} // namespace ZelDebugDialog

#endif

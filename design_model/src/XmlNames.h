// Elements and attributes by local name, whatever their prefix; text and
// attribute values without the white space around them.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_XMLNAMES_H
#define ZELDEBUGDIALOG_DESIGNMODEL_XMLNAMES_H

#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace ZelDebugDialog {

/// What stands before the colon; empty when there is none.
std::string_view prefixOf(std::string_view name);
std::string_view localNameOf(std::string_view name);
std::string_view localNameOf(const pugi::xml_node &node);

/// The first child element of that name, or no node.
pugi::xml_node findChild(const pugi::xml_node &parent, std::string_view name);

/// The next element after `node` that has its local name, or no node.
pugi::xml_node findNextLike(const pugi::xml_node &node);

/// All text of the element itself, comments skipped.
std::string textOf(const pugi::xml_node &node);

/// The text of the first child of that name, empty without one.
std::string childText(const pugi::xml_node &parent, std::string_view name);

/// Empty when there is none.
std::string attributeOf(const pugi::xml_node &node, std::string_view name);

/// Calls `take` for each child element of that name.
template <typename Take>
void forEachChild(const pugi::xml_node &parent, std::string_view name,
                  Take take) {
  for (pugi::xml_node child = findChild(parent, name); child;
       child = findNextLike(child))
    take(child);
}

} // namespace ZelDebugDialog

#endif

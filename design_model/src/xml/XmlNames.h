// Elements and attributes by local name, whatever their prefix; text and
// attribute values without the white space around them.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_XMLNAMES_H
#define ZELDEBUGDIALOG_DESIGNMODEL_XMLNAMES_H

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace ZelDebugDialog {

/// What stands before the colon; empty when there is none.
std::string_view prefixOf(const char *name);
std::string_view localNameOf(const char *name);
std::string_view localNameOf(const pugi::xml_node &node);

/// Whether it is an element of that name.
bool isNamed(const pugi::xml_node &node, std::string_view name);

/// The namespace of an element that its own prefix stands for; empty when the
/// element doesn't declare it.
std::string_view namespaceOf(const pugi::xml_node &node);
/// Whether the namespace is of an edition up to 2009.
bool isOfSpirit(std::string_view space);

/// Without the white space around it.
std::string_view trim(std::string_view text);

/// The first child element of that name, or no node.
pugi::xml_node findChild(const pugi::xml_node &parent, std::string_view name);

/// The next element of that name after `node`, or no node.
pugi::xml_node findNext(const pugi::xml_node &node, std::string_view name);

/// How many nodes are directly inside; no list of its elements is longer.
std::size_t countChildren(const pugi::xml_node &parent);

/// All text of the element itself, comments skipped.
std::string textOf(const pugi::xml_node &node);

/// The text of the first child of that name, empty without one.
std::string childText(const pugi::xml_node &parent, std::string_view name);

/// Empty when there is none. The attributes of XML itself ("xml:id") are none
/// of the standard's. Values lie in the document.
std::string_view attributeOf(const pugi::xml_node &node, std::string_view name);

/// Sets the values of several attributes, as far as they are there.
void readAttributes(const pugi::xml_node &node, const std::string_view *names,
                    std::string_view *values, std::size_t count);

/// Those of several attributes, in the order of `names`.
template <std::size_t count>
std::array<std::string_view, count>
attributesOf(const pugi::xml_node &node,
             const std::array<std::string_view, count> &names) {
  std::array<std::string_view, count> values;
  readAttributes(node, names.data(), values.data(), count);
  return values;
}

/// Calls `take` for each child element of that name.
template <class Take>
void forEachChild(const pugi::xml_node &parent, std::string_view name,
                  Take take) {
  for (pugi::xml_node child = findChild(parent, name); child;
       child = findNext(child, name))
    take(child);
}

} // namespace ZelDebugDialog

#endif

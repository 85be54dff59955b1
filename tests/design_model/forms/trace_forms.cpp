// Prints every place where the readers look for an element or an attribute,
// sorted, each once: "component/busInterfaces/busInterface/name",
// "design/.../activeInterface@busRef".
//
// The readers are those of the model. The names by which they ask are looked up
// here in place of xml/XmlNames.cpp: what that file has is compiled into
// another namespace, and each function is told before it is called.
//
//   trace_forms DESIGN...
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

#define ZelDebugDialog Untraced
// NOLINTNEXTLINE(bugprone-suspicious-include): its functions are called below.
#include "xml/XmlNames.cpp"
#undef ZelDebugDialog
#undef ZELDEBUGDIALOG_DESIGNMODEL_XMLNAMES_H
#include "xml/XmlNames.h"

#include "ZelDebugDialog/DesignModel/DesignModel.h"

namespace ZelDebugDialog {
namespace {

std::set<std::string> &places() {
  static std::set<std::string> found;
  return found;
}

/// The names from the document element to this one.
std::string pathOf(const pugi::xml_node &node) {
  std::string path;
  for (pugi::xml_node at = node; at.type() == pugi::node_element;
       at = at.parent())
    path = std::string(Untraced::localNameOf(at)) +
           (path.empty() ? "" : "/" + path);
  return path;
}

void note(const pugi::xml_node &node, const char *separator,
          std::string_view name) {
  if (node.type() == pugi::node_element)
    places().insert(pathOf(node) + separator + std::string(name));
}

} // namespace

std::string_view prefixOf(const char *name) { return Untraced::prefixOf(name); }

std::string_view localNameOf(const char *name) {
  return Untraced::localNameOf(name);
}

std::string_view localNameOf(const pugi::xml_node &node) {
  return Untraced::localNameOf(node);
}

bool isNamed(const pugi::xml_node &node, std::string_view name) {
  note(node.parent(), "/", name);
  return Untraced::isNamed(node, name);
}

std::string_view namespaceOf(const pugi::xml_node &node) {
  return Untraced::namespaceOf(node);
}

bool isOfSpirit(std::string_view space) { return Untraced::isOfSpirit(space); }

std::string_view trim(std::string_view text) { return Untraced::trim(text); }

pugi::xml_node findChild(const pugi::xml_node &parent, std::string_view name) {
  note(parent, "/", name);
  return Untraced::findChild(parent, name);
}

pugi::xml_node findNext(const pugi::xml_node &node, std::string_view name) {
  return Untraced::findNext(node, name);
}

std::size_t countChildren(const pugi::xml_node &parent) {
  return Untraced::countChildren(parent);
}

std::string textOf(const pugi::xml_node &node) {
  return Untraced::textOf(node);
}

std::string childText(const pugi::xml_node &parent, std::string_view name) {
  note(parent, "/", name);
  return Untraced::childText(parent, name);
}

std::string_view attributeOf(const pugi::xml_node &node,
                             std::string_view name) {
  note(node, "@", name);
  return Untraced::attributeOf(node, name);
}

void readAttributes(const pugi::xml_node &node, const std::string_view *names,
                    std::string_view *values, std::size_t count) {
  for (std::size_t at = 0; at < count; ++at)
    note(node, "@", names[at]);
  Untraced::readAttributes(node, names, values, count);
}

} // namespace ZelDebugDialog

int main(int count, char **words) {
  using namespace ZelDebugDialog;
  const std::vector<std::string> designs(words + 1, words + count);
  for (const std::string &design : designs) {
    DesignModel model;
    if (ReadDesign({design, {}, "", ""}, model))
      continue;
    std::fprintf(stderr, "%s: it can not be read\n", design.c_str());
    return 1;
  }
  for (const std::string &place : places())
    std::puts(place.c_str());
  return 0;
}

#include "xml/XmlNames.h"

#include <cstring>

namespace ZelDebugDialog {
namespace {

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

/// To the first colon, or to the end.
const char *findColon(const char *name) {
  while (*name != ':' && *name != '\0')
    ++name;
  return name;
}

/// The same as comparing `localNameOf(name)`, without measuring it.
bool hasLocalName(const char *name, std::string_view local) {
  const char *const colon = findColon(name);
  const char *const start = *colon == ':' ? colon + 1 : name;
  return *start == local.front() &&
         std::strncmp(start, local.data(), local.size()) == 0 &&
         start[local.size()] == '\0';
}

/// Only elements have names.
pugi::xml_node findFrom(pugi::xml_node node, std::string_view name) {
  while (!node.empty() && !hasLocalName(node.name(), name))
    node = node.next_sibling();
  return node;
}

bool isText(const pugi::xml_node &node) {
  return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

} // namespace

std::string_view prefixOf(const char *name) {
  const char *const colon = findColon(name);
  return {name, *colon == ':' ? static_cast<std::size_t>(colon - name) : 0};
}

std::string_view localNameOf(const char *name) {
  const char *const colon = findColon(name);
  return *colon == ':'
             ? std::string_view(colon + 1)
             : std::string_view(name, static_cast<std::size_t>(colon - name));
}

std::string_view localNameOf(const pugi::xml_node &node) {
  return localNameOf(node.name());
}

bool isNamed(const pugi::xml_node &node, std::string_view name) {
  return hasLocalName(node.name(), name);
}

std::string_view namespaceOf(const pugi::xml_node &node) {
  const std::string_view prefix = prefixOf(node.name());
  const std::string attribute =
      prefix.empty() ? "xmlns" : "xmlns:" + std::string(prefix);
  return node.attribute(attribute.c_str()).value();
}

bool isOfSpirit(std::string_view space) {
  constexpr std::string_view start =
      "http://www.spiritconsortium.org/XMLSchema/SPIRIT/";
  return space.substr(0, start.size()) == start;
}

std::string_view trim(std::string_view text) {
  while (!text.empty() && isSpace(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && isSpace(text.back()))
    text.remove_suffix(1);
  return text;
}

pugi::xml_node findChild(const pugi::xml_node &parent, std::string_view name) {
  return findFrom(parent.first_child(), name);
}

pugi::xml_node findNext(const pugi::xml_node &node, std::string_view name) {
  return findFrom(node.next_sibling(), name);
}

std::size_t countChildren(const pugi::xml_node &parent) {
  std::size_t count = 0;
  for (pugi::xml_node child = parent.first_child(); !child.empty();
       child = child.next_sibling())
    ++count;
  return count;
}

std::string textOf(const pugi::xml_node &node) {
  const pugi::xml_node first = node.first_child();
  if (isText(first) && first.next_sibling().empty())
    return std::string(trim(first.value()));
  std::string text;
  for (const pugi::xml_node &piece : node.children())
    if (isText(piece))
      text += piece.value();
  return std::string(trim(text));
}

std::string childText(const pugi::xml_node &parent, std::string_view name) {
  return textOf(findChild(parent, name));
}

std::string_view attributeOf(const pugi::xml_node &node,
                             std::string_view name) {
  for (pugi::xml_attribute attribute = node.first_attribute();
       !attribute.empty(); attribute = attribute.next_attribute())
    if (hasLocalName(attribute.name(), name) &&
        prefixOf(attribute.name()) != "xml")
      return trim(attribute.value());
  return "";
}

void readAttributes(const pugi::xml_node &node, const std::string_view *names,
                    std::string_view *values, std::size_t count) {
  for (pugi::xml_attribute attribute = node.first_attribute();
       !attribute.empty(); attribute = attribute.next_attribute()) {
    const std::string_view name = localNameOf(attribute.name());
    std::size_t at = 0;
    while (at != count && names[at] != name)
      ++at;
    if (at != count && values[at].empty())
      values[at] = trim(attribute.value());
  }
}

} // namespace ZelDebugDialog

#include "XmlNames.h"

namespace ZelDebugDialog {
namespace {

std::string_view trim(std::string_view text) {
  constexpr const char *whiteSpace = " \t\r\n";
  const std::size_t first = text.find_first_not_of(whiteSpace);
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(whiteSpace) - first + 1);
}

pugi::xml_node findFrom(pugi::xml_node node, std::string_view name) {
  while (!node.empty() &&
         (node.type() != pugi::node_element || localNameOf(node) != name))
    node = node.next_sibling();
  return node;
}

} // namespace

std::string_view prefixOf(std::string_view name) {
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? "" : name.substr(0, colon);
}

std::string_view localNameOf(std::string_view name) {
  return name.substr(name.find(':') + 1);
}

std::string_view localNameOf(const pugi::xml_node &node) {
  return localNameOf(std::string_view(node.name()));
}

pugi::xml_node findChild(const pugi::xml_node &parent, std::string_view name) {
  return findFrom(parent.first_child(), name);
}

pugi::xml_node findNextLike(const pugi::xml_node &node) {
  return findFrom(node.next_sibling(), localNameOf(node));
}

std::string textOf(const pugi::xml_node &node) {
  std::string text;
  for (const pugi::xml_node &piece : node.children())
    if (piece.type() == pugi::node_pcdata || piece.type() == pugi::node_cdata)
      text += piece.value();
  return std::string(trim(text));
}

std::string childText(const pugi::xml_node &parent, std::string_view name) {
  return textOf(findChild(parent, name));
}

std::string attributeOf(const pugi::xml_node &node, std::string_view name) {
  for (const pugi::xml_attribute &attribute : node.attributes())
    if (localNameOf(std::string_view(attribute.name())) == name)
      return std::string(trim(attribute.value()));
  return "";
}

} // namespace ZelDebugDialog

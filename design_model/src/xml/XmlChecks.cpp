#include "xml/XmlChecks.h"

#include <cstring>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "messages/Quote.h"
#include "xml/XmlNames.h"

namespace ZelDebugDialog {
namespace {

/// Nothing that is read stands at half this depth.
constexpr int deepestNesting = 256;

class Checks {
public:
  Checks(const XmlDocument &checked, const std::string &name,
         DiagnosticList &list)
      : document(checked), file(name), diagnostics(list) {}

  void run() {
    checkDocumentType();
    walkElements();
  }

private:
  void checkDocumentType() {
    for (const pugi::xml_node &node : document.tree().children())
      if (node.type() == pugi::node_doctype)
        warn(node, "the document type is not read; entities that it declares "
                   "stay as they are written");
  }

  /// Without recursion: the nesting may be as deep as the file is long.
  void walkElements() {
    pugi::xml_node node = document.root();
    int depth = 1;
    while (depth > 0) {
      checkPrefixes(node);
      if (pugi::xml_node inner = firstElement(node.first_child())) {
        if (++depth == deepestNesting)
          warn(inner, "elements are nested more than " +
                          std::to_string(deepestNesting) + " deep");
        node = inner;
        continue;
      }
      pugi::xml_node next = firstElement(node.next_sibling());
      for (; !next && --depth > 0; next = firstElement(node.next_sibling()))
        node = node.parent();
      node = next;
    }
  }

  static pugi::xml_node firstElement(pugi::xml_node node) {
    while (!node.empty() && node.type() != pugi::node_element)
      node = node.next_sibling();
    return node;
  }

  /// A prefix counts from its declaration to the end of the file: what is used
  /// outside its element is no worse to read.
  void checkPrefixes(const pugi::xml_node &node) {
    const pugi::xml_attribute first = node.first_attribute();
    for (pugi::xml_attribute attribute = first; !attribute.empty();
         attribute = attribute.next_attribute())
      if (hasPrefix(attribute.name(), "xmlns"))
        known.insert(localNameOf(attribute.name()));
    checkPrefix(node, node.name());
    for (pugi::xml_attribute attribute = first; !attribute.empty();
         attribute = attribute.next_attribute())
      checkPrefix(node, attribute.name());
  }

  static bool hasPrefix(const char *name, std::string_view prefix) {
    return std::strncmp(name, prefix.data(), prefix.size()) == 0 &&
           name[prefix.size()] == ':';
  }

  /// Most names have the prefix of the one before, or none.
  void checkPrefix(const pugi::xml_node &node, const char *name) {
    if (hasPrefix(name, last) || std::strchr(name, ':') == nullptr)
      return;
    last = prefixOf(name);
    if (!last.empty() && known.insert(last).second)
      warn(node, "the prefix " + quote(last) + " is not declared");
  }

  void warn(const pugi::xml_node &node, std::string message) {
    diagnostics.add({DesignDiagnostic::Severity::warning, file,
                     document.lineOf(node), std::move(message)});
  }

  const XmlDocument &document;
  const std::string &file;
  DiagnosticList &diagnostics;
  std::unordered_set<std::string_view> known = {"xml", "xmlns"};
  std::string_view last = "xmlns"; ///< Of the last name that had one.
};

} // namespace

void checkDocument(const XmlDocument &document, const std::string &file,
                   DiagnosticList &diagnostics) {
  Checks(document, file, diagnostics).run();
}

} // namespace ZelDebugDialog

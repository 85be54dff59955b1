#include "XmlChecks.h"

#include <string_view>
#include <unordered_set>
#include <utility>

#include "Quote.h"
#include "XmlNames.h"

namespace ZelDebugDialog {
namespace {

/// Nothing that is read stands at half this depth.
constexpr int deepestNesting = 256;

class Checks {
public:
  Checks(const XmlDocument &checked, const std::string &name,
         DesignModel &target)
      : document(checked), file(name), model(target) {}

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
    for (const pugi::xml_attribute &attribute : node.attributes()) {
      const std::string_view name = attribute.name();
      if (prefixOf(name) == "xmlns")
        known.insert(localNameOf(name));
    }
    checkPrefix(node, node.name());
    for (const pugi::xml_attribute &attribute : node.attributes())
      checkPrefix(node, attribute.name());
  }

  void checkPrefix(const pugi::xml_node &node, std::string_view name) {
    const std::string_view prefix = prefixOf(name);
    if (prefix.empty() || prefix == last)
      return;
    last = prefix;
    if (known.insert(prefix).second)
      warn(node, "the prefix " + quote(prefix) + " is not declared");
  }

  void warn(const pugi::xml_node &node, std::string message) {
    model.Report({DesignDiagnostic::Severity::warning, file,
                  document.lineOf(node), std::move(message)});
  }

  const XmlDocument &document;
  const std::string &file;
  DesignModel &model;
  std::unordered_set<std::string_view> known = {"xml", "xmlns"};
  std::string_view last; ///< Most names have the prefix of the one before.
};

} // namespace

void checkDocument(const XmlDocument &document, const std::string &file,
                   DesignModel &model) {
  Checks(document, file, model).run();
}

} // namespace ZelDebugDialog

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

class Checks : private pugi::xml_tree_walker {
public:
  Checks(const XmlDocument &checked, const std::string &name,
         DiagnosticList &list)
      : document(checked), file(name), diagnostics(list) {}

  void run() {
    checkDocumentType();
    document.root().traverse(*this);
  }

private:
  void checkDocumentType() {
    for (const pugi::xml_node &node : document.tree().children())
      if (node.type() == pugi::node_doctype)
        warn(node, "the document type is not read; entities that it declares "
                   "stay as they are written");
  }

  /// The document element, and from a depth of 0 on what is in it.
  bool begin(pugi::xml_node &root) override { return for_each(root); }
  bool for_each(pugi::xml_node &node) override {
    if (node.type() != pugi::node_element)
      return true;
    checkPrefixes(node);
    if (depth() + 3 == deepestNesting)
      checkInside(node);
    return true;
  }

  void checkInside(const pugi::xml_node &node) {
    const pugi::xml_node inner =
        node.find_child([](const pugi::xml_node &child) {
          return child.type() == pugi::node_element;
        });
    if (!inner.empty())
      warn(inner, "elements are nested more than " +
                      std::to_string(deepestNesting) + " deep");
  }

  /// A prefix counts from its declaration to the end of the file: what is used
  /// outside its element is no worse to read.
  void checkPrefixes(const pugi::xml_node &node) {
    bool arePrefixed = false;
    const pugi::xml_attribute first = node.first_attribute();
    for (pugi::xml_attribute attribute = first; !attribute.empty();
         attribute = attribute.next_attribute()) {
      if (std::strchr(attribute.name(), ':') == nullptr)
        continue;
      arePrefixed = true;
      if (hasPrefix(attribute.name(), "xmlns"))
        known.insert(localNameOf(attribute.name()));
    }
    checkPrefix(node, node.name());
    for (pugi::xml_attribute attribute = first;
         arePrefixed && !attribute.empty();
         attribute = attribute.next_attribute())
      checkPrefix(node, attribute.name());
  }

  /// Most names have the prefix of the one before, or none.
  void checkPrefix(const pugi::xml_node &node, const char *name) {
    if (hasPrefix(name, last) || std::strchr(name, ':') == nullptr)
      return;
    last = prefixOf(name);
    if (!last.empty() && known.insert(last).second)
      warn(node, "the prefix " + quote(last) + " is not declared");
  }

  static bool hasPrefix(const char *name, std::string_view prefix) {
    for (const char c : prefix)
      if (*name++ != c)
        return false;
    return *name == ':';
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

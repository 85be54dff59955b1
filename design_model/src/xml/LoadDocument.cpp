#include "xml/LoadDocument.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "messages/Quote.h"
#include "xml/XmlChecks.h"
#include "xml/XmlNames.h"

namespace ZelDebugDialog {
namespace {

using Severity = DesignDiagnostic::Severity;

/// The names of the standard's editions begin so; the rest tells which.
constexpr std::array<std::string_view, 3> namespaceStarts = {
    "http://www.spiritconsortium.org/XMLSchema/SPIRIT/",
    "http://www.accellera.org/XMLSchema/SPIRIT/",
    "http://www.accellera.org/XMLSchema/IPXACT/",
};

bool isKnownNamespace(std::string_view name) {
  return std::any_of(namespaceStarts.begin(), namespaceStarts.end(),
                     [name](std::string_view start) {
                       return name.substr(0, start.size()) == start;
                     });
}

/// What the element's own prefix stands for; empty when it isn't declared.
std::string findNamespace(const pugi::xml_node &root) {
  const std::string_view prefix = prefixOf(root.name());
  const std::string attribute =
      prefix.empty() ? "xmlns" : "xmlns:" + std::string(prefix);
  return root.attribute(attribute.c_str()).value();
}

} // namespace

bool loadDocument(const DocumentSource &source, const std::string &file,
                  Severity severity, DesignModel &model,
                  XmlDocument &document) {
  const auto refuse = [&](int line, std::string message) {
    model.Report({severity, file, line, std::move(message)});
    return false;
  };
  std::string text;
  const std::string fault = source.read(file, DocumentSource::whole, text);
  if (!fault.empty())
    return refuse(0, fault);
  if (!document.parse(std::move(text)))
    return refuse(document.faultLine, document.fault);
  const pugi::xml_node root = document.root();
  if (typeOf(document) == DocumentType::none)
    return refuse(document.lineOf(root),
                  "it is not IP-XACT: the document element is " +
                      quote(root.name()));
  const std::string space = findNamespace(root);
  if (!space.empty() && !isKnownNamespace(space))
    model.Report({Severity::warning, file, document.lineOf(root),
                  "the namespace " + quote(space) +
                      " is none of IP-XACT; the elements are read by their "
                      "names"});
  checkDocument(document, file, model);
  return true;
}

DocumentType typeOf(const XmlDocument &document) {
  return findDocumentType(localNameOf(document.root()));
}

} // namespace ZelDebugDialog

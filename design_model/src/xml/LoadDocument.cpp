#include "xml/LoadDocument.h"

#include <string_view>
#include <utility>

#include "messages/Quote.h"
#include "xml/XmlChecks.h"
#include "xml/XmlNames.h"

namespace ZelDebugDialog {
namespace {

using Severity = DesignDiagnostic::Severity;

/// The names of the standard's editions begin so; the rest tells which.
bool isKnownNamespace(std::string_view name) {
  constexpr std::string_view start =
      "http://www.accellera.org/XMLSchema/IPXACT/";
  return isOfSpirit(name) || name.substr(0, start.size()) == start;
}

} // namespace

bool loadDocument(const DocumentSource &source, const std::string &file,
                  Severity severity, DiagnosticList &diagnostics,
                  XmlDocument &document) {
  const auto refuse = [&](int line, std::string message) {
    diagnostics.add({severity, file, line, std::move(message)});
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
  const std::string_view space = namespaceOf(root);
  if (!space.empty() && !isKnownNamespace(space))
    diagnostics.add({Severity::warning, file, document.lineOf(root),
                     "the namespace " + quote(space) +
                         " is none of IP-XACT; the elements are read by their "
                         "names"});
  checkDocument(document, file, diagnostics);
  return true;
}

DocumentType typeOf(const XmlDocument &document) {
  return findDocumentType(localNameOf(document.root()));
}

} // namespace ZelDebugDialog

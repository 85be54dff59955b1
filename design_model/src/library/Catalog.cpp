#include "library/Catalog.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "messages/Quote.h"
#include "xml/LoadDocument.h"
#include "xml/XmlNames.h"

namespace ZelDebugDialog {
namespace {

struct Section {
  std::string_view name;
  DocumentType type;
};

/// The sections that a model needs. The order is that of the standard.
constexpr std::array<Section, 4> sections = {{
    {"catalogs", DocumentType::catalog},
    {"components", DocumentType::component},
    {"designs", DocumentType::design},
    {"designConfigurations", DocumentType::designConfiguration},
}};

bool takePrefix(std::string_view &text, std::string_view prefix) {
  const bool isThere = text.substr(0, prefix.size()) == prefix;
  if (isThere)
    text.remove_prefix(prefix.size());
  return isThere;
}

/// Names are URIs: a path, with or without its scheme and this machine.
std::string pathOf(std::string_view name) {
  if (takePrefix(name, "file:") && takePrefix(name, "//"))
    takePrefix(name, "localhost");
  return std::string(name);
}

std::string decode(std::string_view text) {
  std::string decoded;
  for (std::size_t at = 0; at < text.size(); ++at) {
    unsigned code = 0;
    const std::string_view digits = text.substr(at + 1, 2);
    const char *const end = digits.data() + digits.size();
    if (text[at] == '%' && digits.size() == 2 &&
        std::from_chars(digits.data(), end, code, 16).ptr == end && code != 0) {
      decoded += static_cast<char>(code);
      at += 2;
    } else {
      decoded += text[at];
    }
  }
  return decoded;
}

class CatalogReader {
public:
  CatalogReader(const DocumentSource &documents, DiagnosticList &list,
                std::vector<CatalogEntry> &read)
      : source(documents), diagnostics(list), entries(read) {}

  void run(std::vector<std::string> pending) {
    for (std::size_t next = 0; next < pending.size(); ++next) {
      const std::string file = pending[next];
      if (seen.insert(source.identify(file)).second)
        readCatalog(file, pending);
    }
  }

private:
  void readCatalog(const std::string &file, std::vector<std::string> &pending) {
    XmlDocument document;
    if (!loadDocument(source, file, DesignDiagnostic::Severity::warning,
                      diagnostics, document))
      return;
    const pugi::xml_node root = document.root();
    if (typeOf(document) != DocumentType::catalog)
      return warn({file, document.lineOf(root)}, "it is no catalog");
    for (const Section &section : sections)
      forEachChild(findChild(root, section.name), "ipxactFile",
                   [&](const pugi::xml_node &entry) {
                     readEntry(document, file, section.type, entry, pending);
                   });
  }

  void readEntry(const XmlDocument &document, const std::string &catalog,
                 DocumentType type, const pugi::xml_node &node,
                 std::vector<std::string> &pending) {
    CatalogEntry entry;
    entry.type = type;
    entry.identity = readReference(findChild(node, "vlnv"));
    entry.origin = {catalog, document.lineOf(node)};
    const std::string name = childText(node, "name");
    entry.file = findFile(folderOf(catalog), name);
    if (entry.file.empty())
      return warn(entry.origin,
                  "there is no file " + quote(name) + " for " +
                      std::string(toText(type)) + " " +
                      quote(toText(entry.identity)) +
                      (name.find("${") == std::string::npos
                           ? ""
                           : "; no variable of the environment is "
                             "put in"));
    if (type == DocumentType::catalog)
      pending.push_back(entry.file);
    else
      entries.push_back(std::move(entry));
  }

  /// As it is written, else with what it has as "%20"; empty when there is
  /// neither.
  std::string findFile(const std::string &folder, const std::string &name) {
    const std::string path = pathOf(name);
    for (const std::string &written : {path, decode(path)}) {
      std::string file = resolvePath(folder, written);
      if (!name.empty() && source.kindOf(file) == DocumentSource::Kind::file)
        return file;
    }
    return "";
  }

  void warn(const DesignOrigin &origin, std::string message) {
    diagnostics.add({DesignDiagnostic::Severity::warning, origin.file,
                     origin.line, std::move(message)});
  }

  const DocumentSource &source;
  DiagnosticList &diagnostics;
  std::vector<CatalogEntry> &entries;
  std::unordered_set<std::string> seen;
};

} // namespace

void readCatalogs(const DocumentSource &source,
                  const std::vector<std::string> &catalogs,
                  DiagnosticList &diagnostics,
                  std::vector<CatalogEntry> &entries) {
  CatalogReader(source, diagnostics, entries).run(catalogs);
}

} // namespace ZelDebugDialog

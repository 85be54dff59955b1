#include "library/Library.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "library/Catalog.h"
#include "messages/Quote.h"
#include "xml/XmlDocument.h"
#include "xml/XmlNames.h"

namespace ZelDebugDialog {
namespace {

using Severity = DesignDiagnostic::Severity;

/// Documents begin with what they are; the rest of a large one can wait until
/// it is needed.
constexpr std::size_t headSize = std::size_t{16} << 10;

/// The document element is there with its identity, and something after that:
/// nothing of it has been cut off.
bool holdsIdentity(const pugi::xml_node &root) {
  return readIdentity(root).isComplete() &&
         !findChild(root, "version").next_sibling().empty();
}

/// Parses the beginning of a file if that is enough, else all of it. A fault
/// of the text stays in the document. Nothing, with a reason in `fault`: the
/// file can't be read.
std::unique_ptr<XmlDocument> loadHead(const DocumentSource &source,
                                      const std::string &file,
                                      std::string &fault) {
  std::string text;
  fault = source.read(file, headSize, text);
  if (!fault.empty())
    return nullptr;
  auto document = std::make_unique<XmlDocument>();
  if (text.size() < headSize) {
    document->parse(std::move(text));
    return document;
  }
  text.resize(text.rfind('>') + 1);
  document->parse(std::move(text));
  if (holdsIdentity(document->root()))
    return document;
  text.clear();
  fault = source.read(file, DocumentSource::whole, text);
  if (!fault.empty())
    return nullptr;
  document = std::make_unique<XmlDocument>();
  document->parse(std::move(text));
  return document;
}

} // namespace

bool Library::open(const std::vector<std::string> &places) {
  std::vector<std::string> files;
  for (const std::string &place : places)
    if (!openPlace(place, files))
      return false;
  std::sort(files.begin(), files.end());
  files.erase(std::unique(files.begin(), files.end()), files.end());
  for (const std::string &file : files)
    searchFile(file);
  std::vector<CatalogEntry> entries;
  readCatalogs(source, catalogs, diagnostics, entries);
  for (const CatalogEntry &entry : entries)
    enter(catalogued, entry.type, entry.identity, entry.origin, entry.file);
  return true;
}

bool Library::openPlace(const std::string &place,
                        std::vector<std::string> &files) {
  const auto refuse = [&](std::string fault) {
    diagnostics.add({Severity::error, place, 0, std::move(fault)});
    return false;
  };
  switch (source.kindOf(place)) {
  case DocumentSource::Kind::missing:
    return refuse("there is no such library folder or catalog");
  case DocumentSource::Kind::unreadable:
    return refuse("it can not be read");
  case DocumentSource::Kind::file:
    return openCatalog(place);
  case DocumentSource::Kind::folder:
    break;
  }
  for (FolderFault &fault : source.list(place, files)) {
    if (fault.folder == place)
      return refuse(std::move(fault.reason));
    diagnostics.add({fault.isLink ? Severity::note : Severity::warning,
                     fault.folder, 0, std::move(fault.reason)});
  }
  return true;
}

bool Library::openCatalog(const std::string &file) {
  DesignDiagnostic diagnostic{Severity::error, file, 0, ""};
  const auto head = loadHead(source, file, diagnostic.message);
  if (head != nullptr) {
    if (findDocumentType(localNameOf(head->root())) == DocumentType::catalog) {
      catalogs.push_back(file);
      return true;
    }
    diagnostic.line = head->root().empty() ? 1 : head->lineOf(head->root());
    diagnostic.message = "it is neither a library folder nor a catalog";
  }
  diagnostics.add(std::move(diagnostic));
  return false;
}

/// Folders hold files of all kinds; only what looks like a document but isn't
/// one is worth a word.
void Library::searchFile(const std::string &file) {
  DesignDiagnostic diagnostic{Severity::warning, file, 0, ""};
  const auto head = loadHead(source, file, diagnostic.message);
  if (head == nullptr)
    return diagnostics.add(std::move(diagnostic));
  const pugi::xml_node root = head->root();
  const DocumentType type = findDocumentType(localNameOf(root));
  if (type == DocumentType::catalog)
    catalogs.push_back(file);
  if (type == DocumentType::other || type == DocumentType::catalog)
    return;
  const Identity identity = readIdentity(root);
  if (type != DocumentType::none && identity.isComplete())
    return enter(searched, type, identity, {file, head->lineOf(root)}, file);
  if (!head->fault.empty())
    return diagnostics.add(
        {Severity::warning, file, head->faultLine, head->fault});
  // A design on top needs no name; a component is there to be referred to.
  if (type != DocumentType::component)
    return;
  diagnostics.add({Severity::warning, file, head->lineOf(root),
                   "the " + std::string(toText(type)) +
                       " lacks a part of its identity " +
                       quote(toText(identity)) + "; nothing can refer to it"});
}

void Library::enter(Files &files, DocumentType type, const Identity &identity,
                    const DesignOrigin &origin, const std::string &file) {
  const auto [first, isNew] = files.emplace(keyOf(type, identity), file);
  if (isNew && type == DocumentType::component)
    known.push_back(identity);
  if (isNew || source.identify(first->second) == source.identify(file))
    return;
  diagnostics.add({Severity::warning, origin.file, origin.line,
                   std::string(toText(type)) + " " + quote(toText(identity)) +
                       " is in " + quote(first->second) + " as well as in " +
                       quote(file) + "; the first is taken"});
}

std::vector<std::string> Library::find(DocumentType type,
                                       const Identity &identity) const {
  const std::string key = keyOf(type, identity);
  std::vector<std::string> candidates;
  for (const Files *files : {&catalogued, &searched}) {
    const auto found = files->find(key);
    if (found != files->end())
      candidates.push_back(found->second);
  }
  return candidates;
}

} // namespace ZelDebugDialog

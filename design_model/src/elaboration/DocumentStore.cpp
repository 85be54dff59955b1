#include "elaboration/DocumentStore.h"

#include "messages/Quote.h"
#include "records/ComponentReader.h"
#include "records/DesignReader.h"
#include "xml/LoadDocument.h"

namespace ZelDebugDialog {

const ComponentRecord *DocumentStore::findComponent(const Identity &identity) {
  return find(DocumentType::component, identity, components, readComponent);
}

const DesignRecord *DocumentStore::findDesign(const Identity &identity) {
  return find(DocumentType::design, identity, designs, readDesignRecord);
}

const ConfigurationRecord *
DocumentStore::findConfiguration(const Identity &identity) {
  return find(DocumentType::designConfiguration, identity, configurations,
              readConfiguration);
}

/// What is missing is remembered too.
template <class Record>
const Record *DocumentStore::find(DocumentType type, const Identity &identity,
                                  Cache<Record> &cache, Read<Record> read) {
  const auto [entry, isNew] = cache.emplace(keyOf(type, identity), nullptr);
  if (!isNew)
    return entry->second.get();
  for (const std::string &file : library.find(type, identity)) {
    XmlDocument document;
    if (!load(file, type, identity, document))
      continue;
    entry->second = read(document, file, diagnostics);
    break;
  }
  return entry->second.get();
}

/// A catalog may be wrong about what is in a file.
bool DocumentStore::load(const std::string &file, DocumentType type,
                         const Identity &identity, XmlDocument &document) {
  constexpr auto severity = DesignDiagnostic::Severity::error;
  if (!loadDocument(source, file, severity, diagnostics, document))
    return false;
  const Identity found = readIdentity(document.root());
  if (typeOf(document) == type && found == identity)
    return true;
  diagnostics.add({severity, file, document.lineOf(document.root()),
                   "it should hold " + std::string(toText(type)) + " " +
                       quote(toText(identity)) + ", but holds " +
                       std::string(toText(typeOf(document))) + " " +
                       quote(toText(found))});
  return false;
}

} // namespace ZelDebugDialog

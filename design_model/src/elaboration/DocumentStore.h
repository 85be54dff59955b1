// The documents of a library, each read once, when it is first needed.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_DOCUMENTSTORE_H
#define ZELDEBUGDIALOG_DESIGNMODEL_DOCUMENTSTORE_H

#include <memory>
#include <string>
#include <unordered_map>

#include "library/Library.h"
#include "messages/DiagnosticList.h"
#include "records/Records.h"
#include "xml/DocumentSource.h"
#include "xml/XmlDocument.h"

namespace ZelDebugDialog {

/// Records belong to the store. What is wrong with a file is reported when it
/// is read; that a document is missing is for whoever refers to it to say.
class DocumentStore {
public:
  DocumentStore(const DocumentSource &documents, const Library &files,
                DiagnosticList &list)
      : source(documents), library(files), diagnostics(list) {}

  /// Null: no readable file holds it.
  const ComponentRecord *findComponent(const Identity &identity);
  const DesignRecord *findDesign(const Identity &identity);
  const ConfigurationRecord *findConfiguration(const Identity &identity);

private:
  template <class Record>
  using Cache = std::unordered_map<std::string, std::unique_ptr<Record>>;
  template <class Record>
  using Read = std::unique_ptr<Record> (*)(const XmlDocument &document,
                                           const std::string &file,
                                           DiagnosticList &diagnostics);

  template <class Record>
  const Record *find(DocumentType type, const Identity &identity,
                     Cache<Record> &cache, Read<Record> read);
  bool load(const std::string &file, DocumentType type,
            const Identity &identity, XmlDocument &document);

  const DocumentSource &source;
  const Library &library;
  DiagnosticList &diagnostics;
  Cache<ComponentRecord> components;
  Cache<DesignRecord> designs;
  Cache<ConfigurationRecord> configurations;
};

} // namespace ZelDebugDialog

#endif

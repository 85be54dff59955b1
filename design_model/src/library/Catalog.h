// Catalogs: lists of the files that hold documents, other catalogs among them.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_CATALOG_H
#define ZELDEBUGDIALOG_DESIGNMODEL_CATALOG_H

#include <string>
#include <vector>

#include "messages/DiagnosticList.h"
#include "xml/DocumentSource.h"
#include "xml/Identity.h"

namespace ZelDebugDialog {

/// What a catalog says about one file.
struct CatalogEntry {
  DocumentType type = DocumentType::none;
  Identity identity;
  std::string file; ///< As it can be opened.
  DesignOrigin origin;
};

/// Appends the entries of the catalogs and of those that they name, to any
/// depth, each catalog once. An entry whose file is not there is left out with
/// a diagnostic.
void readCatalogs(const DocumentSource &source,
                  const std::vector<std::string> &catalogs,
                  DiagnosticList &diagnostics,
                  std::vector<CatalogEntry> &entries);

} // namespace ZelDebugDialog

#endif

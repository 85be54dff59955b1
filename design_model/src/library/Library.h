// Which file holds which document.
//
// Catalogs say it where there are any; otherwise the folders are searched. The
// files themselves are read by whoever asks.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_LIBRARY_H
#define ZELDEBUGDIALOG_DESIGNMODEL_LIBRARY_H

#include <string>
#include <unordered_map>
#include <vector>

#include "messages/DiagnosticList.h"
#include "xml/DocumentSource.h"
#include "xml/Identity.h"

namespace ZelDebugDialog {

class Library {
public:
  Library(const DocumentSource &documents, DiagnosticList &list)
      : source(documents), diagnostics(list) {}

  /// Takes in all places: folders with what is below them, and catalog files.
  /// False: one of them can't be read, or is neither; an error says which.
  bool open(const std::vector<std::string> &places);

  /// The files that are said to hold a document, the likeliest first.
  std::vector<std::string> find(DocumentType type,
                                const Identity &identity) const;

  /// Every component that a file is said to hold.
  const std::vector<Identity> &components() const { return known; }

private:
  using Files = std::unordered_map<std::string, std::string>;

  bool openPlace(const std::string &place, std::vector<std::string> &files);
  bool openCatalog(const std::string &file);
  void searchFile(const std::string &file);
  void enter(Files &files, DocumentType type, const Identity &identity,
             const DesignOrigin &origin, const std::string &file);

  const DocumentSource &source;
  DiagnosticList &diagnostics;
  Files catalogued;
  Files searched;
  std::vector<std::string> catalogs;
  std::vector<Identity> known;
};

} // namespace ZelDebugDialog

#endif

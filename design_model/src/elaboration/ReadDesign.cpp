#include "elaboration/ReadDesignFrom.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "elaboration/DocumentStore.h"
#include "elaboration/Elaboration.h"
#include "graph/DesignContents.h"
#include "kinds/ConnectRows.h"
#include "kinds/KindTable.h"
#include "library/Library.h"
#include "records/ComponentReader.h"
#include "records/DesignReader.h"
#include "xml/LoadDocument.h"
#include "xml/XmlDocument.h"

namespace ZelDebugDialog {
namespace {

using Severity = DesignDiagnostic::Severity;

/// Null, with an error: it can't be read, or is neither.
std::unique_ptr<XmlDocument> loadTop(const DocumentSource &documents,
                                     const std::string &file,
                                     DiagnosticList &diagnostics) {
  auto top = std::make_unique<XmlDocument>();
  if (!loadDocument(documents, file, Severity::error, diagnostics, *top))
    return nullptr;
  const DocumentType type = typeOf(*top);
  if (type == DocumentType::design || type == DocumentType::component)
    return top;
  diagnostics.add({Severity::error, file, top->lineOf(top->root()),
                   "it is neither a design nor a component"});
  return nullptr;
}

} // namespace

/// What can end the reading comes before what can only leave something out, so
/// that the first error is the reason.
bool readDesignFrom(const DocumentSource &documents,
                    const DesignSources &sources, const ModelLimits &limits,
                    DesignModel &model) {
  model = DesignModel();
  DiagnosticList &diagnostics = DesignContents::of(model).diagnostics;
  KindTable kinds;
  if (!sources.kindsFile.empty() &&
      !kinds.read(documents, sources.kindsFile, diagnostics))
    return false;
  const std::string &file = sources.designFile;
  std::unique_ptr<XmlDocument> top = loadTop(documents, file, diagnostics);
  if (top == nullptr)
    return false;
  std::vector<std::string> places = sources.libraryFolders;
  if (places.empty())
    places.push_back(folderOf(file));
  Library library(documents, diagnostics);
  if (!library.open(places))
    return false;
  DocumentStore store(documents, library, diagnostics);
  Elaboration elaboration(store, kinds, sources.view, limits, model);
  // What has been made a record of is given back before the model grows.
  if (typeOf(*top) == DocumentType::component) {
    const auto component = readComponent(*top, file, diagnostics);
    top.reset();
    if (!elaboration.elaborate(*component))
      return false;
  } else {
    const auto design = readDesignRecord(*top, file, diagnostics);
    top.reset();
    elaboration.elaborate(*design);
  }
  std::vector<Identity> known = elaboration.identities();
  known.insert(known.end(), library.components().begin(),
               library.components().end());
  kinds.reportUnused(known, diagnostics);
  applyConnectRows(kinds.connectRows(), sources.kindsFile, model);
  return true;
}

bool ReadDesign(const DesignSources &sources, DesignModel &model) {
  DesignModel read;
  const bool isRead = readDesignFrom(FileSystemSource(), sources,
                                     limitsOf(sources.maxInstances), read);
  model = std::move(read);
  return isRead;
}

} // namespace ZelDebugDialog

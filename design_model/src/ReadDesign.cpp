#include "ReadDesignFrom.h"

#include <string>
#include <utility>
#include <vector>

#include "ComponentReader.h"
#include "DesignReader.h"
#include "DocumentStore.h"
#include "Elaboration.h"
#include "KindTable.h"
#include "Library.h"
#include "LoadDocument.h"
#include "XmlDocument.h"

namespace ZelDebugDialog {
namespace {

using Severity = DesignDiagnostic::Severity;

bool loadTop(const DocumentSource &documents, const std::string &file,
             DesignModel &model, XmlDocument &top) {
  if (!loadDocument(documents, file, Severity::error, model, top))
    return false;
  const DocumentType type = typeOf(top);
  if (type == DocumentType::design || type == DocumentType::component)
    return true;
  model.Report({Severity::error, file, top.lineOf(top.root()),
                "it is neither a design nor a component"});
  return false;
}

} // namespace

/// What can end the reading comes before what can only leave something out, so
/// that the first error is the reason.
bool readDesignFrom(const DocumentSource &documents,
                    const DesignSources &sources, std::size_t bytes,
                    DesignModel &model) {
  model = DesignModel();
  KindTable kinds;
  if (!sources.kindsFile.empty() &&
      !kinds.read(documents, sources.kindsFile, model))
    return false;
  const std::string &file = sources.designFile;
  XmlDocument top;
  if (!loadTop(documents, file, model, top))
    return false;
  std::vector<std::string> places = sources.libraryFolders;
  if (places.empty())
    places.push_back(folderOf(file));
  Library library(documents, model);
  if (!library.open(places))
    return false;
  DocumentStore store(documents, library, model);
  Elaboration elaboration(store, kinds, sources.view, bytes, model);
  if (typeOf(top) == DocumentType::component)
    return elaboration.elaborate(*readComponent(top, file, model));
  elaboration.elaborate(*readDesignRecord(top, file, model));
  return true;
}

bool ReadDesign(const DesignSources &sources, DesignModel &model) {
  DesignModel read;
  const bool isRead =
      readDesignFrom(FileSystemSource(), sources, largestModel, read);
  model = std::move(read);
  return isRead;
}

} // namespace ZelDebugDialog

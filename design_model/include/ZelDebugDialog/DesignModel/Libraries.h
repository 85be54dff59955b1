// Where the documents may be that a design refers to and that were not found.
//
// The search goes from the folder of the design upwards, and through what is
// beside it. It is bounded, follows no links, and reads no more of a file than
// tells what is in it.
//
//   if (!model.Missing().empty()) {
//     const LibrarySearch search = FindLibraries(sources, model);
//     suggest(search.folders); // in place of sources.libraryFolders
//   }
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_LIBRARIES_H
#define ZELDEBUGDIALOG_DESIGNMODEL_LIBRARIES_H

#include <cstddef>
#include <string>
#include <vector>

#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "ZelDebugDialog/DesignModel/Export.h"

namespace ZelDebugDialog {

/// Whether a library folder is searched for such a file: its name ends in
/// ".xml", in any letter case. It need not be there.
ZELDEBUGDIALOG_DESIGNMODEL_API bool IsLibraryDocument(const std::string &path);

/// How far a search for libraries goes.
struct LibrarySearchLimits {
  std::size_t levels = 6;       ///< Folders above that of the design.
  std::size_t entries = 50000;  ///< Files and folders that are looked at.
  std::size_t documents = 5000; ///< Files whose beginning is read.
};

/// What a search for libraries has found.
struct LibrarySearch {
  /// The library folders with which the design finds what it lacks, as far as
  /// that was found anywhere: those of the sources, or the folder of the
  /// design, and further ones. Empty: nothing was found.
  std::vector<std::string> folders = {};
  /// What was missing and was found.
  std::vector<MissingDocument> found = {};
  /// What is still missing with these folders.
  std::vector<MissingDocument> missing = {};
  std::string outermost = {}; ///< The last folder that was searched.
  std::size_t documents = 0;  ///< How many files were looked into.
  bool isCut = false;         ///< A limit ended the search.
};

/// Searches for what `model`, which has been read from `sources`, lacks.
/// Folders are relative to the current one if that of the design is.
ZELDEBUGDIALOG_DESIGNMODEL_API LibrarySearch
FindLibraries(const DesignSources &sources, const DesignModel &model,
              const LibrarySearchLimits &limits = {});

} // namespace ZelDebugDialog

#endif

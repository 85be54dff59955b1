// Which documents are below a folder, as far as a limit allows.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_DOCUMENTFINDER_H
#define ZELDEBUGDIALOG_DESIGNMODEL_DOCUMENTFINDER_H

#include <cstddef>
#include <filesystem>
#include <string>
#include <unordered_map>
#include <vector>

#include "ZelDebugDialog/DesignModel/Libraries.h"
#include "xml/DocumentSource.h"

namespace ZelDebugDialog {

class DocumentFinder {
public:
  explicit DocumentFinder(const LibrarySearchLimits &searchLimits)
      : limits(searchLimits) {}

  /// Takes in what is below the folder, near ones first, but for what is below
  /// `but`, which has been searched. Links to folders are not followed, hidden
  /// folders not entered.
  void search(const std::filesystem::path &folder,
              const std::filesystem::path &but);

  /// Empty when no file that was met holds it.
  std::string find(const MissingDocument &document) const;

  std::size_t documents() const { return read; }
  bool isCut() const { return cut; }

private:
  void look(const std::filesystem::path &file);

  LibrarySearchLimits limits;
  FileSystemSource source;
  std::unordered_map<std::string, std::string> files; ///< By type and identity.
  std::size_t entries = 0;
  std::size_t read = 0;
  bool cut = false;
};

} // namespace ZelDebugDialog

#endif

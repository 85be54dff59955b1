// Documents in memory, in the place of files.
#ifndef ZELDEBUGDIALOG_TESTS_DESIGN_MODEL_MEMORYSOURCE_H
#define ZELDEBUGDIALOG_TESTS_DESIGN_MODEL_MEMORYSOURCE_H

#include <map>
#include <string>
#include <vector>

#include "xml/DocumentSource.h"

namespace ZelDebugDialog {

/// Files by path; a path that others begin with, and a "/", is a folder.
class MemorySource : public DocumentSource {
public:
  std::map<std::string, std::string> files;

  Kind kindOf(const std::string &path) const override;
  std::string read(const std::string &path, std::size_t most,
                   std::string &text) const override;
  std::vector<FolderFault> list(const std::string &folder,
                                std::vector<std::string> &found) const override;
  std::string identify(const std::string &path) const override;
};

} // namespace ZelDebugDialog

#endif

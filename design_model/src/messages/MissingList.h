// The documents that a design refers to and that were not found: each once.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_MISSINGLIST_H
#define ZELDEBUGDIALOG_DESIGNMODEL_MISSINGLIST_H

#include <string>
#include <unordered_set>
#include <vector>

#include "ZelDebugDialog/DesignModel/DesignModel.h"

namespace ZelDebugDialog {

class MissingList {
public:
  void add(MissingDocument document);
  const std::vector<MissingDocument> &all() const { return documents; }

private:
  std::vector<MissingDocument> documents;
  std::unordered_set<std::string> seen; ///< "type:identity"
};

} // namespace ZelDebugDialog

#endif

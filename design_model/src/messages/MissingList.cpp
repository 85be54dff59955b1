#include "messages/MissingList.h"

#include <utility>

#include "names/Room.h"

namespace ZelDebugDialog {

void MissingList::add(MissingDocument document) {
  makeRoom(documents, 1);
  if (seen.insert(document.type + ":" + document.identity).second)
    documents.push_back(std::move(document));
}

} // namespace ZelDebugDialog

// Room in a vector, made before anything is changed that would have to be taken
// back if there were none.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_ROOM_H
#define ZELDEBUGDIALOG_DESIGNMODEL_ROOM_H

#include <algorithm>
#include <cstddef>
#include <vector>

namespace ZelDebugDialog {

/// So that adding `more` elements can't fail. Grows as adding them would.
template <class Element>
void makeRoom(std::vector<Element> &list, std::size_t more) {
  const std::size_t needed = list.size() + more;
  if (needed > list.capacity())
    list.reserve(std::max(needed, 2 * list.capacity()));
}

} // namespace ZelDebugDialog

#endif

#include "names/NameIndex.h"

#include <algorithm>

namespace ZelDebugDialog {

void NameIndex::grow() {
  constexpr std::size_t fewest = 16;
  std::vector<Slot> larger(std::max(fewest, 2 * slots.size()));
  for (const Slot &slot : slots) {
    if (slot.index == none)
      continue;
    std::size_t at = slot.hash & (larger.size() - 1);
    while (larger[at].index != none)
      at = (at + 1) & (larger.size() - 1);
    larger[at] = slot;
  }
  slots = std::move(larger);
}

} // namespace ZelDebugDialog

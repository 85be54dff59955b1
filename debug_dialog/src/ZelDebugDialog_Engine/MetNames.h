// The names that a walk through a design has met.
#ifndef ZELDEBUGDIALOG_ENGINE_METNAMES_H
#define ZELDEBUGDIALOG_ENGINE_METNAMES_H

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace ZelDebugDialog {

/// They lie side by side. In `std::unordered_set` each has a place of its own,
/// and to get at a hundred thousand of those takes longer than all the rest of
/// a discovery.
class MetNames {
public:
  /// @param most  how many there may be
  explicit MetNames(std::size_t most) {
    std::size_t size = 2;
    while (size < 2 * most)
      size *= 2;
    slots.resize(size);
  }

  /// @param name  stays where it is
  /// @return whether it is new
  bool insert(std::string_view name) {
    for (std::size_t at = std::hash<std::string_view>()(name);; ++at) {
      std::string_view &slot = slots[at & (slots.size() - 1)];
      if (slot.data() == nullptr) {
        slot = name;
        return true;
      }
      if (slot == name)
        return false;
    }
  }

private:
  /// A power of two, at least half of them empty: the first empty one from
  /// where its hash leads is the place of a name.
  std::vector<std::string_view> slots;
};

} // namespace ZelDebugDialog

#endif

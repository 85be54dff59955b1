// Finds names in a list that only grows. It holds no names itself, and no node
// for each: what is looked up for every instance has to lie close together.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_NAMEINDEX_H
#define ZELDEBUGDIALOG_DESIGNMODEL_NAMEINDEX_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace ZelDebugDialog {

class NameIndex {
public:
  static constexpr std::uint32_t none = static_cast<std::uint32_t>(-1);

  /// Where the name is first, or `none`. `nameAt(index)` is the name that was
  /// entered for an index.
  template <class NameAt>
  std::uint32_t find(std::string_view name, const NameAt &nameAt) const {
    return slots.empty() ? none
                         : slots[locate(name, hashOf(name), nameAt)].index;
  }

  /// Enters the name for an index unless it has been entered before. Where it
  /// is first. Without memory for it nothing is entered.
  template <class NameAt>
  std::uint32_t enter(std::string_view name, std::uint32_t index,
                      const NameAt &nameAt) {
    if (2 * (used + 1) > slots.size())
      grow();
    const std::uint32_t hash = hashOf(name);
    Slot &slot = slots[locate(name, hash, nameAt)];
    if (slot.index == none) {
      slot = {hash, index};
      ++used;
    }
    return slot.index;
  }

private:
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t index = none;
  };

  static std::uint32_t hashOf(std::string_view name) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>()(name));
  }

  /// The slot that has the name, or the free one that it belongs in.
  template <class NameAt>
  std::size_t locate(std::string_view name, std::uint32_t hash,
                     const NameAt &nameAt) const {
    std::size_t at = hash & (slots.size() - 1);
    while (slots[at].index != none &&
           (slots[at].hash != hash || nameAt(slots[at].index) != name))
      at = (at + 1) & (slots.size() - 1);
    return at;
  }

  void grow();

  std::vector<Slot> slots; ///< A power of two, at most half of them used.
  std::size_t used = 0;
};

/// The names of records, for an index of them.
template <class Record> auto nameIn(const std::vector<Record> &records) {
  return [&records](std::uint32_t index) -> const std::string & {
    return records[index].name;
  };
}

} // namespace ZelDebugDialog

#endif

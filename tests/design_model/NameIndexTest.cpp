#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "names/NameIndex.h"

namespace ZelDebugDialog {
namespace {

struct Named {
  std::string name;
};

/// Appends a record of that name. Where the name is first.
std::uint32_t append(const std::string &name, std::vector<Named> &records,
                     NameIndex &index) {
  records.push_back({name});
  return index.enter(name, static_cast<std::uint32_t>(records.size() - 1),
                     nameIn(records));
}

TEST(NameIndex, HoldsTheFirstOfEachName) {
  std::vector<Named> records;
  NameIndex index;
  EXPECT_EQ(index.find("a", nameIn(records)), NameIndex::none);
  EXPECT_EQ(append("a", records, index), 0u);
  EXPECT_EQ(append("", records, index), 1u);
  EXPECT_EQ(append("a", records, index), 0u);
  EXPECT_EQ(append("A", records, index), 3u);
  EXPECT_EQ(index.find("a", nameIn(records)), 0u);
  EXPECT_EQ(index.find("", nameIn(records)), 1u);
  EXPECT_EQ(index.find("A", nameIn(records)), 3u);
  for (const char *const absent : {"b", "aa", " a", "a "})
    EXPECT_EQ(index.find(absent, nameIn(records)), NameIndex::none) << absent;
}

TEST(NameIndex, FindsAllAfterItHasGrown) {
  constexpr std::uint32_t count = 1000;
  std::vector<Named> records;
  NameIndex index;
  for (std::uint32_t at = 0; at < count; ++at)
    ASSERT_EQ(append("name_" + std::to_string(at), records, index), at);
  for (std::uint32_t at = 0; at < count; ++at) {
    const std::string name = "name_" + std::to_string(at);
    EXPECT_EQ(index.find(name, nameIn(records)), at);
    EXPECT_EQ(index.find(name + "_", nameIn(records)), NameIndex::none);
  }
}

} // namespace
} // namespace ZelDebugDialog

// Edits of a list of texts: one item more or less, the rest as it is.
#include "editing/EditList.h"

#include <algorithm>
#include <random>

#include <gmock/gmock.h>

#include "project_file/ProjectTest.h"
#include "toml/Document.h"

namespace {

using namespace ZelDebugDialog::project;

struct EditedList {
  std::string before;
  std::string after;
};

TEST(EditList, AddsAnItemBehindTheLastOne) {
  for (const EditedList &row : std::vector<EditedList>{
           {"", "[\"n\"]"},
           {"[]", "[\"n\"]"},
           {"[ \t]", "[\"n\"]"},
           {"[ # none\n]", "[\"n\" # none\n]"},
           {"[\n]", "[\"n\"\n]"},
           {"[\"a\"]", "[\"a\", \"n\"]"},
           {"[ 'a' ]", "[ 'a', 'n' ]"},
           {"['a',\"b\"]", "['a',\"b\", \"n\"]"},
           {"[\"a\", ]", "[\"a\", \"n\", ]"},
           {"[\"a\",]", "[\"a\", \"n\",]"},
           {"[\"a\" # ]\n]", "[\"a\", \"n\" # ]\n]"},
           {"[\n  \"a\"\n]", "[\n  \"a\",\n  \"n\"\n]"},
           {"[\n  \"a\",\n]", "[\n  \"a\",\n  \"n\",\n]"},
           {"[\r\n\t'a', # ',\r\n\t]", "[\r\n\t'a', # ',\r\n\t'n',\r\n\t]"},
           {"[ # of\n  'a', # one,\n  'b' # two]\n  # end\n]",
            "[ # of\n  'a', # one,\n  'b', # two]\n  'n'\n  # end\n]"},
           {"['a',\n 'b']", "['a',\n 'b',\n 'n']"},
           {"['a',\n 'b', ]", "['a',\n 'b',\n 'n', ]"},
           {"[\n 'a', 'b', # two\n]", "[\n 'a', 'b', # two\n 'n',\n]"},
           {"[\n 'a' # one\n , # two\n]", "[\n 'a' # one\n , # two\n 'n',\n]"},
           {"[ 'a'\n, 'b' # two\n]", "[ 'a'\n, 'b', 'n' # two\n]"},
       })
    EXPECT_EQ(listWith(row.before, "n"), row.after) << row.before;
}

TEST(EditList, TakesAnItemAwayWithItsComma) {
  for (const EditedList &row : std::vector<EditedList>{
           {"[\"n\"]", "[]"},
           {"[ 'n', ]", "[ ]"},
           {"['n', 'b']", "['b']"},
           {"['a','n','b']", "['a','b']"},
           {"[ 'a', 'n' ]", "[ 'a' ]"},
           {"[ 'a', 'n', ]", "[ 'a', ]"},
           {"['n', 'a', \"n\", 'b', 'n']", "['a', 'b']"},
           {"[\n  'a', # one\n  'n', # two\n  'b', # three\n]",
            "[\n  'a', # one\n  'b', # three\n]"},
           {"[\n  'a', # one\n  'n' # two,\n]", "[\n  'a' # one\n]"},
           {"[\n  'a', # one\n  'n', # two\n]", "[\n  'a', # one\n]"},
           {"[\r\n  'n',\r\n  'b'\r\n]", "[\r\n  'b'\r\n]"},
           {"[\n  # front\n  'n',\n  # back\n  'b'\n]",
            "[\n  # front\n  # back\n  'b'\n]"},
           {"[ 'n', # one\n  'b' ]", "[ # one\n  'b' ]"},
           {"[ 'a', # one\n  'n' ]", "[ 'a' # one\n   ]"},
           {"[ 'a',\n  'n']", "[ 'a']"},
           {"[\n  'a', 'n', # two\n  'b'\n]", "[\n  'a', # two\n  'b'\n]"},
           {"[\n  'n', 'a', # two\n]", "[\n  'a', # two\n]"},
           {"[ 'a'\n, 'n' # two\n, 'b'\n]", "[ 'a'\n, 'b'\n]"},
           {"[\n  'n' # one\n, 'b'\n]", "[\n 'b'\n]"},
           {"[ 'n' # one\n, 'b'\n]", "[  # one\n 'b'\n]"},
       })
    EXPECT_EQ(listWithout(row.before, "n"), row.after) << row.before;
}

TEST(EditList, LeavesAListWithoutTheItem) {
  for (const char *const list :
       {"[]", "['N', 'nn', \"'n'\"] ", "[ # n\n 'a', # 'n',\n]"})
    EXPECT_EQ(listWithout(list, "n"), list);
}

std::vector<std::string> itemsOf(const std::string &list) {
  std::vector<std::string> items;
  const TomlDocument document = readToml("value = " + list);
  EXPECT_FALSE(document.error) << list;
  if (!document.error)
    for (const TomlNode &item : document.root.find("value")->value.items)
      items.push_back(item.text);
  return items;
}

/// Whether one text is another one with some bytes left out.
bool isPartOf(const std::string &less, const std::string &more) {
  std::size_t at = 0;
  for (const char c : more)
    if (at < less.size() && less[at] == c)
      ++at;
  return at == less.size();
}

TEST(EditList, RandomListsKeepTheRest) {
  std::mt19937 random(20261123);
  const auto upTo = [&random](unsigned most) {
    return static_cast<unsigned>(random()) % (most + 1);
  };
  const char *const spaces[] = {"", "", " ", "\t", "\n", "\n  ", " # c, ]\n "};
  const char *const items[] = {"'a'", "\"b\"", "'n'", "\"a # [\""};
  for (int round = 0; round < project_test::rounds(2000); ++round) {
    std::string list = "[";
    const unsigned count = upTo(4);
    for (unsigned at = 0; at < count; ++at) {
      list += std::string(spaces[upTo(6)]) + items[upTo(3)] + spaces[upTo(6)];
      if (at + 1 < count || upTo(1) == 0)
        list += ",";
    }
    list += std::string(spaces[upTo(6)]) + "]";
    std::vector<std::string> expected = itemsOf(list);
    expected.emplace_back("m");
    const std::string more = listWith(list, "m");
    EXPECT_EQ(itemsOf(more), expected) << list << "\n->\n" << more;
    EXPECT_TRUE(count == 0 || isPartOf(list, more)) << list << "\n->\n" << more;
    expected.pop_back();
    EXPECT_EQ(itemsOf(listWithout(more, "m")), expected) << more;
    expected.erase(std::remove(expected.begin(), expected.end(), "n"),
                   expected.end());
    const std::string less = listWithout(list, "n");
    EXPECT_EQ(itemsOf(less), expected) << list << "\n->\n" << less;
    EXPECT_TRUE(isPartOf(less, list)) << list << "\n->\n" << less;
  }
}

} // namespace

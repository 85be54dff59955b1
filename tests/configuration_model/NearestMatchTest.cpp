// The accepted word that is nearest to one that was mistyped.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "text/NearestMatch.h"

namespace {

using namespace ZelDebugDialog::model;

TEST(NearestMatch, FindsOneEditForEachThreeLetters) {
  const std::vector<std::string> words{"port", "frequency", "esn"};
  struct Row {
    const char *word;
    const char *nearest;
  } const rows[] = {
      {"port", "port"},
      {"prot", "port"},
      {"pot", "port"},
      {"ports", "port"},
      {"PORT", "port"},
      {"p", ""},
      {"esm", "esn"},
      {"sen", "esn"},
      {"es", "esn"},
      {"em", ""},
      {"freqency", "frequency"},
      {"frekwenzy", "frequency"},
      {"frekwensi", ""},
      {"", ""},
  };
  for (const Row &row : rows)
    EXPECT_EQ(nearestMatch(row.word, words), row.nearest) << row.word;
}

TEST(NearestMatch, TakesTheFirstOfSeveral) {
  EXPECT_EQ(nearestMatch("cat", {"bat", "hat"}), "bat");
  EXPECT_EQ(nearestMatch("cat", {"bat", "cat"}), "cat");
}

TEST(NearestMatch, KnowsNoneAmongNoneAndNoneForAVeryLongWord) {
  EXPECT_EQ(nearestMatch("port", {}), "");
  EXPECT_EQ(nearestMatch(std::string(64, 'a'), {std::string(63, 'a')}),
            std::string(63, 'a'));
  EXPECT_EQ(nearestMatch(std::string(65, 'a'), {std::string(64, 'a')}), "");
}

TEST(NearestMatch, IsAQuestionBehindASentence) {
  EXPECT_EQ(didYouMean("prot", {"port"}), "; did you mean 'port'?");
  EXPECT_EQ(didYouMean("speed", {"port"}), "");
}

TEST(QuotedList, QuotesEachWord) {
  EXPECT_EQ(quotedList({}), "nothing");
  EXPECT_EQ(quotedList({"a"}), "'a'");
  EXPECT_EQ(quotedList({"a", "b c"}), "'a', 'b c'");
}

} // namespace

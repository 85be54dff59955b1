// Why a text is no single word of a command.
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "text/Words.h"

namespace {

using namespace ZelDebugDialog::model;

std::string codeOf(const std::optional<Why> &problem) {
  return problem ? problem->code : "";
}

struct Row {
  std::string_view text;
  const char *code;   ///< anywhere
  const char *inFile; ///< in an option file
};

constexpr std::string_view nullInside("a\0b", 3);

const Row rows[] = {
    {"USB21", "", ""},
    {"/dev/ttyS0", "", ""},
    {"a-b", "", ""},
    {"-1", "", ""},
    {"-9x", "", ""},
    {"--1", "leading-minus", "leading-minus"},
    {"-", "leading-minus", "leading-minus"},
    {"-a", "leading-minus", "leading-minus"},
    {"", "empty-text", "empty-text"},
    {"a b", "white-space", "white-space"},
    {" a", "white-space", "white-space"},
    {"a\t", "white-space", "white-space"},
    {"a\rb", "white-space", "white-space"},
    {"a\vb", "white-space", "white-space"},
    {"a\fb", "white-space", "white-space"},
    {"a\nb", "white-space", "lines-in-file"},
    {"a\nb c", "white-space", "white-space"},
    {nullInside, "", "lines-in-file"},
};

TEST(Words, SayWhatKeepsATextFromBeingOne) {
  for (const Row &row : rows) {
    EXPECT_EQ(codeOf(whyNoWord(row.text)), row.code) << row.text;
    EXPECT_EQ(codeOf(whyNoWord(row.text, WordPlace::optionFile)), row.inFile)
        << row.text;
  }
}

TEST(Words, AreEachOfThoseBetweenSemicolons) {
  EXPECT_EQ(codeOf(whyNoWords("a;b;c")), "");
  EXPECT_EQ(codeOf(whyNoWords("a")), "");
  EXPECT_EQ(codeOf(whyNoWords("")), "empty-text");
  EXPECT_EQ(codeOf(whyNoWords("a;;b")), "empty-text");
  EXPECT_EQ(codeOf(whyNoWords(";")), "empty-text");
  EXPECT_EQ(codeOf(whyNoWords("a;")), "empty-text");
  EXPECT_EQ(codeOf(whyNoWords("a;-b")), "leading-minus");
  EXPECT_EQ(codeOf(whyNoWords("a; b")), "white-space");
  EXPECT_EQ(codeOf(whyNoWords("a;b\nc", WordPlace::optionFile)),
            "lines-in-file");
}

TEST(Words, MayBeginWithAMinusWhereAnythingIsTaken) {
  EXPECT_EQ(codeOf(whyNoOpaqueWord("-a")), "");
  EXPECT_EQ(codeOf(whyNoOpaqueWord("")), "empty-text");
  EXPECT_EQ(codeOf(whyNoOpaqueWord("-a b")), "white-space");
}

} // namespace

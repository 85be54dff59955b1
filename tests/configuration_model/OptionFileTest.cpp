// What is read of an option file, and which files are the same.
#include <cerrno>
#include <string>

#include <gtest/gtest.h>

#include "files/OptionFile.h"
#include "support/TemporaryDirectory.h"

namespace {

using namespace ZelDebugDialog::model;

class OptionFileTest : public testing::Test {
protected:
  OptionFile readOf(const std::string &content) const {
    work.write("some.opt", content);
    return readOptionFile(work.path() / "some.opt");
  }

  support::TemporaryDirectory work;
};

TEST_F(OptionFileTest, HasItsFirstLineThatIsNotEmpty) {
  const struct {
    const char *content;
    int line;
    const char *text;
  } rows[] = {
      {"", 0, ""},
      {"\n", 0, ""},
      {"\n\n\n", 0, ""},
      {"a", 1, "a"},
      {"a\n", 1, "a"},
      {"\na", 2, "a"},
      {"\n\na\nb\n", 3, "a"},
      {" \na", 1, " "},
      {"a\r\nb", 1, "a\r"},
  };
  for (const auto &row : rows) {
    const OptionFile file = readOf(row.content);
    EXPECT_TRUE(file.exists);
    EXPECT_EQ(file.problem, "");
    EXPECT_EQ(file.bytes, row.content);
    EXPECT_EQ(file.line, row.line) << row.content;
    EXPECT_EQ(file.text, row.text) << row.content;
  }
}

/// Only a call that has failed says why.
TEST_F(OptionFileTest, EndsWhateverWasInterruptedBefore) {
  work.write("some.opt", "a\n");
  errno = EINTR;
  EXPECT_EQ(readOptionFile(work.path() / "some.opt").bytes, "a\n");
}

TEST_F(OptionFileTest, IsCutBehindWhatIsReadOfALine) {
  EXPECT_FALSE(readOf(std::string(1023, 'x')).isCut());
  EXPECT_TRUE(readOf(std::string(1024, 'x')).isCut());
  EXPECT_FALSE(readOf(std::string(1023, 'x') + "\ny").isCut());
}

TEST_F(OptionFileTest, IsTextWithoutANullByte) {
  EXPECT_TRUE(readOf("a\xff").isText());
  EXPECT_FALSE(readOf(std::string("a\0b", 3)).isText());
  // Behind its line it is nobody's affair.
  EXPECT_TRUE(readOf(std::string("a\n\0b", 4)).isText());
}

/// A mebibyte; what is behind it is not compared.
TEST_F(OptionFileTest, IsReadUpToABound) {
  constexpr std::size_t bound = 1048576;
  const std::string most(bound, 'x');
  const OptionFile file = readOf(most);
  EXPECT_EQ(file.bytes.size(), bound);
  EXPECT_EQ(readOf(most + "y").bytes.size(), bound);
  EXPECT_TRUE(readOf(most + "y").isSameAs(file));
  std::string other = most;
  other.back() = 'y';
  EXPECT_FALSE(readOf(other).isSameAs(file));
  other.pop_back();
  EXPECT_EQ(readOf(other).bytes.size(), bound - 1);
  EXPECT_FALSE(readOf(other).isSameAs(file));
}

TEST_F(OptionFileTest, IsReadToItsLastByte) {
  for (const std::size_t size : {4095U, 4096U, 4097U, 8193U})
    EXPECT_EQ(readOf(std::string(size, '\n')).bytes.size(), size);
}

/// A program's own memory is a file, and nothing lies at its front.
TEST_F(OptionFileTest, SaysWhyItCannotBeRead) {
  const OptionFile file = readOptionFile("/proc/self/mem");
  EXPECT_TRUE(file.exists);
  EXPECT_EQ(file.problem, "Input/output error");
  EXPECT_EQ(file.bytes, "");
}

TEST_F(OptionFileTest, IsAnotherWhereItIsNotThere) {
  const OptionFile none = readOptionFile(work.path() / "none.opt");
  EXPECT_FALSE(none.exists);
  EXPECT_EQ(none.problem, "");
  EXPECT_FALSE(none.isSameAs(readOf("")));
  EXPECT_TRUE(none.isSameAs(readOptionFile(work.path() / "neither.opt")));
  const OptionFile folder = readOptionFile(work.path());
  EXPECT_TRUE(folder.exists);
  EXPECT_EQ(folder.problem, "is a folder, no file");
  EXPECT_FALSE(folder.isSameAs(readOf("")));
}

TEST(OptionFile, HasTheNameOfItsProcessor) {
  EXPECT_EQ(optionFilePath("etc", "a.b"), "etc/kvo_a.b.opt");
  EXPECT_EQ(whyNoFile("a.b"), "");
  EXPECT_EQ(whyNoFile("a/b"), "a '/' in a processor's name leads to no file");
  EXPECT_EQ(whyNoFile(std::string("a\0/", 3)),
            "a null byte in a processor's name leads to no file");
}

} // namespace

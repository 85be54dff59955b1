#include "ToolTest.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tool {
namespace {

using nlohmann::json;

using RoundtripCommandTest = ToolTest;

constexpr const char *same = "connect lc hdu -debugdevice cpunr 1";

TEST_F(RoundtripCommandTest, TellsWhatBecomesOfEachCommand) {
  folder.write("commands", std::string(same) +
                               "\n\nconnect arm hw\nconnect lc hdu -foo\n"
                               "vpconnect lc -ipcport h:3\n");
  const Result run = this->run({"roundtrip", "commands"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(
      run.out,
      "same     connect lc hdu -debugdevice cpunr 1\n"
      "changed  connect arm hw\n"
      "         procFamily 2 (comes back as 1): a processor of this family is "
      "written as the target 'ppc' [other-targets]\n"
      "         procType 4 (comes back as 6): a processor of this family is "
      "written as the target 'ppc' [other-targets]\n"
      "refused  connect lc hdu -foo\n"
      "         reading: column 16: '-foo' is no option here (UNKNOWN Option "
      "'-foo')\n"
      "refused  vpconnect lc -ipcport h:3\n"
      "         reading again: column 14: '-ipcporth3' is no option here "
      "(UNKNOWN "
      "virtual platform Option 'lc')\n"
      "         simIpcHost \"h\": host and port are written as one word, "
      "'-ipcportHOSTPORT', which no reader accepts "
      "[virtual-platform-host]\n"
      "         simIpcPort 3: host and port are written as one word, "
      "'-ipcportHOSTPORT', which no reader accepts "
      "[virtual-platform-host]\n"
      "4 commands: 1 same, 1 changed, 2 refused\n");
}

TEST_F(RoundtripCommandTest, SucceedsWhenAllAreTheSame) {
  Surroundings surroundings;
  surroundings.input = std::string(same) + "\n";
  const Result run = this->run({"roundtrip"}, surroundings);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, std::string("same     ") + same +
                         "\n1 command: 1 same, 0 changed, 0 refused\n");
  EXPECT_EQ(this->run({"roundtrip", "-"}, surroundings).status, 0);
}

TEST_F(RoundtripCommandTest, TellsTheSameInJson) {
  folder.write("commands", std::string(same) + "\nconnect arm hw\nfoo\n" +
                               "connect lc hdu -cable type quorla_tcf\n");
  const json document = runJson({"roundtrip", "commands"}, 1);
  EXPECT_EQ(document["total"], 4);
  EXPECT_EQ(document["same"], 1);
  EXPECT_EQ(document["changed"], 1);
  EXPECT_EQ(document["refused"], 2);
  ASSERT_EQ(document["lines"].size(), 4U);
  EXPECT_EQ(document["lines"][0]["outcome"], "same");
  EXPECT_EQ(document["lines"][0]["fields"], json::array());
  EXPECT_EQ(document["lines"][1]["written"],
            "connect ppc hw -debugdevice cpunr 1");
  EXPECT_EQ(document["lines"][1]["fields"],
            json({{{"name", "procFamily"}, {"before", 2}, {"after", 1}},
                  {{"name", "procType"}, {"before", 4}, {"after", 6}}}));
  EXPECT_EQ(document["lines"][1]["lost"][0]["anchor"], "other-targets");
  EXPECT_EQ(document["lines"][2]["outcome"], "refused");
  EXPECT_EQ(document["lines"][2]["written"], nullptr);
  EXPECT_EQ(document["lines"][3]["message"], "writing: Invalid Cable Type");
}

TEST_F(RoundtripCommandTest, ANumberThatIsCutIsNotTheSame) {
  folder.write("commands", "\nconnect lc hdu -debugdevice devicenr 300\n"
                           "connect lc hdu -debugdevice devicenr abc\n");
  const Result run = this->run({"roundtrip", "commands"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            "changed  connect lc hdu -debugdevice devicenr 300\n"
            "         debugDevice \"300\" (comes back as 44): it does not fit "
            "[eight-bit-numbers]\n"
            "changed  connect lc hdu -debugdevice devicenr abc\n"
            "         debugDevice \"abc\" (comes back as 0): it is no number "
            "[no-number]\n"
            "2 commands: 0 same, 2 changed, 0 refused\n");
  const json line = runJson({"roundtrip", "commands"}, 1)["lines"][0];
  EXPECT_EQ(line["line"], 2);
  EXPECT_EQ(
      line["fields"],
      json({{{"name", "debugDevice"}, {"before", "300"}, {"after", 44}}}));
}

TEST_F(RoundtripCommandTest, RefusesAFileThatCannotBeRead) {
  const Result run = this->run({"roundtrip", "nowhere"});
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.err, "zeldebug: error: nowhere: No such file or directory\n");
  folder.write("folder/file", "");
  EXPECT_EQ(this->run({"roundtrip", "folder"}).err,
            "zeldebug: error: folder: is a folder, no file\n");
  ASSERT_EQ(mkfifo("pipe", 0600), 0);
  const Result unwritten = this->run({"roundtrip", "pipe"});
  EXPECT_EQ(unwritten.status, 3);
  EXPECT_EQ(unwritten.err,
            "zeldebug: error: pipe: is a pipe that nobody writes to\n");
}

TEST_F(RoundtripCommandTest, WaitsForAWriterThatIsThere) {
  ASSERT_EQ(mkfifo("pipe", 0600), 0);
  int writer = open("pipe", O_RDWR | O_CLOEXEC);
  ASSERT_GE(writer, 0);
  std::vector<std::string> pieces = {"-debugdevice cpunr 1\n",
                                     "connect lc hdu "};
  const auto writeWhenRead = [&] {
    int unread = 0;
    if (writer < 0 || (ioctl(writer, FIONREAD, &unread) == 0 && unread != 0))
      return;
    if (pieces.empty()) {
      close(writer);
      writer = -1;
      return;
    }
    ASSERT_EQ(write(writer, pieces.back().data(), pieces.back().size()),
              static_cast<ssize_t>(pieces.back().size()));
    pieces.pop_back();
  };
  writeWhenRead();
  const Result run = runAtOnce({{"roundtrip", "pipe"}}, writeWhenRead).front();
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, std::string("same     ") + same +
                         "\n1 command: 1 same, 0 changed, 0 refused\n");
}

} // namespace
} // namespace tool

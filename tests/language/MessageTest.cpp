// Messages that quote words: their length and where they end.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "language/Bench.h"

namespace {

using namespace std::string_literals;
using namespace LanguageTest;
using ZelDebugDialog::KvoOption_Parser;

constexpr std::size_t kLongest = 2047;

/// A command that quotes a word: the text and the message, before and behind
/// it. Option words are given without their '-', which stands in both leads.
struct Quoting {
  std::string lead;
  std::string tail;
  std::string before;
  std::string behind;
};

const std::vector<Quoting> kQuotings = {
    {"connect lc hdu -", "", "UNKNOWN Option '-", "'"},
    {"connect lc hdu -cable ", " v", "UNKNOWN Parameter '",
     "' for  option '-cable'"},
    {"connect lc hdu -configdevice ", " v", "UNKNOWN Parameter '",
     "' for option '-configDevice'"},
    {"connect lc hdu -debugdevice ", " v", "UNKNOWN Parameter '",
     "' for  option '-debugDevice'"},
    {"connect lc hdu -debugdevice fpuType ", "", "UNKNOWN Parameter '",
     "' for  option 'fpuType'"},
    {"connect lc hdu -pfsl ", " v", "UNKNOWN Parameter '",
     "' for  option '-pfsl'"},
    {"connect lc hdu -pfsl type ", "", "UNKNOWN Parameter '",
     "' for  option 'type'"},
    {"connect lc hdu -sim -ipcport ", " -foo", "UNKNOWN  ModelSim Option '",
     "'"},
    {"connect ppc sim -ipcport ", " -foo", "UNKNOWN  PowerPC Sim Option '",
     "'"},
    {"vpconnect lc -ipcport ", " -foo", "UNKNOWN virtual platform Option '",
     "'"},
    {"connect hdu -uart -", "", "UNKNOWN Option '-", "'"},
};

std::string messageOf(const Quoting &quoting, const std::string &word) {
  Bench bench;
  bench.engine.SetErrorStr(kQuiet);
  EXPECT_EQ(KvoOption_Parser::ReadKvoCommand(quoting.lead + word + quoting.tail,
                                             bench.imp),
            3);
  return bench.error();
}

TEST(Messages, AreCutToTheirBound) {
  for (const Quoting &quoting : kQuotings) {
    SCOPED_TRACE(quoting.lead);
    const std::size_t frame = quoting.before.size() + quoting.behind.size();
    for (const std::size_t length :
         {kLongest - frame - 1, kLongest - frame, kLongest - frame + 1,
          kLongest - quoting.before.size(),
          kLongest - quoting.before.size() + 1, kLongest,
          std::size_t{100000}}) {
      const std::string word(length, 'w');
      const std::string whole = quoting.before + word + quoting.behind;
      EXPECT_EQ(messageOf(quoting, word), whole.substr(0, kLongest))
          << "word of " << length;
    }
  }
}

TEST(Messages, EndAtANullByte) {
  for (const Quoting &quoting : kQuotings) {
    SCOPED_TRACE(quoting.lead);
    EXPECT_EQ(printable(messageOf(quoting, "w\0x"s)), quoting.before + "w");
  }
}

TEST(Messages, TakePercentSignsAsTheyAre) {
  for (const Quoting &quoting : kQuotings) {
    SCOPED_TRACE(quoting.lead);
    EXPECT_EQ(messageOf(quoting, "%s%n%d%"),
              quoting.before + "%s%n%d%" + quoting.behind);
  }
}

// What is kept is never cut.
TEST(Messages, DoNotBoundWhatIsKept) {
  const std::string word(100000, 'w');
  Bench bench;
  const std::string command = "connect lc stub -port " + word;
  EXPECT_EQ(KvoOption_Parser::ReadKvoCommand(command, bench.imp), 0);
  EXPECT_EQ(bench.record.stubSerialPort, word);
  EXPECT_EQ(bench.record.connectCommand, command);
  bench.engine.SetErrorStr(word);
  EXPECT_EQ(bench.error(), word);
}

TEST(Messages, QuoteAStubOptionAndItsValue) {
  Bench bench;
  std::string value(3000, 'v');
  std::string option = "-o";
  EXPECT_EQ(KvoOption_Parser::parse_commoptions(value, option, bench.imp), 2);
  const std::string whole =
      "UNKNOWN Parameter '-o' for  option '" + std::string(3000, 'v') + "'";
  EXPECT_EQ(bench.error(), whole.substr(0, kLongest));
}

} // namespace

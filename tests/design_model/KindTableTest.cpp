// Components that play the part of known ones.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Reading.h"
#include "names/WildcardMatch.h"

namespace ZelDebugDialog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Files parts = {
    {"core.xml", component("core", interface("bus", "<ipxact:master/>") +
                                       interface("d", "<ipxact:slave/>"))},
    {"dm.xml", component("dm", interface("d", "<ipxact:master/>"))},
    {"uart.xml", component("uart", interface("bus", "<ipxact:slave/>"))},
    {"cpu.xml", processor("cpu", "")},
    {"top.xml", design("d",
                       instance("core", "core") + instance("dm", "dm") +
                           instance("uart", "uart") + instance("cpu", "cpu") +
                           instance("gone", "gone"),
                       connection("a", {"core.bus", "uart.bus"}) +
                           connection("b", {"dm.d", "core.d"}))},
};

Reading readWith(const std::string &table) {
  Files files = parts;
  files["kinds"] = table;
  return readFiles(files);
}

TEST(KindTable, LetsComponentsPlayAPart) {
  Reading reading = readWith("# what plays what\n"
                             "\n"
                             "x:y:core:1 processor lumacore # a core\r\n"
                             "  x:y:dm:1\tdebug-module   hdu\n"
                             "x:y:uart:1 other uart_mini_cedar\n"
                             "x:y:cpu:1 other memory\n"
                             "x:y:gone:1 debug-module hdu_cedar");
  EXPECT_TRUE(reading.isRead);
  EXPECT_THAT(reading.processors(), ElementsAre("core"));
  EXPECT_THAT(reading.debugModules(), ElementsAre("dm", "gone"));
  EXPECT_THAT(reading.attached("dm"), ElementsAre("core"));
  EXPECT_THAT(reading.peripherals("core"), ElementsAre("uart"));
  EXPECT_EQ(reading.model.getIpName("core"), "lumacore");
  EXPECT_EQ(reading.model.getIpName("dm"), "hdu");
  EXPECT_EQ(reading.model.getIpName("uart"), "uart_mini_cedar");
  EXPECT_EQ(reading.model.getIpName("cpu"), "memory");
}

TEST(KindTable, LeavesOthersAsTheyAre) {
  Reading reading = readWith("x:y:core2:1 processor lumacore\n"
                             "x:y:core:1.0 processor lumacore\n"
                             "X:y:core:1 processor lumacore\n"
                             "x::core:1 processor lumacore\n");
  EXPECT_FALSE(reading.isRead);
  Reading good = readWith("x:y:core2:1 processor lumacore\n"
                          "x:y:core:1.0 processor lumacore\n"
                          "X:y:core:1 processor lumacore\n");
  EXPECT_THAT(good.processors(), ElementsAre("cpu"));
  EXPECT_EQ(good.model.getIpName("core"), "core");
}

TEST(KindTable, TakesTheFirstRowThatFits) {
  Reading reading = readWith("x:y:c*:1 processor ppc405_core\n"
                             "*:*:core:* processor lumacore\n"
                             "*:*:*:* other thing\n");
  EXPECT_EQ(reading.model.getIpName("core"), "ppc405_core");
  EXPECT_EQ(reading.model.getIpName("cpu"), "ppc405_core");
  EXPECT_EQ(reading.model.getIpName("dm"), "thing");
}

struct FaultRow {
  const char *text, *fault;
};

TEST(KindTable, IsRefusedWithItsLine) {
  const FaultRow rows[] = {
      {"x:y:core:1 processor",
       "error kinds:1: a row has three words: vendor:library:name:version, "
       "kind and type name; this one has 2"},
      {"\n\nx:y:core:1",
       "error kinds:3: a row has three words: vendor:library:name:version, "
       "kind and type name; this one has 1"},
      {"x:y:core:1 processor lumacore 1",
       "error kinds:1: a row has three words: vendor:library:name:version, "
       "kind and type name; this one has 4"},
      {"x:y:core processor lumacore",
       "error kinds:1: 'x:y:core' is no vendor:library:name:version"},
      {"x:y:core:1:2 processor lumacore",
       "error kinds:1: 'x:y:core:1:2' is no vendor:library:name:version"},
      {"x:y::1 processor lumacore",
       "error kinds:1: 'x:y::1' is no vendor:library:name:version"},
      {"x:y:core: processor lumacore",
       "error kinds:1: 'x:y:core:' is no vendor:library:name:version"},
      {"x:y:core:1 Processor lumacore",
       "error kinds:1: 'Processor' is no kind; the kinds are processor, "
       "debug-module and other"},
      {"x:y:core:1 cpu lumacore",
       "error kinds:1: 'cpu' is no kind; the kinds are processor, "
       "debug-module and other"},
      {"x:y:core:1 other \xff", "error kinds:1: it is not text in UTF-8"},
  };
  for (const FaultRow &row : rows) {
    const Reading reading = readWith(row.text);
    EXPECT_FALSE(reading.isRead) << row.text;
    EXPECT_THAT(reading.instances(), IsEmpty()) << row.text;
    EXPECT_THAT(reading.diagnostics(), ElementsAre(row.fault)) << row.text;
  }
}

TEST(KindTable, ReportsAllItsFaults) {
  EXPECT_EQ(readWith("a\nb\n").diagnostics().size(), 2u);
}

TEST(KindTable, DoubtsDebugModulesThatNobodyKnows) {
  const Reading reading = readWith("x:y:dm:1 debug-module Hdu\n"
                                   "x:y:core:1 debug-module ppc_jtag_link\n");
  EXPECT_TRUE(reading.isRead);
  EXPECT_EQ(reading.diagnostics()[0],
            "warning kinds:1: the debugger knows no debug module of type "
            "'Hdu'; did you mean 'hdu'?");
  EXPECT_EQ(reading.model.DebugModules().size(), 2u);
}

struct TypeRow {
  const char *row, *doubt;
};

TEST(KindTable, DoubtsTypesThatNobodyKnows) {
  const TypeRow rows[] = {
      {"processor lumacore", ""},
      {"processor soc_cortexr5", ""},
      {"processor lumacor",
       "processor of type 'lumacor'; did you mean 'lumacore'?"},
      {"processor Lumacore",
       "processor of type 'Lumacore'; did you mean 'lumacore'?"},
      {"processor hdu", "processor of type 'hdu'"},
      {"processor unlike", "processor of type 'unlike'"},
      {"debug-module hdu_cedar", ""},
      {"debug-module hdu_ceder",
       "debug module of type 'hdu_ceder'; did you mean 'hdu_cedar'?"},
      {"debug-module lumacore", "debug module of type 'lumacore'"},
      {"other uart_mini_cedar", ""},
      {"other aux_fpu", ""},
      {"other soc_ocram", ""},
      {"other SOC_OCRAM", ""},
      {"other my_DDR_ctl", ""},
      {"other uart_mini_ceder",
       "memory, floating-point unit or serial port of type 'uart_mini_ceder'; "
       "did you mean 'uart_mini_cedar'?"},
      {"other thing",
       "memory, floating-point unit or serial port of type 'thing'"},
  };
  for (const TypeRow &row : rows) {
    const Reading reading = readWith(std::string("x:y:uart:1 ") + row.row);
    EXPECT_TRUE(reading.isRead);
    Names doubts;
    for (const std::string &line : reading.diagnostics())
      if (line.find(" kinds:") != std::string::npos)
        doubts.push_back(line);
    if (*row.doubt == '\0')
      EXPECT_THAT(doubts, IsEmpty()) << row.row;
    else
      EXPECT_THAT(doubts,
                  ElementsAre(std::string("warning kinds:1: the debugger knows "
                                          "no ") +
                              row.doubt))
          << row.row;
  }
}

TEST(KindTable, DoubtsPatternsThatFitNothing) {
  Files files = parts;
  files["spare.xml"] = component("spare", "");
  files["kinds"] = "x:y:core:1 processor lumacore\n"
                   "# none of these\n"
                   "x:y:core:2 processor lumacore\n"
                   "*:*:cor:* processor lumacore\n"
                   "x:y:d:1 other soc_ocram\n"
                   "# in the library alone, missing, and behind another row\n"
                   "x:y:spare:? other soc_ocram\n"
                   "x:y:gone:1 other soc_ocram\n"
                   "x:y:co*:1 processor lumacore\n";
  Names doubts;
  for (const std::string &line : readFiles(files).diagnostics())
    if (line.find(" kinds:") != std::string::npos)
      doubts.push_back(line);
  EXPECT_THAT(doubts,
              ElementsAre("warning kinds:3: no component of the design or its "
                          "libraries fits 'x:y:core:2'",
                          "warning kinds:4: no component of the design or its "
                          "libraries fits '*:*:cor:*'",
                          "warning kinds:5: no component of the design or its "
                          "libraries fits 'x:y:d:1'"));
}

TEST(KindTable, HasToBeThere) {
  DesignSources sources;
  sources.kindsFile = "/nowhere/kinds";
  DesignModel model;
  EXPECT_FALSE(ReadDesign(sources, model));
  ASSERT_EQ(model.Diagnostics().size(), 1u);
  EXPECT_EQ(model.Diagnostics()[0].file, "/nowhere/kinds");
  EXPECT_EQ(model.Diagnostics()[0].message, "there is no such file");
}

struct MatchRow {
  const char *pattern, *text;
  bool matches;
};

TEST(Wildcard, FitsAllOfTheText) {
  const MatchRow rows[] = {
      {"", "", true},          {"", "a", false},
      {"a", "", false},        {"a", "a", true},
      {"a", "A", false},       {"a", "ab", false},
      {"ab", "a", false},      {"*", "", true},
      {"*", "abc", true},      {"a*", "a", true},
      {"a*", "ba", false},     {"*a", "ba", true},
      {"*a", "ab", false},     {"a*c", "abbc", true},
      {"a*c", "abcb", false},  {"a*b*c", "axbxbc", true},
      {"a*b*c", "acb", false}, {"**", "x", true},
      {"?", "a", true},        {"?", "", false},
      {"?", "ab", false},      {"a?c", "abc", true},
      {"a?c", "ac", false},    {"?*", "a", true},
      {"?*", "", false},       {"*?", "ab", true},
      {"[a]", "a", false},
  };
  for (const MatchRow &row : rows)
    EXPECT_EQ(matchesWildcard(row.pattern, row.text), row.matches)
        << row.pattern << " " << row.text;
}

TEST(Wildcard, IsNotSlowedByStars) {
  std::string pattern;
  for (int i = 0; i < 100; ++i)
    pattern += "*a";
  EXPECT_FALSE(matchesWildcard(pattern + "b", std::string(10000, 'a')));
}

} // namespace
} // namespace ZelDebugDialog

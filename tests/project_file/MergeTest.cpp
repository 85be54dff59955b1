// Which source counts.
#include "merging/Sources.h"
#include "project_file/ProjectTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace project_test;
using testing::ElementsAre;
using testing::IsEmpty;

class Merging : public ProjectTest {
protected:
  /// The number of the debug device that counts for a processor.
  std::string device(const std::string &project, const std::string &local = "",
                     const std::string &name = "lc",
                     const SettingValues &line = {}) const {
    const MergedProcessor merged = merge(project, local, name, line);
    const MergedValue *const value = merged.Find("debugDevice");
    return value == nullptr ? "none"
                            : std::to_string(value->value.value.Number()) +
                                  " " + shown(value->value.place);
  }
};

TEST_F(Merging, TheHighestSourceCounts) {
  const std::string block = "[settings]\ndebugDevice = 1\n";
  EXPECT_EQ(device(""), "none");
  EXPECT_EQ(device(block), "1 zeldebug.toml:3:15");
  EXPECT_EQ(device("use.profile = \"p\"\n[profile.p.settings]\n"
                   "debugDevice = 2\n" +
                   block),
            "2 zeldebug.toml:4:15");
  EXPECT_EQ(device("use.profile = \"p\"\n[profile.p.settings]\n"
                   "debugDevice = 2\n" +
                       block,
                   "[profile.p.settings]\ndebugDevice = 3\n"),
            "3 zeldebug.local.toml:2:15");
  EXPECT_EQ(device("use.profile = \"p\"\n[profile.p.processor.lc]\n"
                   "debugDevice = 2\n" +
                       block,
                   "[settings]\ndebugDevice = 4\n"),
            "4 zeldebug.local.toml:2:15");
  EXPECT_EQ(device(block, "[settings]\ndebugDevice = 4\n", "lc",
                   {{"debugDevice", 5}}),
            "5 option");
  EXPECT_EQ(device("[profile.p.settings]\ndebugDevice = 2\n" + block),
            "1 zeldebug.toml:5:15");
}

TEST_F(Merging, InsideABlockTheCloserNameCountsWhateverTheOrder) {
  const std::string all = "[settings]\ndebugDevice = 1\n";
  const std::string type = "[type.lumacore]\ndebugDevice = 2\n";
  const std::string pattern = "[processor.\"l*\"]\ndebugDevice = 3\n";
  const std::string exact = "[processor.lc]\ndebugDevice = 4\n";
  EXPECT_EQ(device(type + all), "2 zeldebug.toml:3:15");
  EXPECT_EQ(device(all + type), "2 zeldebug.toml:5:15");
  EXPECT_EQ(device(pattern + type + all), "3 zeldebug.toml:3:15");
  EXPECT_EQ(device(exact + pattern + type + all), "4 zeldebug.toml:3:15");
  EXPECT_EQ(device(all + type + pattern + exact), "4 zeldebug.toml:9:15");
  EXPECT_EQ(device(exact + pattern + type + all, "", "lc_sim"),
            "3 zeldebug.toml:5:15");
  EXPECT_EQ(device(exact + pattern + type + all, "", "a9"),
            "1 zeldebug.toml:9:15");
}

TEST_F(Merging, APatternOfTheLocalFileStandsOverANameInTheProject) {
  EXPECT_EQ(device("[processor.lc]\ndebugDevice = 4\n",
                   "[processor.\"?c\"]\ndebugDevice = 7\n"),
            "7 zeldebug.local.toml:2:15");
}

TEST_F(Merging, UnsetTakesAwayWhatIsBelow) {
  const std::string all = "[settings]\ndebugDevice = 1\n";
  EXPECT_EQ(device(all, "[settings]\nunset = [\"debugDevice\"]\n"), "none");
  EXPECT_EQ(device(all, "[settings]\nunset = [\"debugDevice\"]\n"
                        "[processor.lc]\ndebugDevice = 2\n"),
            "2 zeldebug.local.toml:4:15");
  EXPECT_EQ(device(all, "[settings]\nunset = [\"nCpu\"]\n"),
            "1 zeldebug.toml:3:15");
  EXPECT_EQ(device("[processor.lc]\nunset = [\"debugDevice\"]\n" + all),
            "none");
}

TEST_F(Merging, ArraysAndTextsAreNeverJoined) {
  EXPECT_THAT(shown(merge("[settings]\ncable.moduleArgs = \"a;b\"\n",
                          "[settings]\ncable.moduleArgs = \"c\"\n")),
              ElementsAre("cable.moduleArgs = c (zeldebug.local.toml:2:20)"));
  EXPECT_THAT(shown(merge("[settings]\nchain = [{devicenr=1, partname=\"p\", "
                          "irlength=6, idcode=1}]\n",
                          "[settings]\nchain = []\n")),
              ElementsAre("chain = no devices (zeldebug.local.toml:2:9)"));
}

// --- Cables ------------------------------------------------------------------

constexpr const char *podusb = "[settings]\n"
                               "cable.cableType = \"quorla_podusb\"\n"
                               "cable.port = \"USB21\"\n"
                               "cable.frequency = \"3MHz\"\n";

TEST_F(Merging, AnotherCableDropsWhatBelongsToTheOneBelow) {
  const MergedProcessor merged =
      merge(podusb, "[settings]\ncable.cableType = \"quorla_parallel3\"\n"
                    "cable.esn = \"7\"\n");
  EXPECT_THAT(
      shown(merged),
      ElementsAre(
          "cable.cableType = quorla_parallel3 (zeldebug.local.toml:2:19)",
          "cable.esn = 7 (zeldebug.local.toml:3:13)"));
  EXPECT_THAT(shownDropped(merged),
              ElementsAre("cable.frequency = 3 MHz (zeldebug.toml:5:19) by "
                          "zeldebug.local.toml:2:19",
                          "cable.port = USB21 (zeldebug.toml:4:14) by "
                          "zeldebug.local.toml:2:19"));
}

TEST_F(Merging, TheSameCableDropsNothing) {
  const MergedProcessor merged =
      merge(podusb, "[settings]\ncable.cableType = \"quorla_podusb\"\n");
  EXPECT_EQ(merged.values.size(), 3U);
  EXPECT_THAT(shownDropped(merged), IsEmpty());
}

TEST_F(Merging, WhatBelongsToNoCableStays) {
  const MergedProcessor merged =
      merge("[settings]\ncable.frequency = \"3MHz\"\n"
            "[type.lumacore]\ncable.cableType = \"quorla_podusb\"\n"
            "cable.port = \"USB21\"\n",
            "[settings]\ncable.cableType = \"quorla_parallel3\"\n");
  EXPECT_THAT(
      shown(merged),
      ElementsAre(
          "cable.cableType = quorla_parallel3 (zeldebug.local.toml:2:19)",
          "cable.frequency = 3 MHz (zeldebug.toml:3:19)"));
  EXPECT_EQ(merged.dropped.size(), 1U);
}

TEST_F(Merging, AValueBelongsToTheCableNamedBelowIt) {
  const MergedProcessor merged =
      merge("[settings]\ncable.cableType = \"quorla_podusb\"\n"
            "[type.lumacore]\ncable.frequency = \"3MHz\"\n",
            "[settings]\ncable.cableType = \"quorla_parallel3\"\n");
  EXPECT_EQ(merged.Find("cable.frequency"), nullptr);
  EXPECT_EQ(merged.dropped.size(), 1U);
}

TEST_F(Merging, NoCableAndAnUnsetOneDropWhatBelongsToOne) {
  for (const char *local : {"[settings]\ncable.cableType = \"none\"\n",
                            "[settings]\nunset = [\"cable.cableType\"]\n"}) {
    const MergedProcessor merged = merge(podusb, local);
    EXPECT_EQ(merged.dropped.size(), 2U) << local;
    EXPECT_EQ(merged.Find("cable.port"), nullptr) << local;
  }
  EXPECT_THAT(shown(merge("[settings]\ncable.cableType = \"none\"\n"
                          "cable.frequency = 1\n",
                          "[settings]\ncable.cableType = \"quorla_podusb\"\n")),
              ElementsAre("cable.cableType = quorla_podusb "
                          "(zeldebug.local.toml:2:19)",
                          "cable.frequency = 1 Hz (zeldebug.toml:4:19)"));
}

TEST_F(Merging, AProbeIsASourceInEachFile) {
  const MergedProcessor merged =
      merge("use.probe = \"lab\"\n[probe.lab]\n"
            "cableType = \"quorla_podusb\"\nesn = \"1\"\nport = \"USB22\"\n",
            "[probe.lab]\nesn = \"2\"\n");
  EXPECT_THAT(
      shown(merged),
      ElementsAre("cable.cableType = quorla_podusb (zeldebug.toml:4:13)",
                  "cable.port = USB22 (zeldebug.toml:6:8)",
                  "cable.esn = 2 (zeldebug.local.toml:2:7)"));
}

TEST_F(Merging, TheLineMayNameACableToo) {
  const MergedProcessor merged =
      merge(podusb, "", "lc", {{"cable.cableType", "quorla_parallel3"}});
  EXPECT_EQ(shown(merged).size(), 1U);
  EXPECT_THAT(shownDropped(merged),
              testing::Each(testing::EndsWith("by option")));
}

// --- Patterns ----------------------------------------------------------------

TEST(Patterns, HaveAStarAndAQuestionMarkAndNoOtherMagic) {
  struct Row {
    const char *pattern;
    const char *name;
    bool isMatch;
  };
  for (const Row &row : std::vector<Row>{{"*", "", true},
                                         {"*", "a.b", true},
                                         {"?", "", false},
                                         {"?", "a", true},
                                         {"?", "ab", false},
                                         {"a*", "a", true},
                                         {"a*", "ba", false},
                                         {"*a", "ba", true},
                                         {"*a", "ab", false},
                                         {"a*b*c", "axxbyyc", true},
                                         {"a*b*c", "axxbyy", false},
                                         {"a*ab", "aab", true},
                                         {"a*ab", "ab", false},
                                         {"[a]", "a", false},
                                         {"a.c", "abc", false},
                                         {"**", "x", true},
                                         {"?*", "x", true},
                                         {"?*", "", false},
                                         // A character may have many bytes.
                                         {"?", "\u00e9", true},
                                         {"??", "\u00e9", false},
                                         {"a?c", "a\u4e2dc", true},
                                         {"a??c", "a\u4e2dc", false},
                                         {"*?", "\u00e9", true},
                                         {"*??yb", "\u4e2dyb", false},
                                         {"*?b", "x\u4e2db", true}})
    EXPECT_EQ(project::matches(row.pattern, row.name), row.isMatch)
        << row.pattern << " " << row.name;
}

class Checking : public ProjectTest {
protected:
  std::vector<std::string> faults(const std::string &text) const {
    return shown(CheckProject(read(text), board));
  }
};

TEST_F(Checking, PatternsMayNotContradictEachOther) {
  const std::string one = "[processor.\"l*\"]\ndebugDevice = 1\n";
  EXPECT_THAT(faults(one + "[processor.\"*c\"]\ndebugDevice = 2\n"),
              ElementsAre("zeldebug.toml:5:15 pattern-conflict"));
  EXPECT_THAT(faults(one + "[processor.\"*c\"]\ndebugDevice = 1\n"), IsEmpty());
  EXPECT_THAT(faults(one + "[processor.\"*c\"]\nnCpu = 2\n"), IsEmpty());
  EXPECT_THAT(faults(one + "[processor.\"p*\"]\ndebugDevice = 2\n"), IsEmpty());
  EXPECT_THAT(faults(one + "[processor.\"*c\"]\nunset = [\"debugDevice\"]\n"),
              ElementsAre("zeldebug.toml:5:10 pattern-conflict"));
  EXPECT_THAT(faults(one + "[profile.p.processor.\"*c\"]\ndebugDevice = 2\n"),
              IsEmpty());
}

TEST_F(Checking, KnowsProcessorsAndTypes) {
  EXPECT_THAT(faults("[processor.lc]\n[type.lumacore]\n[processor.\"l?\"]\n"),
              IsEmpty());
  EXPECT_THAT(faults("[processor.lc_sin]\n"),
              ElementsAre("zeldebug.toml:2:12 unknown-processor lc_sim"));
  EXPECT_THAT(faults("[processor.r5]\n"),
              ElementsAre("zeldebug.toml:2:12 unknown-processor"));
  EXPECT_THAT(faults("[processor.\"dsp*\"]\n"),
              ElementsAre("zeldebug.toml:2:12 unmatched-pattern"));
  EXPECT_THAT(faults("[type.lumacor]\n"),
              ElementsAre("zeldebug.toml:2:7 unknown-type lumacore"));
  EXPECT_THAT(faults("[type.soc_cortexr5]\n"),
              ElementsAre("zeldebug.toml:2:7 unmatched-type"));
  EXPECT_THAT(faults("[profile.p.processor.x]\n"),
              ElementsAre("zeldebug.toml:2:22 unknown-processor"));
}

} // namespace

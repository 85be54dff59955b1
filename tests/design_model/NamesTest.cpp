// What names may be, which of them the debugger knows, and the text that they
// are.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "kinds/BuiltInKinds.h"
#include "kinds/KnownTypes.h"
#include "names/InstanceNames.h"
#include "names/NearMatch.h"
#include "names/Utf8.h"

namespace ZelDebugDialog {
namespace {

using testing::ElementsAre;

struct FaultRow {
  std::string name;
  const char *fault;
};

TEST(InstanceNames, SayWhatIsWrongWithThem) {
  const FaultRow rows[] = {
      {"a", ""},
      {" ", ""},
      {"...", ""},
      {"a.b", ""},
      {"a\\b", ""},
      {std::string(1024, 'a'), ""},
      {"", "it has no name"},
      {".", "the name means a folder"},
      {"..", "the name means a folder"},
      {"/", "the name holds a \"/\""},
      {"a/b", "the name holds a \"/\""},
      {std::string("a\0b", 3), "the name holds a null byte"},
      {std::string("\0", 1), "the name holds a null byte"},
      {std::string(1025, 'a'), "the name is longer than 1024 bytes"},
  };
  for (const FaultRow &row : rows)
    EXPECT_EQ(findNameFault(row.name), row.fault) << row.name;
}

// --- Characters --------------------------------------------------------------

std::string encoded(unsigned long character) {
  const auto byte = [character](unsigned long mark, int shift,
                                unsigned long mask) {
    return static_cast<char>(mark | (character >> shift & mask));
  };
  if (character < 0x80)
    return {byte(0, 0, 0x7F)};
  if (character < 0x800)
    return {byte(0xC0, 6, 0x1F), byte(0x80, 0, 0x3F)};
  if (character < 0x10000)
    return {byte(0xE0, 12, 0x0F), byte(0x80, 6, 0x3F), byte(0x80, 0, 0x3F)};
  return {byte(0xF0, 18, 0x07), byte(0x80, 12, 0x3F), byte(0x80, 6, 0x3F),
          byte(0x80, 0, 0x3F)};
}

bool isSurrogate(unsigned long character) {
  return character >= 0xD800 && character <= 0xDFFF;
}

TEST(Utf8, HasEachCharacter) {
  for (unsigned long character = 0; character <= 0x10FFFF; ++character) {
    const std::string text = encoded(character);
    ASSERT_EQ(characterLength(text, 0),
              isSurrogate(character) ? 0 : text.size())
        << character;
  }
}

/// Of a first and a second byte that go on with two bytes 0x80, the character
/// is what the bits say, in as few bytes as it takes.
std::size_t expectedLength(unsigned first, unsigned second) {
  if (first < 0x80)
    return 1;
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  const unsigned long head = first & (length == 4   ? 0x07u
                                      : length == 3 ? 0x0Fu
                                                    : 0x1Fu);
  const unsigned long character = (head << 6 | (second & 0x3Fu))
                                  << 6 * (length - 2);
  const bool isWhole = first >= 0xC0 && first < 0xF8 && second >= 0x80 &&
                       second <= 0xBF && !isSurrogate(character) &&
                       character <= 0x10FFFF &&
                       encoded(character).size() == length;
  return isWhole ? length : 0;
}

TEST(Utf8, HasNothingElse) {
  for (unsigned first = 0; first < 0x100; ++first)
    for (unsigned second = 0; second < 0x100; ++second) {
      const std::string text = {static_cast<char>(first),
                                static_cast<char>(second), '\x80', '\x80'};
      ASSERT_EQ(characterLength(text, 0), expectedLength(first, second))
          << first << " " << second;
    }
  for (const std::string whole :
       {"\xC3\x80", "\xE1\x80\x80", "\xF1\x80\x80\x80"})
    for (std::size_t at = 1; at < whole.size(); ++at) {
      EXPECT_EQ(characterLength(whole.substr(0, at), 0), 0u) << whole;
      for (const char wrong : {'\x7F', '\xC0', 'a'}) {
        std::string text = whole;
        text[at] = wrong;
        EXPECT_EQ(characterLength(text, 0), 0u) << text;
      }
      for (const char good : {'\x80', '\xBF'}) {
        std::string text = whole;
        text[at] = good;
        EXPECT_EQ(characterLength(text, 0), whole.size()) << text;
      }
    }
}

TEST(Utf8, IsFoundWantingAtItsFirstBadByte) {
  for (std::size_t before = 0; before < 20; ++before)
    for (std::size_t behind = 0; behind < 10; ++behind) {
      const std::string front(before, 'a');
      const std::string end(behind, 'z');
      EXPECT_EQ(findNonUtf8(front + "\xFF" + end), before);
      EXPECT_EQ(findNonUtf8(front + "\xC3" + end), before);
      EXPECT_EQ(findNonUtf8(front + "\xC3\x80" + end), std::string::npos);
      EXPECT_EQ(findNonUtf8(front + "\xC3\x80" + end + "\x80"),
                before + 2 + behind);
    }
}

// --- Type names --------------------------------------------------------------

/// In the order in which a mistyped name is compared with them: of several that
/// are as near, the first is meant.
TEST(KnownTypes, OfAProcessorOrADebugModule) {
  EXPECT_THAT(knownTypes(DesignRole::processor),
              ElementsAre("lumacore", "ppc405_core", "ppc440_core",
                          "soc_cortexa9", "soc_cortexr5"));
  EXPECT_THAT(knownTypes(DesignRole::debugModule),
              ElementsAre("hdu", "hdu_cedar", "ppc_jtag_link"));
  for (const std::string_view name : knownTypes(DesignRole::processor))
    EXPECT_EQ(findBuiltInRole(name), DesignRole::processor) << name;
  for (const std::string_view name : knownTypes(DesignRole::debugModule))
    EXPECT_EQ(findBuiltInRole(name), DesignRole::debugModule) << name;
  for (const std::string_view name :
       {"", "Hdu", "hdu_", "lumacores", "aux_fpu"})
    EXPECT_EQ(findBuiltInRole(name), DesignRole::other) << name;
}

TEST(KnownTypes, OfAnythingElse) {
  EXPECT_THAT(
      knownTypes(DesignRole::other),
      ElementsAre("uart_mini_cedar", "uart_mini_ember", "aux_fpu",
                  "aux_fpu_gen5", "ocm_ctl_amber", "ocm_ctl_ember",
                  "ocm_ctl_delta", "ocm_ctl_birch", "ocm_ctl_cedar",
                  "ocm_iside_ctl", "ocm_dside_ctl", "soc_ocram",
                  "multiport_memctl", "hardcore_ddr2_ctl", "sdram_ctl_birch",
                  "ddr_ctl_birch", "ddr2_ctl_birch", "sdram_ctl_cedar_mc",
                  "ddr_ctl_cedar_mc", "ddr2_ctl_cedar_mc", "ddr_ctl_cedar",
                  "sdram_ctl_cedar", "emc_ctl_delta", "emc_ctl_ember_mc",
                  "emc_ctl_cedar_mc", "emc_ctl_cedar", "emc_ctl_birch"));
}

TEST(KnownTypes, OfMemoriesInAnyCase) {
  for (const char *name : {"emc_ctl_cedar", "EMC_CTL_CEDAR", "Soc_OcRam", "ddr",
                           "my_DDR9_x", "aZddr"})
    EXPECT_TRUE(isMemoryType(name)) << name;
  for (const char *name : {"", "emc_ctl_ceda", "emc_ctl_cedar_", "dd r", "dr",
                           "emc@ctl_cedar", "emc_ctl{cedar"})
    EXPECT_FALSE(isMemoryType(name)) << name;
}

struct DoubtRow {
  DesignRole role;
  const char *name, *doubt;
};

TEST(KnownTypes, AreAskedForByTheirRole) {
  const DoubtRow rows[] = {
      {DesignRole::processor, "lumacore", ""},
      {DesignRole::processor, "x", "processor of type 'x'"},
      {DesignRole::processor, "ppc404_core",
       "processor of type 'ppc404_core'; did you mean 'ppc405_core'?"},
      // As near as another one: the first of them.
      {DesignRole::processor, "ppc400_core",
       "processor of type 'ppc400_core'; did you mean 'ppc405_core'?"},
      {DesignRole::debugModule, "hdu", ""},
      {DesignRole::debugModule, "lumacore", "debug module of type 'lumacore'"},
      {DesignRole::other, "aux_fpu", ""},
      {DesignRole::other, "my_ddr", ""},
      {DesignRole::other, "hdu",
       "memory, floating-point unit or serial port of type 'hdu'"},
  };
  for (const DoubtRow &row : rows)
    EXPECT_EQ(findTypeFault(row.role, row.name),
              *row.doubt == '\0'
                  ? ""
                  : "the debugger knows no " + std::string(row.doubt));
}

struct NearRow {
  std::string word;
  const char *meant;
};

TEST(NearMatch, IsOneEditForEachThreeLetters) {
  const NearRow rows[] = {
      {"port", "port"},
      {"PORT", "port"},
      {"pot", "port"},
      {"ports", "port"},
      {"p", ""},
      {"esm", "esn"},
      {"em", ""},
      {"es", "esn"},
      {"freqency", "frequency"},
      {"frekwenzy", "frequency"},
      {"frekwensi", ""},
      {"", ""},
      {"AZ", "az"},
      {"[z", "az"},
  };
  for (const NearRow &row : rows)
    EXPECT_EQ(findNearMatch(row.word, {"port", "frequency", "esn", "az"}),
              row.meant)
        << row.word;
  EXPECT_EQ(findNearMatch("cat", {"bat", "hat"}), "bat");
  EXPECT_EQ(findNearMatch("cat", {"bat", "cat"}), "cat");
  // "[" is as far from "{" as from any other letter.
  EXPECT_EQ(findNearMatch("[[", {"{{"}), "");
  EXPECT_EQ(findNearMatch("@@", {"``"}), "");
}

TEST(NearMatch, IsNoneForAVeryLongWord) {
  const std::string candidate(64, 'a');
  EXPECT_EQ(findNearMatch(candidate, {candidate}), candidate);
  EXPECT_EQ(findNearMatch(candidate + "a", {candidate}), "");
}

} // namespace
} // namespace ZelDebugDialog

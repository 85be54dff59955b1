// Edits of a text: only the span that is meant changes.
#include "editing/EditText.h"

#include <random>

#include <gmock/gmock.h>

#include "editing/WrittenValue.h"
#include "project_file/ProjectTest.h"
#include "toml/Document.h"

namespace {

using namespace ZelDebugDialog;
using namespace ZelDebugDialog::project;

Write writes(const std::string &text) {
  return [text](const std::string &) { return text; };
}

struct Row {
  std::string before;
  Path path;
  std::string after;
};

const Path deviceOfAll{"settings", "debugDevice"};
const Path serialOfAll{"settings", "cable", "esn"};
const Path deviceOfCpu{"processor", "a.b", "debugDevice"};

std::size_t tableOf(const Path &path) {
  return path.front() == "settings" ? 1 : 2;
}

TEST(EditText, ReplacesTheBytesOfAValue) {
  for (const Row &row : std::vector<Row>{
           {"[settings] # all\ndebugDevice = 3 # three\nx = 1\n", deviceOfAll,
            "[settings] # all\ndebugDevice = 7 # three\nx = 1\n"},
           {"settings.debugDevice=3", deviceOfAll, "settings.debugDevice=7"},
           {"settings = { debugDevice = 3, x = 1 }\r\n", deviceOfAll,
            "settings = { debugDevice = 7, x = 1 }\r\n"},
           {"[settings.cable]\n\tesn = '''a\nb''' # c\n", serialOfAll,
            "[settings.cable]\n\tesn = 7 # c\n"},
           {"[processor.'a.b'] # \xC3\xA9\n debugDevice = 3# \xC3\xA9\n",
            deviceOfCpu,
            "[processor.'a.b'] # \xC3\xA9\n debugDevice = 7# \xC3\xA9\n"},
           {"# \xC3\xA9\nsettings = { a = '\xC3\xA9', debugDevice = 3 }\n",
            deviceOfAll,
            "# \xC3\xA9\nsettings = { a = '\xC3\xA9', debugDevice = 7 }\n"},
       })
    EXPECT_EQ(withKey(row.before, row.path, tableOf(row.path), writes("7")),
              row.after)
        << row.before;
}

TEST(EditText, PutsANewKeyAtTheEndOfTheOwnLinesOfItsTable) {
  for (const Row &row : std::vector<Row>{
           {"", deviceOfAll, "[settings]\ndebugDevice = 7\n"},
           {"a = 1\n", deviceOfAll, "a = 1\n\n[settings]\ndebugDevice = 7\n"},
           {"a = 1", deviceOfAll, "a = 1\n\n[settings]\ndebugDevice = 7\n"},
           {"a = 1\r\n", deviceOfAll,
            "a = 1\r\n\r\n[settings]\r\ndebugDevice = 7\r\n"},
           {"a = 1\n", deviceOfCpu,
            "a = 1\n\n[processor.\"a.b\"]\ndebugDevice = 7\n"},
           {"[settings]\n", deviceOfAll, "[settings]\ndebugDevice = 7\n"},
           {"[settings]\n  x = 1\n# end\n\n[b]\n", deviceOfAll,
            "[settings]\n  x = 1\n  debugDevice = 7\n# end\n\n[b]\n"},
           {"[settings]\r\n\tx = 1\r\n[b]\r\n", deviceOfAll,
            "[settings]\r\n\tx = 1\r\n\tdebugDevice = 7\r\n[b]\r\n"},
           {"[settings]\nx = 1", deviceOfAll,
            "[settings]\nx = 1\ndebugDevice = 7"},
           {"[settings]\nx = 1\n", serialOfAll,
            "[settings]\nx = 1\ncable.esn = 7\n"},
           {"[settings.cable]\nport = 1\n", serialOfAll,
            "[settings.cable]\nport = 1\nesn = 7\n"},
           {"[settings.cable]\nport = 1\n", deviceOfAll,
            "[settings.cable]\nport = 1\n\n[settings]\ndebugDevice = 7\n"},
           {"settings.x = 1\nview = 2\n", deviceOfAll,
            "settings.x = 1\nsettings.debugDevice = 7\nview = 2\n"},
           {"settings = { x = 1 }\n", deviceOfAll,
            "settings = { x = 1, debugDevice = 7 }\n"},
           {"settings = {}\n", deviceOfAll, "settings = { debugDevice = 7 }\n"},
           {"[settings]\ncable = { port = 1 }\n", serialOfAll,
            "[settings]\ncable = { port = 1, esn = 7 }\n"},
           {"[processor]\na.x = 1\n",
            {"processor", "a", "debugDevice"},
            "[processor]\na.x = 1\na.debugDevice = 7\n"},
       })
    EXPECT_EQ(withKey(row.before, row.path, tableOf(row.path), writes("7")),
              row.after)
        << row.before;
}

TEST(EditText, TakesAKeyAwayWithItsLine) {
  for (const Row &row : std::vector<Row>{
           {"[settings]\n# c\n  debugDevice = 3 # three\nx = 1\n", deviceOfAll,
            "[settings]\n# c\nx = 1\n"},
           {"[settings]\ndebugDevice = 3", deviceOfAll, "[settings]\n"},
           {"settings.debugDevice = 3\na = 1\n", deviceOfAll, "a = 1\n"},
           {"settings = { debugDevice = 3, x = 1 }\n", deviceOfAll,
            "settings = { x = 1 }\n"},
           {"settings = { x = 1, debugDevice = 3 }\n", deviceOfAll,
            "settings = { x = 1 }\n"},
           {"settings = { debugDevice = 3 }\n", deviceOfAll,
            "settings = {  }\n"},
           {"[settings]\nx = 1\n", deviceOfAll, "[settings]\nx = 1\n"},
           {"[[settings.chain]]\na = 1\n[[settings.chain]]\na = 2\n[b]\nc = "
            "1\n",
            {"settings", "chain"},
            "[b]\nc = 1\n"},
       })
    EXPECT_EQ(withoutKey(row.before, row.path), row.after) << row.before;
}

TEST(EditText, TakesADottedKeyInBracesAwayWithItsComma) {
  const Path frequency{"settings", "cable", "frequency"};
  for (const Row &row : std::vector<Row>{
           {"settings = { debugDevice = 1, cable.frequency = \"3 MHz\" }\n",
            frequency, "settings = { debugDevice = 1 }\n"},
           {"settings = { cable.frequency = \"3 MHz\", debugDevice = 1 }\n",
            frequency, "settings = { debugDevice = 1 }\n"},
           {"settings = {a = 1,cable.frequency=2,b = 3} # c\n", frequency,
            "settings = {a = 1,b = 3} # c\n"},
           {"settings = { cable.frequency = 2 }\n", frequency,
            "settings = {  }\n"},
           {"settings = { cable.a = 1, x = 2, cable.frequency = 3, y = 4, "
            "cable.b = 5 }\n",
            frequency,
            "settings = { cable.a = 1, x = 2, y = 4, cable.b = 5 }\n"},
           {"settings = { cable.frequency = 1, x = 2, cable.b = 3 }\n",
            frequency, "settings = { x = 2, cable.b = 3 }\n"},
           {"settings = { cable.a = 1, x = 2, cable.frequency = 3 }\n",
            frequency, "settings = { cable.a = 1, x = 2 }\n"},
           {"settings = { a = ',}', \"cable\" . 'frequency' = [ 1, # },\n 2 "
            "], b = { c = 1 } }\n",
            frequency, "settings = { a = ',}', b = { c = 1 } }\n"},
           {"settings = { cable.frequencyX = 1, frequency = 2, cable.frequency "
            "= 3 , cable.x.frequency = 4 }\n",
            frequency,
            "settings = { cable.frequencyX = 1, frequency = 2, "
            "cable.x.frequency = 4 }\n"},
           {"settings = { x = 1, cable = { frequency = 2, esn = '' } }\n",
            frequency, "settings = { x = 1, cable = { esn = '' } }\n"},
           {"settings.cable = { esn = '', frequency = 2 }\n", frequency,
            "settings.cable = { esn = '' }\n"},
           {"processor = { 'a.b'.debugDevice = 1, \"a.b\".x = 2, a.b.x = 3 }\n",
            deviceOfCpu, "processor = { \"a.b\".x = 2, a.b.x = 3 }\n"},
           {"processor = { 'a.b'.debugDevice = 1, a.b.x = 3 }\n", deviceOfCpu,
            "processor = { a.b.x = 3 }\n"},
           {"settings = { debugDevice = 1, cable.esn = '' }\n", frequency,
            "settings = { debugDevice = 1, cable.esn = '' }\n"},
       })
    EXPECT_EQ(withoutKey(row.before, row.path), row.after) << row.before;
}

TEST(EditText, WritesAChainOverOneWithHeaders) {
  EXPECT_EQ(withKey("[settings]\nx = 1\n\n[[settings.chain]]\na = 1\n",
                    {"settings", "chain"}, 1, writes("[]")),
            "[settings]\nx = 1\nchain = []\n\n");
}

TEST(EditText, LeavesAChainWithHeadersThatSaysTheSame) {
  const std::string chain = "[settings]\nx = 1\n\n"
                            "[[settings.chain]] # first\n# an id\n"
                            "a = 0x10\n[[settings.chain]]\n  b = 'p'\n";
  const Path path{"settings", "chain"};
  const std::string same = "[{ a = 16 }, { b = \"p\" }]";
  EXPECT_EQ(withKey(chain, path, 1, writes(same)), chain);
  EXPECT_EQ(withKey(chain + "[z]\n", path, 1, writes(same)), chain + "[z]\n");
  for (const char *const other :
       {"[{ b = \"p\" }, { a = 16 }]", "[{ a = 16 }]", "[{ a = 16 }, {}]",
        "[{ a = 16 }, { b = \"q\" }]", "[{ a = 16 }, { b = \"p\", c = 1 }]"})
    EXPECT_EQ(withKey(chain, path, 1, writes(other)),
              std::string("[settings]\nx = 1\nchain = ") + other +
                  "\n\n# an id\n")
        << other;
}

std::string written(const char *setting, const Value &value,
                    const std::string &before = "") {
  return writtenValue(*FindSetting(setting), ExpectSetting(setting, value),
                      before, "\n");
}

TEST(WrittenValue, KeepsTheNotation) {
  EXPECT_EQ(written("debugDevice", 26), "26");
  EXPECT_EQ(written("debugDevice", 26, "3"), "26");
  EXPECT_EQ(written("debugDevice", 26, "0x3"), "0x1a");
  EXPECT_EQ(written("debugDevice", 26, "0xB"), "0x1A");
  EXPECT_EQ(written("debugDevice", 26, "0o7"), "0o32");
  EXPECT_EQ(written("debugDevice", 26, "0b1"), "0b11010");
  EXPECT_EQ(written("debugDevice", 26, "'3'"), "'26'");
  EXPECT_EQ(written("cable.frequency", 3000000), "\"3 MHz\"");
  EXPECT_EQ(written("cable.frequency", 3000000, "6000000"), "3000000");
  EXPECT_EQ(written("cable.frequency", 3000000, "'6MHz'"), "'3 MHz'");
  EXPECT_EQ(written("icacheStartAdr", 0x70000000), "0x70000000");
  EXPECT_EQ(written("icacheStartAdr", 0xFFFFFFFF, "0x70000000"), "\"not set\"");
  EXPECT_EQ(written("cable.esn", "0042"), "\"0042\"");
  EXPECT_EQ(written("cable.esn", "0042", "'7'"), "'0042'");
  EXPECT_EQ(written("cable.esn", "a'b", "'7'"), "\"a'b\"");
  EXPECT_EQ(written("cable.cableType", 3), "\"quorla_podusb\"");
  EXPECT_EQ(written("cable.cableType", "quorla_podusb", "1"), "3");
  EXPECT_EQ(written("connection", "sim", "'hw'"), "'sim'");
  EXPECT_EQ(written("vpConfigMode", true, "false"), "true");
  EXPECT_EQ(written("modelSimMode", false), "false");
  EXPECT_EQ(written("chain", Value::Chain{}), "[]");
  EXPECT_EQ(written("chain", Value::Chain{{{"devicenr", 1},
                                           {"partname", "p"},
                                           {"irlength", 6},
                                           {"idcode", 0x93},
                                           {"isfpga", 1}}}),
            "[\n  { devicenr = 1, partname = \"p\", irlength = 6, idcode = "
            "0x93, isfpga = true },\n]");
}

TEST(WrittenValue, KeepsTheBaseOfANumberInQuotes) {
  struct Written {
    const char *setting;
    Value value;
    const char *before;
    const char *after;
  };
  for (const Written &row : std::vector<Written>{
           {"debugDevice", 26, "\"3\"", "\"26\""},
           {"debugDevice", 26, "\"0x3\"", "\"0x1a\""},
           {"debugDevice", 26, "'0x3'", "'0x1a'"},
           {"debugDevice", 26, "\"0xb\"", "\"0x1a\""},
           {"debugDevice", 26, "\"0xB\"", "\"0x1A\""},
           {"debugDevice", 26, "'0X3'", "'0X1a'"},
           {"debugDevice", 26, "'0XB'", "'0X1A'"},
           {"debugDevice", 0, "\"0x3\"", "\"0x0\""},
           {"debugDevice", 26, "\"\\u0030x3\"", "\"0x1a\""},
           {"debugDevice", 26, "\"03\"", "\"26\""},
           {"debugDevice", 26, "\"0\"", "\"26\""},
           // An address is shown in hexadecimal digits, unless it stood there
           // in others.
           {"icacheStartAdr", 0x700F0000, "\"0x70000000\"", "\"0x700f0000\""},
           {"icacheStartAdr", 0x700F0000, "\"0x700A0000\"", "\"0x700F0000\""},
           {"icacheStartAdr", 0x70010000, "'1879048192'", "'1879113728'"},
           {"icacheStartAdr", 0x70010000, "\"not set\"", "\"0x70010000\""},
           {"icacheStartAdr", 0xFFFFFFFF, "'0x10'", "'not set'"},
           // A frequency keeps no unit that it did not have.
           {"cable.frequency", 750000, "\"3000000\"", "\"750000\""},
           {"cable.frequency", 0xABC, "\"0xF\"", "\"0xABC\""},
           {"cable.frequency", 750000, "\"3MHz\"", "\"750 kHz\""},
           {"cable.frequency", 750000, "\"3.0\"", "\"750 kHz\""},
           {"cable.frequency", 750000, "\"0x3MHz\"", "\"750 kHz\""},
           // A text is no number, whatever it looks like.
           {"cable.esn", "4", "\"0x2\"", "\"4\""},
           {"cable.esn", "0042", "'0x2'", "'0042'"},
           {"cable.port", "26", "\"0xB\"", "\"26\""},
           {"cable.cableType", 3, "\"0x1\"", "\"quorla_podusb\""},
       })
    EXPECT_EQ(written(row.setting, row.value, row.before), row.after)
        << row.setting << ' ' << row.before;
}

/// A text with tables, comments and odd white space, made by chance.
std::string randomText(std::mt19937 &random) {
  const auto upTo = [&random](unsigned most) {
    return static_cast<unsigned>(random()) % (most + 1);
  };
  const std::string lineEnd = upTo(3) == 0 ? "\r\n" : "\n";
  std::string text;
  const char *const comments[] = {"", " # c = 1", "\t# [x] \"", " #"};
  const char *const values[] = {
      "1",    "0x1F",   "\"a # b\"",     "'x'",
      "true", "[1, 2]", "[ # c\n 1,\n]", "{ a = 1, b = \"}\" }"};
  const auto noise = [&] {
    for (unsigned i = upTo(2); i > 0; --i)
      text += (upTo(1) == 0 ? "  # note" : "") + lineEnd;
  };
  const auto pairs = [&](unsigned most) {
    for (unsigned i = 0; i < most; ++i) {
      text += std::string(upTo(2), ' ') + "k" + std::to_string(i) +
              (upTo(1) == 0 ? "=" : "  =  ") + values[upTo(7)] +
              comments[upTo(3)] + lineEnd;
      noise();
    }
  };
  pairs(upTo(3));
  const char *const tables[] = {"settings", "settings.cable",
                                "processor.\"a.b\"", "type.lumacore",
                                "profile.p.settings"};
  for (const char *const table : tables)
    if (upTo(1) == 0) {
      text += std::string("[") + table + "]" + comments[upTo(3)] + lineEnd;
      noise();
      pairs(upTo(3));
    }
  return text;
}

TEST(EditText, RandomEditsChangeOneSpanAndMeanWhatIsMeant) {
  std::mt19937 random(20261122);
  const std::vector<Path> paths{
      {"settings", "k0"},          {"settings", "new"},
      {"settings", "cable", "k1"}, {"settings", "cable", "new"},
      {"processor", "a.b", "k1"},  {"processor", "c", "k1"},
      {"type", "lumacore", "k2"}};
  for (int round = 0; round < project_test::rounds(1000); ++round) {
    const std::string text = randomText(random);
    ASSERT_FALSE(readToml(text).error) << text;
    const Path &path = paths[random() % paths.size()];
    const std::string value = round % 2 == 0 ? "77" : "\"n\"";
    const std::string edited =
        withKey(text, path, tableOf(path), writes(value));
    const TomlDocument after = readToml(edited);
    ASSERT_FALSE(after.error) << text << "\n->\n" << edited;
    const TomlNode *const node = findNode(after.root, path);
    ASSERT_NE(node, nullptr) << text << "\n->\n" << edited;
    EXPECT_EQ(
        edited.substr(node->span.begin, node->span.end - node->span.begin),
        value);
    // What is in front and behind is as it was.
    std::size_t front = 0;
    while (front < text.size() && front < edited.size() &&
           text[front] == edited[front])
      ++front;
    std::size_t back = 0;
    while (back < text.size() - front && back < edited.size() - front &&
           text[text.size() - 1 - back] == edited[edited.size() - 1 - back])
      ++back;
    const TomlDocument before = readToml(text);
    const TomlNode *const there = findNode(before.root, path);
    if (there == nullptr)
      EXPECT_EQ(front + back, text.size()) << text << "\n->\n" << edited;
    else
      EXPECT_LE(text.size() - front - back, there->span.end - there->span.begin)
          << text << "\n->\n"
          << edited;
    // Taken away again, the rest says what it said.
    const TomlDocument without = readToml(withoutKey(edited, path));
    EXPECT_FALSE(without.error);
    EXPECT_EQ(findNode(without.root, path), nullptr);
  }
}

} // namespace

// What a file can be instead of a design, and what it can hold beside one.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Reading.h"
#include "names/Utf8.h"
#include "xml/XmlNames.h"

namespace ZelDebugDialog {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

const std::string identity =
    "<i:vendor>x</i:vendor><i:library>y</i:library><i:name>d</i:name>"
    "<i:version>1</i:version>";
const std::string start =
    "<i:design xmlns:i=\"http://www.accellera.org/XMLSchema/IPXACT/"
    "1685-2014\">" +
    identity;

std::string firstFault(const std::string &text) {
  const Reading reading = readFiles({{"top.xml", text}});
  EXPECT_FALSE(reading.isRead) << text;
  EXPECT_THAT(reading.instances(), IsEmpty()) << text;
  for (const std::string &line : reading.diagnostics())
    if (line.compare(0, 6, "error ") == 0)
      return line;
  return "";
}

struct Row {
  std::string text;
  const char *fault;
};

TEST(Document, IsRefusedWithItsLine) {
  const Row rows[] = {
      {"", "error top.xml:1: it is not XML: No document element found"},
      {"hello\nworld\n",
       "error top.xml:2: it is not XML: No document element found"},
      {"{\n\"a\": 1}", "error top.xml:2: it is not XML: No document element "
                       "found"},
      {"<a>\n<b>\n</a>\n", "error top.xml:3: it is not XML: Start-end tags "
                           "mismatch"},
      {"<design>\n\n<x", "error top.xml:3: it is not XML: Could not determine "
                         "tag type"},
      {"<a>\n</a>", "error top.xml:1: it is not IP-XACT: the document element "
                    "is 'a'"},
      {"<!-- x -->\n\n<html/>", "error top.xml:3: it is not IP-XACT: the "
                                "document element is 'html'"},
      {"<Design/>",
       "error top.xml:1: it is not IP-XACT: the document element is 'Design'"},
      {"\n<designs/>",
       "error top.xml:2: it is not IP-XACT: the document element is 'designs'"},
      {"<catalog/>", "error top.xml:1: it is neither a design nor a component"},
      {"\n<designConfiguration/>",
       "error top.xml:2: it is neither a design nor a component"},
      {"<busDefinition/>",
       "error top.xml:1: it is neither a design nor a component"},
      {"<abstractionDefinition/>",
       "error top.xml:1: it is neither a design nor a component"},
      {"<abstractor/>",
       "error top.xml:1: it is neither a design nor a component"},
      {"<generatorChain/>",
       "error top.xml:1: it is neither a design nor a component"},
      {"<typeDefinitions/>",
       "error top.xml:1: it is neither a design nor a component"},
      {"<design>\n\xe9</design>", "error top.xml:2: it is not text in UTF-8"},
      {std::string("<design>\n\0</design>", 19),
       "error top.xml:2: it holds a null byte, which XML does not"},
      {"<design>\n<a>&#0;</a></design>",
       "error top.xml:2: it holds the null character, which XML does not"},
      {"<design>\n<a>&#x00;</a></design>",
       "error top.xml:2: it holds the null character, which XML does not"},
      {"\n<component/>",
       "error top.xml:2: component ':::' has no view that leads to a design"},
  };
  for (const Row &row : rows)
    EXPECT_EQ(firstFault(row.text), row.fault) << row.text;
}

TEST(Document, CountsLinesThatEndInAnyWay) {
  EXPECT_THAT(firstFault("\xef\xbb\xbf\r\n\r\n<x/>"),
              StartsWith("error top.xml:3: "));
}

TEST(Document, HasToBeThere) {
  const Reading reading = readFiles({{"other.xml", "<design/>"}});
  EXPECT_FALSE(reading.isRead);
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("error top.xml:0: there is no such file"));
}

Names read(const std::string &text) {
  const Reading reading =
      readFiles({{"top.xml", text}, {"t.xml", component("t", "")}});
  EXPECT_TRUE(reading.isRead) << text;
  return reading.instances();
}

const std::string one =
    "<i:componentInstances><i:componentInstance>"
    "<i:instanceName>u</i:instanceName>"
    "<i:componentRef vendor='x' library='y' name='t' version='1'/>"
    "</i:componentInstance></i:componentInstances>";

TEST(Document, IsReadWhateverIsAroundIt) {
  const std::string text = start + one + "</i:design>";
  EXPECT_THAT(read(text), ElementsAre("u"));
  EXPECT_THAT(read("\xef\xbb\xbf" + text), ElementsAre("u"));
  EXPECT_THAT(read("<?xml version='1.0'?>\r\n<!-- c -->\r\n" + text + "\r\n"),
              ElementsAre("u"));
}

/// With every "i:" of the names replaced.
std::string withPrefix(std::string text, const std::string &prefix) {
  for (std::size_t at = text.find("i:"); at != std::string::npos;
       at = text.find("i:", at + prefix.size()))
    text.replace(at, 2, prefix);
  return text;
}

TEST(Document, IsReadWithAnyPrefix) {
  const std::string space =
      "http://www.accellera.org/XMLSchema/IPXACT/1685-2022";
  const Reading none =
      readFiles({{"top.xml", "<design xmlns='" + space + "'>" +
                                 withPrefix(identity + one, "") + "</design>"},
                 {"t.xml", component("t", "")}});
  EXPECT_THAT(none.instances(), ElementsAre("u"));
  EXPECT_THAT(none.diagnostics(), IsEmpty());
  const Reading other = readFiles(
      {{"top.xml", "<q:design xmlns:q='" + space + "'>" +
                       withPrefix(identity + one, "q:") + "</q:design>"},
       {"t.xml", component("t", "")}});
  EXPECT_THAT(other.instances(), ElementsAre("u"));
  EXPECT_THAT(other.diagnostics(), IsEmpty());
}

const std::string spirit = "<i:design xmlns:i='http://www.spiritconsortium.org/"
                           "XMLSchema/SPIRIT/1.5'>";
const std::string oneOfSpirit =
    "<i:componentInstances><i:componentInstance>"
    "<i:instanceName>u</i:instanceName>"
    "<i:componentRef i:vendor='x' i:library=' y ' i:name='t' i:version='1'/>"
    "</i:componentInstance></i:componentInstances>";

TEST(Document, ReadsAttributesWithPrefixes) {
  EXPECT_THAT(read(spirit + identity + oneOfSpirit + "</i:design>"),
              ElementsAre("u"));
}

TEST(Document, ReadsTextAroundComments) {
  EXPECT_THAT(
      read(start +
           "<!-- a --><i:componentInstances><!-- b --><i:componentInstance>"
           "<i:instanceName>\n  u<!-- c -->_<![CDATA[0]]>\n</i:instanceName>"
           "<!-- <i:componentRef/> -->"
           "<i:componentRef vendor='x' library='y' name='t' version='1'/>"
           "</i:componentInstance></i:componentInstances></i:design>"),
      ElementsAre("u_0"));
}

TEST(Document, ReadsReferencesToCharacters) {
  const Reading reading =
      readFiles({{"top.xml", design("d", instance("a&#47;b", "t") +
                                             instance("&lt;&#x10;&amp;", "t"))},
                 {"t.xml", component("t", "")}});
  EXPECT_THAT(reading.instances(), ElementsAre("<\x10&"));
}

struct WarningRow {
  std::string text;
  Names warnings;
};

TEST(Document, IsReadInSpiteOf) {
  const WarningRow rows[] = {
      {"<i:design>\n" + one + "</i:design>",
       {"warning top.xml:1: the prefix 'i' is not declared"}},
      {start + "<i:a>\n<k:b/>\n<k:c/></i:a>" + one + "</i:design>",
       {"warning top.xml:2: the prefix 'k' is not declared"}},
      {start + "<i:a>\n<i:b k:x=''/></i:a>" + one + "</i:design>",
       {"warning top.xml:2: the prefix 'k' is not declared"}},
      {start + "<i:a xmlns:k='u' xml:lang='en'><k:b/></i:a>" + one +
           "</i:design>",
       {}},
      {"<i:design xmlns:i='urn:other'>\n" + one + "</i:design>",
       {"warning top.xml:1: the namespace 'urn:other' is none of IP-XACT; the "
        "elements are read by their names"}},
      {spirit + identity + oneOfSpirit + "</i:design>", {}},
      {"<!DOCTYPE x [\n<!ENTITY a 'b'>]>\n" + start + one + "</i:design>",
       {"warning top.xml:1: the document type is not read; entities that it "
        "declares stay as they are written"}},
  };
  for (const WarningRow &row : rows) {
    const Reading reading =
        readFiles({{"top.xml", row.text}, {"t.xml", component("t", "")}});
    EXPECT_THAT(reading.instances(), ElementsAre("u")) << row.text;
    EXPECT_EQ(reading.diagnostics(), row.warnings) << row.text;
  }
}

std::string repeat(const std::string &text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i)
    all += text;
  return all;
}

TEST(Document, MayBeNestedWithoutEnd) {
  const int depth = 200000;
  const Reading reading =
      readFiles({{"top.xml", start + one + repeat("<a>\n", depth) +
                                 repeat("</a>", depth) + "</i:design>"},
                 {"t.xml", component("t", "")}});
  EXPECT_THAT(reading.instances(), ElementsAre("u"));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("warning top.xml:255: elements are nested more than "
                          "256 deep"));
  EXPECT_THAT(firstFault(start + repeat("<a>", depth)),
              HasSubstr("it is not XML"));
}

TEST(Document, ExpandsNoEntities) {
  std::string type = "<!DOCTYPE x [<!ENTITY l0 'lol'>";
  for (int level = 1; level < 50; ++level)
    type += "<!ENTITY l" + std::to_string(level) + " '" +
            repeat("&l" + std::to_string(level - 1) + ";", 10) + "'>";
  const Reading reading =
      readFiles({{"top.xml", type + "]>" + design("d", instance("&l49;", "t"))},
                 {"t.xml", component("t", "")}});
  EXPECT_THAT(reading.instances(), ElementsAre("&l49;"));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre(HasSubstr("the document type is not read")));
}

TEST(Document, MayHavePrefixesWithoutEnd) {
  std::string text = start + one;
  for (int i = 0; i < 20000; ++i)
    text += "<p" + std::to_string(i) + ":a/>";
  const Reading reading = readFiles(
      {{"top.xml", text + "</i:design>"}, {"t.xml", component("t", "")}});
  EXPECT_THAT(reading.instances(), ElementsAre("u"));
  EXPECT_EQ(reading.model.Diagnostics().size(), 10001u);
}

TEST(Text, IsWhatStandsBetweenWhiteSpace) {
  for (const char space : {' ', '\t', '\r', '\n'}) {
    EXPECT_EQ(trim(std::string(1, space)), "");
    EXPECT_EQ(trim(std::string("a") + space), "a");
    EXPECT_EQ(trim(space + std::string("a b") + space + space), "a b");
  }
  for (const char other : {'\v', '\f', 'a', '\0'})
    EXPECT_EQ(trim(std::string(1, other)), std::string(1, other));
}

struct Utf8Row {
  const char *text;
  std::size_t bad;
};

TEST(Utf8, IsToldFromOtherBytes) {
  constexpr std::size_t none = std::string::npos;
  const Utf8Row rows[] = {
      {"", none},
      {"plain text that is longer than a word", none},
      {"\xc3\xa9", none},
      {"12345678\xc3\xa9", none},
      {"\xe2\x82\xac", none},
      {"\xe0\xa0\x80", none},
      {"\xed\x9f\xbf", none},
      {"\xf0\x90\x80\x80", none},
      {"\xf4\x8f\xbf\xbf", none},
      {"\x80", 0},
      {"a\xe9", 1},
      {"\xc3", 0},
      {"\xc3(", 0},
      {"\xc0\x80", 0},
      {"\xc1\xbf", 0},
      {"\xe2\x82", 0},
      {"\xe2\x82(", 0},
      {"\xe0\x9f\xbf", 0},
      {"\xed\xa0\x80", 0},
      {"\xf0\x8f\xbf\xbf", 0},
      {"\xf4\x90\x80\x80", 0},
      {"\xf5\x80\x80\x80", 0},
      {"\xf1\x80\x80", 0},
      {"123456789\xff", 9},
  };
  for (const Utf8Row &row : rows)
    EXPECT_EQ(findNonUtf8(row.text), row.bad) << row.text;
}

} // namespace
} // namespace ZelDebugDialog

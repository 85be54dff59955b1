// Values of parameters, from the top of a hierarchy down.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Reading.h"

namespace ZelDebugDialog {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A component "t" with these parameters, instantiated as "u" with these
/// values.
Reading readWith(const std::string &list, const std::string &values = "",
                 const std::string &ofTheDesign = "") {
  return readFiles({{"t.xml", component("t", "", parameters(list))},
                    {"top.xml", design("d", instance("u", "t", values), "",
                                       parameters(ofTheDesign))}});
}

std::string valueOf(Reading &reading, const std::string &name,
                    const std::string &instance = "u") {
  return reading.model.getParameterValue(instance, name);
}

struct Row {
  const char *written, *value;
};

TEST(Parameter, IsGivenAsCReadsIt) {
  const Row rows[] = {
      {"5", "5"},
      {" 5 ", "5"},
      {"010", "10"},
      {"-5", "-5"},
      {"- 5", "-5"},
      {"'h0008_0200", "524800"},
      {"32'h1c0ffee1", "470810337"},
      {"0x1F", "31"},
      {"-0x1", "-1"},
      {"-9223372036854775808", "-9223372036854775808"},
      {"'h400-'h0100", "768"},
      {"1 ? 2 : 3", "2"},
      {"$clog2('h400)", "10"},
      {"text", "text"},
      {"some  text", "some  text"},
      {"\"quoted\"", "\"quoted\""},
      {"1.5", "1.5"},
      {"", ""},
      {"true", "true"},
  };
  for (const Row &row : rows) {
    Reading reading = readWith(parameter("P", row.written));
    EXPECT_EQ(valueOf(reading, "P"), row.value) << row.written;
  }
}

TEST(Parameter, IsTextWhenItIsDeclaredSo) {
  const Row rows[] = {
      {"010", "010"}, {"1+1", "1+1"}, {"id_Q", "7"}, {"id_Q+1", "id_Q+1"}};
  for (const Row &row : rows) {
    Reading reading = readWith(parameter("P", row.written, "type='string'") +
                               parameter("Q", "7"));
    EXPECT_EQ(valueOf(reading, "P"), row.value) << row.written;
    EXPECT_THAT(reading.diagnostics(), IsEmpty());
  }
  Reading given = readWith(parameter("P", "none", "type='string'"),
                           ZelDebugDialog::given("id_P", "010"));
  EXPECT_EQ(valueOf(given, "P"), "010");
}

TEST(Parameter, IsOneBitIfItsTypeIs) {
  for (const std::string written : {"1", "'1", "1'sb1", "~0", "3", "id_Q"}) {
    Reading reading =
        readWith(parameter("P", written, "type='bit'") + parameter("Q", "5"));
    EXPECT_EQ(valueOf(reading, "P"), "1") << written;
  }
  Reading given = readWith(parameter("P", "0", "type='bit'"),
                           ZelDebugDialog::given("id_P", "'1"));
  EXPECT_EQ(valueOf(given, "P"), "1");
  std::string vector = parameter("P", "6", "type='bit'");
  vector.insert(vector.find("<ipxact:value>"),
                "<ipxact:vectors><ipxact:vector><ipxact:left>7</ipxact:left>"
                "<ipxact:right>0</ipxact:right></ipxact:vector>"
                "</ipxact:vectors>");
  Reading wide = readWith(vector);
  EXPECT_EQ(valueOf(wide, "P"), "6");
}

TEST(Parameter, IsNotWorkedOutInIntegersIfItIsReal) {
  for (const std::string type : {"type='real'", "type='shortreal'"}) {
    Reading reading =
        readWith(parameter("P", "1/2", type) + parameter("Q", "2.5", type) +
                 parameter("R", "-4", type) + parameter("S", "id_R", type));
    EXPECT_EQ(valueOf(reading, "P"), "1/2");
    EXPECT_EQ(valueOf(reading, "Q"), "2.5");
    EXPECT_EQ(valueOf(reading, "R"), "-4");
    EXPECT_EQ(valueOf(reading, "S"), "-4");
    EXPECT_THAT(reading.diagnostics(),
                ElementsAre("warning t.xml:4: the value of parameter 'P' stays "
                            "text: reals are not worked out"));
  }
}

TEST(Parameter, KeepsTheOrderOfTheComponent) {
  const Reading reading = readWith(
      parameter("Z", "1") + parameter("A", "id_Z") + parameter("M", "3"),
      given("id_M", "4") + given("id_Z", "5"));
  const auto &list = reading.model.Instances()[0].parameters;
  ASSERT_EQ(list.size(), 3u);
  EXPECT_EQ(list[0].name + "=" + list[0].value, "Z=5");
  EXPECT_EQ(list[1].name + "=" + list[1].value, "A=5");
  EXPECT_EQ(list[2].name + "=" + list[2].value, "M=4");
}

TEST(Parameter, RefersToOthersById) {
  Reading reading =
      readWith(parameter("A", "id_B * 2") + parameter("B", "id_C + 1") +
               parameter("C", "20") + parameter("T", "id_S") +
               parameter("S", "some::text") + parameter("N", "A * 2"));
  EXPECT_EQ(valueOf(reading, "A"), "42");
  EXPECT_EQ(valueOf(reading, "B"), "21");
  EXPECT_EQ(valueOf(reading, "T"), "some::text");
  EXPECT_EQ(valueOf(reading, "N"), "A * 2");
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("warning t.xml:19: the value of parameter 'N' stays "
                          "text: there is no parameter 'A'"));
}

TEST(Parameter, IsOverriddenInTheScopeOfTheDesign) {
  Reading reading = readWith(parameter("P", "1") + parameter("Q", "id_P + 1"),
                             given("id_P", "id_P * 10"),
                             parameter("P", "6") + parameter("X", "0"));
  EXPECT_EQ(valueOf(reading, "P"), "60");
  EXPECT_EQ(valueOf(reading, "Q"), "61");
  EXPECT_THAT(reading.diagnostics(), IsEmpty());
}

TEST(Parameter, IsOverriddenFromTheTopDown) {
  const Files files = {
      {"t.xml", component("t", "", parameters(parameter("P", "1")))},
      {"inner.xml", design("inner", instance("u", "t", given("id_P", "id_D+1")),
                           "", parameters(parameter("D", "2")))},
      {"box.xml", component("box", "",
                            viewOf("inner", given("id_D", "id_B * 2")) +
                                parameters(parameter("B", "3")))},
      {"outer.xml", design("outer",
                           instance("a", "box", given("id_B", "id_O")) +
                               instance("b", "box"),
                           "", parameters(parameter("O", "4")))},
      {"top.xml", component("top", "",
                            viewOf("outer", given("id_O", "id_T")) +
                                parameters(parameter("T", "5")))},
  };
  Reading reading = readFiles(files);
  EXPECT_EQ(valueOf(reading, "B", "a"), "5");
  EXPECT_EQ(valueOf(reading, "P", "a.u"), "11");
  EXPECT_EQ(valueOf(reading, "B", "b"), "3");
  EXPECT_EQ(valueOf(reading, "P", "b.u"), "7");
  EXPECT_THAT(reading.diagnostics(), IsEmpty());
}

TEST(Parameter, IsOverriddenBesideASelectedView) {
  const auto select = [](const std::string &values) {
    return "<designConfiguration><vendor>x</vendor><library>y</library>"
           "<name>c</name><version>1</version><designRef vendor='x' "
           "library='y' name='d' version='1'/>\n<viewConfiguration>"
           "<instanceName>u</instanceName><view viewRef='none'>"
           "<configurableElementValues>\n" +
           values +
           "</configurableElementValues></view></viewConfiguration>"
           "</designConfiguration>";
  };
  const std::string configured =
      "<ipxact:model><ipxact:views><ipxact:view><ipxact:name>v</ipxact:name>"
      "<ipxact:designConfigurationInstantiationRef>i"
      "</ipxact:designConfigurationInstantiationRef></ipxact:view>"
      "</ipxact:views><ipxact:instantiations>"
      "<ipxact:designConfigurationInstantiation><ipxact:name>i</ipxact:name>"
      "<ipxact:designConfigurationRef vendor='x' library='y' name='c' "
      "version='1'/></ipxact:designConfigurationInstantiation>"
      "</ipxact:instantiations></ipxact:model>";
  const Files files = {
      {"t.xml",
       component("t", "",
                 "<ipxact:model><ipxact:views><ipxact:view>"
                 "<ipxact:name>none</ipxact:name></ipxact:view>"
                 "</ipxact:views></ipxact:model>" +
                     parameters(parameter("P", "1") + parameter("Q", "2")))},
      {"d.xml",
       design("d", instance("u", "t", given("id_P", "3") + given("id_Q", "4")),
              "", parameters(parameter("D", "5")))},
      {"c.xml", select("<configurableElementValue referenceId='id_P'>id_D + 1"
                       "</configurableElementValue>\n"
                       "<configurableElementValue referenceId='id_X'>7"
                       "</configurableElementValue>")},
      {"top.xml", component("top", "", configured)}};
  Reading reading = readFiles(files);
  EXPECT_EQ(valueOf(reading, "P"), "6");
  EXPECT_EQ(valueOf(reading, "Q"), "4");
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("warning c.xml:4: a value is given to 'id_X', which "
                          "is no parameter of 'x:y:t:1'"));
}

TEST(Parameter, OfADesignAloneHasItsDefault) {
  Reading reading = readFiles(
      {{"t.xml", component("t", "", parameters(parameter("P", "1")))},
       {"top.xml", design("d", instance("u", "t", given("id_P", "id_D")), "",
                          parameters(parameter("D", "2")))},
       {"box.xml", component("box", "", viewOf("d", given("id_D", "9")))}});
  EXPECT_EQ(valueOf(reading, "P"), "2");
}

TEST(Parameter, IsNotSeenThroughABoundary) {
  Reading reading = readWith(parameter("P", "id_D"), "", parameter("D", "2"));
  EXPECT_EQ(valueOf(reading, "P"), "id_D");
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("note t.xml:4: the value of parameter 'P' stays "
                          "text: there is no parameter 'id_D'"));
}

TEST(Parameter, HasToBeThereToBeGivenAValue) {
  Reading reading =
      readWith(parameter("P", "1"),
               given("id_Q", "2") + given("P", "3") + given("", "4"));
  EXPECT_EQ(valueOf(reading, "P"), "1");
  EXPECT_THAT(
      reading.diagnostics(),
      ElementsAre("warning top.xml:4: a value is given to 'id_Q', which is no "
                  "parameter of 'x:y:t:1'",
                  "warning top.xml:5: a value is given to 'P', which is no "
                  "parameter of 'x:y:t:1'",
                  "warning top.xml:6: a value is given to '', which is no "
                  "parameter of 'x:y:t:1'"));
}

TEST(Parameter, MayBeOneOfTheModel) {
  Reading reading = readFiles(
      {{"t.xml", component("t", "",
                           "<ipxact:model><ipxact:instantiations>"
                           "<ipxact:componentInstantiation><ipxact:name>rtl"
                           "</ipxact:name><ipxact:moduleParameters>"
                           "<ipxact:moduleParameter parameterId='id_M'>"
                           "<ipxact:name>M</ipxact:name><ipxact:value>1"
                           "</ipxact:value></ipxact:moduleParameter>"
                           "</ipxact:moduleParameters>"
                           "</ipxact:componentInstantiation>"
                           "</ipxact:instantiations></ipxact:model>" +
                               parameters(parameter("P", "id_M + 1")))},
       {"top.xml", design("d", instance("u", "t", given("id_M", "4")))}});
  EXPECT_EQ(valueOf(reading, "P"), "5");
  EXPECT_EQ(valueOf(reading, "M"), "");
  EXPECT_THAT(reading.diagnostics(), IsEmpty());
}

TEST(Parameter, MayBeOneOfAPart) {
  const std::string type =
      "<ipxact:busType vendor='x' library='y' name='b' version='1'/>";
  Reading reading = readFiles(
      {{"t.xml",
        component("t",
                  interface("b",
                            "<ipxact:slave/>" + parameters(parameter("W", "8")),
                            type),
                  "<ipxact:addressSpaces><ipxact:addressSpace>"
                  "<ipxact:name>m</ipxact:name><ipxact:range>1</ipxact:range>"
                  "<ipxact:width>8</ipxact:width>" +
                      parameters(parameter("M", "3")) +
                      "</ipxact:addressSpace></ipxact:addressSpaces>" +
                      parameters(parameter("P", "id_W / 8 + id_M") +
                                 parameter("X", "id_V")) +
                      "<ipxact:vendorExtensions><v>" +
                      parameters(parameter("V", "1")) +
                      "</v></ipxact:vendorExtensions>")},
       {"top.xml", design("d", instance("u", "t", given("id_W", "64")))}});
  EXPECT_EQ(valueOf(reading, "P"), "11");
  EXPECT_EQ(valueOf(reading, "W"), "");
  EXPECT_EQ(valueOf(reading, "X"), "id_V");
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre(HasSubstr("there is no parameter 'id_V'")));
}

TEST(Parameter, DependsOnItselfInVain) {
  Reading one = readWith(parameter("A", "id_A + 1"));
  EXPECT_EQ(valueOf(one, "A"), "id_A + 1");
  EXPECT_THAT(one.diagnostics(),
              ElementsAre("warning t.xml:4: the value of parameter 'A' stays "
                          "text: parameter 'A' depends on itself"));
  Reading two = readWith(parameter("A", "id_B") + parameter("B", "id_A * 2") +
                         parameter("C", "id_A"));
  EXPECT_EQ(valueOf(two, "A"), "id_B");
  EXPECT_EQ(valueOf(two, "B"), "id_A * 2");
  EXPECT_EQ(valueOf(two, "C"), "id_A");
  EXPECT_THAT(two.diagnostics(),
              ElementsAre("warning t.xml:7: the value of parameter 'B' stays "
                          "text: parameter 'A' depends on itself",
                          "warning t.xml:4: the value of parameter 'A' stays "
                          "text: parameter 'B' has no value",
                          "warning t.xml:10: the value of parameter 'C' stays "
                          "text: parameter 'A' has no value"));
}

TEST(Parameter, MayHaveNoValueThatFits) {
  Reading reading = readWith(parameter("P", "1 / 0") +
                             parameter("Q", "18446744073709551616"));
  EXPECT_EQ(valueOf(reading, "P"), "1 / 0");
  EXPECT_EQ(valueOf(reading, "Q"), "18446744073709551616");
  EXPECT_THAT(
      reading.diagnostics(),
      ElementsAre("warning t.xml:4: the value of parameter 'P' stays text: it "
                  "divides by zero",
                  "warning t.xml:7: the value of parameter 'Q' stays text: a "
                  "number in it does not fit 64 bits"));
}

/// P0 uses P1, and so on; the last has `last` for its value.
std::string chainOf(int length, const std::string &rest,
                    const std::string &last) {
  std::string chain;
  for (int i = 0; i < length; ++i)
    chain += parameter("P" + std::to_string(i),
                       "id_P" + std::to_string(i + 1) + rest);
  return chain + parameter("P" + std::to_string(length), last);
}

/// However many stand between them, before or behind what they use.
TEST(Parameter, MayUseOthersToAnyDepth) {
  for (const int length : {84, 85, 86, 255, 256, 257, 10000}) {
    Reading sums = readWith(chainOf(length, " + 1", "1"));
    EXPECT_EQ(valueOf(sums, "P0"), std::to_string(length + 1));
    EXPECT_THAT(sums.diagnostics(), IsEmpty());
    Reading names = readWith(chainOf(length, "", "1"));
    EXPECT_EQ(valueOf(names, "P0"), "1");
    EXPECT_THAT(names.diagnostics(), IsEmpty());
  }
  Reading given = readWith(parameter("P", "1"),
                           ZelDebugDialog::given("id_P", "id_P0 + id_P9"),
                           chainOf(10000, " + 1", "1"));
  EXPECT_EQ(valueOf(given, "P"), "19993");
  EXPECT_THAT(given.diagnostics(), IsEmpty());
}

TEST(Parameter, IsToldOfACircleOfAnyLength) {
  for (const int length : {1, 86, 257, 10000})
    for (const std::string rest : {"", " + 1"}) {
      Reading reading = readWith(chainOf(length, rest, "id_P1" + rest));
      EXPECT_EQ(valueOf(reading, "P0"), "id_P1" + rest);
      EXPECT_THAT(reading.diagnostics(),
                  testing::Contains(HasSubstr("depends on itself")));
    }
}

/// What is reached along two ways is not looked into along each.
TEST(Parameter, DoublesItselfAtAnyDepth) {
  std::string chain;
  for (int i = 0; i < 3000; ++i) {
    const std::string next = "id_P" + std::to_string(i + 1);
    chain += parameter("P" + std::to_string(i), next + " - " + next + " + 1");
  }
  Reading reading = readWith(chain + parameter("P3000", "1"));
  EXPECT_EQ(valueOf(reading, "P0"), "1");
  EXPECT_THAT(reading.diagnostics(), IsEmpty());
}

/// That of one expression ends at a depth.
TEST(Parameter, MayBeNestedTooDeeplyByItself) {
  const std::string open(300, '(');
  Reading reading =
      readWith(parameter("A", "id_B") +
               parameter("B", open + "1" + std::string(300, ')')));
  EXPECT_EQ(valueOf(reading, "A"), "id_B");
  EXPECT_THAT(
      reading.diagnostics(),
      ElementsAre("warning t.xml:7: the value of parameter 'B' stays text: it "
                  "goes more than 256 levels deep",
                  "warning t.xml:4: the value of parameter 'A' stays text: "
                  "parameter 'B' has no value"));
}

TEST(Parameter, DoublesItselfWithoutBlowingUp) {
  std::string chain = parameter("P0", "1");
  for (int i = 1; i <= 60; ++i) {
    const std::string before = "id_P" + std::to_string(i - 1);
    chain += parameter("P" + std::to_string(i), before + " + " + before);
  }
  Reading reading = readWith(chain);
  EXPECT_EQ(valueOf(reading, "P60"), "1152921504606846976");
}

TEST(Parameter, IsReportedTwice) {
  Reading reading = readWith(
      parameter("P", "1") + parameter("P", "2") +
      "<ipxact:parameter parameterId='id_P'><ipxact:name>Q</ipxact:name>"
      "<ipxact:value>3</ipxact:value></ipxact:parameter>");
  EXPECT_EQ(valueOf(reading, "P"), "1");
  EXPECT_EQ(valueOf(reading, "Q"), "3");
  EXPECT_THAT(
      reading.diagnostics(),
      ElementsAre(
          "warning t.xml:7: a second parameter with the id 'id_P'; the "
          "first is meant",
          "warning t.xml:7: a second parameter 'P'; the first is "
          "answered",
          "warning t.xml:10: a second parameter with the id 'id_P'; the "
          "first is meant"));
}

TEST(Parameter, OfADesignIsReportedTwice) {
  const Reading reading =
      readWith("", "", parameter("P", "1") + parameter("Q", "2"));
  EXPECT_THAT(reading.diagnostics(), testing::IsEmpty());
  const Reading twice =
      readWith("", "", parameter("P", "1") + parameter("P", "2"));
  EXPECT_THAT(
      twice.diagnostics(),
      ElementsAre(HasSubstr("a second parameter with the id 'id_P'"),
                  HasSubstr("a second parameter 'P'; the first is answered")));
}

/// A component "t" of 2009 with one parameter "P", whose value has these
/// attributes.
Reading readOf2009(const std::string &attributes, const std::string &value) {
  return readFiles(
      {{"t.xml",
        "<s:component xmlns:s=\"http://www.spiritconsortium.org/XMLSchema/"
        "SPIRIT/1685-2009\"><s:vendor>x</s:vendor><s:library>y</s:library>"
        "<s:name>t</s:name><s:version>1</s:version><s:parameters>"
        "<s:parameter><s:name>P</s:name><s:value " +
            attributes + ">" + value +
            "</s:value></s:parameter></s:parameters></s:component>"},
       {"top.xml", design("d", instance("u", "t"))}});
}

TEST(Parameter, Of2009IsTextWhenItsFormatIsSo) {
  Reading text = readOf2009("s:format='string'", "0x10");
  EXPECT_EQ(valueOf(text, "P"), "0x10");
  for (const std::string other :
       {"", "s:format='long'", "s:format='bitString' s:bitStringLength='8'",
        "s:format='String'", "s:prompt='string'"}) {
    Reading number = readOf2009(other, "0x10");
    EXPECT_EQ(valueOf(number, "P"), "16") << other;
  }
}

TEST(Parameter, Of2009IsReadByItsFormat) {
  const struct {
    const char *format, *written, *value;
  } rows[] = {
      {"bool", "true", "1"},
      {"bool", "false", "0"},
      {"bool", "1", "1"},
      {"bool", "True", "True"},
      {"bitString", "\"1\"", "1"},
      {"bitString", "\"0101\"", "5"},
      {"bitString", "\"2\"", "\"2\""},
      {"bitString", "\"\"", "\"\""},
      {"bitString", "\"1", "\"1"},
      {"bitString", "#ff", "255"},
      {"bitString", "16", "16"},
      {"long", "#1", "1"},
      {"long", "-#1f", "-31"},
      {"long", "+7", "7"},
      {"long", "64K", "65536"},
      {"long", "0x1m", "1048576"},
      {"long", "-2g", "-2147483648"},
      {"long", "1T", "1099511627776"},
      {"long", "8388607T", "9223370937343148032"},
      {"long", "8388608T", "8388608T"},
      {"long", "64KB", "64KB"},
      {"long", "K", "K"},
      {"long", "#", "#"},
      {"long", "", ""},
      {"long", "true", "true"},
      {"float", "1.5", "1.5"},
      {"float", "64K", "64K"},
  };
  for (const auto &row : rows) {
    Reading reading =
        readOf2009("s:format='" + std::string(row.format) + "'", row.written);
    EXPECT_EQ(valueOf(reading, "P"), row.value) << row.format << row.written;
  }
}

/// What makes values literal is the namespace of the document, nothing beside
/// it.
TEST(Parameter, IsAnExpressionWhateverElseIsDeclared) {
  std::string text = component("t", "", parameters(parameter("P", "1 + 1")));
  text.insert(text.find(' '),
              " xmlns:s='http://www.spiritconsortium.org/XMLSchema/SPIRIT/"
              "1685-2009'");
  Reading reading = readFiles(
      {{"t.xml", text}, {"top.xml", design("d", instance("u", "t"))}});
  EXPECT_EQ(valueOf(reading, "P"), "2");
}

/// An "xml:id" names the element, not the parameter.
TEST(Parameter, HasNoIdOfXml) {
  const std::string list =
      "<ipxact:parameter><ipxact:name>P</ipxact:name>"
      "<ipxact:value xml:id='i'>1</ipxact:value></ipxact:parameter>";
  Reading reading = readWith(list, given("i", "2"));
  EXPECT_EQ(valueOf(reading, "P"), "1");
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre(HasSubstr("'i', which is no parameter")));
}

TEST(Parameter, Of2009IsNoExpression) {
  const std::string space =
      " xmlns:s=\"http://www.spiritconsortium.org/XMLSchema/SPIRIT/1685-2009\"";
  const std::string name = "<s:vendor>x</s:vendor><s:library>y</s:library>";
  Reading reading = readFiles(
      {{"t.xml",
        "<s:component" + space + ">" + name +
            "<s:name>t</s:name><s:version>1</"
            "s:version><s:model><s:modelParameters><s:modelParameter>"
            "<s:name>C_M</s:name><s:value s:id='M' s:resolve='user'>2</s:value>"
            "</s:modelParameter></s:modelParameters></s:model>"
            "<s:parameters><s:parameter><s:name>C_P</s:name>"
            "<s:value s:id='P' s:format='long'>0x10</s:value></s:parameter>"
            "<s:parameter><s:name>C_Q</s:name><s:value s:id='Q'>P</s:value>"
            "</s:parameter><s:parameter><s:name>C_R</s:name>\n"
            "<s:value s:id='R' s:dependency=\"id('P') * 2\">1+1</s:value>"
            "</s:parameter></s:parameters></s:component>"},
       {"top.xml",
        "<s:design" + space + ">" + name +
            "<s:name>d</s:name><s:version>1</"
            "s:version><s:componentInstances><s:componentInstance>"
            "<s:instanceName>u</s:instanceName><s:componentRef s:vendor='x' "
            "s:library='y' s:name='t' s:version='1'/>"
            "<s:configurableElementValues><s:configurableElementValue "
            "s:referenceId='M'>8</s:configurableElementValue>"
            "</s:configurableElementValues></s:componentInstance>"
            "</s:componentInstances></s:design>"}});
  EXPECT_EQ(valueOf(reading, "C_P"), "16");
  EXPECT_EQ(valueOf(reading, "C_Q"), "P");
  EXPECT_EQ(valueOf(reading, "C_R"), "1+1");
  EXPECT_EQ(valueOf(reading, "C_M"), "8");
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("warning t.xml:2: the dependency of parameter 'C_R' "
                          "is not followed; its value stays as it is written"));
}

} // namespace
} // namespace ZelDebugDialog

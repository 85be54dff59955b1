// What is read of a component: each form beside those that only look like it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Reading.h"

namespace ZelDebugDialog {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string cpu = processor("cpu", interface("bus", "<ipxact:master/>"));
const std::string ram = component("ram", interface("bus", "<ipxact:slave/>"));

/// cpu -> x.in, x.out -> ram, with x as given.
Reading readBetween(const std::string &between) {
  return readFiles(
      {{"cpu.xml", cpu},
       {"ram.xml", ram},
       {"x.xml", between},
       {"top.xml", design("d",
                          instance("cpu", "cpu") + instance("x", "x") +
                              instance("ram", "ram"),
                          connection("first", {"cpu.bus", "x.in"}) +
                              connection("second", {"x.out", "ram.bus"}))}});
}

struct ModeRow {
  const char *edition, *mode;
  bool answers;
};

TEST(ComponentReader, KnowsTheModesInOldAndNewWords) {
  const ModeRow rows[] = {
      {"2022", "<i:target/>", true},
      {"2014", "<i:slave/>", true},
      {"2022", "<target/>", true},
      {"2022", "<i:mirroredTarget/>", true},
      {"2014", "<i:mirroredSlave/>", true},
      {"2022", "<i:mirroredInitiator/>", true},
      {"2014", "<i:mirroredMaster/>", true},
      {"2022", "<i:initiator/>", false},
      {"2014", "<i:master/>", false},
      {"2022", "<i:system><i:group>g</i:group></i:system>", false},
      {"2022", "<i:mirroredSystem><i:group>g</i:group></i:mirroredSystem>",
       false},
      {"2022", "<i:monitor interfaceMode='target'/>", false},
      {"2014", "<i:monitor interfaceMode='slave'/>", false},
  };
  for (const ModeRow &row : rows) {
    const std::string edition = row.edition;
    const std::string type =
        "<i:busType vendor='x' library='y' name='bus' version='1'/>";
    Reading reading = readBetween(
        "<i:component xmlns:i=\"http://www.accellera.org/XMLSchema/"
        "IPXACT/1685-" +
        edition +
        "\"><i:vendor>x</i:vendor><i:library>y</i:library><i:name>x</i:name>"
        "<i:version>1</i:version><i:busInterfaces><i:busInterface>"
        "<i:name>in</i:name>" +
        type + row.mode +
        "</i:busInterface><i:busInterface><i:name>out</i:name>" + type +
        (edition == "2022" ? "<i:initiator/>" : "<i:master/>") +
        "</i:busInterface></i:busInterfaces></i:component>");
    EXPECT_THAT(reading.diagnostics(), IsEmpty()) << row.mode;
    EXPECT_EQ(reading.peripherals("cpu").size(), row.answers ? 1u : 0u)
        << row.mode;
  }
}

TEST(ComponentReader, ReportsAnInterfaceWithoutAMode) {
  for (const char *const mode : {"", "<ipxact:Target/>", "<ipxact:targets/>"}) {
    Reading reading = readBetween(component(
        "x", interface("in", mode) + interface("out", "<ipxact:master/>")));
    EXPECT_THAT(reading.diagnostics(),
                ElementsAre("warning x.xml:3: interface 'in' is neither "
                            "initiator nor target, nor anything else that is "
                            "known; nothing is attached to it"));
    EXPECT_THAT(reading.peripherals("cpu"), IsEmpty());
  }
}

/// As it stands, with the words of 2022, or in no namespace: words of 2009, or
/// of no edition.
enum class Words { of2014, of2022, ofNone };

std::string inWords(Words words, const std::string &text) {
  switch (words) {
  case Words::of2014:
    return text;
  case Words::of2022:
    return in2022(text);
  case Words::ofNone:
    return ofNoEdition(text);
  }
  return "";
}

struct PassRow {
  const char *what;
  std::string in;     ///< The mode of "in".
  std::string others; ///< Of the component.
  Names peripherals;
  Words words = Words::of2014;
};

const std::string master = "<ipxact:master/>";

std::string slave(const std::string &content) {
  return "<ipxact:slave>" + content + "</ipxact:slave>";
}

std::string map(const std::string &content, const std::string &others = "") {
  return others +
         "<ipxact:memoryMaps><ipxact:memoryMap><ipxact:name>m"
         "</ipxact:name>" +
         content + "</ipxact:memoryMap></ipxact:memoryMaps>";
}

const std::string base = "<ipxact:baseAddress>0</ipxact:baseAddress>";
const std::string size =
    "<ipxact:range>1</ipxact:range><ipxact:width>32</ipxact:width>";

std::string nameOf(const std::string &part) {
  return "<ipxact:name>" + part + "</ipxact:name>";
}

/// A part of a map that is passed on to "out".
std::string subspace(const std::string &name, const std::string &content) {
  return "<ipxact:subspaceMap masterRef='out'>" + nameOf(name) + content +
         "</ipxact:subspaceMap>";
}

std::string bank(const std::string &name, const std::string &content) {
  return "<ipxact:bank bankAlignment='serial'>" + nameOf(name) + content +
         "</ipxact:bank>";
}

const std::string remapState =
    "<ipxact:remapStates><ipxact:remapState><ipxact:name>late</ipxact:name>"
    "</ipxact:remapState></ipxact:remapStates>";

TEST(ComponentReader, KnowsEveryKindOfBridge) {
  const std::string block = "<ipxact:addressBlock>" + nameOf("b") + base +
                            size + "</ipxact:addressBlock>";
  const std::string inBank =
      "<ipxact:addressBlock>" + nameOf("b") + size + "</ipxact:addressBlock>";
  const std::string part = subspace("s", base);
  const std::string byMap = slave("<ipxact:memoryMapRef memoryMapRef='m'/>");
  const std::string bridge = "<ipxact:transparentBridge masterRef='out'/>";
  const PassRow rows[] = {
      {"nothing", slave(""), "", {"x"}},
      {"2022", slave(bridge), "", {"ram"}, Words::of2022},
      {"2014", slave(bridge), "", {"ram"}},
      {"2009",
       slave("<ipxact:bridge masterRef='out' opaque='true'/>"),
       "",
       {"ram"},
       Words::ofNone},
      {"two",
       slave("<ipxact:bridge masterRef='in'/><ipxact:bridge masterRef='out'/>"),
       "",
       {"ram"},
       Words::ofNone},
      {"other element",
       slave("<ipxact:transparentbridge masterRef='out'/>"),
       "",
       {"x"},
       Words::ofNone},
      {"subspace", byMap, map(part), {"ram"}},
      {"subspace of 2022", byMap, map(part), {"ram"}, Words::of2022},
      {"subspace in banks",
       byMap,
       map(bank("outer", base + bank("inner", subspace("s", "")))),
       {"ram"}},
      {"subspace in a remap",
       byMap,
       map("<ipxact:memoryRemap state='late'>" + nameOf("r") + part +
               "</ipxact:memoryRemap>",
           remapState),
       {"ram"}},
      {"subspace elsewhere",
       byMap,
       map("<ipxact:parameters>" + part + "</ipxact:parameters>"),
       {"x"},
       Words::ofNone},
      {"registers", byMap, map(block), {"x"}},
      {"both", byMap, map(block + part), {"x", "ram"}},
      {"blocks in a bank",
       byMap,
       map(bank("outer", base + inBank) + part),
       {"x", "ram"}},
      {"a bridge with registers",
       slave("<ipxact:memoryMapRef memoryMapRef='m'/>" + bridge),
       map(block),
       {"x", "ram"},
       Words::ofNone},
      {"a map that nothing refers to", slave(""), map(part), {"x"}},
  };
  for (const PassRow &row : rows) {
    SCOPED_TRACE(row.what);
    Reading reading = readBetween(inWords(
        row.words,
        component("x", interface("in", row.in) + interface("out", master),
                  row.others)));
    EXPECT_THAT(reading.diagnostics(), IsEmpty());
    EXPECT_EQ(reading.peripherals("cpu"), row.peripherals);
  }
}

TEST(ComponentReader, ReportsBridgesToNowhere) {
  Reading reading =
      readBetween(component("x",
                            interface("in", slave("<ipxact:memoryMapRef "
                                                  "memoryMapRef='none'/>"
                                                  "<ipxact:transparentBridge "
                                                  "masterRef='nowhere'/>")) +
                                interface("out", master),
                            map("")));
  EXPECT_THAT(
      reading.diagnostics(),
      ElementsAre("error x.xml:4: component 'x': interface 'in' is bridged to "
                  "'nowhere', which it does not have",
                  "warning x.xml:4: interface 'in' refers to a memory map "
                  "'none', which the component does not have"));
  EXPECT_THAT(reading.peripherals("cpu"), ElementsAre("x"));
}

TEST(ComponentReader, ReportsUnknownInterfacesWhereTheyAreNamed) {
  const Reading reading = readBetween(component(
      "x",
      interface("in", slave("<ipxact:memoryMapRef memoryMapRef='m'/>")) +
          interface("out", master),
      "<ipxact:channels><ipxact:channel>" + nameOf("c") +
          "<ipxact:busInterfaceRef><ipxact:localName>in</ipxact:localName>"
          "</ipxact:busInterfaceRef>\n\n<ipxact:busInterfaceRef>"
          "<ipxact:localName>yy</ipxact:localName></ipxact:busInterfaceRef>"
          "</ipxact:channel></ipxact:channels>" +
          map("\n\n<ipxact:subspaceMap masterRef='zz'>" + nameOf("s") + base +
              "</ipxact:subspaceMap>")));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("error x.xml:12: component 'x': interface 'in' is "
                          "bridged to 'zz', which it does not have",
                          "error x.xml:10: component 'x': channel 'c' names "
                          "'yy', which it does not have"));
}

/// The name of the map is an attribute in every edition.
TEST(ComponentReader, TakesNoMapByTheTextOfTheElement) {
  Reading reading = readBetween(component(
      "x",
      interface("in", slave("<ipxact:memoryMapRef>m</ipxact:memoryMapRef>")) +
          interface("out", master),
      map(subspace("s", base))));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("warning x.xml:4: interface 'in' refers to a memory "
                          "map '', which the component does not have"));
  EXPECT_THAT(reading.peripherals("cpu"), ElementsAre("x"));
}

TEST(ComponentReader, BoundsTheBridgesOfSharedMaps) {
  std::string interfaces;
  std::string parts;
  for (int i = 0; i < 1100; ++i) {
    interfaces += interface("in" + std::to_string(i),
                            slave("<ipxact:memoryMapRef memoryMapRef='m'/>"));
    parts += subspace("s" + std::to_string(i), base);
  }
  const Reading reading = readBetween(component(
      "x", interfaces + interface("in", slave("")) + interface("out", master),
      map(parts)));
  EXPECT_THAT(reading.diagnostics()[0],
              HasSubstr("more than 1000000 bridges by memory maps; the rest is "
                        "left out"));
}

std::string channel(const Names &members) {
  std::string text = "<ipxact:channel><ipxact:name>c</ipxact:name>";
  for (const std::string &member : members)
    text += "<ipxact:busInterfaceRef>" + member + "</ipxact:busInterfaceRef>";
  return text + "</ipxact:channel>";
}

std::string channels(const std::string &list) {
  return "<ipxact:channels>" + list + "</ipxact:channels>";
}

TEST(ComponentReader, KnowsChannels) {
  const auto local = [](const std::string &member) {
    return "<ipxact:localName>" + member + "</ipxact:localName>";
  };
  const std::string mirrored = "<ipxact:mirroredMaster/>";
  const PassRow rows[] = {
      {"2014",
       mirrored,
       channels(channel({local("in"), local("out")})),
       {"ram"}},
      {"2009",
       mirrored,
       channels(channel({"in", " out "})),
       {"ram"},
       Words::ofNone},
      {"apart",
       mirrored,
       channels(channel({"in"}) + channel({"out"})),
       {"x"},
       Words::ofNone},
      {"none", mirrored, "", {"x"}},
  };
  for (const PassRow &row : rows) {
    Reading reading = readBetween(inWords(
        row.words, component("x",
                             interface("in", row.in) +
                                 interface("out", "<ipxact:mirroredSlave/>"),
                             row.others)));
    EXPECT_THAT(reading.diagnostics(), IsEmpty()) << row.what;
    EXPECT_EQ(reading.peripherals("cpu"), row.peripherals) << row.what;
  }
}

TEST(ComponentReader, TellsProcessorsByTheirCpus) {
  Reading reading = readFiles(
      {{"a.xml", processor("a", "")},
       {"b.xml", ofNoEdition(component("b", "", "<ipxact:cpu/>"))},
       {"c.xml", component("c", "",
                           "<ipxact:vendorExtensions><ipxact:cpus/>"
                           "</ipxact:vendorExtensions>")},
       {"lumacore.xml", component("lumacore", "")},
       {"hdu.xml", processor("hdu", "")},
       {"top.xml",
        design("d", instance("a", "a") + instance("b", "b") +
                        instance("c", "c") + instance("l", "lumacore") +
                        instance("h", "hdu"))}});
  EXPECT_THAT(reading.processors(), ElementsAre("a", "l", "h"));
  EXPECT_THAT(reading.debugModules(), IsEmpty());
}

const std::string present = "<ipxact:isPresent>0</ipxact:isPresent>";
const std::string busType =
    "<ipxact:busType vendor='x' library='y' name='bus' version='1'/>";

TEST(ComponentReader, FollowsNoConditions) {
  Reading reading = readBetween(component(
      "x", interface("in",
                     "\n" + slave("<ipxact:transparentBridge "
                                  "masterRef='out'>" +
                                  present + "</ipxact:transparentBridge>"),
                     present + busType) +
               interface("out", master)));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("warning x.xml:4: isPresent is not followed: this "
                          "busInterface is taken to be there",
                          "warning x.xml:5: isPresent is not followed: this "
                          "transparentBridge is taken to be there"));
  EXPECT_THAT(reading.peripherals("cpu"), ElementsAre("ram"));
}

TEST(ComponentReader, FollowsNoConditionsOfMaps) {
  std::string text = processor(
      "x",
      interface("in", slave("<ipxact:memoryMapRef memoryMapRef='m'/>")) +
          interface("out", master),
      map("\n" + present + "\n<ipxact:addressBlock>" + nameOf("b") + present +
          base + size + "</ipxact:addressBlock>\n" +
          bank("outer", base + present + "\n" + subspace("s", present)) +
          "\n<ipxact:memoryRemap state='late'>" + nameOf("r") + present +
          "</ipxact:memoryRemap>"));
  text.insert(text.find("<ipxact:addressSpaces>"), remapState);
  const std::string core = nameOf("core");
  text.insert(text.find(core) + core.size(), "\n" + present);
  Reading reading = readBetween(text);
  Names conditions;
  for (const DesignDiagnostic &found : reading.model.Diagnostics())
    if (found.file == "x.xml")
      conditions.push_back(std::to_string(found.line) + " " + found.message);
  EXPECT_THAT(
      conditions,
      testing::UnorderedElementsAre(
          "9 isPresent is not followed: this memoryMap is taken to be there",
          "10 isPresent is not followed: this addressBlock is taken to be "
          "there",
          "11 isPresent is not followed: this bank is taken to be there",
          "12 isPresent is not followed: this subspaceMap is taken to be there",
          "13 isPresent is not followed: this memoryRemap is taken to be "
          "there",
          "14 isPresent is not followed: this cpu is taken to be there"));
}

/// A map of 2022 consists of a definition as a whole, in a bank, in a remap or
/// in a block.
TEST(ComponentReader, FollowsNoDefinitionsOfMaps) {
  const auto definition = [](const std::string &what) {
    return "<ipxact:" + what +
           "DefinitionRef typeDefinitions='t'>d</ipxact:" + what +
           "DefinitionRef>";
  };
  const std::string maps[] = {
      definition("memoryMap"),
      subspace("s", base) + "<ipxact:memoryRemap>" + nameOf("r") +
          "<ipxact:modeRef priority='0'>late</ipxact:modeRef>" +
          definition("remap") + "</ipxact:memoryRemap>",
      subspace("s", base) +
          bank("outer", base + bank("inner", definition("bank"))),
      subspace("s", base) + "<ipxact:addressBlock>" + nameOf("b") + base +
          definition("addressBlock") + "</ipxact:addressBlock>",
  };
  for (const std::string &content : maps) {
    std::string text =
        component("x",
                  interface("in", "\n" + slave("<ipxact:memoryMapRef "
                                               "memoryMapRef='m'/>")) +
                      interface("out", master),
                  "<ipxact:modes><ipxact:mode>" + nameOf("late") +
                      "</ipxact:mode></ipxact:modes>" + map(content));
    text.insert(text.find("<ipxact:busInterfaces>"),
                "<ipxact:typeDefinitions><ipxact:externalTypeDefinitions>" +
                    nameOf("t") +
                    "<ipxact:typeDefinitionsRef vendor='x' library='y' "
                    "name='types' version='1'/>"
                    "</ipxact:externalTypeDefinitions>"
                    "</ipxact:typeDefinitions>");
    Reading reading = readBetween(in2022(text));
    EXPECT_THAT(reading.diagnostics(),
                ElementsAre("warning x.xml:5: the definition that memory map "
                            "'m' refers to is not followed; it is taken to "
                            "have registers"));
    EXPECT_EQ(reading.peripherals("cpu").front(), "x") << content;
  }
}

} // namespace
} // namespace ZelDebugDialog

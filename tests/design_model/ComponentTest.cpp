// What is read of a component: each form beside those that only look like it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Reading.h"

namespace ZelDebugDialog {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string cpu =
    component("cpu", interface("bus", "<ipxact:master/>"), "<ipxact:cpus/>");
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
  const char *mode;
  bool answers;
};

TEST(ComponentReader, KnowsTheModesInOldAndNewWords) {
  const ModeRow rows[] = {
      {"<i:target/>", true},
      {"<i:slave/>", true},
      {"<target/>", true},
      {"<i:mirroredTarget/>", true},
      {"<i:mirroredSlave/>", true},
      {"<i:mirroredInitiator/>", true},
      {"<i:mirroredMaster/>", true},
      {"<i:initiator/>", false},
      {"<i:master/>", false},
      {"<i:system><i:group>g</i:group></i:system>", false},
      {"<i:mirroredSystem/>", false},
      {"<i:monitor interfaceMode='target'/>", false},
  };
  for (const ModeRow &row : rows) {
    Reading reading =
        readBetween("<i:component xmlns:i=\"http://www.accellera.org/XMLSchema/"
                    "IPXACT/1685-2022\">"
                    "<i:vendor>x</i:vendor><i:library>y</i:library>"
                    "<i:name>x</i:name><i:version>1</i:version>"
                    "<i:busInterfaces><i:busInterface><i:name>in</i:name>"
                    "<i:busType/>" +
                    std::string(row.mode) +
                    "</i:busInterface><i:busInterface><i:name>out</i:name>"
                    "<i:initiator/></i:busInterface></i:busInterfaces>"
                    "</i:component>");
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

struct PassRow {
  const char *what;
  std::string in;     ///< The mode of "in".
  std::string others; ///< Of the component.
  Names peripherals;
};

const std::string master = "<ipxact:master/>";

std::string slave(const std::string &content) {
  return "<ipxact:slave>" + content + "</ipxact:slave>";
}

std::string map(const std::string &content, const std::string &name = "m") {
  return "<ipxact:memoryMaps><ipxact:memoryMap><ipxact:name>" + name +
         "</ipxact:name>" + content + "</ipxact:memoryMap></ipxact:memoryMaps>";
}

TEST(ComponentReader, KnowsEveryKindOfBridge) {
  const std::string block = "<ipxact:addressBlock/>";
  const std::string subspace = "<ipxact:subspaceMap masterRef='out'/>";
  const std::string byMap = slave("<ipxact:memoryMapRef memoryMapRef='m'/>");
  const PassRow rows[] = {
      {"nothing", slave(""), "", {"x"}},
      {"2022",
       slave("<ipxact:transparentBridge initiatorRef='out'/>"),
       "",
       {"ram"}},
      {"2014",
       slave("<ipxact:transparentBridge masterRef='out'/>"),
       "",
       {"ram"}},
      {"2009",
       slave("<ipxact:bridge ipxact:masterRef='out' opaque='true'/>"),
       "",
       {"ram"}},
      {"two",
       slave("<ipxact:bridge masterRef='in'/><ipxact:bridge masterRef='out'/>"),
       "",
       {"ram"}},
      {"other element",
       slave("<ipxact:transparentbridge masterRef='out'/>"),
       "",
       {"x"}},
      {"subspace", byMap, map(subspace), {"ram"}},
      {"subspace of 2022",
       byMap,
       map("<ipxact:subspaceMap initiatorRef='out'/>"),
       {"ram"}},
      {"subspace in banks",
       byMap,
       map("<ipxact:bank><ipxact:bank>" + subspace +
           "</ipxact:bank></ipxact:bank>"),
       {"ram"}},
      {"subspace in a remap",
       byMap,
       map("<ipxact:memoryRemap>" + subspace + "</ipxact:memoryRemap>"),
       {"ram"}},
      {"subspace elsewhere",
       byMap,
       map("<ipxact:parameters>" + subspace + "</ipxact:parameters>"),
       {"x"}},
      {"registers", byMap, map(block), {"x"}},
      {"both", byMap, map(block + subspace), {"x", "ram"}},
      {"blocks in a bank",
       byMap,
       map("<ipxact:bank>" + block + "</ipxact:bank>" + subspace),
       {"x", "ram"}},
      {"a bridge with registers",
       slave("<ipxact:transparentBridge masterRef='out'/>"
             "<ipxact:memoryMapRef memoryMapRef='m'/>"),
       map(block),
       {"x", "ram"}},
      {"a map that nothing refers to", slave(""), map(subspace), {"x"}},
  };
  for (const PassRow &row : rows) {
    SCOPED_TRACE(row.what);
    Reading reading = readBetween(component(
        "x", interface("in", row.in) + interface("out", master), row.others));
    EXPECT_THAT(reading.diagnostics(), IsEmpty());
    EXPECT_EQ(reading.peripherals("cpu"), row.peripherals);
  }
}

TEST(ComponentReader, ReportsBridgesToNowhere) {
  Reading reading =
      readBetween(component("x",
                            interface("in", slave("<ipxact:transparentBridge "
                                                  "masterRef='nowhere'/>"
                                                  "<ipxact:memoryMapRef "
                                                  "memoryMapRef='none'/>")) +
                                interface("out", master),
                            map("")));
  EXPECT_THAT(
      reading.diagnostics(),
      ElementsAre("warning x.xml:4: interface 'in' refers to a memory map "
                  "'none', which the component does not have",
                  "error x.xml:3: component 'x': interface 'in' is bridged to "
                  "'nowhere', which it does not have"));
  EXPECT_THAT(reading.peripherals("cpu"), ElementsAre("x"));
}

/// The name of the map is an attribute in every edition.
TEST(ComponentReader, TakesNoMapByTheTextOfTheElement) {
  Reading reading = readBetween(component(
      "x",
      interface("in", slave("<ipxact:memoryMapRef>m</ipxact:memoryMapRef>")) +
          interface("out", master),
      map("<ipxact:subspaceMap masterRef='out'/>")));
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
    parts += "<ipxact:subspaceMap masterRef='out'/>";
  }
  const Reading reading = readBetween(component(
      "x", interfaces + interface("in", slave("")) + interface("out", master),
      map(parts)));
  EXPECT_THAT(reading.diagnostics()[0],
              HasSubstr("more than 1000000 bridges by memory maps; the rest is "
                        "left out"));
}

TEST(ComponentReader, KnowsChannels) {
  const PassRow rows[] = {
      {"2014",
       "<ipxact:mirroredMaster/>",
       "<ipxact:channels><ipxact:channel><ipxact:name>c</ipxact:name>"
       "<ipxact:busInterfaceRef><ipxact:localName>in</ipxact:localName>"
       "</ipxact:busInterfaceRef><ipxact:busInterfaceRef><ipxact:localName>out"
       "</ipxact:localName></ipxact:busInterfaceRef></ipxact:channel>"
       "</ipxact:channels>",
       {"ram"}},
      {"2009",
       "<ipxact:mirroredMaster/>",
       "<ipxact:channels><ipxact:channel>"
       "<ipxact:busInterfaceRef>in</ipxact:busInterfaceRef>"
       "<ipxact:busInterfaceRef> out </ipxact:busInterfaceRef>"
       "</ipxact:channel></ipxact:channels>",
       {"ram"}},
      {"apart",
       "<ipxact:mirroredMaster/>",
       "<ipxact:channels><ipxact:channel>"
       "<ipxact:busInterfaceRef>in</ipxact:busInterfaceRef></ipxact:channel>"
       "<ipxact:channel><ipxact:busInterfaceRef>out</ipxact:busInterfaceRef>"
       "</ipxact:channel></ipxact:channels>",
       {"x"}},
      {"none", "<ipxact:mirroredMaster/>", "", {"x"}},
  };
  for (const PassRow &row : rows) {
    Reading reading = readBetween(component(
        "x",
        interface("in", row.in) + interface("out", "<ipxact:mirroredSlave/>"),
        row.others));
    EXPECT_THAT(reading.diagnostics(), IsEmpty()) << row.what;
    EXPECT_EQ(reading.peripherals("cpu"), row.peripherals) << row.what;
  }
}

TEST(ComponentReader, TellsProcessorsByTheirCpus) {
  Reading reading = readFiles(
      {{"a.xml", component("a", "", "<ipxact:cpus/>")},
       {"b.xml", component("b", "", "<ipxact:cpu/>")},
       {"c.xml", component("c", "",
                           "<ipxact:vendorExtensions><ipxact:cpus/>"
                           "</ipxact:vendorExtensions>")},
       {"lumacore.xml", component("lumacore", "")},
       {"hdu.xml", component("hdu", "", "<ipxact:cpus/>")},
       {"top.xml",
        design("d", instance("a", "a") + instance("b", "b") +
                        instance("c", "c") + instance("l", "lumacore") +
                        instance("h", "hdu"))}});
  EXPECT_THAT(reading.processors(), ElementsAre("a", "l", "h"));
  EXPECT_THAT(reading.debugModules(), IsEmpty());
}

TEST(ComponentReader, FollowsNoConditions) {
  Reading reading = readBetween(component(
      "x", interface("in", "<ipxact:isPresent>0</ipxact:isPresent>\n" +
                               slave("<ipxact:transparentBridge "
                                     "masterRef='out'><ipxact:isPresent>0"
                                     "</ipxact:isPresent>"
                                     "</ipxact:transparentBridge>")) +
               interface("out", master)));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("warning x.xml:4: isPresent is not followed: this "
                          "busInterface is taken to be there",
                          "warning x.xml:5: isPresent is not followed: this "
                          "transparentBridge is taken to be there"));
  EXPECT_THAT(reading.peripherals("cpu"), ElementsAre("ram"));
}

TEST(ComponentReader, FollowsNoConditionsOfMaps) {
  const std::string present = "<ipxact:isPresent>0</ipxact:isPresent>";
  Reading reading = readBetween(
      component("x",
                interface("in", slave("<ipxact:memoryMapRef "
                                      "memoryMapRef='m'/>")) +
                    interface("out", master),
                map(present + "\n<ipxact:addressBlock>" + present +
                    "</ipxact:addressBlock>\n<ipxact:bank>" + present +
                    "\n<ipxact:subspaceMap masterRef='out'>" + present +
                    "</ipxact:subspaceMap></ipxact:bank>\n"
                    "<ipxact:memoryRemap>" +
                    present + "</ipxact:memoryRemap>") +
                    "\n<ipxact:cpus><ipxact:cpu>" + present +
                    "</ipxact:cpu></ipxact:cpus>"));
  Names parts;
  for (const DesignDiagnostic &found : reading.model.Diagnostics())
    if (found.file == "x.xml")
      parts.push_back(std::to_string(found.line) + " " + found.message);
  EXPECT_THAT(
      parts,
      testing::UnorderedElementsAre(
          "13 isPresent is not followed: this cpu is taken to be there",
          "8 isPresent is not followed: this memoryMap is taken to be there",
          "9 isPresent is not followed: this addressBlock is taken to be "
          "there",
          "10 isPresent is not followed: this bank is taken to be there",
          "11 isPresent is not followed: this subspaceMap is taken to be there",
          "12 isPresent is not followed: this memoryRemap is taken to be "
          "there"));
}

TEST(ComponentReader, FollowsNoDefinitionsOfMaps) {
  const std::string toDefinition = "Ref typeDefinitions='t'>d</ipxact:";
  const std::string subspace = "<ipxact:subspaceMap initiatorRef='out'/>";
  const std::string maps[] = {
      "<ipxact:memoryMapDefinition" + toDefinition + "memoryMapDefinitionRef>",
      subspace + "<ipxact:memoryRemap><ipxact:remapDefinition" + toDefinition +
          "remapDefinitionRef></ipxact:memoryRemap>",
      subspace + "<ipxact:bank><ipxact:bank><ipxact:bankDefinition" +
          toDefinition + "bankDefinitionRef></ipxact:bank></ipxact:bank>",
  };
  for (const std::string &content : maps) {
    Reading reading = readBetween(
        component("x",
                  interface("in", "<ipxact:target>\n<ipxact:memoryMapRef "
                                  "memoryMapRef='m'/></ipxact:target>") +
                      interface("out", master),
                  map(content)));
    EXPECT_THAT(reading.diagnostics(),
                ElementsAre("warning x.xml:5: the definition that memory map "
                            "'m' refers to is not followed; it is taken to "
                            "have registers"));
    EXPECT_EQ(reading.peripherals("cpu").front(), "x") << content;
  }
}

} // namespace
} // namespace ZelDebugDialog

// What is read of a design.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Reading.h"

namespace ZelDebugDialog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Files parts = {
    {"cpu.xml", component("lumacore", interface("bus", "<ipxact:master/>") +
                                          interface("d", "<ipxact:slave/>"))},
    {"ram.xml", component("ram", interface("bus", "<ipxact:slave/>"))},
    {"hdu.xml", component("hdu", interface("d", "<ipxact:master/>"))},
};

TEST(DesignReader, KeepsTheOrderOfTheDocument) {
  const Reading reading = readBeside(
      parts, design("d", instance("z", "ram") + instance("a", "lumacore") +
                             instance("m", "hdu") + instance("b", "ram")));
  EXPECT_THAT(reading.instances(), ElementsAre("z", "a", "m", "b"));
  EXPECT_EQ(reading.model.Instances()[1].typeName, "lumacore");
}

TEST(DesignReader, KeepsInstancesWithoutAComponent) {
  Reading reading = readBeside(
      parts, design("d",
                    instance("cpu", "lumacore") + instance("m", "hdu_cedar") +
                        instance("uart", "uart_mini_cedar"),
                    connection("a", {"m.d", "cpu.d"}) +
                        connection("b", {"cpu.bus", "uart.bus"})));
  EXPECT_TRUE(reading.isRead);
  EXPECT_THAT(reading.instances(), ElementsAre("cpu", "m", "uart"));
  EXPECT_EQ(reading.model.getIpName("uart"), "uart_mini_cedar");
  EXPECT_THAT(reading.debugModules(), ElementsAre("m"));
  EXPECT_THAT(reading.attached("m"), IsEmpty());
  EXPECT_THAT(reading.peripherals("cpu"), IsEmpty());
  EXPECT_THAT(
      reading.diagnostics(),
      ElementsAre("error top.xml:7: instance 'm': component 'x:y:hdu_cedar:1' "
                  "is not found",
                  "error top.xml:10: instance 'uart': component "
                  "'x:y:uart_mini_cedar:1' is not found"));
}

TEST(DesignReader, KeepsAnInstanceWithoutAReference) {
  const Reading reading = readBeside(
      parts, "<design><componentInstances>\n<componentInstance><instanceName>u"
             "</instanceName></componentInstance></componentInstances>"
             "</design>");
  EXPECT_THAT(reading.instances(), ElementsAre("u"));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("error top.xml:2: instance 'u': component ':::' is "
                          "not found"));
}

TEST(DesignReader, LeavesOutInstancesWithBadNames) {
  Reading reading = readBeside(
      parts, design("d",
                    instance("a/b", "ram") + instance(".", "ram") +
                        instance("..", "ram") + instance("", "ram") +
                        instance("cpu", "lumacore") + instance("ram", "ram") +
                        instance("ram", "hdu"),
                    connection("a", {"cpu.bus", "a/b.bus"}) +
                        connection("b", {"cpu.bus", "ram.bus"})));
  EXPECT_THAT(reading.instances(), ElementsAre("cpu", "ram"));
  EXPECT_EQ(reading.model.getIpName("ram"), "ram");
  EXPECT_THAT(reading.peripherals("cpu"), ElementsAre("ram"));
  EXPECT_THAT(
      reading.diagnostics(),
      ElementsAre(
          "error top.xml:3: instance 'a/b' is left out: the name holds a \"/\"",
          "error top.xml:6: instance '.' is left out: the name means a folder",
          "error top.xml:9: instance '..' is left out: the name means a "
          "folder",
          "error top.xml:12: instance '' is left out: it has no name",
          "error top.xml:21: instance 'ram' is left out: another has that "
          "name"));
}

TEST(DesignReader, ReportsConnectionsThatLeadNowhere) {
  Reading reading = readBeside(
      parts,
      design("d", instance("cpu", "lumacore") + instance("ram", "ram"),
             "\n" + connection("none", {}) + connection("lone", {"cpu.bus"}) +
                 connection("away", {"cpu.bus", "rom.bus"}) +
                 connection("port", {"cpu.bus", "ram.bas"}) +
                 connection("good", {"cpu.bus", "ram.bus", "gone.bus"}) +
                 connection("good", {"cpu.d", "ram.bus"})));
  EXPECT_THAT(reading.peripherals("cpu"), ElementsAre("ram"));
  EXPECT_THAT(
      reading.diagnostics(),
      ElementsAre(
          "warning top.xml:11: connection 'none' has no ends",
          "warning top.xml:13: connection 'lone' has one end only: 'cpu.bus'",
          "error top.xml:18: connection 'away' of 'rom.bus' and 'cpu.bus': the "
          "design has no instance 'rom'",
          "error top.xml:27: connection 'good' of 'gone.bus' and 'cpu.bus': "
          "the design has no instance 'gone'",
          "warning top.xml:29: a second connection 'good'",
          "error top.xml:22: connection 'port' of 'cpu.bus' and 'ram.bas': "
          "instance 'ram' of type 'ram' has no interface 'bas'"));
}

struct EndRow {
  const char *edition, *instance, *interface;
};

TEST(DesignReader, TakesEndsInEveryForm) {
  const EndRow rows[] = {
      {"1685-2014", "componentRef", "busRef"},
      {"1685-2022", "componentInstanceRef", "busRef"},
      {"1685-2014", "ipxact:componentRef", "ipxact:busRef"},
  };
  for (const EndRow &row : rows) {
    const auto end = [&row](const char *instance) {
      return std::string("<ipxact:activeInterface ") + row.instance + "='" +
             instance + "' " + row.interface + "='bus'/>";
    };
    std::string text =
        design("d", instance("cpu", "lumacore") + instance("ram", "ram"),
               "<ipxact:interconnection><ipxact:name>c</ipxact:name>" +
                   end("cpu") + end("ram") + "</ipxact:interconnection>");
    const std::string edition = "1685-2014";
    text.replace(text.find(edition), edition.size(), row.edition);
    Reading reading = readBeside(parts, text);
    EXPECT_THAT(reading.diagnostics(), IsEmpty());
    EXPECT_THAT(reading.peripherals("cpu"), ElementsAre("ram")) << row.instance;
  }
}

/// A design "box" of an edition that has hierarchical connections; `end` is
/// what stands in the one of "port".
std::string boxOf(const std::string &edition, const std::string &end) {
  return "<s:design xmlns:s=\"http://www.spiritconsortium.org/XMLSchema/"
         "SPIRIT/" +
         edition +
         "\"><s:vendor>x</s:vendor><s:library>y</s:library><s:name>inner"
         "</s:name><s:version>1</s:version><s:componentInstances>"
         "<s:componentInstance><s:instanceName>ram</s:instanceName>"
         "<s:componentRef s:vendor='x' s:library='y' s:name='ram' "
         "s:version='1'/></s:componentInstance></s:componentInstances>"
         "<s:hierConnections>\n<s:hierConnection s:interfaceRef='port'>" +
         end + "</s:hierConnection></s:hierConnections></s:design>";
}

Reading readInBox(const std::string &inner) {
  Files files = parts;
  files["inner.xml"] = inner;
  files["box.xml"] =
      component("box", interface("port", "<ipxact:slave/>"), viewOf("inner"));
  return readBeside(
      files, design("d", instance("cpu", "lumacore") + instance("box", "box"),
                    connection("in", {"cpu.bus", "box.port"})));
}

TEST(DesignReader, TakesHierarchicalConnections) {
  for (const char *const edition : {"1.5", "1685-2009"}) {
    Reading reading = readInBox(
        boxOf(edition, "<s:interface s:componentRef='ram' s:busRef='bus'/>"));
    EXPECT_THAT(reading.diagnostics(), IsEmpty()) << edition;
    EXPECT_THAT(reading.peripherals("cpu"), ElementsAre("box.ram")) << edition;
  }
}

TEST(DesignReader, TakesNoOtherFormOfHierarchicalConnections) {
  for (const std::string element :
       {"activeInterface", "hierInterface", "Interface", "interfaces"}) {
    Reading reading = readInBox(
        boxOf("1685-2009",
              "<s:" + element + " s:componentRef='ram' s:busRef='bus'/>"));
    EXPECT_THAT(reading.diagnostics(),
                ElementsAre("warning inner.xml:2: connection '' has one end "
                            "only: 'port'"))
        << element;
    EXPECT_THAT(reading.peripherals("cpu"), ElementsAre("box")) << element;
  }
}

TEST(DesignReader, AttachesNothingByMonitorsAndPorts) {
  Reading reading = readBeside(
      parts,
      design("d", instance("cpu", "lumacore") + instance("ram", "ram"),
             "<ipxact:monitorInterconnection><ipxact:name>m</ipxact:name>"
             "<ipxact:monitoredActiveInterface componentRef='cpu' "
             "busRef='bus'/><ipxact:monitorInterface componentRef='ram' "
             "busRef='bus'/></ipxact:monitorInterconnection>",
             "<ipxact:adHocConnections><ipxact:adHocConnection><ipxact:name>a"
             "</ipxact:name><ipxact:portReferences>"
             "<ipxact:internalPortReference componentRef='cpu' portRef='p'/>"
             "<ipxact:internalPortReference componentRef='ram' portRef='p'/>"
             "</ipxact:portReferences></ipxact:adHocConnection>"
             "</ipxact:adHocConnections>"));
  EXPECT_THAT(reading.peripherals("cpu"), IsEmpty());
  EXPECT_THAT(reading.diagnostics(), IsEmpty());
}

TEST(DesignReader, LeadsNowhereByItsOwnInterfaces) {
  Reading reading = readBeside(
      parts, design("d", instance("cpu", "lumacore") + instance("ram", "ram"),
                    connection("a", {"cpu.bus", "out"}) +
                        connection("b", {"ram.bus", "out"})));
  EXPECT_THAT(reading.peripherals("cpu"), IsEmpty());
  EXPECT_THAT(reading.diagnostics(), IsEmpty());
}

TEST(DesignReader, FollowsNoConditions) {
  Reading reading = readBeside(
      parts,
      design("d",
             instance("cpu", "lumacore") +
                 "<ipxact:componentInstance>\n<ipxact:instanceName>ram"
                 "</ipxact:instanceName><ipxact:isPresent>0"
                 "</ipxact:isPresent><ipxact:componentRef vendor='x' "
                 "library='y' name='ram' version='1'/>"
                 "</ipxact:componentInstance>\n",
             "<ipxact:interconnection>\n<ipxact:name>c</ipxact:name>"
             "<ipxact:isPresent>0</ipxact:isPresent>"
             "<ipxact:activeInterface componentRef='cpu' busRef='bus'/>"
             "<ipxact:activeInterface componentRef='ram' busRef='bus'>\n"
             "<ipxact:isPresent>0</ipxact:isPresent></ipxact:activeInterface>"
             "</ipxact:interconnection>"));
  EXPECT_THAT(reading.peripherals("cpu"), ElementsAre("ram"));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("warning top.xml:7: isPresent is not followed: this "
                          "componentInstance is taken to be there",
                          "warning top.xml:10: isPresent is not followed: this "
                          "interconnection is taken to be there",
                          "warning top.xml:11: isPresent is not followed: this "
                          "activeInterface is taken to be there"));
}

} // namespace
} // namespace ZelDebugDialog

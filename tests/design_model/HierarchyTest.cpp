// Designs inside designs: which view is taken, and what ends a hierarchy.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "MemorySource.h"
#include "Reading.h"
#include "elaboration/ReadDesignFrom.h"

namespace ZelDebugDialog {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string leaf = component("leaf", "");

std::string vlnv(const std::string &name) {
  return "vendor='x' library='y' name='" + name + "' version='1'";
}

std::string document(const std::string &root, const std::string &name,
                     const std::string &content) {
  return "<" + root + "><vendor>x</vendor><library>y</library><name>" + name +
         "</name><version>1</version>\n" + content + "</" + root + ">";
}

/// A configuration "x:y:name:1" of a design, with views "instance=view".
std::string configuration(const std::string &name, const std::string &design,
                          const Names &views) {
  std::string text = "<designRef " + vlnv(design) + "/>\n";
  for (const std::string &view : views) {
    const std::size_t equals = view.find('=');
    text += "<viewConfiguration><instanceName>" + view.substr(0, equals) +
            "</instanceName><view viewRef='" + view.substr(equals + 1) +
            "'/></viewConfiguration>\n";
  }
  return document("designConfiguration", name, text);
}

/// A component "x:y:box:1" with the views "one" and "two", which lead to
/// designs of these names, and "flat", which leads to none.
const std::string box = document(
    "component", "box",
    "<model><views><view><name>flat</name></view>\n"
    "<view><name>one</name><designInstantiationRef>i1</designInstantiationRef>"
    "</view>\n<view><name>two</name><designInstantiationRef>i2"
    "</designInstantiationRef></view></views>\n"
    "<instantiations><designInstantiation><name>i1</name><designRef " +
        vlnv("one") +
        "/></designInstantiation><designInstantiation><name>i2</name>"
        "<designRef " +
        vlnv("two") + "/></designInstantiation></instantiations></model>");

const Files boxes = {
    {"box.xml", box},
    {"leaf.xml", leaf},
    {"one.xml", design("one", instance("in_one", "leaf"))},
    {"two.xml", design("two", instance("in_two", "leaf"))},
};

Reading readBoxes(const Files &more, const std::string &view = "") {
  Files files = boxes;
  files.insert(more.begin(), more.end());
  return readFiles(files, view);
}

const std::string twoBoxes =
    design("top", instance("a", "box") + instance("b", "box"));

TEST(Views, AreTheFirstThatHasADesign) {
  const Reading reading = readBoxes({{"top.xml", twoBoxes}});
  EXPECT_THAT(reading.instances(),
              ElementsAre("a", "a.in_one", "b", "b.in_one"));
  EXPECT_THAT(reading.diagnostics(), IsEmpty());
}

TEST(Views, AreTheCallersChoice) {
  EXPECT_THAT(readBoxes({{"top.xml", twoBoxes}}, "two").instances(),
              ElementsAre("a", "a.in_two", "b", "b.in_two"));
  EXPECT_THAT(readBoxes({{"top.xml", twoBoxes}}, "flat").instances(),
              ElementsAre("a", "b"));
  EXPECT_THAT(readBoxes({{"top.xml", twoBoxes}}, "Two").instances(),
              ElementsAre("a", "a.in_one", "b", "b.in_one"));
}

/// A component "x:y:top:1" whose view has a design and a configuration.
std::string topOf(const std::string &design, const std::string &configuration) {
  return document(
      "component", "top",
      "<model><views><view><name>v</name>" +
          (design.empty() ? ""
                          : std::string("<designInstantiationRef>d"
                                        "</designInstantiationRef>")) +
          "<designConfigurationInstantiationRef>c"
          "</designConfigurationInstantiationRef></view></views>\n"
          "<instantiations><designInstantiation><name>d</name><designRef " +
          vlnv(design) +
          "/></designInstantiation>\n<designConfigurationInstantiation><name>c"
          "</name><designConfigurationRef " +
          vlnv(configuration) +
          "/></designConfigurationInstantiation></instantiations></model>");
}

TEST(Views, AreThoseOfTheConfigurationFirst) {
  const Files files = {
      {"top.xml", topOf("inner", "c")},
      {"inner.xml",
       design("inner", instance("a", "box") + instance("b", "box") +
                           instance("c", "box"))},
      {"c.xml", configuration("c", "inner", {"a=two", "c=flat"})}};
  EXPECT_THAT(readBoxes(files).instances(),
              ElementsAre("a", "a.in_two", "b", "b.in_one", "c"));
  EXPECT_THAT(readBoxes(files, "one").instances(),
              ElementsAre("a", "a.in_two", "b", "b.in_one", "c"));
  EXPECT_THAT(readBoxes(files, "flat").instances(),
              ElementsAre("a", "a.in_two", "b", "c"));
}

TEST(Views, ThatNoComponentHasAreReported) {
  const std::string warning =
      "warning top.xml:0: no component of the design has the view 'Two'";
  EXPECT_THAT(readBoxes({{"top.xml", twoBoxes}}, "Two").diagnostics(),
              ElementsAre(warning));
  const Files files = {{"top.xml", topOf("inner", "c")},
                       {"inner.xml", design("inner", instance("a", "box"))},
                       {"c.xml", configuration("c", "inner", {"a=two"})}};
  EXPECT_THAT(readBoxes(files, "Two").diagnostics(), ElementsAre(warning));
  EXPECT_THAT(readBoxes(files, "one").diagnostics(), IsEmpty());
}

TEST(Views, AreNamedByTheModel) {
  const Reading alone = readBoxes({{"top.xml", twoBoxes}});
  EXPECT_THAT(alone.model.Views(), ElementsAre("flat", "one", "two"));
  const Reading top =
      readBoxes({{"top.xml", topOf("inner", "c")},
                 {"inner.xml", design("inner", instance("a", "box"))},
                 {"c.xml", configuration("c", "inner", {})}});
  EXPECT_THAT(top.model.Views(), ElementsAre("flat", "one", "two", "v"));
  EXPECT_THAT(DesignModel().Views(), IsEmpty());
}

TEST(Views, LeadToADesignByAConfigurationAlone) {
  const Reading reading =
      readBoxes({{"top.xml", topOf("", "c")},
                 {"inner.xml", design("inner", instance("a", "box"))},
                 {"c.xml", configuration("c", "inner", {"a=two"})}});
  EXPECT_THAT(reading.instances(), ElementsAre("a", "a.in_two"));
  EXPECT_THAT(reading.diagnostics(), IsEmpty());
}

TEST(Views, OfADesignAloneFollowNoConfiguration) {
  const Reading reading = readBoxes(
      {{"top.xml", twoBoxes}, {"c.xml", configuration("c", "top", {"a=two"})}});
  EXPECT_THAT(reading.instances(),
              ElementsAre("a", "a.in_one", "b", "b.in_one"));
}

TEST(Views, MayBeConfiguredBadly) {
  const Files inner = {{"top.xml", topOf("inner", "c")},
                       {"inner.xml", design("inner", instance("a", "box"))}};
  Files files = inner;
  files["c.xml"] = configuration("c", "inner", {"a=three", "a=two", "z=flat"});
  const Reading unknown = readBoxes(files);
  EXPECT_THAT(unknown.instances(), ElementsAre("a", "a.in_one"));
  EXPECT_THAT(
      unknown.diagnostics(),
      ElementsAre("warning c.xml:4: a second view for instance 'a'; the first "
                  "is taken",
                  "warning c.xml:3: instance 'a' is to have the view 'three', "
                  "which component 'x:y:box:1' does not have",
                  "warning c.xml:5: a view is selected for instance 'z', which "
                  "design 'x:y:inner:1' does not have"));
  files["c.xml"] = configuration("c", "other", {"a=two"});
  const Reading other = readBoxes(files);
  EXPECT_THAT(other.instances(), ElementsAre("a", "a.in_one"));
  EXPECT_THAT(other.diagnostics(),
              ElementsAre("warning c.xml:2: the configuration is for "
                          "'x:y:other:1'; it is not used with "
                          "'x:y:inner:1'"));
  const Reading missing = readBoxes(inner);
  EXPECT_THAT(missing.instances(), ElementsAre("a", "a.in_one"));
  EXPECT_THAT(missing.diagnostics(),
              ElementsAre("error top.xml:4: design configuration 'x:y:c:1' is "
                          "not found"));
}

TEST(Views, MayBeConfiguredForNoDesign) {
  const std::string empty = document("designConfiguration", "c", "");
  const Files top = {{"top.xml", topOf("", "c")}, {"c.xml", empty}};
  const Reading onTop = readFiles(top);
  EXPECT_FALSE(onTop.isRead);
  EXPECT_THAT(onTop.diagnostics(),
              ElementsAre("error c.xml:1: design configuration 'x:y:c:1' names "
                          "no design"));
  const Reading oldForm = readFiles(
      {{"c.xml", empty},
       {"top.xml", document("component", "top",
                            "<model><views><view><name>v</name><hierarchyRef " +
                                vlnv("c") + "/></view></views></model>")}});
  EXPECT_FALSE(oldForm.isRead);
  EXPECT_EQ(oldForm.diagnostics(), onTop.diagnostics());
  const Reading inside = readFiles(
      {{"c.xml", empty},
       {"box.xml", document("component", "box",
                            "<model><views><view><name>v</name><hierarchyRef " +
                                vlnv("c") + "/></view></views></model>")},
       {"top.xml", design("top", instance("a", "box"))}});
  EXPECT_TRUE(inside.isRead);
  EXPECT_THAT(inside.instances(), ElementsAre("a"));
  EXPECT_EQ(inside.diagnostics(), onTop.diagnostics());
}

TEST(Views, OnTopHaveToLeadToADesign) {
  const Files files = {{"top.xml", box}};
  const Reading missing = readFiles(files);
  EXPECT_FALSE(missing.isRead);
  EXPECT_THAT(missing.diagnostics(),
              ElementsAre("error top.xml:5: design 'x:y:one:1' is not found"));
  const Reading flat = readBoxes(files, "flat");
  EXPECT_FALSE(flat.isRead);
  EXPECT_THAT(flat.diagnostics()[0], HasSubstr("is in 'box.xml' as well as"));
  EXPECT_THAT(flat.diagnostics()[1],
              "error top.xml:1: component 'x:y:box:1': its view 'flat' does "
              "not lead to a design");
  const Reading none = readFiles({{"top.xml", leaf}});
  EXPECT_FALSE(none.isRead);
  EXPECT_THAT(none.diagnostics(),
              ElementsAre("error top.xml:1: component 'x:y:leaf:1' has no view "
                          "that leads to a design"));
}

TEST(Views, InsideMayLeadToNothing) {
  const Reading reading = readFiles({{"box.xml", box}, {"top.xml", twoBoxes}});
  EXPECT_TRUE(reading.isRead);
  EXPECT_THAT(reading.instances(), ElementsAre("a", "b"));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("error box.xml:5: design 'x:y:one:1' is not found"));
}

TEST(Views, MayReferToNoInstantiation) {
  const Reading reading = readFiles(
      {{"top.xml", design("top", instance("a", "box"))},
       {"box.xml",
        document("component", "box",
                 "<model><views><view><name>v</name>\n<designInstantiationRef>"
                 "nothing</designInstantiationRef></view></views></model>")}});
  EXPECT_THAT(reading.instances(), ElementsAre("a"));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("warning box.xml:3: view 'v' refers to an "
                          "instantiation 'nothing', which the component does "
                          "not have"));
}

/// The form of 2009: a view with a hierarchy reference.
std::string boxOf2009(const std::string &reference) {
  return document("component", "box",
                  "<model><views><view><name>v</name>\n<hierarchyRef " +
                      vlnv(reference) + "/></view></views></model>");
}

TEST(Views, Of2009LeadToADesignOrAConfiguration) {
  const Files files = {
      {"top.xml", design("top", instance("a", "box"))},
      {"leaf.xml", leaf},
      {"one.xml", design("one", instance("in_one", "leaf"))},
      {"c.xml", configuration("c", "one", {})},
      {"empty.xml", document("designConfiguration", "empty", "")},
      {"lost.xml", configuration("lost", "gone", {})},
  };
  Files direct = files;
  direct["box.xml"] = boxOf2009("one");
  EXPECT_THAT(readFiles(direct).instances(), ElementsAre("a", "a.in_one"));
  Files configured = files;
  configured["box.xml"] = boxOf2009("c");
  EXPECT_THAT(readFiles(configured).instances(), ElementsAre("a", "a.in_one"));
  Files missing = files;
  missing["box.xml"] = boxOf2009("gone");
  EXPECT_THAT(readFiles(missing).instances(), ElementsAre("a"));
  EXPECT_THAT(readFiles(missing).diagnostics(),
              ElementsAre("error box.xml:3: there is neither a design nor a "
                          "design configuration 'x:y:gone:1'"));
  Files lost = files;
  lost["box.xml"] = boxOf2009("lost");
  EXPECT_THAT(readFiles(lost).diagnostics(),
              ElementsAre("error lost.xml:2: design 'x:y:gone:1' is not "
                          "found"));
  Files empty = files;
  empty["box.xml"] = boxOf2009("empty");
  EXPECT_THAT(readFiles(empty).instances(), ElementsAre("a"));
}

TEST(Inside, IsConnectedToTheOutside) {
  Reading reading = readFiles(
      {{"cpu.xml", component("lumacore", interface("bus", "<ipxact:master/>"))},
       {"ram.xml", component("ram", interface("bus", "<ipxact:slave/>"))},
       {"box.xml", component("box", interface("port", "<ipxact:slave/>"),
                             viewOf("inner"))},
       {"inner.xml", design("inner", instance("ram", "ram"),
                            "\n" + connection("in", {"ram.bus", "port"}) +
                                connection("bad", {"ram.bus", "part"}))},
       {"top.xml", design("top",
                          instance("cpu", "lumacore") + instance("a", "box") +
                              instance("b", "box"),
                          connection("out", {"cpu.bus", "b.port"}))}});
  EXPECT_THAT(reading.instances(),
              ElementsAre("cpu", "a", "a.ram", "b", "b.ram"));
  EXPECT_THAT(reading.peripherals("cpu"), ElementsAre("b.ram"));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("error inner.xml:14: connection 'bad' of 'ram.bus' "
                          "and 'a.part': instance 'a' of type 'box' has no "
                          "interface 'part'",
                          "error inner.xml:14: connection 'bad' of 'ram.bus' "
                          "and 'b.part': instance 'b' of type 'box' has no "
                          "interface 'part'"));
}

TEST(Inside, OfTheComponentOnTopHasItsInterfaces) {
  Reading reading = readFiles(
      {{"cpu.xml", component("lumacore", interface("bus", "<ipxact:master/>"))},
       {"top.xml", component("top", interface("port", "<ipxact:master/>"),
                             viewOf("inner"))},
       {"inner.xml", design("inner", instance("cpu", "lumacore"),
                            "\n" + connection("out", {"cpu.bus", "port"}) +
                                connection("bad", {"cpu.bus", "part"}))}});
  EXPECT_THAT(reading.peripherals("cpu"), IsEmpty());
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("error inner.xml:14: connection 'bad': component "
                          "'x:y:top:1' has no interface 'part'"));
}

TEST(Inside, OfAProcessorIsNotEntered) {
  Reading reading =
      readFiles({{"leaf.xml", leaf},
                 {"cpu.xml", processor("cpu", "", viewOf("inner"))},
                 {"inner.xml", design("inner", instance("in", "leaf"))},
                 {"top.xml", design("top", instance("cpu", "cpu"))}});
  EXPECT_THAT(reading.instances(), ElementsAre("cpu"));
  EXPECT_THAT(reading.processors(), ElementsAre("cpu"));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("note top.xml:3: instance 'cpu' is a processor: the "
                          "design inside it is not entered"));
}

TEST(Inside, MayReadAsAnother) {
  const Reading reading = readFiles(
      {{"leaf.xml", leaf},
       {"box.xml", component("box", "", viewOf("inner"))},
       {"inner.xml",
        design("inner", instance("c", "leaf") + instance("b.c", "leaf"))},
       {"top.xml",
        design("top", instance("a", "box") + instance("a.b", "box"))}});
  EXPECT_THAT(reading.instances(),
              ElementsAre("a", "a.c", "a.b.c", "a.b", "a.b.c", "a.b.b.c"));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre(HasSubstr("warning inner.xml:3: two instances read "
                                    "'a.b.c'")));
}

TEST(Inside, MayLeadBack) {
  const Reading reading =
      readFiles({{"a.xml", component("a", "", viewOf("in_a"))},
                 {"b.xml", component("b", "", viewOf("in_b"))},
                 {"in_a.xml", design("in_a", instance("b", "b"))},
                 {"in_b.xml", design("in_b", instance("a", "a"))},
                 {"top.xml", design("top", instance("a", "a"))}});
  EXPECT_THAT(reading.instances(), ElementsAre("a", "a.b", "a.b.a"));
  EXPECT_THAT(
      reading.diagnostics(),
      ElementsAre("error in_b.xml:3: instance 'a.b.a' leads back to the "
                  "design 'x:y:in_a:1' that it is in; it is not "
                  "entered again"));
}

/// The design on top is known by its path and by its name.
TEST(Inside, MayLeadBackToTheTop) {
  const Files files = {{"box.xml", component("box", "", viewOf("d"))},
                       {"d.xml", design("d", instance("b", "box"))}};
  DesignSources sources;
  sources.designFile = "d.xml";
  const Reading reading = readFrom(files, sources);
  EXPECT_THAT(reading.instances(), ElementsAre("b"));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("error d.xml:3: instance 'b' leads back to the "
                          "design 'x:y:d:1' that it is in; it is not entered "
                          "again"));
}

TEST(Inside, EndsAtADepthThatIsBounded) {
  Files files = {{"top.xml", design("top", instance("i", "c0"))}};
  for (int level = 0; level < 200; ++level) {
    const std::string number = std::to_string(level);
    files["c" + number + ".xml"] =
        component("c" + number, "", viewOf("d" + number));
    files["d" + number + ".xml"] =
        design("d" + number, instance("i", "c" + std::to_string(level + 1)));
  }
  const Reading reading = readFiles(files);
  EXPECT_EQ(reading.model.Instances().size(), 100u);
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre(AllOf(HasSubstr("error d98.xml:3: instance 'i.i.i.i"),
                                HasSubstr("' is inside 100 others; it is not "
                                          "entered"))));
}

/// A hierarchy of `levels`, each of whose designs has this many instances of
/// the next; its component on top is "c0".
Files multiplied(int levels, int instances) {
  Files files = {{"leaf.xml", leaf}};
  for (int level = 0; level < levels; ++level) {
    const std::string number = std::to_string(level);
    files["c" + number + ".xml"] =
        component("c" + number, "", viewOf("d" + number));
    const std::string next =
        level == levels - 1 ? "leaf" : "c" + std::to_string(level + 1);
    std::string list;
    for (int i = 0; i < instances; ++i)
      list += instance("i" + std::to_string(i), next);
    files["d" + number + ".xml"] = design("d" + number, list);
  }
  files["top.xml"] = design("top", instance("i", "c0"));
  return files;
}

Reading readWithin(const Files &files, const ModelLimits &limits) {
  MemorySource memory;
  memory.files = files;
  DesignSources sources;
  sources.designFile = "top.xml";
  Reading reading;
  reading.isRead = readDesignFrom(memory, sources, limits, reading.model);
  return reading;
}

TEST(Inside, EndsAtASizeThatIsBounded) {
  const Reading reading = readWithin(multiplied(30, 10), {1000000, 1000000});
  EXPECT_TRUE(reading.isRead);
  EXPECT_GT(reading.model.Instances().size(), 1000u);
  EXPECT_LT(reading.model.Instances().size(), 2500u);
  ASSERT_EQ(reading.model.Diagnostics().size(), 1u);
  EXPECT_THAT(reading.model.Diagnostics()[0].message,
              testing::AllOf(testing::StartsWith("the design is too large: "
                                                 "instance 'i.i0.i0.i0."),
                             testing::EndsWith("' and what comes after it are "
                                               "left out")));
}

/// The room that a design takes, and where it ends with a byte less: an
/// instance is 450 bytes with twice its names, an interface 32, a parameter or
/// a value for one 120 with its texts, an end of a connection 80, a view its
/// name.
TEST(Inside, TakesRoomForEachOfItsParts) {
  const std::string full = "' and what comes after it are left out";
  const auto within = [](const Files &files, std::size_t bytes) {
    return readWithin(files, {100, bytes}).diagnostics();
  };
  const auto expectRoom = [&](const Files &files, std::size_t bytes,
                              const std::string &last) {
    EXPECT_THAT(within(files, bytes), IsEmpty());
    EXPECT_THAT(
        within(files, bytes - 1),
        ElementsAre(HasSubstr("the design is too large: " + last + full)));
  };
  const std::string ports =
      interface("m", "<ipxact:master/>") + interface("s", "<ipxact:slave/>");
  Files files = {{"part.xml", component("part", ports)},
                 {"top.xml", design("top", instance("one", "part"))}};
  const std::size_t part = 450 + 2 * 4 + 2 * 32;
  expectRoom(files, part + 2 * 3, "instance 'one");
  files["top.xml"] =
      design("top", instance("one", "part") + instance("second", "part"));
  expectRoom(files, 2 * part + 2 * 3 + 2 * 6, "instance 'second");
  files["top.xml"] =
      design("top", instance("one", "part") + instance("second", "part"),
             connection("wire", {"one.m", "second.s"}));
  expectRoom(files, 2 * part + 2 * 3 + 2 * 6 + 2 * 80, "connection 'wire");

  // What is inside has the name of what is around it in front of its own.
  const std::size_t around = 450 + 2 * 3 + 2 * 2;
  files["box.xml"] = component("box", "", viewOf("inner"));
  files["inner.xml"] = design("inner", instance("one", "part"));
  files["top.xml"] = design("top", instance("it", "box"));
  const std::size_t view = 6; // "inside"
  expectRoom(files, around + view + part + 2 * 3 + 2 * 2, "instance 'it.one");
  expectRoom({{"box.xml", files["box.xml"]},
              {"inner.xml", design("inner", "")},
              {"top.xml", files["top.xml"]}},
             around + view, "instance 'it");

  // A value is as long as it is written.
  expectRoom(
      {{"t.xml", component("t", "", parameters(parameter("w", "7")))},
       {"top.xml", design("top", instance("u", "t", given("id_w", "12")))}},
      450 + 2 * 1 + 2 * 1 + 120 + 120 + 2, "instance 'u");
}

/// i, i.i0, i.i0.i0, ...: the first way down is as deep as the hierarchy.
TEST(Inside, EndsAtTheInstancesThatAreAskedFor) {
  DesignSources sources;
  sources.designFile = "top.xml";
  const Files files = multiplied(3, 2);
  sources.maxInstances = 4;
  Reading reading = readFrom(files, sources);
  EXPECT_TRUE(reading.isRead);
  EXPECT_THAT(reading.instances(),
              ElementsAre("i", "i.i0", "i.i0.i0", "i.i0.i0.i0"));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre("error d2.xml:6: the design has more than 4 "
                          "instances: instance 'i.i0.i0.i1' and what comes "
                          "after it are left out"));
  sources.maxInstances = 0;
  EXPECT_THAT(readFrom(files, sources).diagnostics(),
              ElementsAre("error top.xml:3: the design has more than 0 "
                          "instances: instance 'i' and what comes after it are "
                          "left out"));
  // 1 + 2 + 4 + 8
  sources.maxInstances = 15;
  EXPECT_THAT(readFrom(files, sources).diagnostics(), IsEmpty());
  sources.maxInstances = 14;
  EXPECT_EQ(readFrom(files, sources).instances().size(), 14u);
}

/// What has been read answers, connections at its end included.
TEST(Inside, AnswersFromWhatIsThereWhenItIsFull) {
  DesignSources sources;
  sources.designFile = "top.xml";
  sources.maxInstances = 2;
  Reading reading = readFrom(
      {{"cpu.xml", component("lumacore", interface("bus", "<ipxact:master/>"))},
       {"ram.xml", component("ram", interface("bus", "<ipxact:slave/>"))},
       {"top.xml", design("top",
                          instance("cpu", "lumacore") + instance("a", "ram") +
                              instance("b", "ram"),
                          connection("one", {"cpu.bus", "a.bus"}) +
                              connection("two", {"cpu.bus", "b.bus"}))}},
      sources);
  EXPECT_THAT(reading.peripherals("cpu"), ElementsAre("a"));
  EXPECT_THAT(reading.diagnostics(),
              ElementsAre(HasSubstr("instance 'b' and what comes after")));
}

TEST(Limits, AreAMillionInstancesUnlessOthersAreAskedFor) {
  EXPECT_EQ(DesignSources().maxInstances, 1000000u);
  EXPECT_EQ(limitsOf(1000000).instances, 1000000u);
  EXPECT_EQ(limitsOf(1000000).bytes, std::size_t{1} << 30);
  EXPECT_EQ(limitsOf(0).bytes, std::size_t{1} << 30);
  EXPECT_EQ(limitsOf(2000000).bytes, std::size_t{2048} * 1000000);
  EXPECT_EQ(limitsOf(100000001).instances, 100000000u);
  EXPECT_EQ(limitsOf(static_cast<std::size_t>(-1)).instances, 100000000u);
}

} // namespace
} // namespace ZelDebugDialog

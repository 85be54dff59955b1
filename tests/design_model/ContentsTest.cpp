// What a model tells tools about its instances beyond what the engine asks:
// identities, views, interfaces, and who is wired to whom.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Reading.h"

namespace ZelDebugDialog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// "[within] instance.interface ..." each.
Names wiresOf(const DesignModel &model) {
  Names lines;
  for (const DesignWire &wire : model.Connections()) {
    std::string line = "[" +
                       (wire.within == DesignModel::top
                            ? ""
                            : model.Instances()[wire.within].name) +
                       "]";
    for (const DesignPort &end : wire.ends) {
      const DesignInstance &instance = model.Instances()[end.instance];
      line +=
          " " + instance.name + "." +
          model.Component(instance.component).interfaces[end.interface].name;
    }
    lines.push_back(line);
  }
  return lines;
}

const Files parts = {
    {"core.xml", processor("core", interface("bus", "<ipxact:master/>"))},
    {"ram.xml", component("ram", interface("p", "<ipxact:slave/>"))},
    {"box.xml",
     component("box", interface("in", "<ipxact:slave/>"), viewOf("inner"))},
    {"inner.xml",
     design("inner", instance("ram", "ram"), connection("i", {"ram.p", "in"}))},
};

TEST(Contents, AreWhoIsWiredToWhom) {
  const Reading reading = readBeside(
      parts, design("d",
                    instance("a", "core") + instance("b", "core") +
                        instance("box", "box") + instance("ram", "ram"),
                    connection("x", {"a.bus", "box.in"}) +
                        connection("y", {"b.bus", "box.in", "ram.p"}) +
                        connection("lost", {"b.none", "ram.none"})));
  EXPECT_THAT(wiresOf(reading.model),
              ElementsAre("[box] box.ram.p box.in", "[] a.bus box.in",
                          "[] b.bus box.in ram.p"));
}

TEST(Contents, AreNothingWithoutConnections) {
  EXPECT_THAT(wiresOf(readBeside(parts, design("d", "")).model), IsEmpty());
}

TEST(Contents, HaveIdentitiesAndViews) {
  Files files = parts;
  files["kinds"] = "x:y:ram:1 other memory\n";
  files["top.xml"] =
      design("d", instance("a", "core") + instance("box", "box") +
                      instance("gone", "gone"));
  const Reading reading = readFiles(files);
  const auto &instances = reading.model.Instances();
  ASSERT_EQ(instances.size(), 4u);
  const auto componentOf = [&](std::size_t at) {
    return reading.model.Component(instances[at].component);
  };
  EXPECT_EQ(componentOf(0).identity, "x:y:core:1");
  EXPECT_TRUE(componentOf(0).hasCpus);
  EXPECT_EQ(componentOf(0).role, DesignRole::processor);
  EXPECT_THAT(componentOf(0).views, IsEmpty());
  EXPECT_EQ(instances[0].view, "");
  EXPECT_EQ(instances[0].parent, DesignModel::top);
  EXPECT_EQ(componentOf(1).identity, "x:y:box:1");
  EXPECT_FALSE(componentOf(1).hasCpus);
  EXPECT_THAT(componentOf(1).views, ElementsAre("inside"));
  EXPECT_EQ(instances[1].view, "inside");
  // What a kind table says is the type, not the identity.
  EXPECT_EQ(componentOf(2).identity, "x:y:ram:1");
  EXPECT_EQ(componentOf(2).typeName, "memory");
  EXPECT_EQ(instances[2].parent, 1u);
  // One that is not found has an identity all the same.
  EXPECT_EQ(componentOf(3).identity, "x:y:gone:1");
  EXPECT_THAT(componentOf(3).interfaces, IsEmpty());
}

struct ViewRow {
  const char *view; ///< The caller's choice.
  const char *taken;
};

TEST(Contents, HaveTheViewThatWasTaken) {
  const std::string views =
      "<ipxact:model><ipxact:views>"
      "<ipxact:view><ipxact:name>flat</ipxact:name></ipxact:view>"
      "<ipxact:view><ipxact:name>deep</ipxact:name>"
      "<ipxact:designInstantiationRef>it</ipxact:designInstantiationRef>"
      "</ipxact:view></ipxact:views><ipxact:instantiations>"
      "<ipxact:designInstantiation><ipxact:name>it</ipxact:name>"
      "<ipxact:designRef vendor=\"x\" library=\"y\" name=\"inner\" "
      "version=\"1\"/></ipxact:designInstantiation></ipxact:instantiations>"
      "</ipxact:model>";
  const ViewRow rows[] = {
      {"", "deep"}, {"flat", "flat"}, {"deep", "deep"}, {"none", "deep"}};
  for (const ViewRow &row : rows) {
    Files files = parts;
    files["box.xml"] =
        component("box", interface("in", "<ipxact:slave/>"), views);
    files["top.xml"] = design("d", instance("box", "box"));
    const Reading reading = readFiles(files, row.view);
    EXPECT_EQ(reading.model.Instances()[0].view, row.taken) << row.view;
    EXPECT_THAT(reading.model.Component(0).views, ElementsAre("flat", "deep"));
  }
}

struct BusRow {
  const char *text;
  const char *busType;
};

TEST(Contents, HaveTheKindOfTheBus) {
  const BusRow rows[] = {
      {"<ipxact:busType vendor=' v ' library='l' name='n' version='2'/>",
       "v:l:n:2"},
      {"<busType i:vendor='v' i:library='l' i:name='n' i:version='2'/>",
       "v:l:n:2"},
      {"<ipxact:busType vendor='v' library='l' name='n'/>", ""},
      {"<ipxact:busType vendor='v' library='l' name='' version='2'/>", ""},
      {"<ipxact:BusType vendor='v' library='l' name='n' version='2'/>", ""},
      {" ", ""},
  };
  for (const BusRow &row : rows) {
    const Reading reading = readBeside(
        {{"x.xml",
          component("x", interface("p", "<ipxact:slave/>", row.text))}},
        design("d", instance("x", "x")));
    EXPECT_EQ(reading.model.Component(0).interfaces[0].busType, row.busType)
        << row.text;
  }
}

struct MemoryRow {
  const char *map; ///< What is in the memory map.
  bool isMemory;
};

TEST(Contents, KnowWhatIsSaidToBeMemory) {
  const MemoryRow rows[] = {
      {"<addressBlock><usage>memory</usage></addressBlock>", true},
      {"<addressBlock><usage> memory </usage></addressBlock>", true},
      {"<addressBlock/><addressBlock><usage>memory</usage></addressBlock>",
       true},
      {"<bank><addressBlock><usage>memory</usage></addressBlock></bank>", true},
      {"<bank><usage>memory</usage><addressBlock/></bank>", true},
      {"<addressBlock><usage>register</usage></addressBlock>", false},
      {"<addressBlock><usage>reserved</usage></addressBlock>", false},
      {"<addressBlock><usage>Memory</usage></addressBlock>", false},
      {"<addressBlock><usage/></addressBlock>", false},
      {"<addressBlock/>", false},
      {"", false},
  };
  for (const MemoryRow &row : rows) {
    const Reading reading = readBeside(
        {{"x.xml",
          ofNoEdition(component(
              "x",
              interface("p", "<ipxact:slave><ipxact:memoryMapRef "
                             "memoryMapRef=\"m\"/></ipxact:slave>") +
                  interface("q", "<ipxact:slave/>"),
              "<memoryMaps><memoryMap><name>m</name>" + std::string(row.map) +
                  "</memoryMap></memoryMaps>"))}},
        design("d", instance("x", "x")));
    const auto &interfaces = reading.model.Component(0).interfaces;
    EXPECT_EQ(interfaces[0].isMemory, row.isMemory) << row.map;
    EXPECT_FALSE(interfaces[1].isMemory) << row.map;
  }
}

TEST(Contents, CanBeBuiltInCode) {
  DesignModel model;
  DesignComponent component{"core", DesignRole::processor};
  component.identity = "v:l:core:1";
  component.views = {"rtl", "sim"};
  component.interfaces = {{"bus"}, {"bus"}};
  component.interfaces[0].busType = "v:l:bus:1";
  const auto core = model.AddComponent(component);
  const auto around = model.AddInstance("around", core);
  const auto inside = model.AddInstance("inside", core, *around);
  model.SetView(*inside, "sim");
  model.Connect({{{*around, "bus"}, {*inside, "bus"}}}, *around);
  EXPECT_EQ(model.Component(core).identity, "v:l:core:1");
  EXPECT_EQ(model.Component(core).views, component.views);
  // The second of one name was left out.
  ASSERT_EQ(model.Component(core).interfaces.size(), 1u);
  EXPECT_EQ(model.Component(core).interfaces[0].busType, "v:l:bus:1");
  EXPECT_EQ(model.Instances()[0].view, "");
  EXPECT_EQ(model.Instances()[1].view, "sim");
  EXPECT_EQ(model.Instances()[1].component, core);
  EXPECT_EQ(model.Instances()[1].parent, *around);
  EXPECT_THAT(wiresOf(model),
              ElementsAre("[around] around.bus around.inside.bus"));
}

} // namespace
} // namespace ZelDebugDialog

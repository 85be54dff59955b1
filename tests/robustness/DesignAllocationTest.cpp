// The design model with each of its allocations failing: whether it is built,
// read or asked, it is as it was, and nothing is lost.
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <pugixml.hpp>

#include "FailEach.h"
#include "Reading.h"
#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "ZelDebugDialog/DesignModel/Kinds.h"
#include "ZelDebugDialog/DesignModel/Libraries.h"
#include "support/TemporaryDirectory.h"

namespace robustness {
namespace {

using namespace ZelDebugDialog;

std::string longText(const std::string &text) {
  return text + "-that-is-longer-than-a-string-keeps-inside";
}

/// Names of what the library exports that a test has gone through.
std::set<std::string> &covered() {
  static std::set<std::string> names;
  return names;
}

DesignComponent componentOf(const std::string &type, DesignRole role) {
  DesignComponent component;
  component.typeName = longText(type);
  component.role = role;
  component.interfaces = {
      {longText("out"), InterfaceMode::initiator, {}, false, 1},
      {longText("in"), InterfaceMode::target, {longText("out")}, true, 2}};
  component.channels = {{longText("out"), longText("in")}};
  component.origin = {longText("file"), 1};
  return component;
}

/// A model with a processor, a debug module, a peripheral in a hierarchy, and a
/// remark; what a caller gets back.
class DesignScene {
public:
  DesignScene() {
    const auto processor =
        model.AddComponent(componentOf("core", DesignRole::processor));
    const auto module =
        model.AddComponent(componentOf("module", DesignRole::debugModule));
    component = model.AddComponent(componentOf("uart", DesignRole::other));
    around = *model.AddInstance(longText("around"), component);
    core = *model.AddInstance(longText("core"), processor);
    debug = *model.AddInstance(longText("debug"), module);
    uart = *model.AddInstance(longText("uart"), component, around);
    model.AddParameter(core, longText("parameter"), longText("value"));
    model.Connect({{{debug, longText("out"), 1}, {core, longText("in"), 2}},
                   longText("wire"),
                   {longText("file"), 3}});
    model.Report({DesignDiagnostic::Severity::note, longText("file"), 4,
                  longText("remark")});
    names = {longText("earlier")};
  }

  /// All that the model answers.
  std::string answers() {
    std::string all;
    for (const DesignInstance &instance : model.Instances()) {
      all += instance.name + " is " + instance.typeName + ' ' +
             std::to_string(static_cast<int>(instance.role));
      for (const DesignParameter &parameter : instance.parameters)
        all += "\n " + parameter.name + '=' + parameter.value;
      Names found;
      model.getHduConnectedProcessorList(found, instance.name);
      found.emplace_back("peripherals:");
      model.getPeripherals(found, instance.name);
      found.emplace_back("of its type:");
      model.getIpInstances(found, instance.typeName);
      found.push_back(model.getIpName(instance.name));
      for (const std::string &name : found)
        all += "\n " + name;
      all += '\n';
    }
    Names found = model.DebugModules();
    model.getProcessorInstances(found, false);
    model.getIpInstances(found, HW_IP_DEBUG);
    for (const std::string &name : found)
      all += name + '\n';
    for (const MissingDocument &document : model.Missing())
      all += document.type + ' ' + document.identity + '\n';
    return all;
  }
  std::string remarks() const {
    std::string all;
    for (const DesignDiagnostic &remark : model.Diagnostics())
      all += remark.file + ':' + std::to_string(remark.line) + ": " +
             remark.message + '\n';
    return all;
  }
  std::string outputs() const {
    std::string all = text;
    for (const std::string &name : names)
      all += '\n' + name;
    return all;
  }

  DesignModel model;
  DesignModel::ComponentId component = 0;
  DesignModel::InstanceId around = 0;
  DesignModel::InstanceId core = 0;
  DesignModel::InstanceId debug = 0;
  DesignModel::InstanceId uart = 0;

  Names names;
  std::string text;
};

using Step = std::function<void(DesignScene &)>;

/// Whether memory that runs out may leave remarks behind.
enum class Remarks { stay, mayGrow };

void expectAllOrNothing(const std::string &name, const Step &run,
                        Remarks remarks = Remarks::stay) {
  covered().insert(name);
  std::string answersBefore;
  std::string remarksBefore;
  std::string outputsBefore;
  std::string answersAfter;
  std::string remarksAfter;
  std::string outputsAfter;
  {
    DesignScene scene;
    answersBefore = scene.answers();
    remarksBefore = scene.remarks();
    outputsBefore = scene.outputs();
    run(scene);
    answersAfter = scene.answers();
    remarksAfter = scene.remarks();
    outputsAfter = scene.outputs();
  }
  failEach<DesignScene>(name, run, [&](DesignScene &scene) {
    EXPECT_EQ(scene.answers(), answersBefore);
    if (remarks == Remarks::stay)
      EXPECT_EQ(scene.remarks(), remarksBefore);
    else
      EXPECT_EQ(
          remarksAfter.compare(0, scene.remarks().size(), scene.remarks()), 0)
          << scene.remarks();
    EXPECT_EQ(scene.outputs(), outputsBefore);
    run(scene);
    EXPECT_EQ(scene.answers(), answersAfter) << "asked again";
    EXPECT_EQ(scene.remarks(), remarksAfter) << "asked again";
    EXPECT_EQ(scene.outputs(), outputsAfter) << "asked again";
  });
}

TEST(DesignAllocation, OfConstruction) {
  expectAllOrNothing("DesignModel::DesignModel",
                     [](DesignScene &) { const DesignModel made; });
  expectAllOrNothing("DesignModel::operator=", [](DesignScene &scene) {
    DesignModel made;
    scene.model = std::move(made);
  });
}

TEST(DesignAllocation, OfBuilding) {
  expectAllOrNothing("DesignModel::AddComponent", [](DesignScene &scene) {
    scene.model.AddComponent(componentOf("another", DesignRole::byTypeName));
  });
  // With two remarks: a second interface of one name, a bridge to nowhere.
  expectAllOrNothing(
      "DesignModel::AddComponent",
      [](DesignScene &scene) {
        DesignComponent component =
            componentOf("another", DesignRole::byTypeName);
        component.interfaces.push_back(component.interfaces.front());
        component.interfaces[1].bridgedTo.push_back(longText("nowhere"));
        scene.model.AddComponent(component);
      },
      Remarks::mayGrow);
  expectAllOrNothing("DesignModel::AddInstance", [](DesignScene &scene) {
    scene.model.AddInstance(longText("another"), scene.component);
  });
  // The first inside its parent.
  expectAllOrNothing("DesignModel::AddInstance", [](DesignScene &scene) {
    scene.model.AddInstance(longText("another"), scene.component, scene.core);
  });
  for (const std::size_t component : {0U, 1U})
    expectAllOrNothing(
        "DesignModel::AddInstance", [component](DesignScene &scene) {
          scene.model.AddInstance(longText("another"), component, scene.around);
        });
  // Refused, with a remark.
  expectAllOrNothing("DesignModel::AddInstance", [](DesignScene &scene) {
    scene.model.AddInstance(longText("core"), scene.component, DesignModel::top,
                            {longText("file"), 7});
  });
  // Has the full name of another, with a remark; of each role.
  for (const std::size_t component : {0U, 1U, 2U})
    expectAllOrNothing(
        "DesignModel::AddInstance", [component](DesignScene &scene) {
          scene.model.AddInstance(longText("around") + "." + longText("uart"),
                                  component, DesignModel::top,
                                  {longText("file"), 7});
        });
  expectAllOrNothing("DesignModel::AddParameter", [](DesignScene &scene) {
    scene.model.AddParameter(scene.core, longText("another"),
                             longText("value"));
  });
  expectAllOrNothing("DesignModel::Connect", [](DesignScene &scene) {
    scene.model.Connect(
        {{{scene.core, longText("out"), 1}, {scene.around, longText("in"), 2}},
         longText("another"),
         {longText("file"), 8}});
  });
  expectAllOrNothing("DesignModel::Connect", [](DesignScene &scene) {
    scene.model.Connect(
        {{{scene.around, longText("in"), 1}, {scene.uart, longText("in"), 2}},
         longText("another"),
         {longText("file"), 8}},
        scene.around);
  });
  expectAllOrNothing(
      "DesignModel::Connect",
      [](DesignScene &scene) {
        scene.model.Connect({{{scene.core, longText("none"), 1},
                              {scene.uart, longText("in"), 2}},
                             longText("another"),
                             {longText("file"), 8}});
      },
      Remarks::mayGrow);
  expectAllOrNothing("DesignModel::SetView", [](DesignScene &scene) {
    std::string view = longText("view");
    scene.model.SetView(scene.core, std::move(view));
  });
  expectAllOrNothing("DesignModel::Attach", [](DesignScene &scene) {
    scene.model.Attach(scene.core, scene.debug);
  });
  // Refused, with a remark.
  expectAllOrNothing("DesignModel::Attach", [](DesignScene &scene) {
    scene.model.Attach(scene.uart, scene.debug, {longText("file"), 8});
  });
  expectAllOrNothing("DesignModel::AddMissing", [](DesignScene &scene) {
    scene.model.AddMissing({longText("component"), longText("identity")});
  });
  expectAllOrNothing("DesignModel::Report", [](DesignScene &scene) {
    scene.model.Report({DesignDiagnostic::Severity::note, longText("file"), 9,
                        longText("another")});
  });
}

/// The remark that says that there are no more.
TEST(DesignAllocation, OfTheLastRemark) {
  DesignModel model;
  for (int line = 0; line < 10000; ++line)
    model.Report({DesignDiagnostic::Severity::note, "file", line, "remark"});
  const DesignDiagnostic another{DesignDiagnostic::Severity::note,
                                 longText("file"), 1, longText("another")};
  for (std::size_t number = 1;; ++number) {
    bool failed = false;
    {
      const HeapFault fault(number, Failing::one);
      try {
        model.Report(another);
      } catch (const std::bad_alloc &) {
        failed = true;
      }
    }
    if (!failed)
      break;
    EXPECT_EQ(model.Diagnostics().size(), 10000U);
  }
  ASSERT_EQ(model.Diagnostics().size(), 10001U);
  EXPECT_EQ(model.Diagnostics().back().message,
            "more than 10000 diagnostics; the rest is left out");
}

TEST(DesignAllocation, OfQueries) {
  expectAllOrNothing("DesignModel::Instances", [](DesignScene &scene) {
    EXPECT_EQ(scene.model.Instances().size(), 4U);
  });
  expectAllOrNothing("DesignModel::Diagnostics", [](DesignScene &scene) {
    EXPECT_EQ(scene.model.Diagnostics().size(), 1U);
  });
  expectAllOrNothing("DesignModel::Component", [](DesignScene &scene) {
    EXPECT_EQ(scene.model.Component(scene.component).interfaces.size(), 2U);
  });
  expectAllOrNothing("DesignModel::Connections", [](DesignScene &scene) {
    EXPECT_EQ(scene.model.Connections().size(), 1U);
  });
  expectAllOrNothing("DesignModel::WiredTo", [](DesignScene &scene) {
    EXPECT_EQ(scene.model.WiredTo({scene.debug, 0}).size(), 1U);
  });
  expectAllOrNothing("DesignModel::Missing", [](DesignScene &scene) {
    EXPECT_EQ(scene.model.Missing().size(), 0U);
  });
  expectAllOrNothing("DesignModel::Views", [](DesignScene &scene) {
    EXPECT_EQ(scene.model.Views().size(), 0U);
  });
  expectAllOrNothing("DesignModel::DebugModules", [](DesignScene &scene) {
    std::string name = scene.model.DebugModules().front();
    scene.text.swap(name);
  });
  expectAllOrNothing("DesignModel::getProcessorInstances",
                     [](DesignScene &scene) {
                       scene.model.getProcessorInstances(scene.names, false);
                     });
  expectAllOrNothing("DesignModel::getIpInstances", [](DesignScene &scene) {
    scene.model.getIpInstances(scene.names, HW_IP_DEBUG);
  });
  expectAllOrNothing("DesignModel::getIpInstances", [](DesignScene &scene) {
    scene.model.getIpInstances(scene.names, longText("uart"));
  });
  expectAllOrNothing("DesignModel::getIpName", [](DesignScene &scene) {
    std::string type = scene.model.getIpName(longText("core"));
    scene.text.swap(type);
  });
  expectAllOrNothing("DesignModel::getHduConnectedProcessorList",
                     [](DesignScene &scene) {
                       scene.model.getHduConnectedProcessorList(
                           scene.names, longText("debug"));
                     });
  expectAllOrNothing("DesignModel::getPeripherals", [](DesignScene &scene) {
    scene.model.Connect({{{scene.core, longText("out"), 1},
                          {scene.around, longText("in"), 2}}});
  });
  expectAllOrNothing("DesignModel::getParameterValue", [](DesignScene &scene) {
    std::string value =
        scene.model.getParameterValue(longText("core"), longText("parameter"));
    scene.text.swap(value);
  });
}

/// A walk over a hierarchy, a bridge and a channel.
TEST(DesignAllocation, OfAWalk) {
  class Connected : public DesignScene {
  public:
    Connected() {
      model.Connect(
          {{{core, longText("out"), 1}, {around, longText("in"), 2}}});
      model.Connect({{{around, longText("in"), 1}, {uart, longText("in"), 2}}},
                    around);
    }
  };
  std::string before;
  {
    Connected scene;
    before = scene.answers();
  }
  failEach<Connected>(
      "DesignModel::getPeripherals",
      [](Connected &scene) {
        scene.model.getPeripherals(scene.names, longText("core"));
      },
      [&before](Connected &scene) {
        EXPECT_EQ(scene.names.size(), 1U);
        EXPECT_EQ(scene.answers(), before);
        scene.model.getPeripherals(scene.names, longText("core"));
        EXPECT_EQ(scene.names.back(),
                  longText("around") + "." + longText("uart"));
      });
}

// --- Reading -----------------------------------------------------------------

void *allocateNode(std::size_t size) {
  return failsNow() ? nullptr : std::malloc(size);
}

/// Has the parser of the documents ask the same heap.
class SameHeap {
public:
  SameHeap() { pugi::set_memory_management_functions(allocateNode, std::free); }
  ~SameHeap() { pugi::set_memory_management_functions(std::malloc, std::free); }
  SameHeap(const SameHeap &) = delete;
  SameHeap &operator=(const SameHeap &) = delete;
};

void expectReadOrNot(const DesignSources &sources, bool isRead) {
  covered().insert("ReadDesign");
  std::string answersBefore;
  std::string remarksBefore;
  std::string answersAfter;
  std::string remarksAfter;
  {
    DesignScene scene;
    answersBefore = scene.answers();
    remarksBefore = scene.remarks();
    EXPECT_EQ(ReadDesign(sources, scene.model), isRead);
    answersAfter = scene.answers();
    remarksAfter = scene.remarks();
  }
  const SameHeap heap;
  failEach<DesignScene>(
      "ReadDesign",
      [&sources](DesignScene &scene) { ReadDesign(sources, scene.model); },
      [&](DesignScene &scene) {
        EXPECT_EQ(scene.answers(), answersBefore);
        EXPECT_EQ(scene.remarks(), remarksBefore);
        ReadDesign(sources, scene.model);
        EXPECT_EQ(scene.answers(), answersAfter);
        EXPECT_EQ(scene.remarks(), remarksAfter);
      });
}

TEST(DesignAllocation, OfReading) {
  const support::TemporaryDirectory folder;
  const std::string target = "<ipxact:slave/>";
  const std::string initiator = "<ipxact:master/>";
  folder.write("library/core.xml",
               component("lumacore", interface("out", initiator),
                         "<ipxact:parameters>" + parameter("A", "1 + 2") +
                             "</ipxact:parameters>"));
  folder.write("library/uart.xml",
               component("uart_mini_cedar", interface("in", target)));
  folder.write("top.xml",
               design("top",
                      instance("cpu", "lumacore", given("id_A", "4")) +
                          instance("uart", "uart_mini_cedar") +
                          instance("missing", "nothing"),
                      connection("wire", {"cpu.out", "uart.in"})));
  folder.write("inside.xml",
               component("around", interface("in", target), viewOf("top")));
  folder.write("kinds", "x:y:uart_*:* other " + longText("type") +
                            "\nx:y:nothing:1 debug-module hdu\n"
                            "connect c?u missing\nconnect none missing\n");
  folder.write("bad-kinds", "x:y:uart_* other\n");
  expectReadOrNot({"top.xml", {"library"}, "", ""}, true);
  expectReadOrNot({"top.xml", {"library"}, "", "kinds"}, true);
  expectReadOrNot({"inside.xml", {"."}, "", ""}, true);
  expectReadOrNot({"top.xml", {"library"}, "", "bad-kinds"}, false);
  expectReadOrNot({"none.xml", {"library"}, "", ""}, false);
}

void expectProposedOrNot(const DesignSources &sources, bool isRead) {
  covered().insert("ProposeKinds");
  /// With a proposal from before.
  class Asking : public DesignScene {
  public:
    Asking() { proposal.table = longText("before"); }
    std::string all() {
      return answers() + remarks() + proposal.table +
             std::to_string(proposal.candidates.size());
    }
    KindProposal proposal;
  };
  std::string before;
  std::string after;
  {
    Asking scene;
    before = scene.all();
    EXPECT_EQ(ProposeKinds(sources, scene.proposal, scene.model), isRead);
    after = scene.all();
  }
  const SameHeap heap;
  failEach<Asking>(
      "ProposeKinds",
      [&sources](Asking &scene) {
        ProposeKinds(sources, scene.proposal, scene.model);
      },
      [&](Asking &scene) {
        EXPECT_EQ(scene.all(), before);
        ProposeKinds(sources, scene.proposal, scene.model);
        EXPECT_EQ(scene.all(), after);
      });
}

TEST(DesignAllocation, OfProposing) {
  const support::TemporaryDirectory folder;
  const std::string initiator = "<ipxact:master/>";
  const std::string target = "<ipxact:slave/>";
  folder.write("core.xml",
               component("core", interface("dbg", target), "<ipxact:cpus/>"));
  folder.write("dm.xml", component("jtag_dm", interface("dbg", initiator)));
  folder.write("top.xml",
               design("top",
                      instance("core", "core") + instance("dm", "jtag_dm"),
                      connection("a", {"dm.dbg", "core.dbg"})));
  folder.write("kinds", "x:y:core:1 processor lumacore");
  expectProposedOrNot({"top.xml", {}, "", "kinds"}, true);
  expectProposedOrNot({"none.xml", {}, "", ""}, false);
}

TEST(DesignAllocation, OfFindingLibraries) {
  const support::TemporaryDirectory folder;
  folder.write("ip/core.xml", component("core", ""));
  folder.write("soc/top.xml", design("top", instance("core", "core")));
  const DesignSources sources{"soc/top.xml", {}, "", ""};
  covered().insert("FindLibraries");
  DesignModel model;
  ASSERT_TRUE(ReadDesign(sources, model));
  const SameHeap heap;
  failEach<DesignScene>(
      "FindLibraries",
      [&](DesignScene &) {
        const LibrarySearch found = FindLibraries(sources, model, {1, 99, 99});
        EXPECT_EQ(found.folders.size(), 2U);
      },
      [](DesignScene &) {});
}

TEST(DesignAllocation, OfNamesOfDocuments) {
  covered().insert("IsLibraryDocument");
  const std::string path = longText("folder/") + "core.XML";
  failEach<DesignScene>(
      "IsLibraryDocument",
      [&path](DesignScene &) { EXPECT_TRUE(IsLibraryDocument(path)); },
      [](DesignScene &) {});
}

// --- Nothing is left out -----------------------------------------------------

/// Comes last: the others say what they have gone through.
TEST(DesignAllocation, WasTriedOfEachExportedOperation) {
  std::ifstream list(EXPORTS);
  ASSERT_TRUE(list) << EXPORTS;
  const std::string space = "ZelDebugDialog::";
  std::size_t operations = 0;
  for (std::string line; std::getline(list, line);) {
    const std::size_t end = line.find('(');
    if (end == std::string::npos || line.find('~') != std::string::npos)
      continue;
    ++operations;
    const std::string name = line.substr(space.size(), end - space.size());
    EXPECT_EQ(covered().count(name), 1U) << name;
  }
  EXPECT_GT(operations, 15U);
}

} // namespace
} // namespace robustness

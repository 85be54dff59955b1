// Who answers to whom, in designs built in code: each way to be reached, and
// beside it the ways that only look like it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Reading.h"

namespace ZelDebugDialog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto initiator = InterfaceMode::initiator;
constexpr auto target = InterfaceMode::target;
constexpr auto mirroredInitiator = InterfaceMode::mirroredInitiator;
constexpr auto mirroredTarget = InterfaceMode::mirroredTarget;

class Walk : public testing::Test {
protected:
  using Id = DesignModel::InstanceId;

  Id add(const std::string &name,
         const std::vector<DesignInterface> &interfaces,
         DesignRole role = DesignRole::other, Id parent = DesignModel::top,
         const std::vector<std::vector<std::string>> &channels = {}) {
    const auto component =
        model.AddComponent({name + "_type", role, interfaces, channels});
    return model.AddInstance(name, component, parent).value();
  }
  Id addCpu(const std::string &name = "cpu") {
    return add(name, {{"bus", initiator}, {"debug", target}},
               DesignRole::processor);
  }
  Id addRam(const std::string &name, Id parent = DesignModel::top) {
    return add(name, {{"bus", target}}, DesignRole::other, parent);
  }
  void join(const std::vector<DesignEnd> &ends, Id within = DesignModel::top) {
    ASSERT_TRUE(model.Connect({ends, "", {}}, within));
  }

  Reading built;
  DesignModel &model = built.model;
};

struct ModeRow {
  InterfaceMode mode;
  bool answers;
};

TEST_F(Walk, ReachesWhatIsNoInitiator) {
  const ModeRow rows[] = {
      {target, true},
      {mirroredInitiator, true},
      {mirroredTarget, true},
      {initiator, false},
      {InterfaceMode::system, false},
      {InterfaceMode::mirroredSystem, false},
      {InterfaceMode::monitor, false},
  };
  const Id cpu = addCpu();
  Names expected;
  for (const ModeRow &row : rows) {
    const std::string name = "u" + std::to_string(static_cast<int>(row.mode));
    join({{cpu, "bus"}, {add(name, {{"bus", row.mode}}), "bus"}});
    if (row.answers)
      expected.push_back(name);
  }
  EXPECT_EQ(built.peripherals("cpu"), expected);
}

TEST_F(Walk, StartsFromInitiatorsOnly) {
  const Id cpu = add("cpu",
                     {{"a", target},
                      {"b", InterfaceMode::system},
                      {"c", mirroredInitiator},
                      {"d", mirroredTarget},
                      {"e", initiator}},
                     DesignRole::processor);
  for (const char *name : {"a", "b", "c", "d", "e"})
    join({{cpu, name}, {addRam(std::string("ram_") + name), "bus"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("ram_e"));
}

TEST_F(Walk, NeverAnswersForAProcessor) {
  const Id cpu = addCpu();
  const Id other = addCpu("other");
  join({{cpu, "bus"}, {other, "debug"}, {cpu, "debug"}});
  EXPECT_THAT(built.peripherals("cpu"), IsEmpty());
}

TEST_F(Walk, AnswersForADebugModuleOnTheBus) {
  const Id cpu = addCpu();
  const Id module = add("module", {{"bus", target}}, DesignRole::debugModule);
  join({{cpu, "bus"}, {module, "bus"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("module"));
}

TEST_F(Walk, IsForProcessorsOnly) {
  const Id dma = add("dma", {{"bus", initiator}});
  join({{dma, "bus"}, {addRam("ram"), "bus"}});
  EXPECT_THAT(built.peripherals("dma"), IsEmpty());
  EXPECT_THAT(built.peripherals("nobody"), IsEmpty());
}

TEST_F(Walk, TakesAllEndsOfAConnectionInOrder) {
  const Id cpu = addCpu();
  const Id a = addRam("a");
  const Id b = addRam("b");
  const Id c = addRam("c");
  join({{c, "bus"}, {cpu, "bus"}, {a, "bus"}, {b, "bus"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("c", "a", "b"));
}

TEST_F(Walk, ListsEachOnceWhereItIsReachedFirst) {
  const Id cpu =
      add("cpu", {{"i", initiator}, {"d", initiator}}, DesignRole::processor);
  const Id ram = add("ram", {{"a", target}, {"b", target}});
  join({{cpu, "d"}, {addRam("other"), "bus"}});
  join({{cpu, "d"}, {ram, "b"}});
  join({{cpu, "i"}, {ram, "a"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("ram", "other"));
}

TEST_F(Walk, DoesNotGoOnFromATargetThatIsReached) {
  const Id cpu = addCpu();
  const Id ram = addRam("ram");
  join({{cpu, "bus"}, {ram, "bus"}});
  join({{ram, "bus"}, {addRam("beyond"), "bus"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("ram"));
}

TEST_F(Walk, PassesABridgeOneWay) {
  const Id cpu = addCpu();
  const Id bridge = add("bridge", {{"in", target, {"out", "out2"}},
                                   {"out", initiator},
                                   {"out2", initiator},
                                   {"unused", initiator}});
  join({{cpu, "bus"}, {bridge, "in"}});
  join({{bridge, "out2"}, {addRam("b"), "bus"}});
  join({{bridge, "out"}, {addRam("a"), "bus"}});
  join({{bridge, "unused"}, {addRam("c"), "bus"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("a", "b"));
}

TEST_F(Walk, DoesNotPassABridgeBackwards) {
  const Id cpu = addCpu();
  const Id bridge =
      add("bridge", {{"in", target, {"out"}}, {"out", initiator}});
  join({{cpu, "bus"}, {bridge, "out"}});
  join({{bridge, "in"}, {addRam("ram"), "bus"}});
  EXPECT_THAT(built.peripherals("cpu"), IsEmpty());
}

TEST_F(Walk, AnswersForABridgeThatHasRegistersToo) {
  const Id cpu = addCpu();
  const Id own =
      add("own", {{"in", target, {"out"}, true}, {"out", initiator}});
  const Id apart =
      add("apart",
          {{"in", target, {"out"}}, {"out", initiator}, {"registers", target}});
  const Id away =
      add("away",
          {{"in", target, {"out"}}, {"out", initiator}, {"registers", target}});
  join({{cpu, "bus"}, {own, "in"}});
  join({{own, "out"}, {apart, "in"}});
  join({{apart, "out"}, {apart, "registers"}, {away, "in"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("own", "apart"));
}

TEST_F(Walk, AnswersForABridgeToNothing) {
  const Id cpu = addCpu();
  const Id bridge = add("bridge", {{"in", target, {"missing"}}});
  join({{cpu, "bus"}, {bridge, "in"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("bridge"));
}

TEST_F(Walk, DoesNotAnswerForABridgeThatIsNotConnectedFurther) {
  const Id cpu = addCpu();
  const Id bridge =
      add("bridge", {{"in", target, {"out"}}, {"out", initiator}});
  join({{cpu, "bus"}, {bridge, "in"}});
  EXPECT_THAT(built.peripherals("cpu"), IsEmpty());
}

TEST_F(Walk, CrossesAChannelToAllOfIt) {
  const Id cpu = addCpu();
  const Id bus =
      add("bus",
          {{"m0", mirroredInitiator},
           {"m1", mirroredInitiator},
           {"s0", mirroredTarget},
           {"s1", mirroredTarget},
           {"apart", mirroredTarget}},
          DesignRole::other, DesignModel::top, {{"m0", "s1", "s0", "m1"}});
  join({{cpu, "bus"}, {bus, "m0"}});
  join({{bus, "m1"}, {addCpu("other"), "bus"}});
  join({{bus, "s0"}, {addRam("a"), "bus"}});
  join({{bus, "s1"}, {addRam("b"), "bus"}});
  join({{bus, "apart"}, {addRam("c"), "bus"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("b", "a"));
  EXPECT_THAT(built.peripherals("other"), ElementsAre("b", "a"));
}

TEST_F(Walk, AnswersForAChannelOfOne) {
  const Id cpu = addCpu();
  const Id bus = add("bus", {{"m0", mirroredInitiator}}, DesignRole::other,
                     DesignModel::top, {{"m0"}});
  join({{cpu, "bus"}, {bus, "m0"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("bus"));
}

TEST_F(Walk, MeetsWhatIsBehindBothEndsOfAChannel) {
  const Id cpu =
      add("cpu", {{"i", initiator}, {"d", initiator}}, DesignRole::processor);
  const Id bus =
      add("bus", {{"m0", mirroredInitiator}, {"m1", mirroredInitiator}},
          DesignRole::other, DesignModel::top, {{"m0", "m1"}});
  join({{cpu, "i"}, {bus, "m0"}});
  join({{bus, "m0"}, {addRam("first"), "bus"}});
  join({{cpu, "d"}, {bus, "m1"}});
  join({{bus, "m1"}, {addRam("second"), "bus"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("second", "first"));
}

TEST_F(Walk, EndsInACircle) {
  const Id cpu = addCpu();
  const Id a = add("a", {{"in", target, {"out"}}, {"out", initiator}});
  const Id b = add("b", {{"in", target, {"out"}}, {"out", initiator}});
  join({{cpu, "bus"}, {a, "in"}});
  join({{a, "out"}, {b, "in"}});
  join({{b, "out"}, {a, "in"}, {addRam("ram"), "bus"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("ram"));
}

class Hierarchy : public Walk {
protected:
  /// A box with these interfaces.
  Id addBox(const std::vector<DesignInterface> &interfaces,
            DesignRole role = DesignRole::other,
            const std::vector<std::vector<std::string>> &channels = {}) {
    return add("box", interfaces, role, DesignModel::top, channels);
  }
};

TEST_F(Hierarchy, StandsForTheLeavesInside) {
  const Id cpu = addCpu();
  const Id box = addBox({{"bus", target}});
  const Id a = addRam("a", box);
  const Id b = addRam("b", box);
  addRam("c", box);
  join({{cpu, "bus"}, {box, "bus"}});
  join({{box, "bus"}, {a, "bus"}, {b, "bus"}}, box);
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("box.a", "box.b"));
}

TEST_F(Hierarchy, AnswersItselfWhenNothingInsideDoes) {
  const Id cpu = addCpu();
  const Id box = addBox({{"bus", target}});
  const Id inner = add("inner", {{"bus", initiator}}, DesignRole::other, box);
  join({{cpu, "bus"}, {box, "bus"}});
  join({{box, "bus"}, {inner, "bus"}}, box);
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("box"));
}

TEST_F(Hierarchy, AnswersItselfWhenItIsConnectedToNothingInside) {
  const Id cpu = addCpu();
  const Id box = addBox({{"bus", target}});
  addRam("inner", box);
  join({{cpu, "bus"}, {box, "bus"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("box"));
}

TEST_F(Hierarchy, DoesNotAnswerBesideItsInside) {
  const Id cpu = addCpu();
  const Id box = addBox({{"bare", target}, {"bus", target}});
  const Id inner = addRam("inner", box);
  join({{cpu, "bus"}, {box, "bare"}});
  join({{cpu, "bus"}, {box, "bus"}});
  join({{box, "bus"}, {inner, "bus"}}, box);
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("box.inner"));
}

TEST_F(Hierarchy, LeavesTheAnswerToTheInnermost) {
  const Id cpu = addCpu();
  const Id box = addBox({{"bus", target}});
  const Id inner = add("inner", {{"bus", target}}, DesignRole::other, box);
  addRam("unreached", inner);
  join({{cpu, "bus"}, {box, "bus"}});
  join({{box, "bus"}, {inner, "bus"}}, box);
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("box.inner"));
}

/// The cpu is in the box, beside what only passes on; the box is reached from
/// outside too, at an interface that leads to nothing in it.
TEST_F(Hierarchy, AnswersItselfBesideWhatPassesOn) {
  const Id box = addBox({{"up", initiator}, {"bare", target}});
  const Id cpu = add("cpu", {{"a", initiator}, {"b", initiator}},
                     DesignRole::processor, box);
  const Id pass =
      add("pass", {{"in", target}, {"out", initiator}}, DesignRole::other, box);
  join({{pass, "in"}, {pass, "out"}}, pass);
  join({{cpu, "a"}, {pass, "in"}}, box);
  join({{cpu, "b"}, {box, "up"}}, box);
  join({{box, "up"}, {box, "bare"}});
  EXPECT_THAT(built.peripherals("box.cpu"), ElementsAre("box"));
  // The same with one that answers in its place.
  const Id ram = addRam("ram", box);
  join({{cpu, "a"}, {ram, "bus"}}, box);
  EXPECT_THAT(built.peripherals("box.cpu"), ElementsAre("box.ram"));
}

/// Three deep, each reached by a way of its own, in either order.
TEST_F(Hierarchy, LeavesTheAnswerToTheInnermostInAnyOrder) {
  const Id cpu =
      add("cpu", {{"i", initiator}, {"d", initiator}}, DesignRole::processor);
  const Id box = addBox({{"bare", target}, {"bus", target}});
  const Id middle = add("middle", {{"bare", target}, {"bus", target}},
                        DesignRole::other, box);
  const Id inner = add("inner", {{"bus", target}}, DesignRole::other, middle);
  addRam("unreached", inner);
  join({{cpu, "i"}, {box, "bare"}});
  join({{cpu, "d"}, {box, "bus"}});
  join({{box, "bus"}, {middle, "bare"}, {middle, "bus"}}, box);
  join({{middle, "bus"}, {inner, "bus"}}, middle);
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("box.middle.inner"));
}

TEST_F(Hierarchy, NeverAnswersForItsInitiatorsAndSystems) {
  const Id cpu = addCpu();
  const Id box = addBox({{"i", initiator},
                         {"s", InterfaceMode::system},
                         {"m", InterfaceMode::monitor}});
  const Id inner = addRam("inner", box);
  join({{cpu, "bus"}, {box, "i"}});
  join({{cpu, "bus"}, {box, "s"}});
  join({{cpu, "bus"}, {box, "m"}});
  EXPECT_THAT(built.peripherals("cpu"), IsEmpty());
  join({{box, "m"}, {inner, "bus"}}, box);
  EXPECT_THAT(built.peripherals("cpu"), IsEmpty());
  join({{box, "s"}, {inner, "bus"}}, box);
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("box.inner"));
}

TEST_F(Hierarchy, PassesOnByWhatIsInside) {
  const Id cpu = addCpu();
  const Id box = addBox({{"in", target}, {"in2", target}, {"out", initiator}});
  const Id bridge = add(
      "bridge",
      {{"in", target, {"out"}}, {"in2", target, {"out"}}, {"out", initiator}},
      DesignRole::other, box);
  join({{box, "in"}, {bridge, "in"}}, box);
  join({{box, "in2"}, {bridge, "in2"}}, box);
  join({{bridge, "out"}, {box, "out"}}, box);
  join({{cpu, "bus"}, {box, "in"}});
  join({{cpu, "bus"}, {box, "in2"}});
  EXPECT_THAT(built.peripherals("cpu"), IsEmpty());
  join({{box, "out"}, {addRam("ram"), "bus"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("ram"));
}

TEST_F(Hierarchy, PassesOnByABridgeOnItsBoundaryAndItsInside) {
  const Id cpu = addCpu();
  const Id box = addBox({{"in", target, {"out"}}, {"out", initiator}});
  const Id inner = addRam("inner", box);
  join({{box, "in"}, {inner, "bus"}}, box);
  join({{cpu, "bus"}, {box, "in"}});
  join({{box, "out"}, {addRam("ram"), "bus"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("box.inner", "ram"));
}

TEST_F(Hierarchy, CrossesAChannelOnItsBoundary) {
  const Id cpu = addCpu();
  const Id box = addBox({{"m", mirroredInitiator}, {"s", mirroredTarget}},
                        DesignRole::other, {{"m", "s"}});
  addRam("inner", box);
  join({{cpu, "bus"}, {box, "m"}});
  join({{box, "s"}, {addRam("ram"), "bus"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("ram"));
}

TEST_F(Hierarchy, IsLeftUpwards) {
  const Id box = addBox({{"out", initiator}});
  const Id cpu = add("cpu", {{"bus", initiator}}, DesignRole::processor, box);
  join({{cpu, "bus"}, {box, "out"}, {addRam("near", box), "bus"}}, box);
  const Id bus = add("bus", {{"m", mirroredInitiator}, {"s", mirroredTarget}},
                     DesignRole::other, DesignModel::top, {{"m", "s"}});
  join({{box, "out"}, {bus, "m"}});
  join({{bus, "s"}, {addRam("far"), "bus"}});
  EXPECT_THAT(built.peripherals("box.cpu"), ElementsAre("far", "box.near"));
}

TEST_F(Hierarchy, WiresStraightThrough) {
  const Id cpu = addCpu();
  const Id box = addBox({{"in", target}, {"out", initiator}});
  join({{box, "in"}, {box, "out"}}, box);
  join({{cpu, "bus"}, {box, "in"}});
  join({{box, "out"}, {addRam("ram"), "bus"}});
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("ram"));
}

TEST_F(Hierarchy, DoesNotTurnBackAtABoundary) {
  const Id cpu = addCpu();
  const Id box = addBox({{"bus", target}});
  join({{cpu, "bus"}, {box, "bus"}});
  join({{box, "bus"}, {addRam("beside"), "bus"}});
  const Id inner = addRam("inner", box);
  join({{box, "bus"}, {inner, "bus"}}, box);
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre("box.inner"));
}

TEST_F(Hierarchy, IsNotEnteredInAProcessor) {
  const Id cpu = addCpu();
  const Id box = addBox({{"bus", target}}, DesignRole::processor);
  const Id inner = addRam("inner", box);
  join({{box, "bus"}, {inner, "bus"}}, box);
  join({{cpu, "bus"}, {box, "bus"}});
  EXPECT_THAT(built.peripherals("cpu"), IsEmpty());
}

TEST_F(Hierarchy, MayBeAsDeepAsItLikes) {
  const Id cpu = addCpu();
  Id around = add("b", {{"bus", target}});
  join({{cpu, "bus"}, {around, "bus"}});
  std::string name = "b";
  for (int depth = 0; depth < 3000; ++depth) {
    const Id inner = add("b", {{"bus", target}}, DesignRole::other, around);
    join({{around, "bus"}, {inner, "bus"}}, around);
    around = inner;
    name += ".b";
  }
  EXPECT_THAT(built.peripherals("cpu"), ElementsAre(name));
}

class DebugModule : public Walk {
protected:
  Id addModule(const std::vector<DesignInterface> &interfaces) {
    return add("module", interfaces, DesignRole::debugModule);
  }
};

TEST_F(DebugModule, HasItsProcessorsInTheOrderOfItsInterfaces) {
  const Id module = addModule({{"d1", initiator}, {"d0", initiator}});
  const Id a = addCpu("a");
  const Id b = addCpu("b");
  const Id c = addCpu("c");
  join({{module, "d0"}, {a, "debug"}});
  join({{module, "d1"}, {b, "debug"}, {c, "debug"}});
  join({{module, "d0"}, {b, "debug"}});
  EXPECT_THAT(built.attached("module"), ElementsAre("b", "c", "a"));
}

struct AttachRow {
  InterfaceMode module, processor;
  bool attaches;
};

TEST_F(DebugModule, AttachesByItsInitiatorsAndMirrors) {
  const AttachRow rows[] = {
      {initiator, target, true},
      {mirroredTarget, target, true},
      {mirroredInitiator, target, true},
      {initiator, mirroredInitiator, true},
      {initiator, mirroredTarget, false},
      {initiator, initiator, false},
      {initiator, InterfaceMode::system, false},
      {initiator, InterfaceMode::mirroredSystem, false},
      {initiator, InterfaceMode::monitor, false},
      {target, target, false},
      {target, mirroredInitiator, false},
      {InterfaceMode::system, target, false},
      {InterfaceMode::mirroredSystem, target, false},
      {InterfaceMode::monitor, target, false},
  };
  for (const AttachRow &row : rows) {
    Reading reading;
    const auto module = reading.model.AddComponent(
        {"hdu", DesignRole::byTypeName, {{"d", row.module}}});
    const auto processor = reading.model.AddComponent(
        {"lumacore", DesignRole::byTypeName, {{"d", row.processor}}});
    const Id m = reading.model.AddInstance("m", module).value();
    const Id p = reading.model.AddInstance("p", processor).value();
    ASSERT_TRUE(reading.model.Connect({{{m, "d"}, {p, "d"}}, "", {}}));
    EXPECT_EQ(reading.attached("m").size(), row.attaches ? 1u : 0u)
        << static_cast<int>(row.module) << " "
        << static_cast<int>(row.processor);
  }
}

TEST_F(DebugModule, HasNoneThatSharesAClockOrABus) {
  const Id module = addModule({{"clock", target}, {"bus", target}});
  const Id cpu = add("cpu", {{"clock", target}, {"bus", initiator}},
                     DesignRole::processor);
  const Id clock = add("clock", {{"out", initiator}});
  join({{clock, "out"}, {module, "clock"}, {cpu, "clock"}});
  join({{cpu, "bus"}, {module, "bus"}});
  EXPECT_THAT(built.attached("module"), IsEmpty());
}

TEST_F(DebugModule, HasNoneBehindAChannelOrABridge) {
  const Id module = addModule({{"a", initiator}, {"b", initiator}});
  const Id cpu = addCpu();
  const Id bus = add("bus", {{"m", mirroredInitiator}, {"s", mirroredTarget}},
                     DesignRole::other, DesignModel::top, {{"m", "s"}});
  const Id bridge =
      add("bridge", {{"in", target, {"out"}}, {"out", initiator}});
  join({{module, "a"}, {bus, "m"}});
  join({{bus, "s"}, {cpu, "debug"}});
  join({{module, "b"}, {bridge, "in"}});
  join({{bridge, "out"}, {cpu, "debug"}});
  EXPECT_THAT(built.attached("module"), IsEmpty());
}

TEST_F(DebugModule, ReachesThroughTheHierarchyBothWays) {
  const Id outer = add("outer", {{"up", initiator}});
  const Id module =
      add("module", {{"d", initiator}}, DesignRole::debugModule, outer);
  const Id box = add("box", {{"down", target}, {"unused", target}});
  const Id cpu = add("cpu", {{"d", target}}, DesignRole::processor, box);
  const Id ram = addRam("ram", box);
  join({{module, "d"}, {outer, "up"}}, outer);
  join({{outer, "up"}, {box, "down"}});
  join({{box, "down"}, {cpu, "d"}, {ram, "bus"}}, box);
  EXPECT_THAT(built.attached("outer.module"), ElementsAre("box.cpu"));
}

TEST_F(DebugModule, ReachesNothingByAMonitor) {
  const Id module = addModule({{"d", initiator}});
  const Id box = add("box", {{"m", InterfaceMode::monitor}, {"s", target}});
  const Id cpu = add("cpu", {{"d", target}}, DesignRole::processor, box);
  join({{box, "m"}, {cpu, "d"}}, box);
  join({{module, "d"}, {box, "m"}});
  EXPECT_THAT(built.attached("module"), IsEmpty());
  join({{box, "s"}, {cpu, "d"}}, box);
  join({{module, "d"}, {box, "s"}});
  EXPECT_THAT(built.attached("module"), ElementsAre("box.cpu"));
}

TEST_F(DebugModule, IsWhatIsAsked) {
  const Id timer = add("timer", {{"d", initiator}});
  join({{timer, "d"}, {addCpu(), "debug"}});
  EXPECT_THAT(built.attached("timer"), IsEmpty());
  EXPECT_THAT(built.attached("nobody"), IsEmpty());
}

} // namespace
} // namespace ZelDebugDialog

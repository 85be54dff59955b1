#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Reading.h"

namespace ZelDebugDialog {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr auto initiator = InterfaceMode::initiator;
constexpr auto target = InterfaceMode::target;

class Builder : public testing::Test {
protected:
  DesignModel::InstanceId
  add(const std::string &name, DesignModel::ComponentId component,
      DesignModel::InstanceId parent = DesignModel::top) {
    const auto id = built.model.AddInstance(name, component, parent);
    EXPECT_TRUE(id.has_value()) << name;
    return id.value_or(0);
  }

  Reading built;
  DesignModel &model = built.model;
};

TEST_F(Builder, StartsWithNothing) {
  EXPECT_THAT(built.instances(), IsEmpty());
  EXPECT_THAT(built.processors(), IsEmpty());
  EXPECT_THAT(built.debugModules(), IsEmpty());
  EXPECT_THAT(built.diagnostics(), IsEmpty());
  EXPECT_EQ(model.getIpName("cpu"), "");
  EXPECT_EQ(model.getParameterValue("cpu", "A"), "");
  EXPECT_THAT(built.peripherals("cpu"), IsEmpty());
  EXPECT_THAT(built.attached("cpu"), IsEmpty());
}

struct KindRow {
  const char *typeName;
  DesignRole role;
};

TEST_F(Builder, KnowsWhatTheEngineKnows) {
  const KindRow rows[] = {
      {"hdu", DesignRole::debugModule},
      {"hdu_cedar", DesignRole::debugModule},
      {"ppc_jtag_link", DesignRole::debugModule},
      {"lumacore", DesignRole::processor},
      {"ppc405_core", DesignRole::processor},
      {"ppc440_core", DesignRole::processor},
      {"soc_cortexa9", DesignRole::processor},
      {"soc_cortexr5", DesignRole::processor},
      {"Hdu", DesignRole::other},
      {"hdu_cedar2", DesignRole::other},
      {"hd", DesignRole::other},
      {"lumacore_", DesignRole::other},
      {"LUMACORE", DesignRole::other},
      {"", DesignRole::other},
  };
  for (const KindRow &row : rows) {
    const std::string name = std::string("u_") + row.typeName;
    add(name, model.AddComponent({row.typeName}));
    EXPECT_EQ(model.Instances().back().role, row.role) << row.typeName;
    EXPECT_EQ(model.getIpName(name), row.typeName);
  }
}

TEST_F(Builder, LetsARoleBeSaid) {
  add("a", model.AddComponent({"mine", DesignRole::processor}));
  add("b", model.AddComponent({"mine", DesignRole::debugModule}));
  add("c", model.AddComponent({"lumacore", DesignRole::other}));
  EXPECT_THAT(built.processors(), ElementsAre("a"));
  EXPECT_THAT(built.debugModules(), ElementsAre("b"));
  Names byKind;
  model.getIpInstances(byKind, HW_IP_DEBUG);
  EXPECT_THAT(byKind, ElementsAre("b"));
  Names byOtherKind;
  model.getIpInstances(byOtherKind, static_cast<HwIpType>(4));
  EXPECT_THAT(byOtherKind, IsEmpty());
  Names byType;
  model.getIpInstances(byType, "mine");
  EXPECT_THAT(byType, ElementsAre("a", "b"));
  Names byOtherType;
  model.getIpInstances(byOtherType, "min");
  EXPECT_THAT(byOtherType, IsEmpty());
}

TEST_F(Builder, AppendsToWhatIsThere) {
  add("a", model.AddComponent({"lumacore"}));
  Names names = {"before"};
  model.getProcessorInstances(names, true);
  EXPECT_THAT(names, ElementsAre("before", "a"));
}

TEST_F(Builder, AnswersTheFirstParameterOfAName) {
  const auto id = add("a", model.AddComponent({"t"}));
  model.AddParameter(id, "P", "1");
  model.AddParameter(id, "Q", "two");
  model.AddParameter(id, "P", "3");
  EXPECT_EQ(model.getParameterValue("a", "P"), "1");
  EXPECT_EQ(model.getParameterValue("a", "Q"), "two");
  EXPECT_EQ(model.getParameterValue("a", "p"), "");
  EXPECT_EQ(model.getParameterValue("b", "P"), "");
}

TEST_F(Builder, RefusesNamesThatAreNoFileNames) {
  const auto component = model.AddComponent({"t"});
  const std::string bad[] = {"",   ".",   "..",
                             "/",  "a/b", std::string("a\0b", 3),
                             "a/", "/a",  std::string(1025, 'a')};
  for (const std::string &name : bad)
    EXPECT_FALSE(model.AddInstance(name, component)) << name;
  EXPECT_EQ(model.Diagnostics().size(), std::size(bad));
  EXPECT_THAT(built.instances(), IsEmpty());
  const std::string good[] = {
      "...", ".a", "a.", "a b", "\xc3\xa9", "\\", std::string(1024, 'a')};
  for (const std::string &name : good)
    EXPECT_TRUE(model.AddInstance(name, component)) << name;
  EXPECT_EQ(model.Diagnostics().size(), std::size(bad));
}

TEST_F(Builder, RefusesASecondOfOneNameInOnePlace) {
  const auto component = model.AddComponent({"t"});
  const auto a = add("a", component);
  add("b", component, a);
  EXPECT_FALSE(
      model.AddInstance("a", component, DesignModel::top, {"file.xml", 12}));
  EXPECT_FALSE(model.AddInstance("b", component, a));
  add("b", component);
  EXPECT_THAT(built.instances(), ElementsAre("a", "a.b", "b"));
  EXPECT_THAT(built.diagnostics(),
              ElementsAre("error file.xml:12: instance 'a' is left out: "
                          "another has that name",
                          "error :0: instance 'b' is left out: another has "
                          "that name"));
}

TEST_F(Builder, TellsApartNamesThatReadTheSame) {
  const auto one = model.AddComponent({"one"});
  const auto two = model.AddComponent({"two"});
  const auto a = add("a", one);
  const auto ab = add("a.b", one);
  add("b.c", one, a);
  add("c", two, ab);
  EXPECT_THAT(built.instances(), ElementsAre("a", "a.b", "a.b.c", "a.b.c"));
  EXPECT_EQ(model.getIpName("a.b.c"), "one");
  EXPECT_EQ(model.Instances()[3].typeName, "two");
  EXPECT_THAT(built.diagnostics(),
              ElementsAre("warning :0: two instances read 'a.b.c', as a name "
                          "in one of them holds a dot; the name means the "
                          "first"));
  EXPECT_FALSE(model.AddInstance("c", two, ab));
  EXPECT_FALSE(model.AddInstance("b.c", two, a));
}

TEST_F(Builder, LeavesOutWhatAComponentDoesNotHave) {
  DesignComponent component{"bus",
                            DesignRole::other,
                            {{"a", target, {"b", "x"}, false, 3},
                             {"b", initiator},
                             {"a", initiator, {}, false, 5}},
                            {{"a", "y"}, {"a", "b"}},
                            {"bus.xml", 2}};
  model.AddComponent(component);
  EXPECT_THAT(
      built.diagnostics(),
      ElementsAre(
          "error bus.xml:5: component 'bus': a second interface 'a' is left "
          "out",
          "error bus.xml:3: component 'bus': interface 'a' is bridged to 'x', "
          "which it does not have",
          "error bus.xml:2: component 'bus': a channel names 'y', which it "
          "does not have"));
}

TEST_F(Builder, RefusesEndsThatAreNotThere) {
  const auto cpu = model.AddComponent(
      {"lumacore", DesignRole::byTypeName, {{"bus", initiator}}});
  const auto ram =
      model.AddComponent({"ram", DesignRole::other, {{"bus", target}}});
  const auto a = add("a", cpu);
  const auto b = add("b", ram);
  const auto inner = add("inner", ram, b);
  EXPECT_TRUE(model.Connect({{{a, "bus"}, {b, "bus"}}, "good", {}}));
  EXPECT_FALSE(
      model.Connect({{{a, "bus"}, {b, "bas", 7}}, "bad", {"file.xml", 6}}));
  EXPECT_FALSE(model.Connect({{{a, "bus"}, {inner, "bus"}}, "", {}}));
  EXPECT_FALSE(model.Connect({{{a, "bus"}, {inner, "bus"}}, "x", {}}, b));
  EXPECT_THAT(
      built.diagnostics(),
      ElementsAre("error file.xml:7: connection 'bad' of 'a.bus' and 'b.bas': "
                  "instance 'b' of type 'ram' has no interface 'bas'",
                  "error :0: connection of 'a.bus' and 'inner.bus': instance "
                  "'inner' is not inside what the connection is in",
                  "error :0: connection 'x' of 'a.bus' and 'inner.bus': "
                  "instance 'a' is not inside what the connection is in"));
}

TEST_F(Builder, NamesNoMoreThanFourEnds) {
  const auto ram = model.AddComponent({"ram", DesignRole::other, {}});
  const auto a = add("a", ram);
  EXPECT_FALSE(model.Connect(
      {{{a, "1"}, {a, "2"}, {a, "3"}, {a, "4"}, {a, "5"}}, "", {}}));
  EXPECT_THAT(model.Diagnostics()[0].message,
              HasSubstr("'a.3' and 'a.4' and others"));
  EXPECT_FALSE(
      model.Connect({{{a, "1"}, {a, "2"}, {a, "3"}, {a, "4"}}, "", {}}));
  EXPECT_THAT(model.Diagnostics()[4 + 1].message,
              HasSubstr("'a.3' and 'a.4': "));
}

TEST_F(Builder, TakesEachDiagnosticOnceAndNotWithoutEnd) {
  for (int i = 0; i < 3; ++i)
    model.Report({DesignDiagnostic::Severity::note, "f", 1, "again"});
  EXPECT_EQ(model.Diagnostics().size(), 1u);
  model.Report({DesignDiagnostic::Severity::note, "f", 2, "again"});
  model.Report({DesignDiagnostic::Severity::note, "g", 1, "again"});
  EXPECT_EQ(model.Diagnostics().size(), 3u);
  for (int i = 0; i < 20000; ++i)
    model.Report({DesignDiagnostic::Severity::note, "h", i, ""});
  ASSERT_EQ(model.Diagnostics().size(), 10001u);
  EXPECT_EQ(built.diagnostics().back(),
            "note :0: more than 10000 diagnostics; the rest is left out");
}

TEST_F(Builder, CutsLongNamesInMessages) {
  EXPECT_FALSE(model.AddInstance("/" + std::string(300, 'x'),
                                 model.AddComponent({"t"})));
  EXPECT_EQ(model.Diagnostics()[0].message,
            "instance '/" + std::string(199, 'x') +
                "...' is left out: the name holds a \"/\"");
}

TEST_F(Builder, MovesWhole) {
  add("a", model.AddComponent({"lumacore"}));
  DesignModel moved = std::move(model);
  EXPECT_EQ(moved.getIpName("a"), "lumacore");
  built.model = DesignModel();
  EXPECT_THAT(built.instances(), IsEmpty());
}

} // namespace
} // namespace ZelDebugDialog

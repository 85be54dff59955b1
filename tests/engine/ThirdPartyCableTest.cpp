// The options of a cable record of the caller, as command text: the engine is
// not touched, neither by reading nor by writing.
#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>

#include "support/Cables.h"
#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

class ThirdPartyCable : public support::RecordFixture {
protected:
  ThirdPartyCable() {
    record = support::unusualRecord();
    *state.cableOption = support::unusualCable();
    state.jtagChain = {&device};
    state.hwManager = &design;
    state.processorList = {&record};
    engine.SetErrorStr("an old message");
    before = textOf(state);
  }
  ~ThirdPartyCable() override {
    EXPECT_EQ(textOf(state), before);
    EXPECT_TRUE(design.log.empty());
    state.processorList.clear();
  }

  support::FakeDesign design;
  JtagOption device;
  std::string before;
};

TEST_F(ThirdPartyCable, IsReplacedByWhatTheTextSays) {
  const struct {
    const char *text;
    std::uint32_t type;
    std::uint32_t frequency;
    const char *port, *esn, *svfFile, *moduleName, *moduleArgs, *url;
  } rows[] = {
      {"", 0, 0, "", "", "", "", "", ""},
      {" \t\n", 0, 0, "", "", "", "", "", ""},
      {"-cable", 0, 0, "", "", "", "", "", ""},
      {"-cable type quorla_podusb", 3, 6000000, "USB21", "", "", "", "", ""},
      {"-cable type quorla_parallel", 2, 5000000, "LPT1", "", "", "", "", ""},
      {"-cable type QUORLA_PARALLEL3 frequency 200000 port LPT2", 4, 200000,
       "LPT2", "", "", "", "", ""},
      {"-cable type quorla_podusb frequency 625000 -debugdevice devicenr 1", 3,
       625000, "USB21", "", "", "", "", ""},
      {"-cable type quorla_plugin modulename m modulearg a modulearg b", 5, 0,
       "", "", "", "m", "a;b", ""},
      {"-cable type digilent_plugin url u esn e port p fname f modulename m "
       "modulearg a",
       6, 0, "p", "e", "f", "m", "a", "u"},
      {"-cable frequency 0x1E8480 type quorla_tcf", 7, 2000000, "", "", "", "",
       "", ""},
      {"-configdevice devicenr 1 partname p", 0, 0, "", "", "", "", "", ""},
      {"-debugdevice devicenr 1 cpunr 99", 0, 0, "", "", "", "", "", ""},
      {"-bscan USER4", 0, 0, "", "", "", "", "", ""},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.text);
    CableOption expected;
    expected.cableType = static_cast<Engine::CableType>(row.type);
    expected.frequency = row.frequency;
    expected.port = row.port;
    expected.esn = row.esn;
    expected.svfFile = row.svfFile;
    expected.moduleName = row.moduleName;
    expected.moduleArgs = row.moduleArgs;
    expected.url = row.url;
    CableOption target = support::unusualCable();
    EXPECT_EQ(engine.Set3rdPartyCableOptions(target, row.text), 0);
    EXPECT_EQ(textOf(target), textOf(expected));
  }
}

TEST_F(ThirdPartyCable, StaysWhenTheTextIsRefused) {
  for (const char *text :
       {"modulename m", "nonsense", "-1", "-cable nonsense value",
        "-cable type nonsense", "-cable type", "-cable type quorla_svffile",
        "-cable type quorla_plugin",
        "-cable type quorla_plugin modulename m frequency 1",
        "-cable type quorla_podusb frequency 625000",
        "-cable type quorla_podusb -foo", "-bscan USER5", "-bscan",
        "-debugdevice nonsense 1", "-configdevice devicenr 1 nonsense 2",
        "-configdevice devicenr 1 -configdevice partname",
        "-configdevice devicenr 1 -foo", "-configdevice jtagport fpga"}) {
    SCOPED_TRACE(text);
    CableOption target = support::unusualCable();
    EXPECT_EQ(engine.Set3rdPartyCableOptions(target, text), 1);
    EXPECT_EQ(textOf(target), textOf(support::unusualCable()));
  }
}

TEST_F(ThirdPartyCable, StaysWhenALoneMinusRaises) {
  for (const char *text :
       {"-", "-cable type quorla_podusb -", "-cable port -",
        "-configdevice devicenr 1 -", "-configdevice partname -"}) {
    SCOPED_TRACE(text);
    CableOption target = support::unusualCable();
    EXPECT_THROW(engine.Set3rdPartyCableOptions(target, text),
                 std::out_of_range);
    EXPECT_EQ(textOf(target), textOf(support::unusualCable()));
  }
}

TEST_F(ThirdPartyCable, MayBeTheEnginesOwn) {
  CableOption target = *state.cableOption;
  EXPECT_EQ(engine.Set3rdPartyCableOptions(*state.cableOption,
                                           "-cable type quorla_parallel3"),
            0);
  EXPECT_EQ(state.cableOption->cableType, Engine::QUORLA_PARALLEL3);
  EXPECT_EQ(state.cableOption->moduleName, "");
  *state.cableOption = target;
}

TEST(ThirdPartyCableAlone, NeedsNoProcessor) {
  Engine engine;
  CableOption cable;
  EXPECT_EQ(engine.Set3rdPartyCableOptions(
                cable, "-cable type quorla_plugin modulename m fname f"),
            0);
  EXPECT_EQ(cable.moduleName, "m");
  std::string text;
  EXPECT_EQ(engine.Get3rdPartyCableOptions(text, cable), 0);
  EXPECT_EQ(text, "-cable type quorla_plugin modulename m");
}

TEST_F(ThirdPartyCable, IsWrittenIfItIsAPlugin) {
  const struct {
    const char *moduleName;
    const char *moduleArgs;
    const char *text;
  } rows[] = {
      {"m", "", "-cable type quorla_plugin modulename m"},
      {"m", "a", "-cable type quorla_plugin modulename m modulearg a"},
      {"m", "a;b",
       "-cable type quorla_plugin modulename m modulearg a modulearg b"},
      {"", "", "-cable type quorla_plugin modulename "},
      {"", "a", "-cable type quorla_plugin modulename  modulearg a"},
      {"m", ";",
       "-cable type quorla_plugin modulename m modulearg  modulearg "},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.text);
    CableOption cable = support::unusualCable();
    cable.cableType = Engine::QUORLA_PLUGIN;
    cable.moduleName = row.moduleName;
    cable.moduleArgs = row.moduleArgs;
    const std::string given = textOf(cable);
    std::string text = "what stood there";
    EXPECT_EQ(engine.Get3rdPartyCableOptions(text, cable), 0);
    EXPECT_EQ(text, row.text);
    EXPECT_EQ(textOf(cable), given);
  }
}

TEST_F(ThirdPartyCable, IsNotWrittenIfItIsNoPlugin) {
  for (const std::uint32_t type :
       support::cableNumbersBut(Engine::QUORLA_PLUGIN)) {
    SCOPED_TRACE(type);
    CableOption cable = support::unusualCable();
    cable.cableType = static_cast<Engine::CableType>(type);
    std::string text = "what stood there";
    EXPECT_EQ(engine.Get3rdPartyCableOptions(text, cable), 1);
    EXPECT_EQ(text, "what stood there");
  }
}

} // namespace

// The options of the engine's own plug-in cable, as command text.
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

class PluginCable : public support::RecordFixture {
protected:
  PluginCable() { start(); }
  ~PluginCable() override { ReleaseChainRecords(state.jtagChain); }

  /// A plug-in cable as it is when it has just been chosen.
  void start() {
    record = ProcessorInfoImp();
    ReleaseChainRecords(state.jtagChain);
    engine.SetCableType(Engine::QUORLA_PLUGIN);
    engine.SetErrorStr("an old message");
  }

  CableOption chosen() {
    CableOption cable;
    cable.CableOptionInit(Engine::QUORLA_PLUGIN);
    return cable;
  }
};

constexpr const char *noModule =
    "Plug-in Module NOT specified for Cable Type quorla_plugin";

TEST_F(PluginCable, ReadsModuleAndArguments) {
  EXPECT_EQ(engine.SetPluginCableOptions(
                "-cable modulename m modulearg a modulearg b"),
            0);
  CableOption expected = chosen();
  expected.moduleName = "m";
  expected.moduleArgs = "a;b";
  EXPECT_EQ(textOf(*state.cableOption), textOf(expected));
  EXPECT_EQ(errorText(), "an old message");

  // Arguments join those of before; a module name replaces the one before.
  EXPECT_EQ(engine.SetPluginCableOptions("-CABLE ModuleArg c MODULENAME n"), 0);
  expected.moduleName = "n";
  expected.moduleArgs = "a;b;c";
  EXPECT_EQ(textOf(*state.cableOption), textOf(expected));
}

TEST_F(PluginCable, ReadsNothingFromAnEmptyText) {
  for (const char *text : {"", "  ", "\t\n"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(engine.SetPluginCableOptions(text), 0);
    EXPECT_EQ(textOf(*state.cableOption), textOf(chosen()));
    EXPECT_EQ(errorText(), "an old message");
  }
}

TEST_F(PluginCable, ReadsEveryKindOfClause) {
  EXPECT_EQ(engine.SetPluginCableOptions(
                "-cable modulename m -bscan USER1 -debugdevice devicenr 3 "
                "-configdevice devicenr 2 partname part"),
            0);
  EXPECT_EQ(state.cableOption->moduleName, "m");
  EXPECT_EQ(record.bscanUserReg, 2U);
  EXPECT_EQ(record.debugDevice, 3);
  ASSERT_EQ(state.jtagChain.size(), 1U);
  EXPECT_EQ(state.jtagChain[0]->partname, "part");
  EXPECT_EQ(errorText(), "an old message");
}

TEST_F(PluginCable, BecomesAnotherCableWhenTheTextSaysSo) {
  EXPECT_EQ(engine.SetPluginCableOptions("-cable type quorla_podusb"), 0);
  EXPECT_EQ(state.cableOption->cableType, Engine::QUORLA_PODUSB);
  EXPECT_EQ(state.cableOption->port, "USB21");
  EXPECT_EQ(state.cableOption->frequency, 6000000U);
}

TEST_F(PluginCable, RefusesTextAndKeepsWhatWasReadBefore) {
  const struct {
    const char *text;
    const char *message;
    const char *moduleName;
    std::uint32_t frequency;
  } rows[] = {
      {"modulename m", "an old message", "", 0},
      {" modulename m modulearg a", "an old message", "", 0},
      {"cable modulename m", "an old message", "", 0},
      {"-1", "an old message", "", 0},
      {"-cable", noModule, "", 0},
      {"-cable url u", noModule, "", 0},
      {"-cable modulename m modulearg", "an old message", "m", 0},
      {"-cable modulename m frequency 0x10", "an old message", "m", 16},
      {"-cable modulename m -bscan USER5", "an old message", "m", 0},
      {"-cable modulename m modulenam n",
       "UNKNOWN Parameter 'modulenam' for  option '-cable'", "m", 0},
      {"-cable modulename m modulenames n",
       "UNKNOWN Parameter 'modulenames' for  option '-cable'", "m", 0},
      {"-cable modulename m -cables", "UNKNOWN Option '-cables'", "m", 0},
      {"-cabl modulename m", "UNKNOWN Option '-cabl'", "", 0},
      {"-cable modulename m type quorla_svffile",
       "Cable Type quorla_svffile is not supported in this release\n", "m", 0},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.text);
    start();
    CableOption expected = chosen();
    expected.moduleName = row.moduleName;
    expected.frequency = row.frequency;
    if (std::string(row.text) == "-cable url u")
      expected.url = "u";
    EXPECT_EQ(engine.SetPluginCableOptions(row.text), 1);
    EXPECT_EQ(errorText(), row.message);
    EXPECT_EQ(textOf(*state.cableOption), textOf(expected));
  }
}

TEST_F(PluginCable, PassesOnWhatALoneMinusRaises) {
  EXPECT_THROW(engine.SetPluginCableOptions("-cable modulename m -"),
               std::out_of_range);
  EXPECT_EQ(state.cableOption->moduleName, "m");
}

TEST_F(PluginCable, IsThePreconditionOfReadingOptions) {
  for (const std::uint32_t type :
       support::cableNumbersBut(Engine::QUORLA_PLUGIN)) {
    for (const char *text : {"-cable modulename m", "", "nonsense"}) {
      SCOPED_TRACE(::testing::Message() << type << " '" << text << "'");
      *state.cableOption = support::unusualCable();
      state.cableOption->cableType = static_cast<Engine::CableType>(type);
      engine.SetErrorStr("an old message");
      const std::string cable = textOf(*state.cableOption);
      EXPECT_EQ(engine.SetPluginCableOptions(text), 1);
      EXPECT_EQ(errorText(), "Internal Error: Other Cable Options applies only "
                             "for QUORLA_PLUGIN cable type");
      EXPECT_EQ(textOf(*state.cableOption), cable);
    }
  }
}

TEST_F(PluginCable, WritesModuleAndArguments) {
  const struct {
    const char *moduleArgs;
    const char *text;
  } rows[] = {
      {"", "-cable type quorla_plugin modulename m"},
      {"a", "-cable type quorla_plugin modulename m modulearg a"},
      {"a;b", "-cable type quorla_plugin modulename m modulearg a modulearg b"},
      {"a;;b", "-cable type quorla_plugin modulename m modulearg a modulearg  "
               "modulearg b"},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.moduleArgs);
    CableOption cable = support::unusualCable();
    cable.cableType = Engine::QUORLA_PLUGIN;
    cable.moduleName = "m";
    cable.moduleArgs = row.moduleArgs;
    *state.cableOption = cable;
    const std::string before = textOf(state);
    std::string text = "what stood there";
    EXPECT_EQ(engine.GetPluginCableOptions(text), 0);
    EXPECT_EQ(text, row.text);
    EXPECT_EQ(textOf(state), before);
  }
}

TEST_F(PluginCable, EmptiesTheTextWithoutAModule) {
  state.cableOption->moduleArgs = "a;b";
  std::string text = "what stood there";
  EXPECT_EQ(engine.GetPluginCableOptions(text), 1);
  EXPECT_EQ(text, "");
  EXPECT_EQ(errorText(), "an old message");
}

TEST_F(PluginCable, IsThePreconditionOfWritingOptions) {
  for (const std::uint32_t type :
       support::cableNumbersBut(Engine::QUORLA_PLUGIN)) {
    SCOPED_TRACE(type);
    *state.cableOption = support::unusualCable();
    state.cableOption->cableType = static_cast<Engine::CableType>(type);
    std::string text = "what stood there";
    EXPECT_EQ(engine.GetPluginCableOptions(text), 2);
    EXPECT_EQ(text, "what stood there");
    EXPECT_EQ(errorText(), "an old message");
  }
}

TEST_F(PluginCable, IsWrittenWhateverTheConnection) {
  state.cableOption->moduleName = "m";
  record.connectionType = 1;
  record.stubType = 1;
  std::string text;
  EXPECT_EQ(engine.GetPluginCableOptions(text), 0);
  EXPECT_EQ(text, "-cable type quorla_plugin modulename m");
}

} // namespace

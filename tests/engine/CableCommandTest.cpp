// Cable, chain and debug device text for settings that no engine holds, and
// such text read into plain values.
#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/Cables.h"
#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

/// An engine full of settings, none of which may show or change.
class CableCommand : public support::RecordFixture {
protected:
  CableCommand() {
    record = support::unusualRecord();
    *state.cableOption = support::unusualCable();
    state.cpuJtag = 1;
    state.jtagChain = {&ownDevice};
    state.hwManager = &design;
    state.processorList = {&record};
    engine.SetErrorStr("an old message");
    before = textOf(state);

    device.devicenr = 2;
    device.partname = "pk9ab100";
    device.irlength = 6;
    device.idcode = 0x1234093;
  }
  ~CableCommand() override {
    EXPECT_EQ(textOf(state), before);
    EXPECT_TRUE(design.log.empty());
    state.processorList.clear();
  }

  support::FakeDesign design;
  JtagOption ownDevice;
  std::string before;
  JtagOption device;
  std::vector<JtagOption *> chain;
};

TEST_F(CableCommand, IsMadeFromTypeFrequencyAndPort) {
  for (const std::uint32_t number : support::cableNumbers()) {
    SCOPED_TRACE(number);
    const support::Cable &row = support::cableOf(number);
    const bool isRefused = number != 0 && row.form == support::CableForm::none;
    std::string out = "before";
    EXPECT_EQ(
        engine.GenerateJtagCableCmdString(
            out, static_cast<Engine::CableType>(number), 7, "p", chain, '\0'),
        isRefused ? 1 : 0);
    EXPECT_EQ(out, "before" + (isRefused ? " -cable"
                                         : support::clauseOf(
                                               row, " port p frequency 7",
                                               " modulename ")));
  }
}

TEST_F(CableCommand, FillsInNoDefaults) {
  std::string out;
  EXPECT_EQ(engine.GenerateJtagCableCmdString(out, Engine::QUORLA_PODUSB, 0, "",
                                              chain, '\0'),
            0);
  EXPECT_EQ(out, " -cable type quorla_podusb port  frequency 0");
}

TEST_F(CableCommand, IsMadeFromACableRecord) {
  CableOption cable;
  cable.CableOptionInit(Engine::QUORLA_PODUSB);
  chain = {&device};
  std::string out;
  EXPECT_EQ(engine.GenerateJtagCableCmdString(out, cable, chain, '\1'), 0);
  EXPECT_EQ(out, " -cable type quorla_podusb port USB21 frequency 6000000"
                 " -configdevice devicenr 2 partname pk9ab100 irlength 6"
                 " idcode 0x1234093 -debugdevice deviceNr 1");
  EXPECT_EQ(chain, std::vector<JtagOption *>{&device});
  EXPECT_EQ(device.partname, "pk9ab100");
}

TEST_F(CableCommand, TakesAllFieldsOfTheCableRecord) {
  CableOption cable = support::unusualCable();
  std::string out = "before";
  EXPECT_EQ(engine.GenerateJtagCableCmdString(out, cable, chain, '\0'), 0);
  EXPECT_EQ(out, "before -cable type quorla_podusb esn an esn");

  cable.cableType = Engine::QUORLA_PLUGIN;
  out = "before";
  EXPECT_EQ(engine.GenerateJtagCableCmdString(out, cable, chain, '\0'), 0);
  EXPECT_EQ(out, "before -cable type quorla_plugin modulename a module"
                 " modulearg first modulearg second");

  for (const std::uint32_t type : support::unwritableCableNumbers()) {
    SCOPED_TRACE(type);
    cable.cableType = static_cast<Engine::CableType>(type);
    chain = {&device};
    out = "before";
    EXPECT_EQ(engine.GenerateJtagCableCmdString(out, cable, chain, '\1'), 1);
    EXPECT_EQ(out, "before -cable");
  }
}

TEST_F(CableCommand, TakesChainAndDebugDeviceInBothForms) {
  const struct {
    char debugDevice;
    const char *text;
  } rows[] = {
      {'\0', ""},
      {'\1', " -debugdevice deviceNr 1"},
      {'\x7F', " -debugdevice deviceNr 127"},
      {static_cast<char>(0x80), " -debugdevice deviceNr -128"},
      {static_cast<char>(200), " -debugdevice deviceNr -56"},
  };
  chain = {&device, &ownDevice};
  const std::string chainText =
      " -configdevice devicenr 2 partname pk9ab100 irlength 6 idcode 0x1234093"
      " -configdevice devicenr 0 partname UNKNOWN irlength 0 idcode 0x0";
  for (const auto &row : rows) {
    SCOPED_TRACE(int{row.debugDevice});
    std::string out;
    EXPECT_EQ(engine.GenerateJtagCableCmdString(out, Engine::CABLE_NONE, 7, "p",
                                                chain, row.debugDevice),
              0);
    EXPECT_EQ(out, chainText + row.text);
    out.clear();
    EXPECT_EQ(engine.GenerateJtagCableCmdString(out, CableOption(), chain,
                                                row.debugDevice),
              0);
    EXPECT_EQ(out, chainText + row.text);
  }
  EXPECT_EQ(chain, (std::vector<JtagOption *>{&device, &ownDevice}));
}

TEST_F(CableCommand, IsEmptyForNothing) {
  std::string out;
  EXPECT_EQ(engine.GenerateJtagCableCmdString(out, Engine::CABLE_NONE, 0, "",
                                              chain, '\0'),
            0);
  EXPECT_EQ(out, "");
  EXPECT_EQ(engine.GenerateJtagCableCmdString(out, CableOption(), chain, '\0'),
            0);
  EXPECT_EQ(out, "");
}

TEST(CableCommandAlone, NeedsNoProcessor) {
  Engine engine;
  std::string out;
  std::vector<JtagOption *> chain;
  EXPECT_EQ(engine.GenerateJtagCableCmdString(out, Engine::DIGILENT_PLUGIN, 0,
                                              "", chain, '\3'),
            0);
  EXPECT_EQ(out, " -cable type digilent_plugin -debugdevice deviceNr 3");
}

/// `CableCommand` for the reader, with the outputs in a known state.
class CableInfo : public CableCommand {
protected:
  CableInfo() { startOver(); }

  void startOver() {
    cable = support::unusualCable();
    chain = {&device, &ownDevice};
    cpuJtag = 77;
    debugDevice = 'x';
  }

  int parse(const std::string &text) {
    return engine.ParseJtagCableInfo(text, cable, chain, cpuJtag, debugDevice);
  }

  void expectUntouched() {
    EXPECT_EQ(textOf(cable), textOf(support::unusualCable()));
    EXPECT_EQ(chain, (std::vector<JtagOption *>{&device, &ownDevice}));
    EXPECT_EQ(cpuJtag, 77);
    EXPECT_EQ(debugDevice, 'x');
  }

  CableOption cable;
  int cpuJtag = 0;
  char debugDevice = 0;
};

TEST_F(CableInfo, ReplacesAllOutputs) {
  EXPECT_EQ(parse("-cable type quorla_plugin modulename m modulearg a url u "
                  "esn e fname f -configdevice devicenr 2 partname part "
                  "irlength 6 idcode 0x10 -configdevice jtagport cpu "
                  "-debugdevice devicenr 200 cpunr 99 -bscan USER1"),
            0);
  CableOption expected;
  expected.CableOptionInit(Engine::QUORLA_PLUGIN);
  expected.moduleName = "m";
  expected.moduleArgs = "a";
  expected.url = "u";
  expected.esn = "e";
  expected.svfFile = "f";
  EXPECT_EQ(textOf(cable), textOf(expected));
  ASSERT_EQ(chain.size(), 2U);
  JtagOption part;
  part.devicenr = 2;
  part.partname = "part";
  part.irlength = 6;
  part.idcode = 0x10;
  EXPECT_EQ(textOf(*chain[0]), textOf(part));
  EXPECT_EQ(textOf(*chain[1]), textOf(JtagOption()));
  EXPECT_EQ(cpuJtag, 1);
  EXPECT_EQ(static_cast<int>(static_cast<signed char>(debugDevice)), -56);
  ReleaseChainRecords(chain);
}

TEST_F(CableInfo, ReadsNothingAsDefaults) {
  for (const char *text : {"", " \t"}) {
    SCOPED_TRACE(text);
    startOver();
    EXPECT_EQ(parse(text), 0);
    EXPECT_EQ(textOf(cable), textOf(CableOption()));
    EXPECT_TRUE(chain.empty());
    EXPECT_EQ(cpuJtag, 0);
    EXPECT_EQ(debugDevice, 0);
  }
}

TEST_F(CableInfo, TakesTheDebugDeviceFromTheFirstFpgaIfThereIsNoOther) {
  const struct {
    const char *text;
    int debugDevice;
  } rows[] = {
      {"-configdevice devicenr 3 isfpga 1", 3},
      {"-configdevice isfpga 1 devicenr 0x80", -128},
      {"-configdevice devicenr 3 isfpga 2", 3},
      {"-configdevice devicenr 3 isfpga 255", 3},
      {"-configdevice devicenr 3 isfpga 256", 0},
      {"-configdevice devicenr 3 isfpga 0", 0},
      {"-configdevice devicenr 3", 0},
      {"-configdevice devicenr 3 -configdevice devicenr 4 isfpga 1 "
       "-configdevice devicenr 5 isfpga 1",
       4},
      {"-configdevice isfpga 1 -configdevice devicenr 5 isfpga 1", 0},
      {"-configdevice devicenr 3 isfpga 1 -debugdevice devicenr 7", 7},
      {"-debugdevice devicenr 7 -configdevice devicenr 3 isfpga 1", 7},
      {"-debugdevice devicenr 0 -configdevice devicenr 3 isfpga 1", 3},
      {"-debugdevice devicenr 256 -configdevice devicenr 3 isfpga 1", 3},
      {"-debugdevice devicenr 7 -configdevice devicenr 3", 7},
      {"-debugdevice devicenr 7", 7},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.text);
    startOver();
    EXPECT_EQ(parse(row.text), 0);
    EXPECT_EQ(static_cast<int>(static_cast<signed char>(debugDevice)),
              row.debugDevice);
    EXPECT_EQ(cpuJtag, 0);
    ReleaseChainRecords(chain);
  }
}

TEST_F(CableInfo, LeavesAllOutputsWhenTheTextIsRefused) {
  for (const char *text :
       {"nonsense", "-foo", "cable type quorla_podusb",
        "-cable type quorla_plugin", "-cable type quorla_podusb -foo",
        "-cable type quorla_podusb frequency 625000",
        "-configdevice devicenr 1 -foo", "-configdevice devicenr",
        "-configdevice devicenr 1 -configdevice nonsense 1",
        "-configdevice jtagport fpga", "-configdevice jtagpin cpujtag",
        "-debugdevice devicenr 7 nonsense 1", "-bscan USER5"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(parse(text), 3);
    expectUntouched();
  }
}

TEST_F(CableInfo, LeavesAllOutputsWhenALoneMinusRaises) {
  for (const char *text :
       {"-", "-cable type quorla_podusb -", "-configdevice devicenr 1 -",
        "-configdevice devicenr 1 -configdevice partname -"}) {
    SCOPED_TRACE(text);
    EXPECT_THROW(parse(text), std::out_of_range);
    expectUntouched();
  }
}

} // namespace

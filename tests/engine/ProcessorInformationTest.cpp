// A record made from a connect command alone, completed from the list.
#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/EngineFixture.h"
#include "support/MessageLog.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

using Log = std::vector<std::string>;

class ProcessorInformation : public support::DesignFixture {
protected:
  ProcessorInformation() {
    state.hwManager = &design;
    engine.SetErrorStr("an old message");
    support::takeMessages();
  }
  ~ProcessorInformation() override {
    EXPECT_EQ(state.hwManager, hwManager);
    EXPECT_TRUE(support::takeMessages().empty());
  }

  /// Reads a command that succeeds; releases the record before.
  ProcessorInfoImp &read(const std::string &command) {
    delete state.currentProcessor;
    state.currentProcessor = nullptr;
    ProcessorInfoImp *const record = state.GetProcessorInfo(command);
    if (record == nullptr)
      throw std::runtime_error("refused: " + command);
    EXPECT_EQ(state.currentProcessor, record);
    return *record;
  }

  void withoutDesign() { state.hwManager = hwManager = nullptr; }

  /// What a refusal and an exception leave behind.
  void expectNothingSelected() {
    EXPECT_EQ(state.currentProcessor, nullptr);
    EXPECT_EQ(state.hwManager, hwManager);
    EXPECT_EQ(errorText(), "");
    EXPECT_EQ(textOf(*state.cableOption), textOf(CableOption()));
    EXPECT_EQ(state.cpuJtag, 0U);
    EXPECT_TRUE(state.jtagChain.empty());
    EXPECT_TRUE(design.log.empty());
  }

  HHSMHwManager *hwManager = &design;
};

TEST_F(ProcessorInformation, IsAFreshRecordOutsideTheList) {
  const std::string command =
      "connect lc hdu -cable type quorla_podusb -debugdevice devicenr 3";
  ProcessorInfoImp &record = read(command);
  ProcessorInfoImp expected;
  expected.connectionMask = 3;
  expected.debugDevice = 3;
  expected.connectCommand = command;
  EXPECT_EQ(textOf(record), textOf(expected));
  EXPECT_TRUE(state.processorList.empty());
  EXPECT_EQ(state.cableOption->cableType, Engine::QUORLA_PODUSB);
  EXPECT_EQ(errorText(), "");
}

TEST_F(ProcessorInformation, StartsFromTheDefaultsAndKeepsTheRecordBefore) {
  ProcessorInfoImp before = support::unusualRecord();
  JtagOption device;
  state.currentProcessor = &before;
  *state.cableOption = support::unusualCable();
  state.cpuJtag = 1;
  state.jtagChain = {&device};

  ProcessorInfoImp *const record = state.GetProcessorInfo("connect lc sim");

  ASSERT_NE(record, nullptr);
  EXPECT_NE(record, &before);
  EXPECT_EQ(state.currentProcessor, record);
  ProcessorInfoImp expected;
  expected.connectionType = 1;
  expected.connectCommand = "connect lc sim";
  EXPECT_EQ(textOf(*record), textOf(expected));
  EXPECT_EQ(textOf(before), textOf(support::unusualRecord()));
  EXPECT_EQ(textOf(*state.cableOption), textOf(CableOption()));
  EXPECT_EQ(state.cpuJtag, 0U);
  EXPECT_TRUE(state.jtagChain.empty());
  EXPECT_EQ(textOf(device), textOf(JtagOption()));
  EXPECT_EQ(errorText(), "");
}

TEST_F(ProcessorInformation, TakesNameAndMaskFromTheFirstMatchOfTheList) {
  listRecord("soft1", 0, 9, 0x87, 1);
  listRecord("ppc1", 1, 1, 7, 1);
  listRecord("soft2", 0, 0, 5, 2);
  listRecord("soft2again", 0, 0, 3, 2);
  listRecord("ppc2", 1, 2, 9, 2);
  listRecord("arm2", 2, 4, 0xB, 2);
  listRecord("minus", 0, 0, 0xD, static_cast<std::int8_t>(200));
  listRecord("zero", 0, 0, 0x11, 0);
  const struct {
    const char *command;
    const char *name;
    std::uint32_t family;
    std::uint32_t type;
    std::uint32_t mask;
    int number;
  } rows[] = {
      {"connect lc hdu", "soft1", 0, 0, 0x87, 1},
      {"connect lc sim", "soft1", 0, 0, 0x87, 1},
      {"connect lc hdu -debugdevice cpunr 2", "soft2", 0, 0, 5, 2},
      {"connect lc hdu -debugdevice cpunr 0x102", "soft2", 0, 0, 5, 2},
      {"connect lc hdu -debugdevice cpunr 200", "minus", 0, 0, 0xD, -56},
      {"connect lc hdu -debugdevice cpunr 0", "zero", 0, 0, 0x11, 0},
      {"connect lc hdu -debugdevice cpunr 3", "", 0, 0, 3, 3},
      {"connect lc sim -memsize 3", "soft1", 0, 0, 0x87, 1},
      {"connect ppc hw", "ppc1", 1, 6, 7, 1},
      {"connect ppc hw -debugdevice cpunr 2 proctype ppc405", "ppc2", 1, 1, 9,
       2},
      {"connect ppc hw -debugdevice cpunr 3", "", 1, 6, 3, 3},
      {"connect arm hw -debugdevice cpunr 2", "arm2", 2, 4, 0xB, 2},
      {"connect arm hw", "", 2, 4, 3, 1},
      {"connect r5 hw -debugdevice cpunr 2", "arm2", 2, 5, 0xB, 2},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.command);
    ProcessorInfoImp &record = read(row.command);
    EXPECT_EQ(record.instanceName, row.name);
    EXPECT_EQ(record.procFamily, row.family);
    EXPECT_EQ(record.procType, row.type);
    EXPECT_EQ(record.connectionMask, row.mask);
    EXPECT_EQ(record.cpuNr, row.number);
  }
}

TEST_F(ProcessorInformation, CopiesFromTheListAndNotTheEntry) {
  ProcessorInfoImp &entry = listRecord("soft1", 0, 9, 0x87, 1);
  entry.debugDevice = 9;
  const std::string before = textOf(entry);
  ProcessorInfoImp &record = read("connect lc hdu");
  EXPECT_NE(&record, &entry);
  EXPECT_EQ(record.debugDevice, 0);
  EXPECT_EQ(textOf(entry), before);
  EXPECT_EQ(state.processorList, std::vector<ProcessorInfoImp *>{&entry});
}

TEST_F(ProcessorInformation, OfDebugModulesAndPortsIsLeftAsRead) {
  listRecord("soft1", 0, 0, 3, 1);
  listRecord("ppc1", 1, 1, 3, 1);
  listRecord("arm1", 2, 4, 2, 1);
  const struct {
    const char *command;
    std::uint32_t mask;
    std::uint32_t family;
    std::uint32_t type;
  } rows[] = {
      {"connect hdu", 16, 0, 0},
      {"connect kmtc", 32, 0, 0},
      {"connect dcc", 256, 2, 4},
      {"connect dap hw", 512, 2, 4},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.command);
    ProcessorInfoImp &record = read(row.command);
    ProcessorInfoImp expected;
    expected.procFamily = row.family;
    expected.procType = row.type;
    expected.connectionMask = row.mask;
    expected.connectCommand = row.command;
    EXPECT_EQ(textOf(record), textOf(expected));
    EXPECT_TRUE(design.log.empty());
  }
}

TEST_F(ProcessorInformation, TakesTheFpuOfAMatchFromTheDesign) {
  listRecord("ppc1", 1, 1, 7, 1);
  design.addPeripheral("ppc1", "fpu0", "aux_fpu");
  EXPECT_EQ(read("connect ppc hw -debugdevice fpuType dp").fpuType, 1U);
  EXPECT_EQ(design.log, (Log{"getPeripherals(ppc1)", "getIpName(fpu0)"}));
}

TEST_F(ProcessorInformation, TakesTheFpuOfTheCommandWithoutAMatch) {
  listRecord("", 1, 1, 7, 1);
  EXPECT_EQ(read("connect ppc hw -debugdevice fpuType dp cpunr 2").fpuType, 2U);
  // An entry without a name can't be asked about.
  EXPECT_EQ(read("connect ppc hw -debugdevice fpuType dp").fpuType, 2U);
  EXPECT_TRUE(design.log.empty());
}

TEST_F(ProcessorInformation, TakesTheFpuOfTheCommandWithoutADesign) {
  withoutDesign();
  listRecord("ppc1", 1, 1, 7, 1);
  ProcessorInfoImp &record = read("connect ppc hw -debugdevice fpuType dp");
  EXPECT_EQ(record.fpuType, 2U);
  EXPECT_EQ(record.instanceName, "ppc1");
  EXPECT_EQ(record.connectionMask, 7U);
}

TEST_F(ProcessorInformation, SetsTheDesignAsideWhileReading) {
  // With a design the number would be checked and a stub refused.
  ProcessorInfoImp &record = read("connect lc stub -debugdevice cpunr 7");
  EXPECT_EQ(record.cpuNr, 7);
  EXPECT_EQ(record.connectionMask, 5U);
  EXPECT_EQ(state.hwManager, &design);
}

TEST_F(ProcessorInformation, IsNothingWhenTheCommandIsRefused) {
  const struct {
    const char *command;
    const char *message;
  } rows[] = {
      {"connect lc hdu -cable type quorla_podusb -foo",
       "UNKNOWN Option '-foo'"},
      {"connect lc hdu -debugdevice dtagStartAdr 1",
       "Dtag Start Address should be aligned at 64k boundry"},
      {"connect lc hdu -debugdevice %s%n 1",
       "UNKNOWN Parameter '%s%n' for  option '-debugDevice'"},
      {"connect lc hdu -cable type quorla_svffile",
       "Cable Type quorla_svffile is not supported in this release\n"},
      {"connect lc", ""},
      {"connect", ""},
      {"", ""},
      {"nonsense", ""},
      {"connect hdu nonsense", ""},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.command);
    state.cpuJtag = 1;
    *state.cableOption = support::unusualCable();
    engine.SetErrorStr("an old message");
    EXPECT_EQ(state.GetProcessorInfo(row.command), nullptr);
    expectNothingSelected();

    const std::vector<support::LoggedMessage> messages =
        support::takeMessages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].kind, 1);
    EXPECT_EQ(messages[0].sourcePath, "debug_dialog/src/ZelDebugDialog_Engine");
    EXPECT_EQ(messages[0].line, 1037);
    EXPECT_EQ(messages[0].tool, "zel");
    EXPECT_EQ(messages[0].mask, 0x20000000U);
    EXPECT_EQ(messages[0].format, "%s\n");
    EXPECT_EQ(messages[0].formatted, std::string(row.message) + "\n");
  }
}

TEST_F(ProcessorInformation, KeepsListAndRecordBeforeARefusal) {
  ProcessorInfoImp &entry = listRecord("soft1", 0, 0, 3, 1);
  entry.debugDevice = 9;
  const std::string entryBefore = textOf(entry);
  for (const char *command : {"nonsense", "-"}) {
    SCOPED_TRACE(command);
    ProcessorInfoImp before = support::unusualRecord();
    JtagOption device;
    state.currentProcessor = &before;
    state.jtagChain = {&device};
    if (std::string(command) == "-")
      EXPECT_THROW(state.GetProcessorInfo(command), std::out_of_range);
    else
      EXPECT_EQ(state.GetProcessorInfo(command), nullptr);
    expectNothingSelected();
    EXPECT_EQ(textOf(before), textOf(support::unusualRecord()));
    EXPECT_EQ(textOf(device), textOf(JtagOption()));
    EXPECT_EQ(state.processorList, std::vector<ProcessorInfoImp *>{&entry});
    EXPECT_EQ(textOf(entry), entryBefore);
    support::takeMessages();
  }
}

TEST_F(ProcessorInformation, IsNothingAndSendsNothingWhenALoneMinusRaises) {
  for (const char *command :
       {"-", "connect -", "connect lc hdu -cable type quorla_podusb -",
        "connect lc hdu -debugdevice devicenr 3 -"}) {
    SCOPED_TRACE(command);
    state.cpuJtag = 1;
    engine.SetErrorStr("an old message");
    EXPECT_THROW(state.GetProcessorInfo(command), std::out_of_range);
    expectNothingSelected();
    EXPECT_TRUE(support::takeMessages().empty());
  }
}

TEST_F(ProcessorInformation, ReleasesTheChainOfARefusedCommand) {
  const std::string chain = "connect lc hdu -configdevice devicenr 1"
                            " -configdevice devicenr 2 ";
  EXPECT_EQ(state.GetProcessorInfo(chain + "-foo"), nullptr);
  expectNothingSelected();
  EXPECT_EQ(support::takeMessages().size(), 1U);
  EXPECT_THROW(state.GetProcessorInfo(chain + "-"), std::out_of_range);
  expectNothingSelected();
}

TEST_F(ProcessorInformation, ShowsTheMessageOutputNothingThatGoes) {
  JtagOption kept;
  std::size_t seen = 9;
  support::onMessage([&] {
    seen = state.jtagChain.size();
    state.jtagChain.push_back(&kept);
  });
  EXPECT_EQ(state.GetProcessorInfo("connect lc hdu -configdevice devicenr 1"
                                   " -foo"),
            nullptr);
  support::onMessage(nullptr);
  EXPECT_EQ(seen, 0U);
  expectNothingSelected();
  support::takeMessages();
}

TEST_F(ProcessorInformation, HandsOutTheChainOfACommand) {
  read("connect lc hdu -configdevice devicenr 1 -configdevice devicenr 2");
  ASSERT_EQ(state.jtagChain.size(), 2U);
  EXPECT_EQ(state.jtagChain[0]->devicenr, 1);
  EXPECT_EQ(state.jtagChain[1]->devicenr, 2);
  ReleaseChainRecords(state.jtagChain);
}

TEST_F(ProcessorInformation, SendsTheMessageOfTheEngineBehindTheState) {
  EngineImp alone;
  alone.engine = &engine;
  EXPECT_EQ(alone.GetProcessorInfo("connect lc hdu -foo"), nullptr);
  EXPECT_EQ(alone.currentProcessor, nullptr);
  const std::vector<support::LoggedMessage> messages = support::takeMessages();
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_EQ(messages[0].formatted, "UNKNOWN Option '-foo'\n");
}

TEST_F(ProcessorInformation, SendsAnEmptyMessageWithoutAnEngine) {
  EngineImp alone;
  EXPECT_EQ(alone.GetProcessorInfo("connect lc hdu -foo"), nullptr);
  const std::vector<support::LoggedMessage> messages = support::takeMessages();
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_EQ(messages[0].formatted, "\n");
}

TEST_F(ProcessorInformation, IsNothingWithoutADesignJustAsWell) {
  withoutDesign();
  EXPECT_EQ(state.GetProcessorInfo("nonsense"), nullptr);
  expectNothingSelected();
  EXPECT_EQ(support::takeMessages().size(), 1U);
  EXPECT_THROW(state.GetProcessorInfo("-"), std::out_of_range);
  expectNothingSelected();
}

} // namespace

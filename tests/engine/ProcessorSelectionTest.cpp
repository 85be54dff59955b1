// Making a processor of the list current, from a command or from its option
// file; both go the same way but for where the command comes from.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/EngineFixture.h"
#include "support/RecordText.h"
#include "support/TemporaryDirectory.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

using Log = std::vector<std::string>;

enum Source { fromCommand, fromFile };

class ProcessorSelection : public support::DesignFixture,
                           public ::testing::WithParamInterface<Source> {
protected:
  ProcessorSelection() {
    state.hwManager = &design;
    soft = &listRecord("soft0", 0, 0, 3, 1);
    ppc = &listRecord("ppc0", 1, 2, 3, 5);
    engine.SetErrorStr("an old message");
  }

  /// Selects `name` with `command` as the text or as the content of its file.
  int select(const std::string &name, const std::string &command) {
    info = ProcessorInfo{77, 88, 99};
    if (GetParam() == fromCommand)
      return engine.ParseProcessorInfo(name, info, command);
    folder.write("etc/kvo_" + name + ".opt", command);
    return engine.SetProcessor(name, info);
  }

  void expectInfo(std::uint32_t type, std::uint32_t family,
                  std::uint32_t mask) {
    EXPECT_EQ(info.procType, type);
    EXPECT_EQ(info.procFamily, family);
    EXPECT_EQ(info.connectionMask, mask);
  }

  /// The record as discovery made it.
  static std::string freshTextOf(const ProcessorInfoImp &record) {
    ProcessorInfoImp fresh;
    fresh.instanceName = record.instanceName;
    fresh.procFamily = record.procFamily;
    fresh.procType = record.procType;
    fresh.connectionMask = record.connectionMask;
    fresh.cpuNr = record.cpuNr;
    return textOf(fresh);
  }

  const support::TemporaryDirectory folder;
  ProcessorInfoImp *soft;
  ProcessorInfoImp *ppc;
  ProcessorInfo info;
};

INSTANTIATE_TEST_SUITE_P(, ProcessorSelection,
                         ::testing::Values(fromCommand, fromFile),
                         [](const auto &source) {
                           return source.param == fromCommand ? "FromCommand"
                                                              : "FromFile";
                         });

TEST_P(ProcessorSelection, MakesTheEntryItselfCurrentWithWhatWasRead) {
  const std::string command = "connect lc hdu -cable type quorla_podusb"
                              " -debugdevice devicenr 3 cpunr 1";
  const std::string other = textOf(*ppc);
  EXPECT_EQ(select("soft0", command), 0);
  EXPECT_EQ(state.currentProcessor, soft);
  ProcessorInfoImp expected;
  expected.instanceName = "soft0";
  expected.connectionMask = 3;
  expected.debugDevice = 3;
  expected.connectCommand = command;
  EXPECT_EQ(textOf(*soft), textOf(expected));
  EXPECT_EQ(textOf(*ppc), other);
  EXPECT_EQ(state.cableOption->cableType, Engine::QUORLA_PODUSB);
  EXPECT_EQ(errorText(), "");
  expectInfo(0, 0, 3);
  EXPECT_TRUE(design.log.empty());
  EXPECT_EQ(state.hwManager, &design);
  EXPECT_EQ(state.processorList, (std::vector<ProcessorInfoImp *>{soft, ppc}));
}

TEST_P(ProcessorSelection, StartsFromTheDefaults) {
  JtagOption device;
  *soft = support::unusualRecord();
  soft->instanceName = "soft0";
  soft->procFamily = 0;
  soft->cpuNr = 1;
  *state.cableOption = support::unusualCable();
  state.cpuJtag = 1;
  state.jtagChain = {&device};

  EXPECT_EQ(select("soft0", "connect lc sim"), 0);

  ProcessorInfoImp expected;
  expected.instanceName = "soft0";
  expected.procType = 2;
  expected.connectionMask = 0x87;
  expected.connectionType = 1;
  expected.connectCommand = "connect lc sim";
  EXPECT_EQ(textOf(*soft), textOf(expected));
  EXPECT_EQ(textOf(*state.cableOption), textOf(CableOption()));
  EXPECT_EQ(state.cpuJtag, 0U);
  EXPECT_TRUE(state.jtagChain.empty());
  EXPECT_EQ(textOf(device), textOf(JtagOption()));
  EXPECT_EQ(errorText(), "");
  expectInfo(2, 0, 0x87);
}

TEST_P(ProcessorSelection, LeavesTheProcessorBeforeAsItWas) {
  *ppc = support::unusualRecord();
  state.currentProcessor = ppc;
  EXPECT_EQ(select("soft0", "connect lc hdu"), 0);
  EXPECT_EQ(state.currentProcessor, soft);
  EXPECT_EQ(textOf(*ppc), textOf(support::unusualRecord()));
}

TEST_P(ProcessorSelection, TakesTheFpuFromTheDesignAfterReading) {
  design.addPeripheral("ppc0", "fpu0", "aux_fpu");
  EXPECT_EQ(select("ppc0", "connect ppc hw -debugdevice fpuType dp"), 0);
  EXPECT_EQ(ppc->fpuType, 1U);
  EXPECT_EQ(design.log, (Log{"getPeripherals(ppc0)", "getIpName(fpu0)"}));
  expectInfo(2, 1, 3);

  design.peripheralsOf.clear();
  EXPECT_EQ(select("ppc0", "connect ppc hw -debugdevice fpuType dp"), 0);
  EXPECT_EQ(ppc->fpuType, 0U);
}

TEST_P(ProcessorSelection, TakesNoFpuWithoutADesign) {
  state.hwManager = nullptr;
  EXPECT_EQ(select("ppc0", "connect ppc hw -debugdevice fpuType dp"), 0);
  EXPECT_EQ(ppc->fpuType, 0U);
  EXPECT_EQ(errorText(), "");
  // Without a design the command decides what the processor is.
  expectInfo(6, 1, 3);
}

TEST_P(ProcessorSelection, ResetsTheEntryWhenTheCommandIsRefused) {
  const struct {
    const char *command;
    const char *message;
  } rows[] = {
      {"connect lc hdu -cable type quorla_podusb -debugdevice devicenr 3 -foo",
       "UNKNOWN Option '-foo'"},
      {"connect lc hdu -debugdevice icacheStartAdr 0x18000",
       "Icache Start Address should be aligned at 64k boundry"},
      {"connect lc hdu -cable type quorla_podusb frequency 1",
       "UnSupported Quorla PodUSB Cable Frequency - 1\n"
       "Supported Frequencies: 750000, 1500000, 3000000, 6000000, 12000000, "
       "24000000"},
      {"connect lc hdu -cable type nonsense", ""},
      {"connect lc hdu -debugdevice cpunr 2", ""},
      {"connect lc stub -comm jtag", ""},
      {"connect lc", ""},
      {"connect nonsense", ""},
      {"connect", ""},
      {"nonsense", ""},
      {"xconnect lc hdu", ""},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.command);
    const std::string other = textOf(*ppc);
    const std::string fresh = freshTextOf(*soft);
    soft->debugDevice = 9;
    engine.SetErrorStr("an old message");
    design.log.clear();
    EXPECT_EQ(select("soft0", row.command), 3);
    EXPECT_EQ(state.currentProcessor, soft);
    EXPECT_EQ(textOf(*soft), fresh);
    EXPECT_EQ(textOf(*ppc), other);
    EXPECT_EQ(textOf(*state.cableOption), textOf(CableOption()));
    EXPECT_EQ(errorText(), row.message);
    EXPECT_EQ(state.hwManager, &design);
    EXPECT_TRUE(design.log.empty());
    expectInfo(0, 0, 3);
  }
}

TEST_P(ProcessorSelection, ReleasesTheChainOfARefusedCommand) {
  JtagOption device;
  state.jtagChain = {&device};
  EXPECT_EQ(select("soft0", "connect lc hdu -configdevice devicenr 1"
                            " -configdevice devicenr 2 -foo"),
            3);
  EXPECT_TRUE(state.jtagChain.empty());
  EXPECT_EQ(textOf(device), textOf(JtagOption()));
}

TEST_P(ProcessorSelection, HandsOutTheChainOfACommand) {
  EXPECT_EQ(select("soft0", "connect lc hdu -configdevice devicenr 1"
                            " -configdevice devicenr 2"),
            0);
  ASSERT_EQ(state.jtagChain.size(), 2U);
  EXPECT_EQ(state.jtagChain[0]->devicenr, 1);
  EXPECT_EQ(state.jtagChain[1]->devicenr, 2);
  ReleaseChainRecords(state.jtagChain);
}

TEST_P(ProcessorSelection, ReportsTheSummaryAfterARefusalToo) {
  EXPECT_EQ(select("ppc0", "connect ppc hw -foo"), 3);
  expectInfo(2, 1, 3);
  EXPECT_TRUE(design.log.empty());

  // What the command made of the processor before it was refused shows.
  state.hwManager = nullptr;
  EXPECT_EQ(select("ppc0", "connect ppc hw -foo"), 3);
  expectInfo(6, 1, 3);
}

TEST_P(ProcessorSelection, LeavesTheEntryHalfReadWhenALoneMinusRaises) {
  const std::string command = "connect lc hdu -cable type quorla_podusb"
                              " -debugdevice devicenr 3 -";
  soft->romemSize = 7;
  EXPECT_THROW(select("soft0", command), std::out_of_range);
  EXPECT_EQ(state.currentProcessor, soft);
  ProcessorInfoImp expected;
  expected.instanceName = "soft0";
  expected.connectionMask = 3;
  expected.debugDevice = 3;
  expected.connectCommand = command;
  EXPECT_EQ(textOf(*soft), textOf(expected));
  EXPECT_EQ(state.cableOption->cableType, Engine::QUORLA_PODUSB);
  EXPECT_EQ(state.hwManager, &design);
  EXPECT_TRUE(design.log.empty());
  expectInfo(77, 88, 99);
}

TEST_P(ProcessorSelection, TakesTheFirstEntryOfThatName) {
  ProcessorInfoImp &again = listRecord("soft0", 0, 0, 1, 9);
  EXPECT_EQ(select("soft0", "connect lc hdu"), 0);
  EXPECT_EQ(state.currentProcessor, soft);
  EXPECT_EQ(again.connectCommand, "");
}

TEST_P(ProcessorSelection, RefusesOtherNamesAndChangesNothing) {
  JtagOption device;
  state.currentProcessor = ppc;
  *state.cableOption = support::unusualCable();
  state.cpuJtag = 1;
  state.jtagChain = {&device};
  soft->debugDevice = 9;
  engine.SetErrorStr("");
  const std::string before = textOf(state);
  const std::string softBefore = textOf(*soft);
  for (const std::string name :
       {"Soft0", "SOFT0", "soft", "soft00", " soft0", "soft0 ", "", "cpu"}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(select(name, "connect lc hdu"), 2);
    EXPECT_EQ(errorText(), "Processor Instance " + name +
                               (GetParam() == fromCommand
                                    ? " not Found !!, Please check "
                                    : " cannot be Debugged !!, Please check ") +
                               "\t\t\t\t\tProcessor Connection in your HWD "
                               "file\n");
    expectInfo(77, 88, 99);
    engine.SetErrorStr("");
    EXPECT_EQ(textOf(state), before);
    EXPECT_EQ(textOf(*soft), softBefore);
  }
  // A null byte makes it another name; the message ends at it.
  EXPECT_EQ(select(std::string("soft0\0x", 7), "connect lc hdu"), 2);
  EXPECT_EQ(errorText(), "Processor Instance soft0");
  EXPECT_TRUE(design.log.empty());
  state.jtagChain.clear();
}

TEST_P(ProcessorSelection, BoundsItsMessage) {
  const std::string before = "Processor Instance ";
  const std::string after =
      (GetParam() == fromCommand ? std::string(" not Found !!, Please check ")
                                 : " cannot be Debugged !!, Please check ") +
      "\t\t\t\t\tProcessor Connection in your HWD file\n";
  const std::size_t room = 2047 - before.size() - after.size();
  for (const std::size_t length :
       {room - 1, room, room + 1, std::size_t{5000}}) {
    SCOPED_TRACE(length);
    const std::string name(length, 'n');
    EXPECT_EQ(GetParam() == fromCommand
                  ? engine.ParseProcessorInfo(name, info, "connect lc hdu")
                  : engine.SetProcessor(name, info),
              2);
    EXPECT_EQ(errorText(), (before + name + after).substr(0, 2047));
  }
}

/// What only an option file can be.
using OptionFileSelection = ProcessorSelection;
INSTANTIATE_TEST_SUITE_P(, OptionFileSelection, ::testing::Values(fromFile));

TEST_P(OptionFileSelection, SucceedsWithDefaultsWithoutASavedCommand) {
  design.addPeripheral("ppc0", "fpu0", "aux_fpu");
  const auto expectDefaults = [&] {
    EXPECT_EQ(state.currentProcessor, ppc);
    EXPECT_EQ(ppc->fpuType, 1U);
    EXPECT_EQ(design.log, (Log{"getPeripherals(ppc0)", "getIpName(fpu0)"}));
    ppc->fpuType = 0;
    EXPECT_EQ(textOf(*ppc), freshTextOf(*ppc));
    EXPECT_EQ(errorText(), "");
    expectInfo(2, 1, 3);
    design.log.clear();
    ppc->debugDevice = 9;
    engine.SetErrorStr("an old message");
  };
  info = ProcessorInfo{77, 88, 99};
  ppc->debugDevice = 9;
  EXPECT_EQ(engine.SetProcessor("ppc0", info), 4);
  expectDefaults();
  for (const char *content : {"", "\n\n\n"}) {
    SCOPED_TRACE(content);
    EXPECT_EQ(select("ppc0", content), 4);
    expectDefaults();
  }
}

TEST_P(OptionFileSelection, ReadsTheFileOfTheGivenName) {
  folder.write("etc/kvo_ppc0.opt", "connect ppc sim");
  folder.write("etc/kvo_Soft0.opt", "connect lc sim");
  EXPECT_EQ(select("soft0", "\n\nconnect lc hdu -debugdevice devicenr 3\n"
                            "connect lc hdu -debugdevice devicenr 4\n"),
            0);
  EXPECT_EQ(soft->debugDevice, 3);
  EXPECT_EQ(soft->connectCommand, "connect lc hdu -debugdevice devicenr 3");
}

TEST_P(OptionFileSelection, RefusesHeadWordsThatOnlyCommandsHave) {
  EXPECT_EQ(select("soft0", "kconnect lc hdu"), 3);
  EXPECT_EQ(select("soft0", "connect hdu"), 3);
  EXPECT_EQ(engine.ParseProcessorInfo("soft0", info, "kconnect lc hdu"), 0);
}

using ProcessorNumber = support::DesignFixture;

TEST_F(ProcessorNumber, IsTheListedOneWithItsSign) {
  listRecord("cpu0", 0, 0, 3, 1);
  listRecord("cpu1", 0, 0, 3, static_cast<std::int8_t>(200));
  listRecord("cpu1", 0, 0, 3, 7);
  listRecord("", 0, 0, 3, 127);
  listRecord("cpu2", 1, 0, 3, -1);
  listRecord("cpu3", 1, 0, 3, 0);
  engine.SetErrorStr("an old message");
  const std::string before = textOf(state);
  EXPECT_EQ(engine.GetProcessorNr("cpu0"), 1);
  EXPECT_EQ(engine.GetProcessorNr("cpu1"), -56);
  EXPECT_EQ(engine.GetProcessorNr(""), 127);
  EXPECT_EQ(engine.GetProcessorNr("cpu2"), -1);
  EXPECT_EQ(engine.GetProcessorNr("cpu3"), 0);
  EXPECT_EQ(textOf(state), before);
}

TEST_F(ProcessorNumber, IsMissingForOtherNames) {
  listRecord("cpu0", 0, 0, 3, 1);
  for (const std::string name :
       {"Cpu0", "CPU0", "cpu", "cpu00", " cpu0", "cpu0 ", "", "%d"}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(engine.GetProcessorNr(name), -1);
    EXPECT_EQ(errorText(),
              "Processor Instance " + name + " cannot be debugged!!\n");
  }
  // A null byte makes it another name; the message ends at it.
  EXPECT_EQ(engine.GetProcessorNr(std::string("cpu0\0x", 6)), -1);
  EXPECT_EQ(errorText(), "Processor Instance cpu0");
  EXPECT_EQ(state.currentProcessor, nullptr);
}

TEST_F(ProcessorNumber, IsMissingInABoundedMessage) {
  const std::string before = "Processor Instance ";
  const std::string after = " cannot be debugged!!\n";
  const std::size_t room = 2047 - before.size() - after.size();
  for (const std::size_t length :
       {room - 1, room, room + 1, std::size_t{5000}}) {
    SCOPED_TRACE(length);
    const std::string name(length, 'n');
    EXPECT_EQ(engine.GetProcessorNr(name), -1);
    EXPECT_EQ(errorText(), (before + name + after).substr(0, 2047));
  }
}

} // namespace

// One engine for one processor.
#include <algorithm>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

#include "commands/Desk.h"
#include "commands/Discovery.h"
#include "support/FakeDesign.h"
#include "support/TemporaryDirectory.h"

namespace {

using namespace ZelDebugDialog;
using namespace ZelDebugDialog::model;

class DeskTest : public testing::Test {
protected:
  DeskTest() {
    design.processors = {"cpu0", "ppc0", "other"};
    design.addDebugModule("dbg0", "hdu", {"cpu0"});
    design.addDebugModule("jtag0", "ppc_jtag_link", {"ppc0"});
    design.typeOf["ppc0"] = "ppc440_core";
    design.addPeripheral("ppc0", "fpu0", "aux_fpu");
  }

  ProcessorInfoImp processor(const std::string &name) {
    for (const ProcessorInfoImp &record : discoverProcessors(design).debuggable)
      if (record.instanceName == name)
        return record;
    ADD_FAILURE() << name;
    return {};
  }

  support::FakeDesign design;
};

std::string written(Desk &desk) {
  std::string command;
  const Reading reading = desk.writeCommand(command);
  return reading.accepted() ? command : reasonOf(reading.message);
}

TEST_F(DeskTest, DiscoveryAsksOnceAndReleasesWhatItFound) {
  const DiscoveredProcessors found = discoverProcessors(design);
  EXPECT_THAT(found.names, testing::ElementsAre("cpu0", "ppc0", "other"));
  ASSERT_EQ(found.debuggable.size(), 2U);
  EXPECT_EQ(found.debuggable[0].instanceName, "cpu0");
  EXPECT_EQ(found.debuggable[0].connectionMask, 3U);
  EXPECT_EQ(found.debuggable[1].instanceName, "ppc0");
  EXPECT_EQ(found.debuggable[1].procType, 2U);
  EXPECT_EQ(found.debuggable[1].fpuType, 1U);
}

TEST_F(DeskTest, ADeskDiscoversNothing) {
  const ProcessorInfoImp cpu = processor("cpu0");
  design.log.clear();
  Desk desk(&design, cpu);
  EXPECT_EQ(desk.selectFrom("connect lc hdu -debugdevice devicenr 3").result,
            0);
  EXPECT_EQ(design.log, std::vector<std::string>());
  EXPECT_EQ(desk.snapshot().record.debugDevice, 3);
  EXPECT_EQ(desk.snapshot().record.instanceName, "cpu0");
  EXPECT_EQ(written(desk), "connect lc hdu -debugdevice deviceNr 3 cpunr 1");
}

TEST_F(DeskTest, SelectingTakesTheFpuOfTheDesignAndReadingThatOfTheCommand) {
  Desk desk(&design, processor("ppc0"));
  const std::string command = "connect ppc hw -debugdevice fpuType dp";
  EXPECT_TRUE(desk.selectFrom(command).accepted());
  EXPECT_EQ(desk.snapshot().record.fpuType, 1U);
  EXPECT_TRUE(desk.readCommand(command).accepted());
  EXPECT_EQ(desk.snapshot().record.fpuType, 2U);
  desk.startFromDefaults();
  EXPECT_EQ(desk.snapshot().record.fpuType, 1U);
}

TEST_F(DeskTest, EachOperationStartsFromTheProcessorAsItWasGiven) {
  const std::string other =
      "connect ppc hw -cable type quorla_podusb -configdevice partname p "
      "-debugdevice devicenr 2 proctype ppc405";
  Desk desk(&design, processor("ppc0"));
  desk.startFromDefaults();
  const Snapshot fresh = desk.snapshot();
  EXPECT_TRUE(desk.selectFrom(other).accepted());
  EXPECT_EQ(desk.snapshot().record.procType, 1U);
  desk.startFromDefaults();
  EXPECT_TRUE(fieldsThatDiffer(fresh, desk.snapshot()).empty());
  EXPECT_EQ(desk.snapshot().record.connectCommand, "");
  EXPECT_TRUE(desk.readCommand(other).accepted());
  EXPECT_TRUE(desk.readCommand("connect ppc hw").accepted());
  EXPECT_EQ(desk.snapshot().record.procType, 2U);
  EXPECT_EQ(desk.snapshot().record.debugDevice, 0);
  EXPECT_TRUE(desk.snapshot().chain.empty());
}

TEST_F(DeskTest, RefusalsHaveTheEnginesMessage) {
  Desk desk;
  struct Row {
    const char *command;
    int result;
    const char *message;
  } const rows[] = {
      {"connect lc hdu", 0, ""},
      {"connect lc", 3, ""},
      {"connect lc hdu -foo", 3, "UNKNOWN Option '-foo'"},
      {"connect lc hdu -", 3, "a word is a lone '-'"},
      {"", 3, ""},
  };
  for (const auto &row : rows) {
    const Reading reading = desk.readCommand(row.command);
    EXPECT_EQ(reading.result, row.result) << row.command;
    EXPECT_EQ(reading.message, row.message) << row.command;
    EXPECT_EQ(reading.accepted(), row.result == 0) << row.command;
  }
  EXPECT_EQ(reasonOf(""), "the engine gives no reason");
  EXPECT_EQ(reasonOf(" a\n\t b \n"), "a b");
}

TEST_F(DeskTest, TheDesignRefusesWhatItDoesNotAllow) {
  Desk desk(&design, processor("cpu0"));
  EXPECT_EQ(desk.selectFrom("connect lc stub").result, 3);
  EXPECT_EQ(desk.readCommand("connect lc stub").result, 3);
  EXPECT_EQ(Desk().readCommand("connect lc stub").result, 0);
  CommandTrace trace;
  EXPECT_TRUE(desk.traceCommand("connect lc stub", AfterFault::stop, trace));
  ASSERT_EQ(trace.faults.size(), 1U);
  EXPECT_EQ(trace.faults[0].kind, CommandFaultKind::connectionNotAllowed);
}

TEST_F(DeskTest, ALoneDashEndsATrace) {
  Desk desk;
  CommandTrace trace;
  EXPECT_FALSE(desk.traceCommand("connect lc hdu -", AfterFault::stop, trace));
  EXPECT_EQ(trace.words.size(), 4U);
  EXPECT_TRUE(desk.traceCommand("connect lc hdu", AfterFault::stop, trace));
  EXPECT_EQ(trace.words.size(), 3U);
}

TEST_F(DeskTest, FilesAreReadWhereTheyLie) {
  const support::TemporaryDirectory folder;
  folder.write("saved", "\nconnect lc hdu -debugdevice devicenr 4\n");
  folder.write("empty", "");
  const std::string path = (folder.path() / "saved").string();
  Desk desk(&design, processor("cpu0"));
  EXPECT_EQ(desk.selectFile(path).result, 0);
  EXPECT_EQ(desk.snapshot().record.debugDevice, 4);
  EXPECT_EQ(desk.selectFile((folder.path() / "empty").string()).result, 4);
  EXPECT_EQ(desk.selectFile((folder.path() / "nowhere").string()).result, 4);
  EXPECT_TRUE(desk.selectFile((folder.path() / "nowhere").string()).accepted());
  EXPECT_EQ(desk.snapshot().record.debugDevice, 0);
}

TEST_F(DeskTest, WritingSaysWhyItCannotAndForgetsWhatWasSaidBefore) {
  Desk desk;
  EXPECT_TRUE(
      desk.readCommand("connect lc hdu -cable type quorla_tcf").accepted());
  std::string command = "as it was";
  Reading reading = desk.writeCommand(command);
  EXPECT_EQ(reading.result, 1);
  EXPECT_EQ(reading.message, "Invalid Cable Type");
  EXPECT_EQ(command, "as it was");
  desk.state().currentProcessor->procFamily = 1;
  desk.state().currentProcessor->connectionType = Engine::CONNECT_VP;
  reading = desk.writeCommand(command);
  EXPECT_EQ(reading.result, 1);
  EXPECT_EQ(reading.message, "");
}

TEST_F(DeskTest, DesksInSeveralThreadsTakeTurns) {
  const ProcessorInfoImp cpu = processor("cpu0");
  const ProcessorInfoImp ppc = processor("ppc0");
  std::vector<std::thread> threads;
  std::vector<std::string> commands(4);
  for (std::size_t i = 0; i < commands.size(); ++i)
    threads.emplace_back([&, i] {
      Desk desk(&design, i % 2 == 0 ? cpu : ppc);
      const std::string command =
          std::string(i % 2 == 0 ? "connect lc hdu" : "connect ppc hw") +
          " -debugdevice devicenr " + std::to_string(i);
      for (int round = 0; round < 200; ++round)
        static_cast<void>(desk.selectFrom(command));
      commands[i] = written(desk);
    });
  for (std::thread &thread : threads)
    thread.join();
  EXPECT_THAT(commands,
              testing::ElementsAre(
                  "connect lc hdu -debugdevice cpunr 1",
                  "connect ppc hw -debugdevice deviceNr 1 cpunr 1 fpuType sp",
                  "connect lc hdu -debugdevice deviceNr 2 cpunr 1",
                  "connect ppc hw -debugdevice deviceNr 3 cpunr 1 fpuType sp"));
}

} // namespace

// Selecting a processor from a command or from its option file: what the
// readers store and refuse, in the records of a design.
#include <array>
#include <cstdarg>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ComMsgMgr.h"
#include "language/Bench.h"
#include "language/SmallDesign.h"
#include "language/WorkingFolder.h"

namespace {

using namespace std::string_literals;
using namespace LanguageTest;
using ZelDebugDialog::Engine;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::JtagOption;
using ZelDebugDialog::ProcessorInfo;
using ZelDebugDialog::ProcessorInfoImp;

std::vector<std::string> sentMessages;

} // namespace

// Takes the place of the message output that the library comes with.
void ComMsgMgr::sendMsg::eval(int kind, const char *sourcePath, int line,
                              const char *tool, unsigned mask,
                              const char *format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  std::array<char, 4096> text{};
  std::vsnprintf(text.data(), text.size(), format, arguments);
  va_end(arguments);
  sentMessages.push_back(std::to_string(kind) + "|" + sourcePath + "|" +
                         std::to_string(line) + "|" + tool + "|" +
                         std::to_string(mask) + "|" + format + "|" +
                         text.data());
}

namespace {

/// Two Lumacores on a debug module, one that is not (simulator only), two
/// PowerPCs of which the second has an FPU, and a Cortex-A9.
class Selection : public testing::Test {
protected:
  Selection() {
    sentMessages.clear();
    design.processor("lc1", "lumacore")
        .processor("lc2", "lumacore")
        .processor("lc3", "lumacore")
        .processor("ppc1", "ppc405_core")
        .processor("ppc2", "ppc440_core")
        .processor("arm1", "soc_cortexa9")
        .module("debug", "hdu", {"lc1", "lc2"})
        .module("link", "ppc_jtag_link", {"ppc1", "ppc2"})
        .peripheral("ppc2", "fpu", "aux_fpu");
    imp = engine.GetProcessorList(&design);
  }
  ~Selection() override {
    ReleaseChainRecords(imp->jtagChain);
    ReleaseProcessorRecords(*imp);
  }

  ProcessorInfoImp &record(const std::string &name) {
    for (ProcessorInfoImp *entry : imp->processorList)
      if (entry->instanceName == name)
        return *entry;
    throw std::logic_error("no processor " + name);
  }
  std::string error() {
    std::string text;
    engine.GetErrorStr(text);
    return text;
  }
  static std::string text(const ProcessorInfo &info) {
    return std::to_string(info.procType) + " " +
           std::to_string(info.procFamily) + " " +
           std::to_string(info.connectionMask);
  }
  /// Settings that a selection must not leave behind.
  void leaveTraces(ProcessorInfoImp &entry) {
    entry.romemStartAdr = 1;
    entry.stubSerialPort = "trace";
    entry.connectCommand = "trace";
    entry.connectionType = 1;
    imp->cableOption->port = "trace";
    imp->cpuJtag = 1;
    engine.SetErrorStr("trace");
  }
  /// The settings as a selection starts with them, but for the identity.
  std::string changesSinceStart(const std::string &name) {
    EngineImp start;
    ProcessorInfoImp plain = record(name);
    plain.ProcessorInfoImpInit();
    start.currentProcessor = &plain;
    return changesBetween(settingsOf(start), settingsOf(*imp));
  }

  SmallDesign design;
  WorkingFolder folder;
  Engine engine;
  EngineImp *imp = nullptr;
  ProcessorInfo info;
};

TEST_F(Selection, ReadsACommandIntoTheListsOwnRecord) {
  leaveTraces(record("lc2"));
  const std::string command =
      "connect lc hdu -cable type quorla_podusb port p -debugdevice devicenr "
      "3 cpunr 2";
  EXPECT_EQ(engine.ParseProcessorInfo("lc2", info, command), 0);
  EXPECT_EQ(imp->currentProcessor, &record("lc2"));
  EXPECT_EQ(text(info), "0 0 3");
  EXPECT_EQ(changesSinceStart("lc2"),
            "cable.cableType=3 cable.port=p debugDevice=3");
  EXPECT_EQ(record("lc2").connectCommand, command);
  EXPECT_EQ(error(), "");
}

TEST_F(Selection, ResetsARecordWhoseCommandIsRefused) {
  struct RefusedRow {
    std::string name;
    std::string command;
    std::string message;
    std::string info;
  };
  for (const RefusedRow &row : std::vector<RefusedRow>{
           {"lc1", "", "", "0 0 3"},
           {"lc1", "foo", "", "0 0 3"},
           {"lc1", "connect lc stub", "", "0 0 3"},
           {"lc1", "vpconnect lc", "", "0 0 3"},
           {"lc1", "connect lc hdu -debugdevice devicenr 3 cpunr 2", "",
            "0 0 3"},
           {"lc1", "connect lc hdu -debugdevice devicenr 3 -foo",
            "UNKNOWN Option '-foo'", "0 0 3"},
           {"lc3", "connect lc hdu", "", "0 0 1"},
           {"ppc1", "connect ppc hw -debugdevice icacheStartAdr 1",
            "Icache Start Address should be aligned at 64k boundry", "1 1 3"},
           {"ppc1", "connect ppc hw -debugdevice proctype x", "", "6 1 3"},
           // The identity is not what is reset.
           {"lc1", "connect hdu -foo", "UNKNOWN Option ''", "0 0 16"},
           {"lc2", "connect dcc -foo", "UNKNOWN Option ''", "4 2 256"},
           {"lc3", "connect kmtc -uart", "UNKNOWN Option ''", "0 0 32"},
       }) {
    SCOPED_TRACE(row.name + ": \"" + row.command + "\"");
    leaveTraces(record(row.name));
    EXPECT_EQ(engine.ParseProcessorInfo(row.name, info, row.command), 3);
    EXPECT_EQ(imp->currentProcessor, &record(row.name));
    EXPECT_EQ(text(info), row.info);
    EXPECT_EQ(error(), row.message);
    EXPECT_EQ(changesSinceStart(row.name), "");
    EXPECT_EQ(record(row.name).connectCommand, "");
    EXPECT_TRUE(sentMessages.empty());
  }
}

TEST_F(Selection, TakesTheFpuFromTheDesign) {
  const std::string command = "connect ppc hw -debugdevice fpuType dp";
  EXPECT_EQ(engine.ParseProcessorInfo("ppc1", info, command), 0);
  EXPECT_EQ(record("ppc1").fpuType, 0U);
  EXPECT_EQ(engine.ParseProcessorInfo("ppc2", info, command), 0);
  EXPECT_EQ(record("ppc2").fpuType, 1U);
  EXPECT_EQ(engine.ParseProcessorInfo("lc1", info,
                                      "connect lc hdu -debugdevice fpuType dp"),
            0);
  EXPECT_EQ(record("lc1").fpuType, 0U);
  EXPECT_EQ(engine.ParseProcessorInfo("arm1", info,
                                      "connect arm hw -debugdevice fpuType dp"),
            0);
  EXPECT_EQ(record("arm1").fpuType, 0U);
  // Not asked for when the command is refused.
  record("ppc2").fpuType = 2;
  EXPECT_EQ(engine.ParseProcessorInfo("ppc2", info, "connect ppc"), 3);
  EXPECT_EQ(record("ppc2").fpuType, 0U);
}

TEST_F(Selection, KnowsNoOtherName) {
  EXPECT_EQ(engine.ParseProcessorInfo("lc1", info, "connect lc hdu"), 0);
  const Settings before = settingsOf(*imp);
  info.procType = 77;
  const std::string tail =
      " !!, Please check \t\t\t\t\tProcessor Connection in "
      "your HWD file\n";
  for (const std::string name : {"LC1", "lc", "lc11", "", "lc1 ", "debug"}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(engine.ParseProcessorInfo(name, info, "connect lc sim"), 2);
    EXPECT_EQ(error(), "Processor Instance " + name + " not Found" + tail);
    EXPECT_EQ(engine.SetProcessor(name, info), 2);
    EXPECT_EQ(error(),
              "Processor Instance " + name + " cannot be Debugged" + tail);
    EXPECT_EQ(engine.GetProcessorNr(name), -1);
    EXPECT_EQ(error(),
              "Processor Instance " + name + " cannot be debugged!!\n");
  }
  EXPECT_EQ(info.procType, 77U);
  EXPECT_EQ(imp->currentProcessor, &record("lc1"));
  EXPECT_EQ(changesBetween(before, settingsOf(*imp)), "");
}

TEST_F(Selection, BoundsTheMessageOfAName) {
  const std::string name(3000, 'n');
  const std::string tail =
      " !!, Please check \t\t\t\t\tProcessor Connection in "
      "your HWD file\n";
  EXPECT_EQ(engine.ParseProcessorInfo(name, info, ""), 2);
  EXPECT_EQ(error(), ("Processor Instance " + name).substr(0, 2047));
  EXPECT_EQ(engine.SetProcessor(name, info), 2);
  EXPECT_EQ(error(), ("Processor Instance " + name).substr(0, 2047));
  EXPECT_EQ(engine.GetProcessorNr(name), -1);
  EXPECT_EQ(error(), ("Processor Instance " + name).substr(0, 2047));
  EXPECT_EQ(engine.GetProcessorNr("a\0b"s), -1);
  EXPECT_EQ(error(), "Processor Instance a");
  EXPECT_EQ(engine.SetProcessor("%s", info), 2);
  EXPECT_EQ(error(), "Processor Instance %s cannot be Debugged" + tail);
}

TEST_F(Selection, LeavesWhatWasReadBeforeALoneMinus) {
  info.procType = 77;
  EXPECT_THROW(engine.ParseProcessorInfo(
                   "lc2", info, "connect lc hdu -debugdevice devicenr 3 - x"),
               std::out_of_range);
  EXPECT_EQ(imp->currentProcessor, &record("lc2"));
  EXPECT_EQ(imp->hwManager, &design);
  EXPECT_EQ(record("lc2").debugDevice, 3);
  EXPECT_EQ(info.procType, 77U);

  WorkingFolder::fill(folder.optionFile("lc1"),
                      "connect lc hdu -debugdevice devicenr 4 -");
  EXPECT_THROW(engine.SetProcessor("lc1", info), std::out_of_range);
  EXPECT_EQ(imp->currentProcessor, &record("lc1"));
  EXPECT_EQ(record("lc1").debugDevice, 4);
  EXPECT_EQ(info.procType, 77U);

  EXPECT_EQ(engine.ParseProcessorInfo("lc2", info, "connect lc hdu"), 0);
  EXPECT_EQ(text(info), "0 0 3");
  EXPECT_EQ(record("lc2").debugDevice, 0);
}

TEST_F(Selection, ReadsTheOptionFile) {
  leaveTraces(record("lc1"));
  EXPECT_EQ(engine.SetProcessor("lc1", info), 4);
  EXPECT_EQ(text(info), "0 0 3");
  EXPECT_EQ(imp->currentProcessor, &record("lc1"));
  EXPECT_EQ(changesSinceStart("lc1"), "");
  EXPECT_EQ(error(), "");

  WorkingFolder::fill(folder.optionFile("lc1"),
                      "\nconnect lc hdu -debugdevice devicenr 3\n");
  EXPECT_EQ(engine.SetProcessor("lc1", info), 0);
  EXPECT_EQ(changesSinceStart("lc1"), "debugDevice=3");
  EXPECT_EQ(record("lc1").connectCommand,
            "connect lc hdu -debugdevice devicenr 3");

  WorkingFolder::fill(folder.optionFile("lc1"),
                      "connect lc hdu -debugdevice devicenr 3 -foo\n");
  leaveTraces(record("lc1"));
  EXPECT_EQ(engine.SetProcessor("lc1", info), 3);
  EXPECT_EQ(error(), "UNKNOWN Option '-foo'");
  EXPECT_EQ(changesSinceStart("lc1"), "");
  EXPECT_EQ(record("lc1").connectCommand, "");

  // A target that a file may not name never reaches its reader.
  WorkingFolder::fill(folder.optionFile("lc1"), "connect dcc");
  EXPECT_EQ(engine.SetProcessor("lc1", info), 3);
  EXPECT_EQ(text(info), "0 0 3");
}

TEST_F(Selection, AsksForTheFpuWithoutAFile) {
  EXPECT_EQ(engine.SetProcessor("ppc2", info), 4);
  EXPECT_EQ(record("ppc2").fpuType, 1U);
  EXPECT_EQ(text(info), "2 1 3");
  WorkingFolder::fill(folder.optionFile("ppc2"), "connect ppc");
  EXPECT_EQ(engine.SetProcessor("ppc2", info), 3);
  EXPECT_EQ(record("ppc2").fpuType, 0U);
}

TEST_F(Selection, ForgetsTheChainAndDeletesNothing) {
  JtagOption mine;
  EXPECT_EQ(engine.ParseProcessorInfo("lc1", info, "connect lc hdu"), 0);
  engine.SetJtagChainOptions({&mine});
  EXPECT_EQ(engine.ParseProcessorInfo("lc1", info,
                                      "connect lc hdu -configdevice nppc 1"),
            0);
  ASSERT_EQ(imp->jtagChain.size(), 1U);
  EXPECT_NE(imp->jtagChain[0], &mine);
  EXPECT_EQ(mine.partname, "UNKNOWN");
}

// --- A command on its own ----------------------------------------------------

TEST_F(Selection, FindsTheProcessorThatACommandIsFor) {
  struct FoundRow {
    std::string command;
    std::string name;
    std::uint32_t mask;
  };
  for (const FoundRow &row : std::vector<FoundRow>{
           {"connect lc hdu", "lc1", 3},
           {"connect lc hdu -debugdevice cpunr 2", "lc2", 3},
           {"connect lc hdu -debugdevice cpunr 3", "lc3", 1},
           {"connect lc hdu -debugdevice cpunr 258", "lc2", 3},
           {"connect lc sim", "lc1", 3},
           {"vpconnect lc", "lc1", 3},
           {"connect ppc hw", "ppc1", 3},
           {"connect ppc sim -debugdevice cpunr 2", "ppc2", 3},
           {"connect arm hw", "arm1", 2},
           {"connect r5 hw", "arm1", 2},
           {"connect lc hdu -debugdevice cpunr 4", "", 3},
           {"connect lc stub -debugdevice cpunr 4", "", 5},
           {"vpconnect lc -config cycle_approximate", "lc1", 3},
           {"connect arm hw -debugdevice cpunr 2", "", 3},
           {"kconnect hdu", "", 16},
           {"connect kmtc", "", 32},
           {"connect dcc", "", 256},
           {"connect dap hw", "", 512},
       }) {
    SCOPED_TRACE(row.command);
    const std::unique_ptr<ProcessorInfoImp> found(
        imp->GetProcessorInfo(row.command));
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(imp->currentProcessor, found.get());
    EXPECT_EQ(found->instanceName, row.name);
    EXPECT_EQ(found->connectionMask, row.mask);
    EXPECT_EQ(found->connectCommand, row.command);
    EXPECT_EQ(imp->hwManager, &design);
    EXPECT_EQ(error(), "");
    imp->currentProcessor = nullptr;
  }
  EXPECT_TRUE(sentMessages.empty());
  EXPECT_EQ(imp->processorList.size(), 6U);
}

TEST_F(Selection, AsksForTheFpuOfAProcessorThatItFound) {
  const std::string clause = " -debugdevice fpuType dp cpunr ";
  struct FpuRow {
    std::string number;
    std::uint32_t fpu;
  };
  for (const FpuRow &row : {FpuRow{"1", 0}, FpuRow{"2", 1}, FpuRow{"3", 2}}) {
    const std::unique_ptr<ProcessorInfoImp> found(
        imp->GetProcessorInfo("connect ppc hw" + clause + row.number));
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->fpuType, row.fpu) << row.number;
    imp->currentProcessor = nullptr;
  }
  imp->hwManager = nullptr;
  const std::unique_ptr<ProcessorInfoImp> found(
      imp->GetProcessorInfo("connect ppc hw" + clause + "1"));
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->instanceName, "ppc1");
  EXPECT_EQ(found->fpuType, 2U);
  imp->currentProcessor = nullptr;
}

TEST_F(Selection, SendsTheMessageOfACommandItRefuses) {
  struct SentRow {
    std::string command;
    std::string message;
  };
  for (const SentRow &row : std::vector<SentRow>{
           {"connect lc hdu -foo", "UNKNOWN Option '-foo'"},
           {"foo", ""},
           {"", ""},
           {"connect hdu -uart -foo", "UNKNOWN Option '-foo'"},
           {"connect lc hdu -%s%n", "UNKNOWN Option '-%s%n'"},
       }) {
    SCOPED_TRACE(row.command);
    sentMessages.clear();
    EXPECT_EQ(engine.ParseProcessorInfo("lc1", info, "connect lc hdu"), 0);
    engine.SetErrorStr("trace");
    EXPECT_EQ(imp->GetProcessorInfo(row.command), nullptr);
    EXPECT_EQ(sentMessages,
              std::vector<std::string>{
                  "1|debug_dialog/src/ZelDebugDialog_Engine|1037|zel|536870912|"
                  "%s\n|" +
                  row.message + "\n"});
    EXPECT_EQ(imp->currentProcessor, nullptr);
    EXPECT_EQ(imp->hwManager, &design);
    EXPECT_EQ(error(), "");
    EXPECT_EQ(record("lc1").connectCommand, "connect lc hdu");
  }
}

TEST_F(Selection, SendsNothingForALoneMinus) {
  for (const std::string command :
       {"-", "connect -", "connect lc hdu -cable port p -",
        "connect lc hdu -configdevice -"}) {
    SCOPED_TRACE(command);
    try {
      imp->GetProcessorInfo(command);
      ADD_FAILURE() << "no error";
    } catch (const std::out_of_range &failure) {
      EXPECT_EQ(failure.what(), kLoneMinus);
    }
    EXPECT_TRUE(sentMessages.empty());
    EXPECT_EQ(imp->currentProcessor, nullptr);
    EXPECT_EQ(imp->hwManager, &design);
    EXPECT_EQ(imp->cableOption->port, "");
    const std::unique_ptr<ProcessorInfoImp> next(
        imp->GetProcessorInfo("connect lc hdu"));
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(next->instanceName, "lc1");
    imp->currentProcessor = nullptr;
  }
}

} // namespace

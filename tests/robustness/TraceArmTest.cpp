// Ways through the readers that only a traced command takes: each reader is
// there twice, with a trace and without one.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ZelDebugDialog/CommandTrace.h"
#include "support/EngineFixture.h"

namespace robustness {
namespace {

using namespace ZelDebugDialog;

class TraceArm : public support::RecordFixture {
protected:
  ~TraceArm() override { ReleaseChainRecords(state.jtagChain); }

  int read(const std::string &command) {
    return TraceKvoCommand(command, state, trace, AfterFault::stop);
  }

  /// Reads a command that has to be refused with one fault.
  void expectFault(const std::string &command, CommandFaultKind kind,
                   std::size_t word, const std::string &message) {
    SCOPED_TRACE(command);
    EXPECT_EQ(read(command), 3);
    ASSERT_EQ(trace.faults.size(), 1U);
    EXPECT_EQ(trace.faults[0].kind, kind);
    EXPECT_EQ(trace.faults[0].word, word);
    EXPECT_EQ(trace.faults[0].message, message);
  }

  support::FakeDesign design;
  CommandTrace trace;
};

TEST_F(TraceArm, AnArmTargetNeedsItsConnection) {
  for (const std::string target : {"arm", "r5", "dap"}) {
    expectFault("connect " + target, CommandFaultKind::missingConnection, 2,
                "");
    EXPECT_EQ(trace.faults[0].accepted, std::vector<std::string>{"hw"});
    expectFault("connect " + target + " sim",
                CommandFaultKind::unknownConnection, 2, "");
    expectFault("connect " + target + " hw -foo",
                CommandFaultKind::unknownOption, 3, "UNKNOWN Option '-foo'");
  }
}

TEST_F(TraceArm, ADesignDecidesWhatIsAllowed) {
  state.hwManager = &design;
  record.connectionMask = 1;
  for (const std::string connection :
       {"arm hw", "r5 hw", "ppc hw", "lc hdu", "lc stub"})
    expectFault("connect " + connection, CommandFaultKind::connectionNotAllowed,
                2, "");
  record.connectionMask = 7;
  record.procFamily = 7;
  for (const std::string connection :
       {"arm hw", "r5 hw", "ppc hw", "lc hdu", "lc stub", "lc sim"}) {
    SCOPED_TRACE(connection);
    EXPECT_EQ(read("connect " + connection), 0);
    EXPECT_TRUE(trace.faults.empty());
    EXPECT_EQ(record.connectionMask, 7U);
    EXPECT_EQ(record.procFamily, 7U) << "the design's own";
  }
}

TEST_F(TraceArm, AnSvfCableThatIsSetAlreadyNeedsItsFile) {
  state.cableOption->cableType = Engine::QUORLA_SVFFILE;
  expectFault("connect lc hdu -cable port p", CommandFaultKind::missingSvfFile,
              6, "SVF File NOT specified for Cable Type quorla_svffile");
  EXPECT_EQ(read("connect lc hdu -cable fname f.svf"), 0);
  EXPECT_TRUE(trace.faults.empty());
  EXPECT_EQ(state.cableOption->svfFile, "f.svf");
}

/// In place of the one word that is accepted there.
TEST_F(TraceArm, ALoneDashInPlaceOfAConfigurationIsOneFault) {
  const std::string command = "vpconnect lc -config -";
  EXPECT_EQ(TraceKvoCommand(command, state, trace, AfterFault::goOn), 3);
  ASSERT_EQ(trace.faults.size(), 1U);
  EXPECT_EQ(trace.faults[0].kind, CommandFaultKind::loneDash);
  EXPECT_EQ(trace.faults[0].word, 3U);
}

TEST_F(TraceArm, AnOptionBehindADeviceOfModelSimIsLost) {
  EXPECT_EQ(read("connect lc hdu -sim -configdevice devicenr 1 -quiet"), 0);
  ASSERT_EQ(trace.words.size(), 8U);
  EXPECT_EQ(trace.words[7].role, WordRole::lost);
  EXPECT_EQ(state.jtagChain.size(), 1U);
}

} // namespace
} // namespace robustness

// Texts, chains and designs far larger than any that is meant, in memory that
// is bounded by their size. scripts/check-sizes goes up to 100 MB, and counts
// instructions.
#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Heap.h"
#include "HostileTexts.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "common/FlatDesign.h"
#include "common/Session.h"

namespace robustness {
namespace {

using namespace ZelDebugDialog;

/// What an operation may take at most for each byte that goes in or comes out.
constexpr std::size_t mostForAByte = 12;
/// What it may take beside that.
constexpr std::size_t mostBeside = 16384;

#ifdef LESS_OF_ALL
constexpr std::size_t large = 100 * 1000;
constexpr std::size_t largeWord = std::size_t{1} << 20;
constexpr std::size_t many = 10 * 1000;
#else
constexpr std::size_t large = 1000 * 1000;
constexpr std::size_t largeWord = std::size_t{64} << 20;
constexpr std::size_t many = 100 * 1000;
#endif

template <class Work> void expectBounded(std::size_t bytes, const Work &work) {
  const PeakUse peak;
  work();
  EXPECT_LE(peak.bytes(), mostForAByte * bytes + mostBeside);
}

class HostileSize : public testing::Test {
protected:
  ~HostileSize() override {
    std::string().swap(KvoOption_Parser::current_option);
  }

  void expectRead(const HostileText &text, std::size_t bytes) {
    SCOPED_TRACE(text.name);
    bench::Session session;
    std::string command = text.make(bytes);
    expectBounded(command.size(), [&] {
      EXPECT_EQ(
          KvoOption_Parser::ReadKvoCommand(std::move(command), session.imp),
          text.result);
    });
    EXPECT_LE(session.imp.errorStr.size(), 2047U);
    expectWritten(session);
  }

  void expectWritten(bench::Session &session) {
    const PeakUse peak;
    std::string out;
    KvoOption_Parser::WriteKvoCmdString(session.imp, out);
    EXPECT_LE(peak.bytes(), mostForAByte * out.size() + mostBeside);
  }
};

TEST_F(HostileSize, OfCommands) {
  for (const HostileText &text : hostileTexts)
    expectRead(text, large);
}

TEST_F(HostileSize, OfOneWord) {
  const auto value = std::find_if(
      hostileTexts.begin(), hostileTexts.end(),
      [](const HostileText &text) { return text.name == "value"; });
  ASSERT_NE(value, hostileTexts.end());
  expectRead(*value, largeWord);
}

TEST_F(HostileSize, IsNoReasonToMissALoneDash) {
  bench::Session session;
  std::string command =
      "connect lc hdu -cable port " + std::string(large, 'v') + " -";
  EXPECT_THROW(
      KvoOption_Parser::ReadKvoCommand(std::move(command), session.imp),
      std::out_of_range);
  EXPECT_EQ(session.imp.cableOption->port.size(), large);
}

TEST_F(HostileSize, OfCableTexts) {
  const std::string text = "-cable type quorla_plugin modulename m modulearg " +
                           std::string(large, ';');
  Engine engine;
  CableOption cable;
  expectBounded(text.size(), [&] {
    EXPECT_EQ(engine.Set3rdPartyCableOptions(cable, text), 0);
  });
  EXPECT_EQ(cable.moduleArgs.size(), large);
  std::string out;
  const PeakUse peak;
  EXPECT_EQ(engine.Get3rdPartyCableOptions(out, cable), 0);
  EXPECT_LE(peak.bytes(), mostForAByte * out.size() + mostBeside);
  // As many empty arguments as there are places around the separators.
  EXPECT_EQ(out.size(),
            std::string("-cable type quorla_plugin modulename m").size() +
                std::string(" modulearg ").size() * (large + 1));
}

TEST_F(HostileSize, OfAChain) {
  std::string text;
  for (std::size_t number = 0; number < many; ++number)
    text += " -configdevice idcode " + std::to_string(number);
  Engine engine;
  CableOption cable;
  std::vector<JtagOption *> chain;
  int cpuJtag = 0;
  char device = 0;
  expectBounded(text.size(), [&] {
    EXPECT_EQ(engine.ParseJtagCableInfo(text, cable, chain, cpuJtag, device),
              0);
  });
  ASSERT_EQ(chain.size(), many);
  EXPECT_EQ(chain.back()->idcode, many - 1);
  std::string out;
  const PeakUse peak;
  EXPECT_EQ(engine.GenerateJtagCableCmdString(out, cable, chain, device), 0);
  EXPECT_LE(peak.bytes(), mostForAByte * out.size() + mostBeside);
  ReleaseChainRecords(chain);
}

TEST_F(HostileSize, OfADesign) {
  bench::FlatDesign design(many);
  bench::Session session;
  std::size_t bytes = 0;
  for (const std::string &name : design.lumacores())
    bytes += sizeof(ProcessorInfoImp) + name.size();
  std::vector<std::string> names;
  expectBounded(bytes,
                [&] { session.engine.GetProcessorList(&design, names); });
  EXPECT_EQ(names.size(), many);
  // The session has made one of its own current, which is not in the list.
  ASSERT_EQ(session.imp.processorList.size(), many);
  EXPECT_EQ(session.imp.processorList.back()->instanceName, names.back());
  expectBounded(names.back().size(), [&] {
    EXPECT_EQ(session.engine.GetProcessorNr(names.back()),
              static_cast<std::int8_t>(many));
  });
}

} // namespace
} // namespace robustness

// How often reading asks for memory, beside the records of the chain that it
// makes and the settings that it fills.
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "CountingNew.h"

#include "ZelDebugDialog/KvoOption_Parser.h"
#include "common/ChainCommand.h"
#include "common/Session.h"

namespace ZelDebugDialog {
namespace {

template <class Work> std::size_t allocationsOf(const Work &work) {
  const std::size_t before = test::allocationCount();
  work();
  return test::allocationCount() - before;
}

TEST(AllocationTest, IsCounted) {
  EXPECT_EQ(allocationsOf([] { const std::string text(100, 'x'); }), 1u);
}

/// The result: a record for each device, the vector that holds them, and the
/// text that is kept as the last command. No string of the example is too long
/// to stand in its record.
std::size_t allocationsOfResult(std::size_t devices) {
  const std::string command = bench::chainCommand(devices);
  return allocationsOf([devices, &command] {
    std::vector<JtagOption *> chain;
    for (std::size_t index = 0; index < devices; ++index)
      chain.push_back(new JtagOption);
    std::string kept;
    kept = command;
    ReleaseChainRecords(chain);
  });
}

class AllocationsOfReading : public testing::TestWithParam<std::size_t> {};

TEST_P(AllocationsOfReading, AreSixAtMostBesideTheResult) {
  const std::size_t devices = GetParam();
  bench::Session session;
  std::string command = bench::chainCommand(devices);
  const std::size_t all = allocationsOf([&] {
    ASSERT_EQ(KvoOption_Parser::ReadKvoCommand(std::move(command), session.imp),
              0);
  });
  ASSERT_EQ(session.imp.jtagChain.size(), devices);
  EXPECT_LE(all, allocationsOfResult(devices) + 6);
}

INSTANTIATE_TEST_SUITE_P(Chains, AllocationsOfReading,
                         testing::Values(2, 10, 100, 1000));

TEST(AllocationTest, TheResultOfTwoDevicesIsFive) {
  EXPECT_EQ(allocationsOfResult(2), 5u); // two records, a vector twice, a text
}

TEST(AllocationTest, ASecondCommandAsksForItsRecordsOnly) {
  bench::Session session;
  KvoOption_Parser::ReadKvoCommand(bench::chainCommand(2), session.imp);
  session.forgetChain();
  session.imp.jtagChain.reserve(2);
  std::string command = bench::chainCommand(2);
  EXPECT_EQ(allocationsOf([&] {
              KvoOption_Parser::ReadKvoCommand(std::move(command), session.imp);
            }),
            2u);
}

TEST(AllocationTest, TakingAWordAsksForNothing) {
  std::string text = bench::chainCommand(100);
  std::string word(32, ' ');
  EXPECT_EQ(allocationsOf([&] {
              while (KvoOption_Parser::get_token(text, word) != 3)
                continue;
            }),
            0u);
}

TEST(AllocationTest, AWrittenCommandGrowsOnce) {
  bench::Session session;
  KvoOption_Parser::ReadKvoCommand(bench::chainCommand(1000), session.imp);
  std::string out;
  EXPECT_EQ(allocationsOf(
                [&] { KvoOption_Parser::WriteKvoCmdString(session.imp, out); }),
            1u);
}

} // namespace
} // namespace ZelDebugDialog

// The two functions that delete records for a caller. That they delete each
// record, and delete it once, shows under the address sanitizer.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

using RecordRelease = support::EngineFixture;

TEST_F(RecordRelease, ForgetsListedAndCurrentRecords) {
  state.processorList = {new ProcessorInfoImp, new ProcessorInfoImp};
  state.currentProcessor = new ProcessorInfoImp;
  ReleaseProcessorRecords(state);
  EXPECT_TRUE(state.processorList.empty());
  EXPECT_EQ(state.currentProcessor, nullptr);
}

TEST_F(RecordRelease, DeletesACurrentRecordOfTheListOnce) {
  for (const std::size_t current : {0U, 1U, 2U}) {
    SCOPED_TRACE(current);
    state.processorList = {new ProcessorInfoImp, new ProcessorInfoImp,
                           new ProcessorInfoImp};
    state.currentProcessor = state.processorList[current];
    ReleaseProcessorRecords(state);
    EXPECT_TRUE(state.processorList.empty());
    EXPECT_EQ(state.currentProcessor, nullptr);
  }
}

TEST_F(RecordRelease, TakesAListOrACurrentRecordAlone) {
  state.processorList = {new ProcessorInfoImp};
  ReleaseProcessorRecords(state);
  EXPECT_TRUE(state.processorList.empty());

  state.currentProcessor = new ProcessorInfoImp;
  ReleaseProcessorRecords(state);
  EXPECT_EQ(state.currentProcessor, nullptr);

  ReleaseProcessorRecords(state);
  EXPECT_TRUE(state.processorList.empty());
  EXPECT_EQ(state.currentProcessor, nullptr);
}

TEST_F(RecordRelease, LeavesTheRestOfTheEngineAlone) {
  support::FakeDesign design;
  JtagOption device;
  state.hwManager = &design;
  state.cpuJtag = 1;
  state.jtagChain = {&device};
  state.errorStr = "a message";
  *state.cableOption = support::unusualCable();
  const std::string before = textOf(state);
  state.processorList = {new ProcessorInfoImp};
  state.currentProcessor = new ProcessorInfoImp;

  ReleaseProcessorRecords(state);

  EXPECT_EQ(textOf(state), before);
  EXPECT_TRUE(design.log.empty());
}

TEST(ChainRelease, EmptiesTheChain) {
  std::vector<JtagOption *> chain = {new JtagOption, new JtagOption};
  ReleaseChainRecords(chain);
  EXPECT_TRUE(chain.empty());
  ReleaseChainRecords(chain);
  EXPECT_TRUE(chain.empty());
}

} // namespace

// Null pointers have no place in lists and chains. Those who release them are
// asked when all else has gone wrong, and mind neither.
#include <vector>

#include <gtest/gtest.h>

#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"

namespace robustness {
namespace {

using namespace ZelDebugDialog;

TEST(NullRecord, IsNoReasonNotToReleaseAChain) {
  std::vector<JtagOption *> chain{nullptr, new JtagOption, nullptr};
  ReleaseChainRecords(chain);
  EXPECT_TRUE(chain.empty());
}

TEST(NullRecord, IsNoReasonNotToReleaseAList) {
  Engine engine;
  EngineImp &state = *engine.GetProcessorList(nullptr);
  state.processorList = {nullptr, new ProcessorInfoImp, nullptr};
  state.currentProcessor = state.processorList[1];
  ReleaseProcessorRecords(state);
  EXPECT_TRUE(state.processorList.empty());
  EXPECT_EQ(state.currentProcessor, nullptr);
}

} // namespace
} // namespace robustness

// What an engine starts with, what a reset takes back, and what the end of an
// engine leaves alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"
#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

static_assert(!std::is_polymorphic_v<Engine>);
static_assert(!std::is_polymorphic_v<EngineImp>);
static_assert(!std::is_copy_constructible_v<Engine>);
static_assert(!std::is_copy_constructible_v<EngineImp>);

template <class Enumeration>
constexpr bool isPlain32BitEnumeration =
    std::is_same_v<std::underlying_type_t<Enumeration>, std::uint32_t>
        &&std::is_convertible_v<Enumeration, std::uint32_t>;
static_assert(isPlain32BitEnumeration<Engine::CableType>);
static_assert(isPlain32BitEnumeration<Engine::ConnectionType>);
static_assert(isPlain32BitEnumeration<Engine::StubType>);

using EngineState = support::EngineFixture;

TEST_F(EngineState, StartsWithoutDesignProcessorCableChainAndError) {
  EXPECT_EQ(state.hwManager, nullptr);
  EXPECT_TRUE(state.processorList.empty());
  EXPECT_EQ(state.currentProcessor, nullptr);
  EXPECT_EQ(state.engine, &engine);
  ASSERT_NE(state.cableOption, nullptr);
  EXPECT_EQ(textOf(*state.cableOption), "cableType 0x0\nfrequency 0x0\n"
                                        "port \"\"\nesn \"\"\nsvfFile \"\"\n"
                                        "moduleName \"\"\nmoduleArgs \"\"\n"
                                        "url \"\"\n");
  EXPECT_EQ(state.cpuJtag, 0U);
  EXPECT_TRUE(state.jtagChain.empty());
  EXPECT_EQ(state.errorStr, "");
  EXPECT_EQ(errorText(), "");
}

TEST(EngineStateAlone, StartsWithoutAnEngine) {
  const EngineImp state;
  EXPECT_EQ(state.hwManager, nullptr);
  EXPECT_TRUE(state.processorList.empty());
  EXPECT_EQ(state.currentProcessor, nullptr);
  EXPECT_EQ(state.engine, nullptr);
  ASSERT_NE(state.cableOption, nullptr);
  EXPECT_EQ(textOf(*state.cableOption), textOf(CableOption()));
  EXPECT_EQ(state.cpuJtag, 0U);
  EXPECT_TRUE(state.jtagChain.empty());
  EXPECT_EQ(state.errorStr, "");
}

TEST(EngineStateAlone, HasItsMembersInOrder) {
  const EngineImp state;
  const std::vector<const void *> members = {
      &state.hwManager, &state.processorList, &state.currentProcessor,
      &state.engine,    &state.cableOption,   &state.cpuJtag,
      &state.jtagChain, &state.errorStr,
  };
  EXPECT_EQ(static_cast<const void *>(&state), members.front());
  EXPECT_TRUE(std::is_sorted(members.begin(), members.end(), std::less<>()));
}

TEST(EngineStateAlone, HasMembersOfTheTypesThatCallersCompileAgainst) {
  EXPECT_TRUE(
      (std::is_same_v<decltype(EngineImp::hwManager), HHSMHwManager *>));
  EXPECT_TRUE((std::is_same_v<decltype(EngineImp::processorList),
                              std::vector<ProcessorInfoImp *>>));
  EXPECT_TRUE((std::is_same_v<decltype(EngineImp::currentProcessor),
                              ProcessorInfoImp *>));
  EXPECT_TRUE((std::is_same_v<decltype(EngineImp::engine), Engine *>));
  EXPECT_TRUE((std::is_same_v<decltype(EngineImp::cpuJtag), std::uint32_t>));
  EXPECT_TRUE((std::is_same_v<decltype(EngineImp::jtagChain),
                              std::vector<JtagOption *>>));
  EXPECT_TRUE((std::is_same_v<decltype(EngineImp::errorStr), std::string>));
}

TEST_F(EngineState, ResetTakesBackSettingsCableChainAndError) {
  support::FakeDesign design;
  ProcessorInfoImp current = support::unusualRecord();
  ProcessorInfoImp listed = support::unusualRecord();
  JtagOption device;
  state.hwManager = &design;
  state.processorList = {&listed, &current};
  state.currentProcessor = &current;
  *state.cableOption = support::unusualCable();
  state.cpuJtag = 1;
  state.jtagChain = {&device, &device};
  state.errorStr = "an error";
  const CableOption *const cable = state.cableOption.get();

  state.EngineImpInit();

  ProcessorInfoImp reset = support::unusualRecord();
  reset.ProcessorInfoImpInit();
  EXPECT_EQ(textOf(current), textOf(reset));
  EXPECT_EQ(state.cableOption.get(), cable);
  EXPECT_EQ(textOf(*state.cableOption), textOf(CableOption()));
  EXPECT_EQ(state.cpuJtag, 0U);
  EXPECT_TRUE(state.jtagChain.empty());
  EXPECT_EQ(state.errorStr, "");

  EXPECT_EQ(state.hwManager, &design);
  EXPECT_TRUE(design.log.empty());
  EXPECT_EQ(state.processorList,
            (std::vector<ProcessorInfoImp *>{&listed, &current}));
  EXPECT_EQ(textOf(listed), textOf(support::unusualRecord()));
  EXPECT_EQ(state.currentProcessor, &current);
  EXPECT_EQ(state.engine, &engine);
  EXPECT_EQ(textOf(device), textOf(JtagOption()));
  state.processorList.clear();
  state.currentProcessor = nullptr;
}

TEST_F(EngineState, ResetNeedsNoProcessor) {
  *state.cableOption = support::unusualCable();
  state.cpuJtag = 1;
  state.errorStr = "an error";

  state.EngineImpInit();

  EXPECT_EQ(state.currentProcessor, nullptr);
  EXPECT_EQ(textOf(*state.cableOption), textOf(CableOption()));
  EXPECT_EQ(state.cpuJtag, 0U);
  EXPECT_EQ(state.errorStr, "");
}

TEST(EngineEnd, LeavesDesignRecordsAndChainAlone) {
  support::FakeDesign design;
  design.addDebugModule("dbg0", "hdu", {"cpu0"});
  const auto current = std::make_unique<ProcessorInfoImp>();
  current->instanceName = "alone";
  const auto device = std::make_unique<JtagOption>();
  device->partname = "part";
  std::vector<ProcessorInfoImp *> listed;
  {
    Engine engine;
    EngineImp &state = *engine.GetProcessorList(&design);
    listed = state.processorList;
    state.currentProcessor = current.get();
    engine.SetJtagChainOptions({device.get()});
  }
  ASSERT_EQ(listed.size(), 1U);
  EXPECT_EQ(listed[0]->instanceName, "cpu0");
  EXPECT_EQ(current->instanceName, "alone");
  EXPECT_EQ(device->partname, "part");
  EXPECT_EQ(design.getIpName("dbg0"), "hdu");
  delete listed[0];
}

TEST(EngineStateOfTwo, SharesNothing) {
  Engine one;
  Engine other;
  EngineImp &state = *other.GetProcessorList(nullptr);
  ASSERT_NE(one.GetProcessorList(nullptr), &state);
  const std::string before = textOf(state);

  JtagOption device;
  one.SetErrorStr("an error");
  one.SetCableType(Engine::QUORLA_PODUSB);
  one.SetCpuJtag();
  one.SetJtagChainOptions({&device});

  EXPECT_EQ(textOf(state), before);
}

} // namespace

// The chain: pointers that the engine copies and never deletes.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

class Chain : public support::RecordFixture {
protected:
  Chain() { engine.SetErrorStr("an old message"); }

  std::vector<JtagOption *> read(int result) {
    std::vector<JtagOption *> chain = {&other, &other};
    EXPECT_EQ(engine.GetJtagChainOptions(chain), result);
    return chain;
  }

  const std::vector<JtagOption *> untouched = {&other, &other};
  JtagOption first;
  JtagOption second;
  JtagOption other;
};

TEST_F(Chain, IsTheGivenDevicesInOrder) {
  EXPECT_EQ(engine.SetJtagChainOptions({&second, &first, &second}), 0);
  const std::vector<JtagOption *> expected = {&second, &first, &second};
  EXPECT_EQ(state.jtagChain, expected);
  EXPECT_EQ(read(0), expected);
  EXPECT_EQ(errorText(), "an old message");
}

TEST_F(Chain, ReplacesTheOneBefore) {
  engine.SetJtagChainOptions({&first, &second});
  EXPECT_EQ(engine.SetJtagChainOptions({&other}), 0);
  EXPECT_EQ(state.jtagChain, std::vector<JtagOption *>{&other});
  EXPECT_EQ(engine.SetJtagChainOptions({}), 0);
  EXPECT_TRUE(state.jtagChain.empty());
  EXPECT_EQ(read(1), untouched);
}

TEST_F(Chain, HoldsTheRecordsThemselves) {
  engine.SetJtagChainOptions({&first});
  first.partname = "changed later";
  EXPECT_EQ(read(0).at(0)->partname, "changed later");
}

TEST_F(Chain, DoesNotFollowTheCallersVector) {
  std::vector<JtagOption *> chain = {&first};
  engine.SetJtagChainOptions(chain);
  chain.clear();
  EXPECT_EQ(state.jtagChain, std::vector<JtagOption *>{&first});
}

TEST_F(Chain, ChangesNothingElse) {
  *state.cableOption = support::unusualCable();
  const std::string before = textOf(state);
  engine.SetJtagChainOptions({&first});
  EXPECT_NE(textOf(state), before);
  engine.SetJtagChainOptions({});
  EXPECT_EQ(textOf(state), before);
  EXPECT_EQ(textOf(first), textOf(JtagOption()));
}

TEST_F(Chain, IsHiddenForTheSimulatorAndASerialStub) {
  constexpr struct {
    std::uint32_t connectionType;
    std::uint32_t stubType;
    bool shown;
  } rows[] = {
      {2, 0, true},  {4, 0, true},  {8, 0, true},    {0, 0, true},
      {3, 0, true},  {2, 2, true},  {0x84, 0, true}, {1, 0, false},
      {2, 1, false}, {4, 1, false}, {8, 1, false},   {1, 1, false},
      {1, 2, false},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(::testing::Message() << "connection " << row.connectionType
                                      << " stub " << row.stubType);
    record.connectionType = row.connectionType;
    record.stubType = row.stubType;
    engine.SetJtagChainOptions({&first});
    EXPECT_EQ(read(row.shown ? 0 : 2),
              row.shown ? std::vector<JtagOption *>{&first} : untouched);
    engine.SetJtagChainOptions({});
    EXPECT_EQ(read(row.shown ? 1 : 2), untouched);
    EXPECT_EQ(errorText(), "an old message");
  }
}

TEST(ChainAlone, CanBeSetWithoutAProcessor) {
  Engine engine;
  JtagOption device;
  EXPECT_EQ(engine.SetJtagChainOptions({&device}), 0);
  EXPECT_EQ(engine.GetProcessorList(nullptr)->jtagChain,
            std::vector<JtagOption *>{&device});
}

} // namespace

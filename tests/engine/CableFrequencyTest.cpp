// Checking a cable's frequency against its type, and giving it the default.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "ZelDebugDialog/KvoOption_Parser.h"
#include "support/Cables.h"
#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

class CableFrequency : public support::RecordFixture {
protected:
  void giveCable(std::uint32_t type, std::uint32_t frequency) {
    *state.cableOption = support::unusualCable();
    state.cableOption->cableType = static_cast<Engine::CableType>(type);
    state.cableOption->frequency = frequency;
    engine.SetErrorStr("an old message");
  }
};

TEST_F(CableFrequency, IsCheckedAgainstTheType) {
  for (const support::Cable &cable : support::cables()) {
    if (cable.accepted.empty())
      continue;
    for (const std::uint32_t frequency : support::frequenciesToTry()) {
      SCOPED_TRACE(::testing::Message() << cable.number << " at " << frequency);
      giveCable(cable.number, frequency);
      const std::string before = textOf(*state.cableOption);
      const bool accepted = support::isAccepted(cable, frequency);

      EXPECT_EQ(KvoOption_Parser::setcable_frequency(state, 0),
                accepted ? 0 : 2);
      EXPECT_EQ(errorText(), accepted ? "an old message"
                                      : support::refusalOf(cable, frequency));
      EXPECT_EQ(textOf(*state.cableOption), before);
    }
  }
}

TEST_F(CableFrequency, IsQuotedInTheWholeMessage) {
  giveCable(Engine::QUORLA_PARALLEL3, 0xFFFFFFFF);
  EXPECT_EQ(KvoOption_Parser::setcable_frequency(state, 0), 2);
  EXPECT_EQ(errorText(), "UnSupported Quorla Parallel3 Cable Frequency - -1\n\t"
                         " Supported Frequencies: 200000");
  giveCable(Engine::QUORLA_TCF, 20000000);
  EXPECT_EQ(KvoOption_Parser::setcable_frequency(state, 0), 2);
  EXPECT_EQ(errorText(),
            "UnSupported Quorla TCF Cable Frequency - 20000000\n"
            "Supported Frequencies: 750000, 1500000, 3000000, 6000000, "
            "10000000, 12000000, 15000000, 20000000, 24000000, 30000000");
}

TEST_F(CableFrequency, IsRefusedInSilenceForCablesWithoutFrequencies) {
  for (const std::uint32_t type : support::cableNumbers()) {
    if (!support::cableOf(type).accepted.empty())
      continue;
    for (const std::uint32_t frequency : support::frequenciesToTry()) {
      SCOPED_TRACE(::testing::Message() << type << " at " << frequency);
      giveCable(type, frequency);
      const std::string before = textOf(*state.cableOption);
      EXPECT_EQ(KvoOption_Parser::setcable_frequency(state, 0), 2);
      EXPECT_EQ(errorText(), "an old message");
      EXPECT_EQ(textOf(*state.cableOption), before);
    }
  }
}

TEST_F(CableFrequency, BecomesTheDefaultUnchecked) {
  for (const std::uint32_t type : support::cableNumbers()) {
    for (const int useDefault : {1, 2, -1, 0x100}) {
      SCOPED_TRACE(::testing::Message() << type << ' ' << useDefault);
      giveCable(type, 12345);
      CableOption expected = *state.cableOption;
      expected.frequency = support::cableOf(type).frequency;
      EXPECT_EQ(KvoOption_Parser::setcable_frequency(state, useDefault), 0);
      EXPECT_EQ(textOf(*state.cableOption), textOf(expected));
      EXPECT_EQ(errorText(), "an old message");
    }
  }
}

TEST_F(CableFrequency, IsRefusedInTheErrorStringOfTheEngineBehindTheState) {
  EngineImp alone;
  alone.engine = &engine;
  alone.currentProcessor = &record;
  alone.cableOption->CableOptionInit(Engine::QUORLA_PARALLEL3);
  alone.cableOption->frequency = 1;
  EXPECT_EQ(KvoOption_Parser::setcable_frequency(alone, 0), 2);
  EXPECT_EQ(alone.errorStr, "");
  EXPECT_EQ(errorText(), "UnSupported Quorla Parallel3 Cable Frequency - 1\n\t"
                         " Supported Frequencies: 200000");
}

TEST_F(CableFrequency, IsRefusedInSilenceWithoutAnEngine) {
  EngineImp alone;
  alone.currentProcessor = &record;
  alone.cableOption->CableOptionInit(Engine::QUORLA_PARALLEL3);
  alone.cableOption->frequency = 1;
  EXPECT_EQ(KvoOption_Parser::setcable_frequency(alone, 0), 2);
  EXPECT_EQ(alone.errorStr, "");
}

} // namespace

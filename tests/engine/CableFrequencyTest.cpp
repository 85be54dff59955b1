// Checking a cable's frequency against its type, and giving it the default.
#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>

#include "ZelDebugDialog/KvoOption_Parser.h"
#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

struct CheckedCable {
  Engine::CableType type;
  std::set<std::uint32_t> accepted;
  std::string beforeNumber;
  std::string afterNumber;
};

const CheckedCable checkedCables[] = {
    {Engine::QUORLA_PARALLEL3,
     {200000},
     "UnSupported Quorla Parallel3 Cable Frequency - ",
     "\n\t Supported Frequencies: 200000"},
    {Engine::QUORLA_PARALLEL4,
     {200000, 625000, 2500000, 5000000},
     "UnSupported Quorla Parallel4 Cable Frequency - ",
     "\n Supported Frequencies: 200000, 625000, 2500000, 5000000"},
    {Engine::QUORLA_PODUSB,
     {750000, 1500000, 3000000, 6000000, 12000000, 24000000},
     "UnSupported Quorla PodUSB Cable Frequency - ",
     "\nSupported Frequencies: 750000, 1500000, 3000000, 6000000, 12000000, "
     "24000000"},
    {Engine::QUORLA_TCF,
     {125000, 250000, 500000, 750000, 1000000, 1500000, 2000000, 3000000,
      4000000, 5000000, 6000000, 7500000, 10000000, 12000000, 15000000,
      24000000, 30000000},
     "UnSupported Quorla TCF Cable Frequency - ",
     "\nSupported Frequencies: 750000, 1500000, 3000000, 6000000, 10000000, "
     "12000000, 15000000, 20000000, 24000000, 30000000"},
};

/// Every frequency that any cable takes, its neighbours, 20 MHz, which a
/// message lists but nothing takes, and the ends of the range.
std::set<std::uint32_t> frequenciesToTry() {
  std::set<std::uint32_t> tried = {0,          1,          20000000,
                                   0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
  for (const CheckedCable &cable : checkedCables)
    for (const std::uint32_t frequency : cable.accepted)
      tried.insert({frequency - 1, frequency, frequency + 1, frequency / 10,
                    frequency * 10});
  return tried;
}

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
  for (const CheckedCable &cable : checkedCables) {
    for (const std::uint32_t frequency : frequenciesToTry()) {
      SCOPED_TRACE(::testing::Message() << cable.type << " at " << frequency);
      giveCable(cable.type, frequency);
      const std::string before = textOf(*state.cableOption);
      const bool accepted = cable.accepted.count(frequency) == 1;
      const std::string refusal =
          cable.beforeNumber +
          std::to_string(static_cast<std::int32_t>(frequency)) +
          cable.afterNumber;

      EXPECT_EQ(KvoOption_Parser::setcable_frequency(state, 0),
                accepted ? 0 : 2);
      EXPECT_EQ(errorText(), accepted ? "an old message" : refusal);
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
  for (const std::uint32_t type : {0U, 1U, 5U, 6U, 8U, 0x102U, 0xFFFFFFFFU}) {
    for (const std::uint32_t frequency : frequenciesToTry()) {
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
  constexpr struct {
    std::uint32_t type;
    std::uint32_t frequency;
  } rows[] = {
      {0, 0}, {1, 0}, {2, 5000000}, {3, 6000000}, {4, 200000},
      {5, 0}, {6, 0}, {7, 0},       {8, 0},       {0xFFFFFFFF, 0},
  };
  for (const auto &row : rows) {
    for (const int useDefault : {1, 2, -1, 0x100}) {
      SCOPED_TRACE(::testing::Message() << row.type << ' ' << useDefault);
      giveCable(row.type, 12345);
      CableOption expected = *state.cableOption;
      expected.frequency = row.frequency;
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

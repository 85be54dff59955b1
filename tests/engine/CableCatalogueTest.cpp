// What is known about each cable: its number, frequencies and defaults.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "ZelDebugDialog/CableCatalogue.h"
#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;

namespace {

static_assert(Engine::CABLE_NONE == 0);
static_assert(Engine::QUORLA_SVFFILE == 1);
static_assert(Engine::QUORLA_PARALLEL4 == 2);
static_assert(Engine::QUORLA_PODUSB == 3);
static_assert(Engine::QUORLA_PARALLEL3 == 4);
static_assert(Engine::QUORLA_PLUGIN == 5);
static_assert(Engine::DIGILENT_PLUGIN == 6);
static_assert(Engine::QUORLA_TCF == 7);
static_assert(Engine::CONNECT_SIM == 1 && Engine::CONNECT_HW == 2 &&
              Engine::CONNECT_STUB == 4 && Engine::CONNECT_VP == 8);
static_assert(Engine::STUB_JTAG == 0 && Engine::STUB_SERIAL == 1);

struct CableFacts {
  std::uint32_t type;
  const char *frequencies;
  std::uint32_t frequency;
  const char *port;
};

constexpr CableFacts catalogue[] = {
    {0, "0", 0, ""},
    {1, "0", 0, ""},
    {2, "200000 625000 2500000 5000000", 5000000, "LPT1"},
    {3, "750000 1500000 3000000 6000000 12000000 24000000", 6000000, "USB21"},
    {4, "200000", 200000, "LPT1"},
    {5, "0", 0, ""},
    {6, "0", 0, ""},
    {7, "0", 0, ""},
    {8, "0", 0, ""},
    {0x102, "0", 0, ""},
    {0xFFFFFFFF, "0", 0, ""},
};

class CableCatalogue : public support::EngineFixture {
protected:
  CableCatalogue() {
    engine.SetErrorStr("an old message");
    before = support::textOf(state);
  }
  ~CableCatalogue() override { EXPECT_EQ(support::textOf(state), before); }

  std::string before;
};

TEST_F(CableCatalogue, KnowsEachCablesFrequenciesAndDefaults) {
  for (const CableFacts &facts : catalogue) {
    SCOPED_TRACE(facts.type);
    const auto type = static_cast<Engine::CableType>(facts.type);
    EXPECT_EQ(getcable_supported_frequency(type), facts.frequencies);
    EXPECT_EQ(setcable_default_frequency(type), facts.frequency);
    EXPECT_EQ(setcable_default_port(type), facts.port);
  }
}

TEST_F(CableCatalogue, ListsFrequenciesAsNumbers) {
  const std::vector<std::uint32_t> tcf{
      125000,   250000,   500000,   750000,   1000000, 1500000,
      2000000,  3000000,  4000000,  5000000,  6000000, 7500000,
      10000000, 12000000, 15000000, 24000000, 30000000};
  for (const CableFacts &facts : catalogue) {
    SCOPED_TRACE(facts.type);
    const auto type = static_cast<Engine::CableType>(facts.type);
    const auto offered = GetOfferedFrequencies(type);
    std::string text;
    for (const std::uint32_t frequency : offered)
      text += (text.empty() ? "" : " ") + std::to_string(frequency);
    EXPECT_EQ(text.empty() ? "0" : text, facts.frequencies);
    const bool isTcf = type == Engine::QUORLA_TCF;
    EXPECT_EQ(GetAcceptedFrequencies(type), isTcf ? tcf : offered);
  }
}

TEST_F(CableCatalogue, AnswersTheSameThroughTheEngine) {
  for (const CableFacts &facts : catalogue) {
    SCOPED_TRACE(facts.type);
    const auto type = static_cast<Engine::CableType>(facts.type);
    EXPECT_EQ(engine.GetSupportedCableSpeed(type), facts.frequencies);
    EXPECT_EQ(engine.GetDefaultCableSpeed(type), facts.frequency);
    EXPECT_EQ(engine.GetDefaultCablePort(type), facts.port);
  }
}

TEST_F(CableCatalogue, HasNoNameForAnyCable) {
  for (const CableFacts &facts : catalogue) {
    SCOPED_TRACE(facts.type);
    EXPECT_EQ(engine.GetCableName(static_cast<Engine::CableType>(facts.type)),
              "");
  }
}

TEST_F(CableCatalogue, FindsNoCableByName) {
  for (const char *name :
       {"quorla_podusb", "quorla_parallel", "quorla_parallel3",
        "quorla_parallel4", "quorla_plugin", "quorla_svffile", "quorla_tcf",
        "digilent_plugin", "QUORLA_PODUSB", "", "nonsense"}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(engine.GetCableType(std::string(name)), 1);
  }
}

} // namespace

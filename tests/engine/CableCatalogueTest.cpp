// What is known about each cable: its number, frequencies and defaults.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "ZelDebugDialog/CableCatalogue.h"
#include "support/Cables.h"
#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;

namespace {

static_assert(Engine::CONNECT_SIM == 1 && Engine::CONNECT_HW == 2 &&
              Engine::CONNECT_STUB == 4 && Engine::CONNECT_VP == 8);
static_assert(Engine::STUB_JTAG == 0 && Engine::STUB_SERIAL == 1);

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
  for (const std::uint32_t number : support::cableNumbers()) {
    SCOPED_TRACE(number);
    const support::Cable &facts = support::cableOf(number);
    const auto type = static_cast<Engine::CableType>(number);
    EXPECT_EQ(getcable_supported_frequency(type),
              support::inOneText(facts.offered));
    EXPECT_EQ(setcable_default_frequency(type), facts.frequency);
    EXPECT_EQ(setcable_default_port(type), facts.port);
  }
}

TEST_F(CableCatalogue, ListsFrequenciesAsNumbers) {
  for (const std::uint32_t number : support::cableNumbers()) {
    SCOPED_TRACE(number);
    const support::Cable &facts = support::cableOf(number);
    const auto type = static_cast<Engine::CableType>(number);
    EXPECT_EQ(GetOfferedFrequencies(type), facts.offered);
    EXPECT_EQ(GetAcceptedFrequencies(type), facts.accepted);
  }
}

TEST_F(CableCatalogue, AnswersTheSameThroughTheEngine) {
  for (const std::uint32_t number : support::cableNumbers()) {
    SCOPED_TRACE(number);
    const support::Cable &facts = support::cableOf(number);
    const auto type = static_cast<Engine::CableType>(number);
    EXPECT_EQ(engine.GetSupportedCableSpeed(type),
              support::inOneText(facts.offered));
    EXPECT_EQ(engine.GetDefaultCableSpeed(type), facts.frequency);
    EXPECT_EQ(engine.GetDefaultCablePort(type), facts.port);
  }
}

TEST_F(CableCatalogue, HasNoNameForAnyCable) {
  for (const std::uint32_t number : support::cableNumbers()) {
    SCOPED_TRACE(number);
    EXPECT_EQ(engine.GetCableName(static_cast<Engine::CableType>(number)), "");
  }
}

TEST_F(CableCatalogue, FindsNoCableByName) {
  std::vector<std::string> names = support::cableWords();
  names.insert(names.end(),
               {"quorla_svffile", "QUORLA_PODUSB", "", "nonsense"});
  for (const std::string &name : names) {
    SCOPED_TRACE(name);
    EXPECT_EQ(engine.GetCableType(name), 1);
  }
}

} // namespace

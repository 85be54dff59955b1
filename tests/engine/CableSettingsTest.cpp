// Type, frequency, port and serial number of the cable.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "support/Cables.h"
#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

class CableSettings : public support::RecordFixture {
protected:
  CableSettings() {
    *state.cableOption = support::unusualCable();
    engine.SetErrorStr("an old message");
  }

  /// The engine's cable is `expected` and nothing else has changed.
  void expectOnlyCable(const CableOption &expected) {
    EXPECT_EQ(textOf(*state.cableOption), textOf(expected));
    EXPECT_EQ(textOf(record), textOf(ProcessorInfoImp()));
    EXPECT_EQ(state.cpuJtag, 0U);
    EXPECT_TRUE(state.jtagChain.empty());
    EXPECT_EQ(errorText(), "an old message");
  }
};

TEST_F(CableSettings, StartACableAnewWithItsType) {
  for (const std::uint32_t value : support::cableNumbers()) {
    SCOPED_TRACE(value);
    const auto type = static_cast<Engine::CableType>(value);
    *state.cableOption = support::unusualCable();
    CableOption expected;
    expected.CableOptionInit(type);
    EXPECT_EQ(engine.SetCableType(type), 0);
    expectOnlyCable(expected);

    auto read = Engine::CABLE_NONE;
    EXPECT_EQ(engine.GetCableType(read), 0);
    EXPECT_EQ(read, type);
  }
}

TEST_F(CableSettings, TakeSpeedPortAndSerialNumberUnchecked) {
  CableOption expected = support::unusualCable();
  for (const unsigned speed : {1U, 200000U, 0xFFFFFFFFU, 0U}) {
    SCOPED_TRACE(speed);
    expected.frequency = speed;
    EXPECT_EQ(engine.SetCableSpeed(speed), 0);
    expectOnlyCable(expected);
  }
  for (const std::string &text : {std::string("LPT2"), std::string(5000, 'x'),
                                  std::string("a\0b", 3), std::string()}) {
    SCOPED_TRACE(text);
    expected.port = text;
    EXPECT_EQ(engine.SetCablePort(text), 0);
    expectOnlyCable(expected);
    expected.esn = text;
    EXPECT_EQ(engine.SetCableESN(text), 0);
    expectOnlyCable(expected);
    expected.esn = "an esn";
    engine.SetCableESN(expected.esn);
  }
}

TEST(CableSettingsAlone, CanBeMadeWithoutAProcessor) {
  Engine engine;
  const EngineImp &state = *engine.GetProcessorList(nullptr);
  EXPECT_EQ(engine.SetCableType(Engine::QUORLA_PARALLEL4), 0);
  EXPECT_EQ(engine.SetCableSpeed(7), 0);
  EXPECT_EQ(engine.SetCablePort("p"), 0);
  EXPECT_EQ(engine.SetCableESN("e"), 0);
  EXPECT_EQ(state.cableOption->cableType, Engine::QUORLA_PARALLEL4);
  EXPECT_EQ(state.cableOption->frequency, 7U);
  EXPECT_EQ(state.cableOption->port, "p");
  EXPECT_EQ(state.cableOption->esn, "e");
}

TEST_F(CableSettings, AreHiddenWhereNoCableIsUsed) {
  constexpr struct {
    std::uint32_t connectionType;
    std::uint32_t stubType;
    int result;
  } rows[] = {
      {2, 0, 0}, {4, 0, 0}, {0, 0, 0},    {3, 0, 0},    {9, 0, 0},
      {5, 0, 0}, {2, 2, 0}, {0x84, 0, 0}, {0x10, 0, 0}, {1, 0, 2},
      {8, 0, 2}, {2, 1, 2}, {4, 1, 2},    {0, 1, 2},    {1, 1, 2},
      {8, 1, 2}, {1, 2, 2}, {8, 2, 2},    {0x84, 1, 2},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(::testing::Message() << "connection " << row.connectionType
                                      << " stub " << row.stubType);
    record.connectionType = row.connectionType;
    record.stubType = row.stubType;
    const bool shown = row.result == 0;

    auto type = Engine::QUORLA_TCF;
    EXPECT_EQ(engine.GetCableType(type), row.result);
    EXPECT_EQ(type, shown ? Engine::QUORLA_PODUSB : Engine::QUORLA_TCF);
    unsigned speed = 77;
    EXPECT_EQ(engine.GetCableSpeed(speed), row.result);
    EXPECT_EQ(speed, shown ? 12345U : 77U);
    std::string port = "what stood there";
    EXPECT_EQ(engine.GetCablePort(port), row.result);
    EXPECT_EQ(port, shown ? "a port" : "what stood there");
    std::string esn = "what stood there";
    EXPECT_EQ(engine.GetCableESN(esn), row.result);
    EXPECT_EQ(esn, shown ? "an esn" : "what stood there");

    // What is empty stays hidden just as well.
    *state.cableOption = CableOption();
    type = Engine::QUORLA_TCF;
    EXPECT_EQ(engine.GetCableType(type), row.result);
    EXPECT_EQ(type, shown ? Engine::CABLE_NONE : Engine::QUORLA_TCF);
    EXPECT_EQ(engine.GetCableSpeed(speed = 77), shown ? 1 : 2);
    EXPECT_EQ(speed, shown ? 0U : 77U);
    EXPECT_EQ(engine.GetCablePort(port = "there"), shown ? 1 : 2);
    EXPECT_EQ(port, shown ? "" : "there");
    EXPECT_EQ(engine.GetCableESN(esn = "there"), shown ? 1 : 2);
    EXPECT_EQ(esn, shown ? "" : "there");
    *state.cableOption = support::unusualCable();
    EXPECT_EQ(errorText(), "an old message");
  }
}

TEST_F(CableSettings, OfACallersQuorlaCableAreTakenForAllTypesButThePlugin) {
  for (const std::uint32_t value : support::cableNumbers()) {
    SCOPED_TRACE(value);
    const auto type = static_cast<Engine::CableType>(value);
    CableOption target = support::unusualCable();
    target.cableType = Engine::QUORLA_TCF;
    CableOption expected = target;
    const bool taken = type != Engine::QUORLA_PLUGIN;
    if (taken) {
      expected.cableType = type;
      expected.frequency = 99;
      expected.port = "another port";
    }
    EXPECT_EQ(engine.SetQuorlaCableOptions(target, type, 99, "another port"),
              taken ? 0 : 1);
    EXPECT_EQ(textOf(target), textOf(expected));
    expectOnlyCable(support::unusualCable());
  }
}

TEST_F(CableSettings, OfACallersQuorlaCableMayBeEmpty) {
  CableOption target = support::unusualCable();
  EXPECT_EQ(engine.SetQuorlaCableOptions(target, Engine::CABLE_NONE, 0, ""), 0);
  CableOption expected = support::unusualCable();
  expected.cableType = Engine::CABLE_NONE;
  expected.frequency = 0;
  expected.port = "";
  EXPECT_EQ(textOf(target), textOf(expected));
}

TEST_F(CableSettings, OfACallersDigilentCableAreItsTypeAlone) {
  for (const std::uint32_t value : support::cableNumbers()) {
    SCOPED_TRACE(value);
    const auto type = static_cast<Engine::CableType>(value);
    CableOption target = support::unusualCable();
    CableOption expected = target;
    const bool taken = type == Engine::DIGILENT_PLUGIN;
    if (taken)
      expected.cableType = Engine::DIGILENT_PLUGIN;
    EXPECT_EQ(engine.SetDigilentCableOptions(target, type, 99, "another port"),
              taken ? 0 : 1);
    EXPECT_EQ(textOf(target), textOf(expected));
    expectOnlyCable(support::unusualCable());
  }
}

} // namespace

// The error string: the last message, whole, until a reset.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/EngineFixture.h"

using namespace ZelDebugDialog;

namespace {

using ErrorString = support::RecordFixture;

TEST_F(ErrorString, HoldsOnlyTheLastMessage) {
  engine.SetErrorStr(std::string("the first message, a longer one"));
  engine.SetErrorStr(std::string("second"));
  EXPECT_EQ(errorText(), "second");
  engine.SetErrorStr("third");
  EXPECT_EQ(errorText(), "third");
  EXPECT_EQ(state.errorStr, "third");
}

TEST_F(ErrorString, CanBeReplacedByNothing) {
  engine.SetErrorStr("a message");
  engine.SetErrorStr("");
  EXPECT_EQ(errorText(), "");
  engine.SetErrorStr("a message");
  engine.SetErrorStr(std::string());
  EXPECT_EQ(errorText(), "");
}

TEST_F(ErrorString, ReplacesWhatTheCallersStringHeld) {
  engine.SetErrorStr("new");
  std::string text = "a much longer text that stood there before";
  engine.GetErrorStr(text);
  EXPECT_EQ(text, "new");
  engine.GetErrorStr(text);
  EXPECT_EQ(text, "new");
}

TEST_F(ErrorString, IsACopy) {
  std::string text = "kept";
  engine.SetErrorStr(text);
  text = "lost";
  EXPECT_EQ(errorText(), "kept");
}

TEST_F(ErrorString, KeepsNullBytesOfAString) {
  const std::string text("one\0two", 7);
  engine.SetErrorStr(text);
  EXPECT_EQ(errorText(), text);
}

TEST_F(ErrorString, EndsATextAtItsNull) {
  engine.SetErrorStr("one\0two");
  EXPECT_EQ(errorText(), "one");
}

TEST_F(ErrorString, KeepsFormatCharactersAndAnyLength) {
  const std::string text = "%s%n%d" + std::string(100000, 'x');
  engine.SetErrorStr(text);
  EXPECT_EQ(errorText(), text);
  engine.SetErrorStr("short");
  engine.SetErrorStr(text.c_str());
  EXPECT_EQ(errorText(), text);
}

TEST_F(ErrorString, SurvivesEverySuccess) {
  record.connectionMask = 0xFF;
  record.connectionType = 2;
  record.procFamily = 1;
  engine.SetErrorStr("an old message");

  Engine::ConnectionType type{};
  unsigned number = 0;
  std::string text;
  CableOption cable;
  std::vector<JtagOption *> chain;
  EXPECT_EQ(engine.SetConnectionType(Engine::CONNECT_HW), 0);
  EXPECT_EQ(engine.GetConnectionType(type), 0);
  EXPECT_EQ(engine.SetIcacheBaseAddr(0x10000), 0);
  EXPECT_EQ(engine.GetIcacheBaseAddr(number), 0);
  EXPECT_EQ(engine.SetCableType(Engine::QUORLA_PODUSB), 0);
  EXPECT_EQ(engine.GetCablePort(text), 0);
  EXPECT_EQ(engine.Set3rdPartyCableOptions(cable, ""), 0);
  EXPECT_EQ(engine.GenerateJtagCableCmdString(text, cable, chain, '\1'), 0);
  EXPECT_EQ(engine.GenerateCmdString(text), 0);
  EXPECT_EQ(errorText(), "an old message");
}

TEST_F(ErrorString, SurvivesRefusalsThatHaveNoMessage) {
  record.connectionMask = 1;
  record.connectionType = 1;
  engine.SetErrorStr("an old message");

  unsigned number = 0;
  std::string text;
  CableOption cable;
  EXPECT_EQ(engine.SetConnectionType(Engine::CONNECT_HW), 1);
  EXPECT_EQ(engine.GetIcacheBaseAddr(number), 2);
  EXPECT_EQ(engine.GetCablePort(text), 2);
  EXPECT_EQ(engine.GetPluginCableOptions(text), 2);
  EXPECT_EQ(engine.Get3rdPartyCableOptions(text, cable), 1);
  EXPECT_EQ(engine.GetCableType(std::string("quorla_podusb")), 1);
  EXPECT_EQ(errorText(), "an old message");
}

TEST_F(ErrorString, IsEmptiedByAReset) {
  engine.SetErrorStr("a message");
  state.EngineImpInit();
  EXPECT_EQ(errorText(), "");
}

} // namespace

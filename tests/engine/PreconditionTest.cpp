// Operations that need a current processor, and chains without null pointers:
// a debug build stops at the assertion. Other builds check nothing.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/KvoOption_Parser.h"

#ifndef NDEBUG

using namespace ZelDebugDialog;

namespace {

using Operation = std::function<void(Engine &, EngineImp &)>;

struct NamedOperation {
  const char *name;
  Operation run;
};

unsigned number;
int signedNumber;
std::string text;
std::vector<JtagOption *> chain;
Engine::ConnectionType connectionType;
Engine::StubType stubType;
Engine::CableType cableType;

const NamedOperation operations[] = {
    {"SetConnectionType",
     [](Engine &e, EngineImp &) { e.SetConnectionType(Engine::CONNECT_HW); }},
    {"GetConnectionType",
     [](Engine &e, EngineImp &) { e.GetConnectionType(connectionType); }},
    {"SetStubType",
     [](Engine &e, EngineImp &) { e.SetStubType(Engine::STUB_SERIAL); }},
    {"GetStubType", [](Engine &e, EngineImp &) { e.GetStubType(stubType); }},
    {"SetStubSerialPort",
     [](Engine &e, EngineImp &) { e.SetStubSerialPort("p"); }},
    {"GetStubSerialPort",
     [](Engine &e, EngineImp &) { e.GetStubSerialPort(text); }},
    {"SetStubBaudrate", [](Engine &e, EngineImp &) { e.SetStubBaudrate(1); }},
    {"GetStubBaudRate",
     [](Engine &e, EngineImp &) { e.GetStubBaudRate(signedNumber); }},
    {"SetDebugDevice", [](Engine &e, EngineImp &) { e.SetDebugDevice(1); }},
    {"GetDebugDevice",
     [](Engine &e, EngineImp &) { e.GetDebugDevice(signedNumber); }},
    {"GetPPCSimConfigFile",
     [](Engine &e, EngineImp &) { e.GetPPCSimConfigFile(text); }},
    {"GetDebugAddressMap",
     [](Engine &e, EngineImp &) { e.GetDebugAddressMap(number); }},
    {"GetIcacheBaseAddr",
     [](Engine &e, EngineImp &) { e.GetIcacheBaseAddr(number); }},
    {"GetDcacheBaseAddr",
     [](Engine &e, EngineImp &) { e.GetDcacheBaseAddr(number); }},
    {"GetITagBaseAddr",
     [](Engine &e, EngineImp &) { e.GetITagBaseAddr(number); }},
    {"GetDTagBaseAddr",
     [](Engine &e, EngineImp &) { e.GetDTagBaseAddr(number); }},
    {"GetTlbBaseAddr",
     [](Engine &e, EngineImp &) { e.GetTlbBaseAddr(number); }},
    {"GetDcrBaseAddr",
     [](Engine &e, EngineImp &) { e.GetDcrBaseAddr(number); }},
    {"GetISOCMBaseAddr",
     [](Engine &e, EngineImp &) { e.GetISOCMBaseAddr(number); }},
    {"SetIcacheBaseAddr",
     [](Engine &e, EngineImp &) { e.SetIcacheBaseAddr(0x10000); }},
    {"SetDcacheBaseAddr",
     [](Engine &e, EngineImp &) { e.SetDcacheBaseAddr(0x10000); }},
    {"SetITagBaseAddr",
     [](Engine &e, EngineImp &) { e.SetITagBaseAddr(0x10000); }},
    {"SetDTagBaseAddr",
     [](Engine &e, EngineImp &) { e.SetDTagBaseAddr(0x10000); }},
    {"SetTlbBaseAddr",
     [](Engine &e, EngineImp &) { e.SetTlbBaseAddr(0x10000); }},
    {"SetDcrBaseAddr",
     [](Engine &e, EngineImp &) { e.SetDcrBaseAddr(0x10000); }},
    {"UnSetDebugAddressMap",
     [](Engine &e, EngineImp &) { e.UnSetDebugAddressMap(); }},
    {"SetROMem", [](Engine &e, EngineImp &) { e.SetROMem(0, 1); }},
    {"GetROMem", [](Engine &e, EngineImp &) { e.GetROMem(number, number); }},
    {"GetCableType", [](Engine &e, EngineImp &) { e.GetCableType(cableType); }},
    {"GetCableSpeed", [](Engine &e, EngineImp &) { e.GetCableSpeed(number); }},
    {"GetCablePort", [](Engine &e, EngineImp &) { e.GetCablePort(text); }},
    {"GetCableESN", [](Engine &e, EngineImp &) { e.GetCableESN(text); }},
    {"GetJtagChainOptions",
     [](Engine &e, EngineImp &) { e.GetJtagChainOptions(chain); }},
    {"Generate", [](Engine &e, EngineImp &) { e.Generate(); }},
    {"GenerateCmdString",
     [](Engine &e, EngineImp &) { e.GenerateCmdString(text); }},
    {"GetFPUType", [](Engine &, EngineImp &s) { s.GetFPUType(); }},
    {"InitPPCDebugAddressMap",
     [](Engine &, EngineImp &s) { s.InitPPCDebugAddressMap(); }},
    {"AssignAddressMap", [](Engine &, EngineImp &s) { s.AssignAddressMap(0); }},
    {"write_jtagoptions",
     [](Engine &, EngineImp &s) {
       KvoOption_Parser::write_jtagoptions(text, s);
     }},
    {"WriteJtagCableOptionsString",
     [](Engine &, EngineImp &s) {
       KvoOption_Parser::WriteJtagCableOptionsString(s, text);
     }},
};

TEST(PreconditionDeathTest, ACurrentProcessorIsAsserted) {
  Engine engine;
  EngineImp &state = *engine.GetProcessorList(nullptr);
  for (const NamedOperation &operation : operations) {
    SCOPED_TRACE(operation.name);
    EXPECT_DEATH(operation.run(engine, state), "Assertion");
  }
}

TEST(PreconditionDeathTest, NoOperationStopsWithACurrentProcessor) {
  Engine engine;
  EngineImp &state = *engine.GetProcessorList(nullptr);
  ProcessorInfoImp record;
  // With this name no option file can be opened.
  record.instanceName = "no/such/folder";
  state.currentProcessor = &record;
  for (const NamedOperation &operation : operations) {
    SCOPED_TRACE(operation.name);
    operation.run(engine, state);
  }
  EXPECT_EQ(state.currentProcessor, &record);
  state.currentProcessor = nullptr;
}

TEST(PreconditionDeathTest, ChainPointersAreAsserted) {
  Engine engine;
  EngineImp &state = *engine.GetProcessorList(nullptr);
  ProcessorInfoImp record;
  state.currentProcessor = &record;
  JtagOption device;
  std::vector<JtagOption *> withNull = {&device, nullptr};
  std::string out;
  EXPECT_DEATH(
      {
        engine.SetJtagChainOptions(withNull);
        engine.GenerateCmdString(out);
      },
      "Assertion");
  EXPECT_DEATH(
      engine.GenerateJtagCableCmdString(out, CableOption(), withNull, '\0'),
      "Assertion");
  state.currentProcessor = nullptr;
}

} // namespace

#endif

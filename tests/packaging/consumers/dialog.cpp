// What a dialog does first: discovers the processors, selects one, chooses a
// cable, and has the connect command generated. Ends with 0 when all of it came
// out right. A refused command sends its message to the message output.
#include <cstdio>
#include <string>
#include <vector>

#include "OneLumacore.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/ProcessorInfo.h"

using namespace ZelDebugDialog;

namespace {

int failures = 0;

void expect(bool held, const char *what) {
  if (held)
    return;
  std::fprintf(stderr, "not so: %s\n", what);
  ++failures;
}

} // namespace

int main() {
  Engine engine;
  EngineImp *const state = engine.GetProcessorList(&oneLumacore());
  expect(state->processorList.size() == 1, "one processor is listed");

  ProcessorInfo info;
  constexpr int nothingSaved = 4;
  expect(engine.SetProcessor("cpu0", info) == nothingSaved,
         "cpu0 starts with the defaults");
  expect(info.connectionMask == (Engine::CONNECT_SIM | Engine::CONNECT_HW),
         "cpu0 allows the simulator and hardware");

  engine.SetCableType(Engine::QUORLA_PODUSB);
  std::string command;
  expect(engine.GenerateCmdString(command) == 0, "a command is generated");
  std::printf("%s\n", command.c_str());
  expect(command == "connect lc hdu -cable type quorla_podusb port USB21 "
                    "frequency 6000000 -debugdevice cpunr 1",
         "the command names cable and processor");
  ReleaseProcessorRecords(*state);

  expect(state->GetProcessorInfo("connect lc hdu -cable colour red") == nullptr,
         "an unknown cable parameter is refused");
  return failures == 0 ? 0 : 1;
}

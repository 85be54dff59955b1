// The life of a debug-configuration dialog: discover, select, edit, generate,
// save, and load again. Prints what the dialog would show.
#include <cstdio>
#include <string>
#include <vector>

#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/ProcessorInfo.h"

using namespace ZelDebugDialog;

int main(int count, char **arguments) {
  if (count != 2)
    return 2;
  // Discover: the design says which processors a debugger can reach.
  DesignModel board;
  if (!ReadDesign({arguments[1], {}, "", ""}, board)) {
    std::puts(board.Diagnostics().front().message.c_str());
    return 1;
  }
  Engine engine;
  EngineImp *const state = engine.GetProcessorList(&board);
  for (const ProcessorInfoImp *processor : state->processorList)
    std::printf("offer   %s\n", processor->instanceName.c_str());

  // Select: 0 when its option file was read, 4 when there is none yet.
  ProcessorInfo info;
  const bool saved = engine.SetProcessor("lumacore_0", info) == 0;
  std::printf("select  lumacore_0, %s\n", saved ? "as saved" : "with defaults");

  // Edit: setters return 0, or leave a message and everything as it was.
  if (engine.SetStubType(Engine::STUB_SERIAL) != 0) {
    std::string message;
    engine.GetErrorStr(message);
    std::printf("refused %s\n", message.c_str());
  }
  engine.SetConnectionType(Engine::CONNECT_HW);
  engine.SetCableType(Engine::QUORLA_PODUSB);
  engine.SetCableSpeed(3000000); // hertz
  engine.SetDebugDevice(1);

  // Generate: the text for the debugger.
  std::string command;
  if (engine.GenerateCmdString(command) != 0)
    return 1;
  std::printf("command %s\n", command.c_str());

  // Save, into etc/kvo_lumacore_0.opt of the working directory; load again.
  const bool done =
      engine.Generate() == 0 && engine.SetProcessor("lumacore_0", info) == 0;
  unsigned frequency = 0;
  engine.GetCableSpeed(frequency);
  std::printf("loaded  %u Hz\n", frequency);

  ReleaseProcessorRecords(*state); // the records are the caller's
  return done ? 0 : 1;
}

// A batch: writes the option files of all processors of a board, with one cable
// for those on hardware, into etc/ of the working directory.
//
//   option_files board.xml
#include <cstdio>
#include <string>
#include <vector>

#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/ProcessorInfo.h"

using namespace ZelDebugDialog;

namespace {

bool read(const char *file, DesignModel &board) {
  const bool done = ReadDesign({file, {}, "", ""}, board);
  for (const DesignDiagnostic &diagnostic : board.Diagnostics())
    std::fprintf(stderr, "%s:%d: %s\n", diagnostic.file.c_str(),
                 diagnostic.line, diagnostic.message.c_str());
  return done;
}

/// Saves one processor's configuration; false with the reason printed.
bool save(Engine &engine, const std::string &name) {
  constexpr int nothingSaved = 4;
  ProcessorInfo info;
  const int selected = engine.SetProcessor(name, info);
  bool done = selected == 0 || selected == nothingSaved;
  if (done) {
    if (engine.SetConnectionType(Engine::CONNECT_HW) == 0)
      engine.SetCableType(Engine::QUORLA_PODUSB);
    else
      engine.SetConnectionType(Engine::CONNECT_SIM);
    done = engine.Generate() == 0;
  }
  if (done)
    std::printf("etc/kvo_%s.opt\n", name.c_str());
  else {
    std::string message;
    engine.GetErrorStr(message);
    std::fprintf(stderr, "%s: %s\n", name.c_str(), message.c_str());
  }
  return done;
}

} // namespace

int main(int count, char **arguments) {
  if (count != 2) {
    std::fputs("option_files board.xml\n", stderr);
    return 2;
  }
  DesignModel board;
  if (!read(arguments[1], board))
    return 1;

  Engine engine;
  EngineImp *const state = engine.GetProcessorList(&board);
  bool done = true;
  for (const ProcessorInfoImp *processor : state->processorList)
    done = save(engine, processor->instanceName) && done;
  ReleaseProcessorRecords(*state);
  return done ? 0 : 1;
}

#include "ZelDebugDialog/Engine.h"

#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/KvoOption_Parser.h"

namespace ZelDebugDialog {

Engine::Engine()
    : imp(std::make_unique<EngineImp>()), defaultPartName("pk9ab100") {
  imp->engine = this;
}

Engine::~Engine() = default;

int Engine::Generate() { return KvoOption_Parser::WriteKvoOptFile(*imp); }

int Engine::GenerateCmdString(std::string &command) {
  return KvoOption_Parser::WriteKvoCmdString(*imp, command);
}

void Engine::GetErrorStr(std::string &text) { text = imp->errorStr; }

void Engine::SetErrorStr(const std::string &text) { imp->errorStr = text; }

void Engine::SetErrorStr(const char *text) { imp->errorStr = text; }

} // namespace ZelDebugDialog

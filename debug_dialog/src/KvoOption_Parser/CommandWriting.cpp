#include "ZelDebugDialog/CommandWriting.h"

#include "KvoOption_Parser/Writers.h"

namespace ZelDebugDialog {

int TraceKvoWriting(EngineImp &imp, std::string &out, CommandWriting &writing) {
  writing = CommandWriting();
  kvo::WriteRecorder recorder(writing);
  return kvo::writeCommandString(imp, out, &recorder);
}

} // namespace ZelDebugDialog

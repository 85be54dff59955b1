#include "ZelDebugDialog/CommandTrace.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "KvoOption_Parser/ConnectCommand.h"
#include "KvoOption_Parser/Message.h"
#include "KvoOption_Parser/Recorder.h"
#include "ZelDebugDialog/Engine.h"
#include "facts/CurrentRecord.h"
#include "facts/Results.h"

namespace ZelDebugDialog {

namespace {

std::string errorOf(const EngineImp &imp) {
  std::string message;
  if (imp.engine != nullptr)
    imp.engine->GetErrorStr(message);
  return message;
}

/// Makes the error string what reading alone would have made it: faults have
/// taken its messages with them.
void restoreMessage(const EngineImp &imp, const CommandTrace &trace,
                    const std::string &before) {
  if (imp.engine == nullptr)
    return;
  const auto last = std::find_if(
      trace.faults.rbegin(), trace.faults.rend(),
      [](const CommandFault &fault) { return !fault.message.empty(); });
  imp.engine->SetErrorStr(last == trace.faults.rend() ? before : last->message);
}

} // namespace

int TraceKvoCommand(std::string command, EngineImp &imp, CommandTrace &trace,
                    AfterFault afterFault) {
  trace = CommandTrace();
  currentRecord(imp).connectCommand = command;
  const std::string before = errorOf(imp);
  kvo::setMessage(imp, {});
  kvo::Recorder recorder(trace, imp, afterFault);
  kvo::WordCursor cursor(command, &recorder);
  int result = result::notRead;
  try {
    result = kvo::readCommand(cursor, imp, kvo::CommandSource::dialog);
  } catch (const std::out_of_range &) {
    restoreMessage(imp, trace, before);
    cursor.ignoreRest();
    throw;
  } catch (...) {
    restoreMessage(imp, trace, before);
    throw;
  }
  restoreMessage(imp, trace, before);
  cursor.ignoreRest();
  const bool goesOn = afterFault == AfterFault::goOn;
  return goesOn && !trace.faults.empty() ? result::notRead : result;
}

} // namespace ZelDebugDialog

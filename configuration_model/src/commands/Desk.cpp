#include "commands/Desk.h"

#include <stdexcept>
#include <utility>

#include "ZelDebugDialog/KvoOption_Parser.h"
#include "commands/EngineLock.h"
#include "text/Printable.h"

namespace ZelDebugDialog::model {

namespace {

constexpr int refused = 3;

/// The engine lets the exception for a lone "-" through; here it is a refusal
/// like the others.
template <class Read> Reading readingOf(Engine &engine, const Read &read) {
  try {
    Reading reading{read(), ""};
    if (!reading.accepted())
      engine.GetErrorStr(reading.message);
    return reading;
  } catch (const std::out_of_range &) {
    return {refused, "a word is a lone '-'"};
  }
}

} // namespace

Desk::Desk() : Desk(nullptr, ProcessorInfoImp()) {}

Desk::Desk(HHSMHwManager *design, ProcessorInfoImp identity)
    : processor(std::move(identity)), imp(engine.GetProcessorList(nullptr)) {
  imp->hwManager = design;
  imp->processorList.push_back(&record);
  begin();
}

Desk::~Desk() { ReleaseChainRecords(imp->jtagChain); }

void Desk::begin() {
  ReleaseChainRecords(imp->jtagChain);
  record = processor;
  imp->currentProcessor = &record;
  imp->EngineImpInit();
}

Reading Desk::selectFrom(const std::string &command) {
  const EngineLock lock;
  begin();
  ProcessorInfo info;
  return readingOf(engine, [&] {
    return engine.ParseProcessorInfo(record.instanceName, info, command);
  });
}

Reading Desk::selectFile(const std::string &path) {
  const EngineLock lock;
  begin();
  ProcessorInfo info;
  return readingOf(engine, [&] {
    return engine.SetProcessorFrom(record.instanceName, info, path);
  });
}

void Desk::startFromDefaults() {
  const EngineLock lock;
  begin();
  imp->GetFPUType();
}

Reading Desk::readCommand(const std::string &command) {
  const EngineLock lock;
  begin();
  return readingOf(
      engine, [&] { return KvoOption_Parser::ReadKvoCommand(command, *imp); });
}

bool Desk::traceCommand(const std::string &command, AfterFault afterFault,
                        CommandTrace &trace) {
  const EngineLock lock;
  begin();
  try {
    TraceKvoCommand(command, *imp, trace, afterFault);
    return true;
  } catch (const std::out_of_range &) {
    return false;
  }
}

Reading Desk::writeCommand(std::string &command) {
  const EngineLock lock;
  // Of several reasons some have no message; an earlier one would be shown.
  engine.SetErrorStr("");
  return readingOf(engine, [&] { return engine.GenerateCmdString(command); });
}

std::string reasonOf(const std::string &message) {
  const std::string reason = onOneLine(message);
  return reason.empty() ? "the engine gives no reason" : reason;
}

} // namespace ZelDebugDialog::model

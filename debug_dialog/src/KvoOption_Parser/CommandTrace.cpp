#include "ZelDebugDialog/CommandTrace.h"

#include <algorithm>
#include <utility>

#include "KvoOption_Parser/ConnectCommand.h"
#include "KvoOption_Parser/Descriptions.h"
#include "KvoOption_Parser/Message.h"
#include "KvoOption_Parser/Recorder.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog_Engine/CurrentRecord.h"
#include "ZelDebugDialog_Engine/Results.h"

namespace ZelDebugDialog {

namespace {

std::string errorOf(const EngineImp &imp) {
  std::string message;
  if (imp.engine != nullptr)
    imp.engine->GetErrorStr(message);
  return message;
}

} // namespace

namespace kvo {

void Recorder::sets(const ValueForm &form) const {
  CommandWord &word = trace->words.back();
  word.conversion = form.conversion;
  // The device that a clause is filling stands behind those of the chain.
  word.fields = splitFields(form.fields, std::to_string(imp->jtagChain.size()));
}

void Recorder::setsNow(std::size_t word, const ValueForm &form) const {
  for (const std::string &field : splitFields(form.fields)) {
    replaces(field);
    trace->words[word].fields.push_back(field);
  }
}

void Recorder::replaces(std::string_view field) const {
  for (CommandWord &word : trace->words)
    word.fields.erase(
        std::remove(word.fields.begin(), word.fields.end(), field),
        word.fields.end());
}

void Recorder::accepts(const NamedValues &accepted) const {
  for (const NamedValue &row : accepted)
    trace->faults.back().accepted.emplace_back(row.keyword);
}

void Recorder::faultAt(std::string_view field, CommandFaultKind kind,
                       const Frequencies &accepted) const {
  const auto setsField = [field](const CommandWord &word) {
    return std::find(word.fields.begin(), word.fields.end(), field) !=
           word.fields.end();
  };
  const auto found =
      std::find_if(trace->words.rbegin(), trace->words.rend(), setsField);
  fault(kind, NamedValues(),
        static_cast<std::size_t>(found - trace->words.rbegin()));
  for (const std::uint32_t frequency : accepted)
    trace->faults.back().accepted.push_back(std::to_string(frequency));
}

std::string Recorder::takeMessage() const {
  std::string message = errorOf(*imp);
  setMessage(*imp, {});
  return message;
}

} // namespace kvo

namespace {

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
  kvo::WordCursor<kvo::Recorder> cursor(command,
                                        kvo::Recorder(trace, imp, afterFault));
  int result = result::notRead;
  try {
    result = kvo::readCommand(cursor, imp, kvo::CommandSource::dialog);
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

#include "Session.h"

#include <algorithm>
#include <stdexcept>

#include <ZelDebugDialog/KvoOption_Parser.h>

namespace zeldebug {

namespace {

using ZelDebugDialog::KvoOption_Parser;
using ZelDebugDialog::ProcessorInfo;
using ZelDebugDialog::ProcessorInfoImp;

constexpr int refused = 3;

/// The engine lets the exception for a lone "-" through; here it is a refusal
/// like the others.
template <class Read> Reading readingOf(Session &session, Read read) {
  try {
    const int result = read();
    return {result, (result & ~4) == 0 ? std::string() : session.message()};
  } catch (const std::out_of_range &) {
    return {refused, "a word is a lone '-'"};
  }
}

} // namespace

Session::Session(HHSMHwManager *design)
    : state(engine.GetProcessorList(design)) {}

Session::~Session() {
  forgetChain();
  if (ownRecord != nullptr && state->currentProcessor == ownRecord.get())
    state->currentProcessor = nullptr;
  ReleaseProcessorRecords(*state);
}

void Session::forgetChain() { ReleaseChainRecords(state->jtagChain); }

std::string Session::message() {
  std::string text;
  engine.GetErrorStr(text);
  return text;
}

std::vector<std::string> Session::processorNames() const {
  std::vector<std::string> names;
  for (const ProcessorInfoImp *record : state->processorList)
    names.push_back(record->instanceName);
  return names;
}

const ProcessorInfoImp &Session::recordOf(const std::string &processor) const {
  const auto &list = state->processorList;
  const auto found = std::find_if(list.begin(), list.end(),
                                  [&processor](const ProcessorInfoImp *record) {
                                    return record->instanceName == processor;
                                  });
  if (found == list.end())
    throw std::logic_error("no processor that can be debugged: " + processor);
  return **found;
}

Reading Session::selectSaved(const std::string &processor) {
  forgetChain();
  ProcessorInfo info;
  return readingOf(*this, [&] { return engine.SetProcessor(processor, info); });
}

Reading Session::selectFrom(const std::string &processor,
                            const std::string &command) {
  forgetChain();
  ProcessorInfo info;
  return readingOf(*this, [&] {
    return engine.ParseProcessorInfo(processor, info, command);
  });
}

void Session::startFromDefaults() {
  forgetChain();
  state->EngineImpInit();
  state->currentProcessor->connectCommand.clear();
  state->GetFPUType();
}

void Session::startRecord() {
  forgetChain();
  ownRecord = std::make_unique<ProcessorInfoImp>();
  state->currentProcessor = ownRecord.get();
  state->EngineImpInit();
}

Reading Session::readCommand(const std::string &command) {
  startRecord();
  return readingOf(
      *this, [&] { return KvoOption_Parser::ReadKvoCommand(command, *state); });
}

std::string reasonOf(const Reading &reading) {
  std::string text;
  for (const char c : reading.message) {
    const bool blank = c == ' ' || c == '\n' || c == '\t';
    if (!blank)
      text += c;
    else if (!text.empty() && text.back() != ' ')
      text += ' ';
  }
  if (!text.empty() && text.back() == ' ')
    text.pop_back();
  return text.empty() ? "the engine gives no reason" : text;
}

} // namespace zeldebug

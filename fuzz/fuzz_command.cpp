// A text as a connect command: read for each kind of processor, written, and
// read again.
//
// An input is the text.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "command/KnownWords.h"
#include "command/PublicReaders.h"
#include "common/Reading.h"
#include "common/Require.h"
#include "common/TracedValues.h"

namespace {

using namespace ZelDebugDialog;
using fuzz::Owner;
using fuzz::Reading;
using fuzz::require;

constexpr int notRead = 3;

Reading readCommand(const Owner &owner, const std::string &text) {
  return fuzz::readFor(owner, text, KvoOption_Parser::ReadKvoCommand,
                       fuzz::desk());
}

void checkOutcome(const std::string &text, const Reading &reading) {
  require(reading.code == 0 || reading.code == notRead ||
              (reading.code == support::kLoneMinus && fuzz::hasLoneMinus(text)),
          "a command is read, refused, or has a lone '-'");
  require(reading.command == text, "the command is stored whatever it is");
}

/// A design knows which processor it is; only the targets beside the processors
/// bring a mask and a kind of their own.
void checkIdentity(const Owner &owner, const Reading &reading) {
  const ProcessorInfoImp &record = reading.settings.record;
  require(record.instanceName == (owner.inDesign ? "cpu" : ""),
          "a command has no name");
  if (!owner.inDesign)
    return;
  require(record.cpuNr == 1, "the design says the number");
  const std::uint32_t mask = record.connectionMask;
  require(mask == owner.mask || mask == 16 || mask == 32 || mask == 256 ||
              mask == 512,
          "the design says the mask");
  if (mask == owner.mask)
    require(record.procFamily == owner.family, "the design says the family");
}

/// Nothing is read that the tables do not name.
void checkKnownWords(const std::string &text, const CommandTrace &trace) {
  for (const CommandWord &word : trace.words) {
    const bool isFree = word.role == WordRole::value ||
                        word.role == WordRole::ignored ||
                        word.role == WordRole::lost;
    require(isFree || fuzz::isInTables(text.substr(word.offset, word.length)),
            "a word that is read is in the tables");
  }
}

/// Tracing reads as reading does, and tells what it stored.
void checkTrace(const Owner &owner, const std::string &text,
                const Reading &reading) {
  CommandTrace trace;
  const auto traced = [&trace](AfterFault afterFault) {
    return [&trace, afterFault](const std::string &command, EngineImp &imp) {
      return TraceKvoCommand(command, imp, trace, afterFault);
    };
  };
  const Reading stopped =
      fuzz::readFor(owner, text, traced(AfterFault::stop), fuzz::desk());
  fuzz::requireSame(stopped, reading, "tracing reads as reading does");
  fuzz::checkWords(text, trace);
  require(reading.code == 0 || !trace.faults.empty(), "a refusal has a fault");
  if (trace.faults.empty()) {
    fuzz::checkStoredValues(text, trace, fuzz::desk().imp);
    checkKnownWords(text, trace);
  }
  const bool isFaulty = !trace.faults.empty();

  const Reading whole =
      fuzz::readFor(owner, text, traced(AfterFault::goOn), fuzz::desk());
  require(whole.code == (trace.faults.empty() ? 0 : notRead),
          "a trace of everything refuses what has a fault");
  require(isFaulty || trace.faults.empty(), "going on finds no first fault");
  fuzz::checkWords(text, trace);
}

/// The public readers of targets and clauses, one after another, do what the
/// reader of the whole does.
void checkPieces(const Owner &owner, const std::string &text,
                 const Reading &reading) {
  const Reading byTarget =
      fuzz::readFor(owner, text, fuzz::readByTarget, fuzz::desk());
  fuzz::requireSame(byTarget, reading, "targets are read as in a command");

  std::string clauses = text.substr(std::min(text.find('-'), text.size()));
  const auto readOptions = [](std::string options, EngineImp &imp) {
    return KvoOption_Parser::parse_options(options, imp);
  };
  const Reading options =
      fuzz::readFor(owner, clauses, readOptions, fuzz::desk());
  const Reading byClauses =
      fuzz::readFor(owner, clauses, fuzz::readByClauses, fuzz::desk());
  fuzz::requireSame(byClauses, options, "clauses are read as in a command");
}

/// White space around a command is none of its words.
void checkSpaced(const Owner &owner, const std::string &text,
                 const Reading &reading) {
  fuzz::requireSame(readCommand(owner, "\n \t" + text + "\r \v"), reading,
                    "white space around a command changes nothing");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data,
                                      std::size_t size) {
  const std::string text(data, data + size);
  for (const Owner &owner : fuzz::owners) {
    const Reading reading = readCommand(owner, text);
    checkOutcome(text, reading);
    checkIdentity(owner, reading);
    checkTrace(owner, text, reading);
    checkPieces(owner, text, reading);
    checkSpaced(owner, text, reading);
    fuzz::goAround(owner, reading);
  }
  return 0;
}

// The option clauses of a processor target, up to the end of the command.
#include <array>

#include "KvoOption_Parser/Descriptions.h"
#include "KvoOption_Parser/Message.h"
#include "KvoOption_Parser/Readers.h"
#include "KvoOption_Parser/Words.h"
#include "ZelDebugDialog/KvoOption_Parser.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

/// Takes no value and has no effect.
int readFlag(WordCursor & /*cursor*/, EngineImp & /*imp*/) {
  return code::done;
}

int readStubOption(WordCursor &cursor, EngineImp &imp) {
  // Reading a value leaves `current_option` as it is; reading another option in
  // its place ends the clause.
  return readStubLine(cursor, KvoOption_Parser::current_option, imp);
}

/// Who reads the word behind a clause: a clause without a fixed length runs
/// into it, one with a fixed length leaves it. What the latter return is
/// examined only for a refusal: an option word in a value's place is lost.
enum class NextWord { readByClause, readByDispatcher };

struct OptionClause {
  std::string_view keyword;
  Reader read;
  NextWord next;
  DescribeOption describe;
};

constexpr std::array<OptionClause, 13> clauses{{
    {debugDeviceOption, readDebugDevice, NextWord::readByClause,
     describeDebugDevice},
    {"-pfsl", readFsl, NextWord::readByClause, describeFsl},
    {"-quiet", readFlag, NextWord::readByDispatcher, describeFlag},
    {"-noattach", readFlag, NextWord::readByDispatcher, describeFlag},
    {"-writeonly", readFlag, NextWord::readByDispatcher, describeFlag},
    {cableOption, readCable, NextWord::readByClause, describeCable},
    {commOption, readStubOption, NextWord::readByDispatcher, describeStubLine},
    {portOption, readStubOption, NextWord::readByDispatcher, describeStubLine},
    {baudOption, readStubOption, NextWord::readByDispatcher, describeStubLine},
    {timeoutOption, readStubOption, NextWord::readByDispatcher,
     describeStubLine},
    {configDeviceOption, readConfigDevice, NextWord::readByClause,
     describeConfigDevice},
    {"-sim", readModelSim, NextWord::readByClause, describeModelSim},
    {bscanOption, readBoundaryScan, NextWord::readByDispatcher,
     describeBoundaryScan},
}};

/// Reads the clause of the option in `current_option`.
int readClause(WordCursor &cursor, EngineImp &imp) {
  const std::string &option = KvoOption_Parser::current_option;
  const auto *const clause = findRow(clauses, option, cursor.characters);
  if (clause == nullptr) {
    const int result = refuse(imp, unknownOption, {option});
    cursor.fault(CommandFaultKind::unknownOption, clauses);
    return result;
  }
  const int result = clause->read(cursor, imp);
  if (clause->next == NextWord::readByClause || result == code::refused)
    return result;
  return cursor.nextOption();
}

} // namespace

int readOptions(WordCursor &cursor, EngineImp &imp) {
  int next = cursor.goOn(cursor.nextOption());
  while (next == code::option)
    next = cursor.goOn(readClause(cursor, imp));
  return next == code::end ? code::done : code::refused;
}

CommandOptionSet describeProcessorOptions() {
  return describeOptions(processorOptions, clauses);
}

} // namespace kvo

int KvoOption_Parser::parse_options(std::string &command, EngineImp &imp) {
  return kvo::consume(command, imp, kvo::readOptions);
}

} // namespace ZelDebugDialog

// The option clauses of a processor target, up to the end of the command.
#include <array>

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
  const std::string option = KvoOption_Parser::current_option;
  return readStubLine(cursor, option, imp);
}

/// Who reads the word behind a clause: a clause without a fixed length runs
/// into it, one with a fixed length leaves it. What the latter return is
/// examined only for a refusal: an option word in a value's place is lost.
enum class NextWord { readByClause, readByDispatcher };

struct OptionClause {
  std::string_view keyword;
  Reader read;
  NextWord next;
};

constexpr std::array<OptionClause, 13> clauses{{
    {debugDeviceOption, readDebugDevice, NextWord::readByClause},
    {"-pfsl", readFsl, NextWord::readByClause},
    {"-quiet", readFlag, NextWord::readByDispatcher},
    {"-noattach", readFlag, NextWord::readByDispatcher},
    {"-writeonly", readFlag, NextWord::readByDispatcher},
    {cableOption, readCable, NextWord::readByClause},
    {commOption, readStubOption, NextWord::readByDispatcher},
    {portOption, readStubOption, NextWord::readByDispatcher},
    {baudOption, readStubOption, NextWord::readByDispatcher},
    {timeoutOption, readStubOption, NextWord::readByDispatcher},
    {configDeviceOption, readConfigDevice, NextWord::readByClause},
    {"-sim", readModelSim, NextWord::readByClause},
    {bscanOption, readBoundaryScan, NextWord::readByDispatcher},
}};

int readClause(const OptionClause &clause, WordCursor &cursor, EngineImp &imp) {
  const int result = clause.read(cursor, imp);
  if (clause.next == NextWord::readByClause || result == code::refused)
    return result;
  return cursor.skip();
}

} // namespace

int readOptions(WordCursor &cursor, EngineImp &imp) {
  int next = cursor.skip();
  while (next == code::option) {
    const std::string &option = KvoOption_Parser::current_option;
    const auto *const clause = findRow(clauses, option, cursor);
    if (clause == nullptr)
      return refuse(imp, unknownOption, {option});
    next = readClause(*clause, cursor, imp);
  }
  return next == code::end ? code::done : code::refused;
}

} // namespace kvo

int KvoOption_Parser::parse_options(std::string &command, EngineImp &imp) {
  return kvo::consume(command, imp, kvo::readOptions);
}

} // namespace ZelDebugDialog

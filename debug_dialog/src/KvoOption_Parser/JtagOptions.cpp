// Texts that hold only the JTAG side of a command: cable, chain, boundary scan
// and debug device.
#include <array>

#include "KvoOption_Parser/Message.h"
#include "KvoOption_Parser/Readers.h"
#include "KvoOption_Parser/Words.h"
#include "KvoOption_Parser/Writers.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "facts/CurrentRecord.h"
#include "facts/Results.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

/// A register name ends with itself; what follows is read here.
int readBoundaryScanOption(WordCursor &cursor, EngineImp &imp) {
  const int result = readBoundaryScan(cursor, imp);
  return result == code::refused ? result : cursor.nextOption();
}

struct JtagOptionClause {
  std::string_view keyword;
  Reader read;
};

constexpr std::array<JtagOptionClause, 4> clauses{{
    {debugDeviceOption, readDebugDevice},
    {cableOption, readCable},
    {configDeviceOption, readConfigDevice},
    {bscanOption, readBoundaryScanOption},
}};

int readJtagOptions(WordCursor &cursor, EngineImp &imp) {
  int next = cursor.nextOption();
  while (next == code::option) {
    const std::string &option = KvoOption_Parser::current_option;
    const auto *const clause = findRow(clauses, option, cursor.characters);
    if (clause == nullptr) {
      setMessage(imp, unknownOption, {option});
      return result::notRead;
    }
    next = clause->read(cursor, imp);
  }
  return next == code::end ? result::done : result::notRead;
}

} // namespace

} // namespace kvo

int KvoOption_Parser::ReadJtagCableOptions(std::string &text, EngineImp &imp) {
  return kvo::consume(text, imp, kvo::readJtagOptions);
}

int KvoOption_Parser::WriteJtagCableOptionsString(EngineImp &imp,
                                                  std::string &out) {
  const kvo::CommandText text(out);
  if (kvo::writeJtagOptions(text, imp) == kvo::code::refused)
    return result::notSet;
  const int device = currentRecord(imp).debugDevice;
  if (device != 0) {
    text.addKeyword<kvo::debugDeviceOption>(WordRole::option);
    kvo::writeDebugDeviceNumber(text, device);
  }
  return result::done;
}

} // namespace ZelDebugDialog

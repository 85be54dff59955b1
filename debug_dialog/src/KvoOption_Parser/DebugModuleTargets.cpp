// "hdu", "dcc" and "kmtc": targets that are debug modules, each with a small
// set of options.
#include <array>

#include "KvoOption_Parser/Message.h"
#include "KvoOption_Parser/Readers.h"
#include "KvoOption_Parser/Words.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "ZelDebugDialog_Engine/CurrentRecord.h"
#include "ZelDebugDialog_Engine/Families.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

int readUart(WordCursor & /*cursor*/, EngineImp &imp) {
  currentRecord(imp).uartOverHdu = true;
  return code::done;
}

/// Who reads the word behind a clause. The set's own clauses leave it to the
/// walk over the set, where it becomes the look-ahead word.
enum class NextWord { readByClause, readAhead };

struct ModuleOption {
  std::string_view keyword;
  Reader read;
  NextWord next;
};

constexpr ModuleOption uart{"-uart", readUart, NextWord::readAhead};
constexpr ModuleOption boundaryScan{bscanOption, readBoundaryScan,
                                    NextWord::readAhead};
constexpr ModuleOption debugDevice{debugDeviceOption, readDebugDevice,
                                   NextWord::readByClause};
constexpr ModuleOption cableClause{cableOption, readCable,
                                   NextWord::readByClause};
constexpr ModuleOption configDevice{configDeviceOption, readConfigDevice,
                                    NextWord::readByClause};

constexpr std::array<ModuleOption, 5> hduOptions{
    uart, boundaryScan, debugDevice, cableClause, configDevice};
constexpr std::array<ModuleOption, 3> dccOptions{uart, debugDevice,
                                                 cableClause};
constexpr std::array<ModuleOption, 3> kmtcOptions{debugDevice, cableClause,
                                                  configDevice};

/// An unknown option is not what the message quotes: it quotes the word that
/// was read ahead last, which may be that option, an earlier one, or none.
template <std::size_t size>
int readModuleOptions(WordCursor &cursor, EngineImp &imp,
                      const std::array<ModuleOption, size> &options) {
  std::string_view lookAhead;
  int next = cursor.skip();
  while (next == code::option) {
    const auto *const option =
        findRow(options, KvoOption_Parser::current_option, cursor);
    if (option == nullptr)
      return refuse(imp, unknownOption, {lookAhead});
    next = option->read(cursor, imp);
    if (option->next == NextWord::readAhead && next == code::done)
      next = cursor.next(lookAhead);
  }
  return next == code::end ? code::done : code::refused;
}

} // namespace

int readHdu(WordCursor &cursor, EngineImp &imp) {
  currentRecord(imp).connectionMask = maskHdu;
  return readModuleOptions(cursor, imp, hduOptions);
}

int readDcc(WordCursor &cursor, EngineImp &imp) {
  ProcessorInfoImp &record = currentRecord(imp);
  record.connectionMask = maskDcc;
  record.procFamily = familyArm;
  record.procType = typeCortexA9;
  return readModuleOptions(cursor, imp, dccOptions);
}

int readKmtc(WordCursor &cursor, EngineImp &imp) {
  currentRecord(imp).connectionMask = maskKmtc;
  return readModuleOptions(cursor, imp, kmtcOptions);
}

} // namespace kvo

unsigned KvoOption_Parser::parse_hduoptions(std::string &command,
                                            EngineImp &imp) {
  return static_cast<unsigned>(kvo::consume(command, imp, kvo::readHdu));
}

unsigned KvoOption_Parser::parse_dccoptions(std::string &command,
                                            EngineImp &imp) {
  return static_cast<unsigned>(kvo::consume(command, imp, kvo::readDcc));
}

unsigned KvoOption_Parser::parse_kmtcoptions(std::string &command,
                                             EngineImp &imp) {
  return static_cast<unsigned>(kvo::consume(command, imp, kvo::readKmtc));
}

} // namespace ZelDebugDialog

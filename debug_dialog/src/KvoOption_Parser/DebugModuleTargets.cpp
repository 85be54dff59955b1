// "hdu", "dcc" and "kmtc": targets that are debug modules, each with a small
// set of options.
#include <array>

#include "KvoOption_Parser/Descriptions.h"
#include "KvoOption_Parser/Message.h"
#include "KvoOption_Parser/Readers.h"
#include "KvoOption_Parser/Words.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "facts/CurrentRecord.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

constexpr const Fields &uartField = fields<&ProcessorInfoImp::uartOverHdu>;

void describeUart(CommandOption &option) {
  option.changes = namesOf(uartField);
}

int readUart(WordCursor &cursor, EngineImp &imp) {
  cursor.store(currentRecord(imp).uartOverHdu, true);
  return code::done;
}

/// Who reads the word behind a clause. The set's own clauses leave it to the
/// walk over the set, where it becomes the look-ahead word.
enum class NextWord { readByClause, readAhead };

struct ModuleOption {
  std::string_view keyword;
  Reader read;
  NextWord next;
  DescribeOption describe;
};

constexpr ModuleOption uart{"-uart", readUart, NextWord::readAhead,
                            describeUart};
constexpr ModuleOption boundaryScan{bscanOption, readBoundaryScan,
                                    NextWord::readAhead, describeBoundaryScan};
constexpr ModuleOption debugDevice{debugDeviceOption, readDebugDevice,
                                   NextWord::readByClause, describeDebugDevice};
constexpr ModuleOption cable{cableOption, readCable, NextWord::readByClause,
                             describeCable};
constexpr ModuleOption configDevice{configDeviceOption, readConfigDevice,
                                    NextWord::readByClause,
                                    describeConfigDevice};

template <std::size_t size>
using ModuleOptions = std::array<ModuleOption, size>;

constexpr ModuleOptions<5> hduOptions{uart, boundaryScan, debugDevice, cable,
                                      configDevice};
constexpr ModuleOptions<3> dccOptions{uart, debugDevice, cable};
constexpr ModuleOptions<3> kmtcOptions{debugDevice, cable, configDevice};

/// Reads the clause of the option in `current_option`. An unknown option is not
/// what the message quotes: it quotes the word that was read ahead last, which
/// may be that option, an earlier one, or none.
template <std::size_t size>
int readModuleOption(WordCursor &cursor, EngineImp &imp,
                     const ModuleOptions<size> &options,
                     std::string_view &lookAhead) {
  const auto *const option =
      findRow(options, KvoOption_Parser::current_option, cursor.characters);
  if (option == nullptr) {
    const int result = refuse(imp, unknownOption, {lookAhead});
    cursor.fault(CommandFaultKind::unknownOption, options);
    return result;
  }
  const int result = option->read(cursor, imp);
  if (option->next == NextWord::readByClause || result == code::refused)
    return result;
  return cursor.nextOption(lookAhead);
}

template <std::size_t size>
int readModuleOptions(WordCursor &cursor, EngineImp &imp,
                      const ModuleOptions<size> &options) {
  std::string_view lookAhead;
  int next = cursor.goOn(cursor.nextOption());
  while (next == code::option)
    next = cursor.goOn(readModuleOption(cursor, imp, options, lookAhead));
  return next == code::end ? code::done : code::refused;
}

} // namespace

int readHdu(WordCursor &cursor, EngineImp &imp) {
  cursor.store(currentRecord(imp).connectionMask, maskHdu);
  return readModuleOptions(cursor, imp, hduOptions);
}

int readDcc(WordCursor &cursor, EngineImp &imp) {
  ProcessorInfoImp &record = currentRecord(imp);
  cursor.store(record.connectionMask, maskDcc);
  cursor.store(record.procFamily, familyArm);
  cursor.store(record.procType, typeCortexA9);
  return readModuleOptions(cursor, imp, dccOptions);
}

int readKmtc(WordCursor &cursor, EngineImp &imp) {
  cursor.store(currentRecord(imp).connectionMask, maskKmtc);
  return readModuleOptions(cursor, imp, kmtcOptions);
}

void describeHdu(CommandTarget &target) { target.optionSet = hduModuleOptions; }

void describeDcc(CommandTarget &target) { target.optionSet = dccModuleOptions; }

void describeKmtc(CommandTarget &target) {
  target.optionSet = kmtcModuleOptions;
}

std::vector<CommandOptionSet> describeModuleOptions() {
  return {describeOptions(hduModuleOptions, hduOptions),
          describeOptions(dccModuleOptions, dccOptions),
          describeOptions(kmtcModuleOptions, kmtcOptions)};
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

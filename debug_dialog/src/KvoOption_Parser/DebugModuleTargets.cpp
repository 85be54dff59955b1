// "hdu", "dcc" and "kmtc": targets that are debug modules, each with a small
// set of options.
#include <array>

#include "KvoOption_Parser/Descriptions.h"
#include "KvoOption_Parser/Message.h"
#include "KvoOption_Parser/Readers.h"
#include "KvoOption_Parser/Words.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "ZelDebugDialog_Engine/CurrentRecord.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

constexpr ValueForm uartForm = flag("uartOverHdu");

void describeUart(CommandOption &option) {
  option.changes = splitFields(uartForm.fields);
}

template <class Observer>
int readUart(WordCursor<Observer> &cursor, EngineImp &imp) {
  cursor.observer.sets(uartForm);
  currentRecord(imp).uartOverHdu = true;
  return code::done;
}

/// Who reads the word behind a clause. The set's own clauses leave it to the
/// walk over the set, where it becomes the look-ahead word.
enum class NextWord { readByClause, readAhead };

template <class Observer> struct ModuleOption {
  std::string_view keyword;
  Reader<Observer> read;
  NextWord next;
  DescribeOption describe;
};

template <class Observer>
constexpr ModuleOption<Observer> uart{"-uart", readUart, NextWord::readAhead,
                                      describeUart};
template <class Observer>
constexpr ModuleOption<Observer> boundaryScan{
    bscanOption, readBoundaryScan, NextWord::readAhead, describeBoundaryScan};
template <class Observer>
constexpr ModuleOption<Observer> debugDevice{debugDeviceOption, readDebugDevice,
                                             NextWord::readByClause,
                                             describeDebugDevice};
template <class Observer>
constexpr ModuleOption<Observer> cable{cableOption, readCable,
                                       NextWord::readByClause, describeCable};
template <class Observer>
constexpr ModuleOption<Observer> configDevice{
    configDeviceOption, readConfigDevice, NextWord::readByClause,
    describeConfigDevice};

template <class Observer, std::size_t size>
using ModuleOptions = std::array<ModuleOption<Observer>, size>;

template <class Observer>
constexpr ModuleOptions<Observer, 5> hduOptions{
    uart<Observer>, boundaryScan<Observer>, debugDevice<Observer>,
    cable<Observer>, configDevice<Observer>};
template <class Observer>
constexpr ModuleOptions<Observer, 3> dccOptions{
    uart<Observer>, debugDevice<Observer>, cable<Observer>};
template <class Observer>
constexpr ModuleOptions<Observer, 3> kmtcOptions{
    debugDevice<Observer>, cable<Observer>, configDevice<Observer>};

/// Reads the clause of the option in `current_option`. An unknown option is not
/// what the message quotes: it quotes the word that was read ahead last, which
/// may be that option, an earlier one, or none.
template <class Observer, std::size_t size>
int readModuleOption(WordCursor<Observer> &cursor, EngineImp &imp,
                     const ModuleOptions<Observer, size> &options,
                     std::string_view &lookAhead) {
  const auto *const option =
      findRow(options, KvoOption_Parser::current_option, cursor.characters);
  if (option == nullptr) {
    const int result = refuse(imp, unknownOption, {lookAhead});
    cursor.observer.fault(CommandFaultKind::unknownOption, options);
    return result;
  }
  const int result = option->read(cursor, imp);
  if (option->next == NextWord::readByClause || result == code::refused)
    return result;
  return cursor.nextOption(lookAhead);
}

template <class Observer, std::size_t size>
int readModuleOptions(WordCursor<Observer> &cursor, EngineImp &imp,
                      const ModuleOptions<Observer, size> &options) {
  std::string_view lookAhead;
  int next = cursor.goOn(cursor.nextOption());
  while (next == code::option)
    next = cursor.goOn(readModuleOption(cursor, imp, options, lookAhead));
  return next == code::end ? code::done : code::refused;
}

} // namespace

template <class Observer>
int readHdu(WordCursor<Observer> &cursor, EngineImp &imp) {
  cursor.observer.sets(flag("connectionMask"));
  currentRecord(imp).connectionMask = maskHdu;
  return readModuleOptions(cursor, imp, hduOptions<Observer>);
}

template <class Observer>
int readDcc(WordCursor<Observer> &cursor, EngineImp &imp) {
  cursor.observer.sets(flag("connectionMask procFamily procType"));
  ProcessorInfoImp &record = currentRecord(imp);
  record.connectionMask = maskDcc;
  record.procFamily = familyArm;
  record.procType = typeCortexA9;
  return readModuleOptions(cursor, imp, dccOptions<Observer>);
}

template <class Observer>
int readKmtc(WordCursor<Observer> &cursor, EngineImp &imp) {
  cursor.observer.sets(flag("connectionMask"));
  currentRecord(imp).connectionMask = maskKmtc;
  return readModuleOptions(cursor, imp, kmtcOptions<Observer>);
}

template int readHdu(WordCursor<NoObserver> &, EngineImp &);
template int readHdu(WordCursor<Recorder> &, EngineImp &);
template int readDcc(WordCursor<NoObserver> &, EngineImp &);
template int readDcc(WordCursor<Recorder> &, EngineImp &);
template int readKmtc(WordCursor<NoObserver> &, EngineImp &);
template int readKmtc(WordCursor<Recorder> &, EngineImp &);

void describeHdu(CommandTarget &target) { target.optionSet = hduModuleOptions; }

void describeDcc(CommandTarget &target) { target.optionSet = dccModuleOptions; }

void describeKmtc(CommandTarget &target) {
  target.optionSet = kmtcModuleOptions;
}

std::vector<CommandOptionSet> describeModuleOptions() {
  return {describeOptions(hduModuleOptions, hduOptions<NoObserver>),
          describeOptions(dccModuleOptions, dccOptions<NoObserver>),
          describeOptions(kmtcModuleOptions, kmtcOptions<NoObserver>)};
}

} // namespace kvo

unsigned KvoOption_Parser::parse_hduoptions(std::string &command,
                                            EngineImp &imp) {
  return static_cast<unsigned>(
      kvo::consume(command, imp, kvo::readHdu<kvo::NoObserver>));
}

unsigned KvoOption_Parser::parse_dccoptions(std::string &command,
                                            EngineImp &imp) {
  return static_cast<unsigned>(
      kvo::consume(command, imp, kvo::readDcc<kvo::NoObserver>));
}

unsigned KvoOption_Parser::parse_kmtcoptions(std::string &command,
                                             EngineImp &imp) {
  return static_cast<unsigned>(
      kvo::consume(command, imp, kvo::readKmtc<kvo::NoObserver>));
}

} // namespace ZelDebugDialog

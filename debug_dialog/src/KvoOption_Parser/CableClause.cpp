// "-cable": the JTAG cable.
//
// Name and value pairs in any order. The frequency is defaulted or checked only
// where the clause ends the text: in front of another option it is taken as it
// is. QUORLA_TCF is read and checked, but there is no text to write for it.
#include <algorithm>
#include <string>
#include <string_view>

#include <boost/algorithm/string/find_iterator.hpp>
#include <boost/algorithm/string/finder.hpp>
#include <boost/range/iterator_range.hpp>

#include "KvoOption_Parser/Descriptions.h"
#include "KvoOption_Parser/Parameters.h"
#include "KvoOption_Parser/Words.h"
#include "KvoOption_Parser/Writers.h"
#include "ZelDebugDialog/CableCatalogue.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "ZelDebugDialog_Engine/CableCatalogue.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

constexpr std::string_view unknownParameter =
    "UNKNOWN Parameter '%s' for  option '-cable'";
constexpr std::string_view svfNotSupported =
    "Cable Type quorla_svffile is not supported in this release\n";
constexpr std::string_view svfFileMissing =
    "SVF File NOT specified for Cable Type quorla_svffile";
constexpr std::string_view moduleMissing =
    "Plug-in Module NOT specified for Cable Type quorla_plugin";
constexpr std::string_view cannotBeWritten = "Invalid Cable Type";

// Words that are read and written.
constexpr std::string_view typeWord = "type";
constexpr std::string_view portWord = "port";
constexpr std::string_view esnWord = "esn";
constexpr std::string_view frequencyWord = "frequency";
constexpr std::string_view moduleWord = "modulename";
constexpr std::string_view argumentWord = "modulearg";
constexpr std::string_view frequencyField = "cable.frequency";
constexpr char argumentSeparator = ';';

/// What one clause fills.
struct CableReading {
  EngineImp &imp;
  CableOption &cable;
  bool frequencyGiven;
};

const Cable *findByKeyword(std::string_view word, Characters &characters) {
  for (const Cable &cable : cables())
    if (characters.sameWord(word, cable.keyword) ||
        (!cable.otherKeyword.empty() &&
         characters.sameWord(word, cable.otherKeyword)))
      return &cable;
  return nullptr;
}

/// Takes the type and the port that goes with it. The frequency stays, so that
/// it may stand before the type.
int readType(const Argument &argument, CableReading &target) {
  const Cable *const found = findByKeyword(argument.value, argument.characters);
  if (found == nullptr)
    return code::refused;
  if (found->type == Engine::QUORLA_SVFFILE)
    return refuse(target.imp, svfNotSupported);
  target.cable.cableType = found->type;
  if (!found->defaultPort.empty())
    target.cable.port = found->defaultPort;
  return code::done;
}

template <auto Field>
int readText(const Argument &argument, CableReading &target) {
  target.cable.*Field = argument.value;
  return code::done;
}

int readFrequency(const Argument &argument, CableReading &target) {
  storeNumber(argument, target.cable.frequency);
  target.frequencyGiven = true;
  return code::done;
}

int readSvfFile(const Argument &argument, CableReading &target) {
  const int result = readText<&CableOption::svfFile>(argument, target);
  currentRecord(target.imp).svfFileFlag = true;
  return result;
}

int readModuleArgument(const Argument &argument, CableReading &target) {
  std::string &joined = target.cable.moduleArgs;
  const std::size_t before = joined.size();
  const std::size_t separators = before == 0 ? 0 : 1;
  // Room for both at once: a separator never stands alone.
  joined.append(separators + argument.value.size(), argumentSeparator);
  argument.value.copy(joined.data() + before + separators,
                      argument.value.size());
  return code::done;
}

constexpr std::array<Parameter<CableReading>, 8> parameters{{
    {typeWord, readType, oneOf(cableKeywords, "cable.cableType cable.port")},
    {portWord, readText<&CableOption::port>, text("cable.port")},
    {esnWord, readText<&CableOption::esn>, text("cable.esn")},
    {"url", readText<&CableOption::url>, text("cable.url")},
    {frequencyWord, readFrequency, number(frequencyField)},
    {"fname", readSvfFile, text("cable.svfFile svfFileFlag")},
    {moduleWord, readText<&CableOption::moduleName>, text("cable.moduleName")},
    {argumentWord, readModuleArgument, text("cable.moduleArgs")},
}};

template <class Observer>
int finishCable(WordCursor<Observer> &cursor, const CableReading &target) {
  const CableOption &cable = target.cable;
  if (cable.cableType == Engine::QUORLA_SVFFILE && cable.svfFile.empty()) {
    const int result = refuse(target.imp, svfFileMissing);
    cursor.observer.missing(CommandFaultKind::missingSvfFile);
    return result;
  }
  if (cable.cableType == Engine::QUORLA_PLUGIN && cable.moduleName.empty()) {
    const int result = refuse(target.imp, moduleMissing);
    cursor.observer.missing(CommandFaultKind::missingModule);
    return result;
  }
  const int result = KvoOption_Parser::setcable_frequency(
      target.imp, target.frequencyGiven ? 0 : 1);
  if (!target.frequencyGiven)
    cursor.observer.replaces(frequencyField);
  if (result != code::refused)
    return code::end;
  cursor.observer.faultAt(frequencyField, CommandFaultKind::refusedFrequency,
                          findCable(cable.cableType).accepted);
  return code::refused;
}

/// `words` are those in front of the value, with their blanks.
void writeParameter(std::string &out, std::string_view words,
                    std::string_view value) {
  out += words;
  out += value;
}

/// Port and frequency; or the serial number alone, which identifies the cable.
void writeLineCable(std::string &out, const CableOption &cable) {
  if (!cable.esn.empty()) {
    writeParameter(out, joined<esnWord>, cable.esn);
    return;
  }
  writeParameter(out, joined<portWord>, cable.port);
  out += joined<frequencyWord>;
  appendDecimal(out, lowBits<std::int32_t>(cable.frequency));
}

int writeCable(std::string &out, const EngineImp &imp) {
  const CableOption &option = *imp.cableOption;
  if (option.cableType == Engine::CABLE_NONE)
    return code::done;
  appendWord(out, cableOption);
  const Cable &cable = findCable(option.cableType);
  if (cable.form == CableClauseForm::unwritable)
    return refuse(imp, cannotBeWritten);
  writeParameter(out, joined<typeWord>, cable.keyword);
  if (cable.form == CableClauseForm::line)
    writeLineCable(out, option);
  if (cable.form == CableClauseForm::module)
    writePluginCable(out, option);
  return code::done;
}

} // namespace

template <class Observer>
int readCable(WordCursor<Observer> &cursor, EngineImp &imp) {
  CableReading target{imp, *imp.cableOption, false};
  const int end =
      readParameters(cursor, imp, parameters, unknownParameter, target).code;
  return end == code::end ? finishCable(cursor, target) : end;
}

template int readCable(WordCursor<NoObserver> &, EngineImp &);
template int readCable(WordCursor<Recorder> &, EngineImp &);

void writePluginCable(std::string &out, const CableOption &cable) {
  writeParameter(out, joined<moduleWord>, cable.moduleName);
  if (cable.moduleArgs.empty())
    return;
  const auto separator = boost::algorithm::token_finder(
      [](char character) { return character == argumentSeparator; });
  // One at a time: a list takes 32 bytes for each separator.
  for (auto argument =
           boost::algorithm::make_split_iterator(cable.moduleArgs, separator);
       !argument.eof(); ++argument)
    writeParameter(out, joined<argumentWord>,
                   boost::copy_range<std::string>(*argument));
}

void describeCable(CommandOption &option) {
  describeParameters(option, parameters);
}

} // namespace kvo

int KvoOption_Parser::parse_cable(std::string &command, EngineImp &imp) {
  return kvo::consume(command, imp, kvo::readCable<kvo::NoObserver>);
}

int KvoOption_Parser::setcable_frequency(EngineImp &imp, int useDefault) {
  CableOption &option = *imp.cableOption;
  const Cable &cable = findCable(option.cableType);
  if (useDefault != 0) {
    option.frequency = cable.defaultFrequency;
    return kvo::code::done;
  }
  if (cable.refusal.empty())
    return kvo::code::refused;
  if (std::find(cable.accepted.begin(), cable.accepted.end(),
                option.frequency) != cable.accepted.end())
    return kvo::code::done;
  std::string number;
  kvo::appendDecimal(number, kvo::lowBits<std::int32_t>(option.frequency));
  return kvo::refuse(imp, cable.refusal, {number});
}

int KvoOption_Parser::write_jtagoptions(std::string &out, EngineImp &imp) {
  if (const int result = kvo::writeCable(out, imp); result != kvo::code::done)
    return result;
  kvo::writeBoundaryScan(out, imp);
  kvo::writeChain(out, imp);
  return kvo::code::done;
}

int KvoOption_Parser::write_quorla_cableoptions(std::string &out,
                                                CableOption cable) {
  kvo::writeLineCable(out, cable);
  return kvo::code::done;
}

int KvoOption_Parser::write_plugin_cableoptions(std::string &out,
                                                CableOption cable) {
  kvo::writePluginCable(out, cable);
  return kvo::code::done;
}

int KvoOption_Parser::write_digilent_cableoptions(std::string & /*out*/,
                                                  CableOption /*cable*/) {
  return kvo::code::done;
}

} // namespace ZelDebugDialog

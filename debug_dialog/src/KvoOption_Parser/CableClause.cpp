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
#include "facts/CableCatalogue.h"

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
constexpr char argumentSeparator = ';';

constexpr const Fields &typeField = fields<&CableOption::cableType>;
constexpr const Fields &esnField = fields<&CableOption::esn>;
constexpr const Fields &portField = fields<&CableOption::port>;
constexpr const Fields &frequencyField = fields<&CableOption::frequency>;
constexpr const Fields &lineFields =
    fields<&CableOption::port, &CableOption::frequency>;
constexpr const Fields &lineFormFields =
    fields<&CableOption::port, &CableOption::frequency, &CableOption::esn>;
constexpr const Fields &nameField = fields<&CableOption::moduleName>;
constexpr const Fields &argumentsField = fields<&CableOption::moduleArgs>;
constexpr const Fields &moduleFields =
    fields<&CableOption::moduleName, &CableOption::moduleArgs>;
constexpr const Fields &unwrittenFields =
    fields<&CableOption::svfFile, &ProcessorInfoImp::svfFileFlag,
           &CableOption::url>;

/// What one clause fills.
struct CableReading {
  EngineImp &imp;
  CableOption &cable;
  bool frequencyGiven;
};

bool accepts(const Cable &cable, std::uint32_t frequency) {
  return std::find(cable.accepted.begin(), cable.accepted.end(), frequency) !=
         cable.accepted.end();
}

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
  const Cable *const found =
      findByKeyword(argument.value, argument.cursor.characters);
  if (found == nullptr)
    return code::refused;
  if (found->type == Engine::QUORLA_SVFFILE)
    return refuse(target.imp, svfNotSupported);
  argument.cursor.store(target.cable.cableType, found->type);
  if (!found->defaultPort.empty())
    argument.cursor.store(target.cable.port, found->defaultPort);
  return code::done;
}

template <auto Field>
int readText(const Argument &argument, CableReading &target) {
  argument.cursor.store(target.cable.*Field, argument.value);
  return code::done;
}

int readFrequency(const Argument &argument, CableReading &target) {
  storeNumber(argument, target.cable.frequency);
  target.frequencyGiven = true;
  return code::done;
}

int readSvfFile(const Argument &argument, CableReading &target) {
  const int result = readText<&CableOption::svfFile>(argument, target);
  argument.cursor.store(currentRecord(target.imp).svfFileFlag, true);
  return result;
}

int readModuleArgument(const Argument &argument, CableReading &target) {
  std::string &joined = target.cable.moduleArgs;
  const std::size_t before = joined.size();
  const std::size_t separators = before == 0 ? 0 : 1;
  Recorder *const recorder = argument.cursor.recorder;
  if (recorder != nullptr)
    recorder->keepJoined(joined);
  // Room for both at once: a separator never stands alone.
  joined.append(separators + argument.value.size(), argumentSeparator);
  argument.value.copy(joined.data() + before + separators,
                      argument.value.size());
  if (recorder != nullptr)
    recorder->storedJoined(joined, argument.value);
  return code::done;
}

constexpr std::array<Parameter<CableReading>, 8> parameters{{
    {typeWord, readType,
     oneOf(cableKeywords, fields<&CableOption::cableType, &CableOption::port>)},
    {portWord, readText<&CableOption::port>, text(portField)},
    {esnWord, readText<&CableOption::esn>, text(esnField)},
    {"url", readText<&CableOption::url>, text(fields<&CableOption::url>)},
    {frequencyWord, readFrequency, number(frequencyField)},
    {"fname", readSvfFile,
     text(fields<&CableOption::svfFile, &ProcessorInfoImp::svfFileFlag>)},
    {moduleWord, readText<&CableOption::moduleName>, text(nameField)},
    {argumentWord, readModuleArgument, text(argumentsField)},
}};

/// The default of the cable, or a check of the frequency that is there.
int settleFrequency(EngineImp &imp, bool useDefault) {
  CableOption &option = *imp.cableOption;
  const Cable &cable = findCable(option.cableType);
  if (useDefault) {
    option.frequency = cable.defaultFrequency;
    return code::done;
  }
  if (cable.refusal.empty())
    return code::refused;
  if (accepts(cable, option.frequency))
    return code::done;
  std::string number;
  appendDecimal(number, lowBits<std::int32_t>(option.frequency));
  return refuse(imp, cable.refusal, {number});
}

int finishCable(WordCursor &cursor, const CableReading &target,
                std::size_t optionWord) {
  const CableOption &cable = target.cable;
  if (cable.cableType == Engine::QUORLA_SVFFILE && cable.svfFile.empty()) {
    const int result = refuse(target.imp, svfFileMissing);
    cursor.missing(CommandFaultKind::missingSvfFile);
    return result;
  }
  if (cable.cableType == Engine::QUORLA_PLUGIN && cable.moduleName.empty()) {
    const int result = refuse(target.imp, moduleMissing);
    cursor.missing(CommandFaultKind::missingModule);
    return result;
  }
  Recorder *const recorder = cursor.recorder;
  if (recorder != nullptr && !target.frequencyGiven)
    recorder->keepValue(&cable.frequency);
  const int result = settleFrequency(target.imp, !target.frequencyGiven);
  // The type brings it, and is the clause's or an earlier one's.
  if (recorder != nullptr && !target.frequencyGiven)
    recorder->replaced(
        recorder->wordThatChanged(*typeField.begin(), optionWord),
        &cable.frequency);
  if (result != code::refused)
    return code::end;
  if (recorder != nullptr)
    recorder->faultAt(*frequencyField.begin(),
                      CommandFaultKind::refusedFrequency,
                      GetAcceptedFrequencies(cable.cableType));
  return code::refused;
}

/// What the clause of another cable would carry.
void leaveOutOtherCables(WriteRecorder &recorder, CableClauseForm form) {
  const auto leaveOut = [&recorder](const Fields &left) {
    recorder.leavesOut(left, OmissionReason::otherCable, typeField);
  };
  if (form != CableClauseForm::line)
    leaveOut(lineFormFields);
  if (form != CableClauseForm::module)
    leaveOut(moduleFields);
  recorder.leavesOut(unwrittenFields, OmissionReason::noWriter);
}

} // namespace

int readCable(WordCursor &cursor, EngineImp &imp) {
  CableReading target{imp, *imp.cableOption, false};
  const std::size_t optionWord = cursor.lastWord();
  const int end =
      readParameters(cursor, imp, parameters, unknownParameter, target).code;
  return end == code::end ? finishCable(cursor, target, optionWord) : end;
}

int writeCable(CommandText out, const EngineImp &imp) {
  const CableOption &option = *imp.cableOption;
  if (option.cableType == Engine::CABLE_NONE) {
    if (out.recorder != nullptr) {
      out.recorder->implies(typeField);
      leaveOutOtherCables(*out.recorder, CableClauseForm::bare);
    }
    return code::done;
  }
  const Cable &cable = findCable(option.cableType);
  if (cable.form == CableClauseForm::unwritable) {
    out.text += behindBlank<cableOption>;
    if (out.recorder != nullptr)
      out.recorder->gaveUp(typeField, OmissionReason::cableWithoutCommand);
    return refuse(imp, cannotBeWritten);
  }
  out.addName(joined<cableOption, typeWord>, cable.keyword, typeField);
  if (cable.form == CableClauseForm::line)
    writeLineCable(out, option);
  if (cable.form == CableClauseForm::module)
    writePluginCable(out, option);
  if (out.recorder != nullptr)
    leaveOutOtherCables(*out.recorder, cable.form);
  return code::done;
}

void writeLineCable(CommandText out, const CableOption &cable) {
  if (!cable.esn.empty()) {
    out.addText(joined<esnWord>, cable.esn, esnField);
    if (out.recorder != nullptr)
      out.recorder->leavesOut(lineFields, OmissionReason::serialNumber,
                              esnField);
    return;
  }
  out.addText(joined<portWord>, cable.port, portField);
  out.addDecimal(joined<frequencyWord>, lowBits<std::int32_t>(cable.frequency),
                 frequencyField);
  if (out.recorder != nullptr)
    out.recorder->implies(esnField);
}

void writePluginCable(CommandText out, const CableOption &cable) {
  if (out.recorder != nullptr && cable.moduleName.empty())
    out.recorder->cannotBeRead(nameField, OmissionReason::moduleMissing);
  out.addText(joined<moduleWord>, cable.moduleName, nameField);
  if (cable.moduleArgs.empty()) {
    if (out.recorder != nullptr)
      out.recorder->implies(argumentsField);
    return;
  }
  const auto separator = boost::algorithm::token_finder(
      [](char character) { return character == argumentSeparator; });
  // One at a time: a list takes 32 bytes for each separator.
  for (auto argument =
           boost::algorithm::make_split_iterator(cable.moduleArgs, separator);
       !argument.eof(); ++argument)
    out.addText(joined<argumentWord>, boost::copy_range<std::string>(*argument),
                argumentsField);
}

bool isRefusedAtTheEnd(const CableOption &cable) {
  const Cable &row = findCable(cable.cableType);
  return row.form == CableClauseForm::line && cable.esn.empty() &&
         !accepts(row, cable.frequency);
}

int writeJtagOptions(CommandText out, const EngineImp &imp) {
  if (const int result = writeCable(out, imp); result != code::done)
    return result;
  writeBoundaryScan(out, imp);
  writeChain(out, imp);
  return code::done;
}

void leaveOutJtagOptions(WriteRecorder &recorder, const EngineImp &imp) {
  for (const Fields *const unused :
       {&typeField, &lineFields, &esnField, &moduleFields})
    recorder.leavesOut(*unused, OmissionReason::otherConnection,
                       connectionField);
  recorder.leavesOut(unwrittenFields, OmissionReason::noWriter);
  leaveOutBoundaryScan(recorder, imp);
  leaveOutChain(recorder, imp);
}

std::vector<std::string> fieldsCarried(CableClauseForm form) {
  switch (form) {
  case CableClauseForm::line:
    return namesOf(lineFormFields);
  case CableClauseForm::module:
    return namesOf(moduleFields);
  case CableClauseForm::unwritable:
  case CableClauseForm::bare:
    break;
  }
  return {};
}

void describeCable(CommandOption &option) {
  describeParameters(option, parameters);
}

} // namespace kvo

int KvoOption_Parser::parse_cable(std::string &command, EngineImp &imp) {
  return kvo::consume(command, imp, kvo::readCable);
}

int KvoOption_Parser::setcable_frequency(EngineImp &imp, int useDefault) {
  return kvo::settleFrequency(imp, useDefault != 0);
}

int KvoOption_Parser::write_jtagoptions(std::string &out, EngineImp &imp) {
  return kvo::writeJtagOptions(kvo::CommandText(out), imp);
}

int KvoOption_Parser::write_quorla_cableoptions(std::string &out,
                                                CableOption cable) {
  kvo::writeLineCable(kvo::CommandText(out), cable);
  return kvo::code::done;
}

int KvoOption_Parser::write_plugin_cableoptions(std::string &out,
                                                CableOption cable) {
  kvo::writePluginCable(kvo::CommandText(out), cable);
  return kvo::code::done;
}

int KvoOption_Parser::write_digilent_cableoptions(std::string & /*out*/,
                                                  CableOption /*cable*/) {
  return kvo::code::done;
}

} // namespace ZelDebugDialog

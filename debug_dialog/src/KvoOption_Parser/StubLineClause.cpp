// "-comm", "-port", "-baud" and "-timeout": the line of a stub, one value each.
#include "KvoOption_Parser/Descriptions.h"
#include "KvoOption_Parser/Parameters.h"
#include "KvoOption_Parser/Words.h"
#include "KvoOption_Parser/Writers.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/KvoOption_Parser.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

constexpr const Fields &portField = fields<&ProcessorInfoImp::stubSerialPort>;
constexpr const Fields &baudField = fields<&ProcessorInfoImp::stubBaudRate>;
constexpr const Fields &timeoutField = fields<&ProcessorInfoImp::stubTimeout>;

constexpr std::array<NamedValue, 2> lineKinds{
    {{jtagLine, Engine::STUB_JTAG}, {serialLine, Engine::STUB_SERIAL}}};

int readLineKind(const Argument &argument, EngineImp &imp) {
  const auto *const kind = findNamed(argument, lineKinds);
  if (kind == nullptr)
    return code::refused;
  argument.cursor.store(currentRecord(imp).stubType, kind->value);
  return code::done;
}

int readPort(const Argument &argument, EngineImp &imp) {
  argument.cursor.store(currentRecord(imp).stubSerialPort, argument.value);
  return code::done;
}

template <auto Field> int readNumber(const Argument &argument, EngineImp &imp) {
  storeNumber(argument, currentRecord(imp).*Field);
  return code::done;
}

constexpr std::array<Parameter<EngineImp>, 4> parameters{{
    {commOption, readLineKind,
     oneOf(lineKinds, fields<&ProcessorInfoImp::stubType>)},
    {portOption, readPort, text(portField)},
    {baudOption, readNumber<&ProcessorInfoImp::stubBaudRate>,
     number(baudField)},
    {timeoutOption, readNumber<&ProcessorInfoImp::stubTimeout>,
     number(timeoutField)},
}};

constexpr std::string_view baudWords = "  -baud  "; // twice two blanks

} // namespace

/// An option word in the value's place is lost, which is no refusal: only a
/// trace that goes on ends the clause there, to go on at that word.
int readStubLine(WordCursor &cursor, std::string_view option, EngineImp &imp) {
  const auto *const parameter = findRow(parameters, option, cursor.characters);
  const NamedValues accepted =
      parameter == nullptr ? NamedValues() : parameter->form.names;
  std::string_view value;
  if (const int result = cursor.nextValue(value, accepted);
      result != code::value)
    return result == code::option && cursor.goesOn() ? code::refused : result;
  if (parameter == nullptr)
    return refuse(imp, unknownParameterOfOption, {option, value});
  cursor.reads(parameter->form);
  const int result = parameter->apply({option, value, cursor}, imp);
  if (result != code::done)
    cursor.fault(CommandFaultKind::refusedValue, accepted);
  return result;
}

void writeStubLine(CommandText out, const EngineImp &imp) {
  const ProcessorInfoImp &record = currentRecord(imp);
  out.addText(joined<portOption>, record.stubSerialPort, portField);
  out.addDecimal(baudWords, record.stubBaudRate, baudField);
  out.addDecimal(joined<timeoutOption>, record.stubTimeout, timeoutField);
}

void leaveOutStubLine(WriteRecorder &recorder) {
  for (const Fields *const unused : {&portField, &baudField, &timeoutField})
    recorder.leavesOut(*unused, OmissionReason::otherConnection,
                       connectionField);
}

void describeStubLine(CommandOption &option) {
  for (const auto &parameter : parameters)
    if (option.keyword == parameter.keyword)
      describeOptionValue(option, parameter.form);
}

} // namespace kvo

int KvoOption_Parser::parse_commoptions(std::string &command,
                                        std::string &option, EngineImp &imp) {
  kvo::WordCursor cursor(command);
  return kvo::readStubLine(cursor, option, imp);
}

int KvoOption_Parser::write_commoptions(std::string &out, EngineImp &imp) {
  kvo::writeStubLine(kvo::CommandText(out), imp);
  return kvo::code::done;
}

} // namespace ZelDebugDialog

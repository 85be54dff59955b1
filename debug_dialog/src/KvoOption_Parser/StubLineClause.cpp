// "-comm", "-port", "-baud" and "-timeout": the line of a stub, one value each.
#include "KvoOption_Parser/Descriptions.h"
#include "KvoOption_Parser/Parameters.h"
#include "KvoOption_Parser/Words.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/KvoOption_Parser.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

constexpr std::array<NamedValue, 2> lineKinds{
    {{jtagLine, Engine::STUB_JTAG}, {serialLine, Engine::STUB_SERIAL}}};

int readLineKind(const Argument &argument, EngineImp &imp) {
  const auto *const kind =
      findRow(lineKinds, argument.value, argument.characters);
  if (kind == nullptr)
    return code::refused;
  currentRecord(imp).stubType = kind->value;
  return code::done;
}

int readPort(const Argument &argument, EngineImp &imp) {
  currentRecord(imp).stubSerialPort = argument.value;
  return code::done;
}

template <auto Field> int readNumber(const Argument &argument, EngineImp &imp) {
  storeNumber(argument, currentRecord(imp).*Field);
  return code::done;
}

constexpr std::array<Parameter<EngineImp>, 4> parameters{{
    {commOption, readLineKind, oneOf(lineKinds, "stubType")},
    {portOption, readPort, text("stubSerialPort")},
    {baudOption, readNumber<&ProcessorInfoImp::stubBaudRate>,
     number("stubBaudRate")},
    {timeoutOption, readNumber<&ProcessorInfoImp::stubTimeout>,
     number("stubTimeout")},
}};

} // namespace

template <class Observer>
int readStubLine(WordCursor<Observer> &cursor, std::string_view option,
                 EngineImp &imp) {
  const auto *const parameter = findRow(parameters, option, cursor.characters);
  const NamedValues accepted =
      parameter == nullptr ? NamedValues() : parameter->form.names;
  std::string_view value;
  if (const int result = cursor.nextValue(value, accepted);
      result != code::value)
    return result;
  if (parameter == nullptr)
    return refuse(imp, unknownParameterOfOption, {option, value});
  cursor.observer.sets(parameter->form);
  const int result = parameter->apply({option, value, cursor.characters}, imp);
  if (result != code::done)
    cursor.observer.fault(CommandFaultKind::refusedValue, accepted);
  return result;
}

template int readStubLine(WordCursor<NoObserver> &, std::string_view,
                          EngineImp &);
template int readStubLine(WordCursor<Recorder> &, std::string_view,
                          EngineImp &);

void describeStubLine(CommandOption &option) {
  for (const auto &parameter : parameters)
    if (option.keyword == parameter.keyword)
      describeOptionValue(option, parameter.form);
}

} // namespace kvo

int KvoOption_Parser::parse_commoptions(std::string &command,
                                        std::string &option, EngineImp &imp) {
  kvo::WordCursor<kvo::NoObserver> cursor(command);
  return kvo::readStubLine(cursor, option, imp);
}

int KvoOption_Parser::write_commoptions(std::string &out, EngineImp &imp) {
  const ProcessorInfoImp &record = currentRecord(imp);
  kvo::appendWord(out, kvo::portOption);
  kvo::appendWord(out, record.stubSerialPort);
  out += ' '; // two blanks stand before "-baud" and two behind it
  kvo::appendWord(out, kvo::baudOption);
  out += "  ";
  kvo::appendDecimal(out, record.stubBaudRate);
  kvo::appendWord(out, kvo::timeoutOption);
  out += ' ';
  kvo::appendDecimal(out, record.stubTimeout);
  return kvo::code::done;
}

} // namespace ZelDebugDialog

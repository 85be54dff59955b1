// "-sim": the link to a ModelSim co-simulation. It is read and never written.
#include "KvoOption_Parser/SimulatorOptions.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

constexpr std::string_view unknownModelSimOption =
    "UNKNOWN  ModelSim Option '%s'";

// As with the PowerPC simulator, results of what these read are not examined.

constexpr ValueForm modeForm = flag("modelSimMode");
constexpr ValueForm ipcPortForm = hostAndPort("modelSimHost modelSimPort");

void describeIpcPort(CommandOption &option) {
  describeOptionValue(option, ipcPortForm);
}

template <class Observer>
int readIpcPort(WordCursor<Observer> &cursor, std::string_view &value,
                EngineImp &imp) {
  readUnexamined(cursor, value, ipcPortForm);
  ProcessorInfoImp &record = currentRecord(imp);
  storeIpcPort(value, record.modelSimHost, record.modelSimPort, std::nullopt);
  return code::done;
}

template <class Observer>
int readDevice(WordCursor<Observer> &cursor, std::string_view & /*value*/,
               EngineImp &imp) {
  if (readConfigDevice(cursor, imp) == code::option)
    cursor.observer.isNow(WordRole::lost);
  return code::done;
}

template <class Observer>
constexpr std::array<SimulatorOption<Observer>, 2> options{{
    {ipcPortOption, readIpcPort, describeIpcPort},
    {configDeviceOption, readDevice, describeConfigDevice},
}};

} // namespace

/// Ends at the end of the text only, with the code that tells the dispatcher
/// so.
template <class Observer>
int readModelSim(WordCursor<Observer> &cursor, EngineImp &imp) {
  cursor.observer.sets(modeForm);
  currentRecord(imp).modelSimMode = true;
  const int result = readSimulatorOptions(cursor, imp, options<Observer>,
                                          unknownModelSimOption, {});
  return result == code::done ? code::end : result;
}

template int readModelSim(WordCursor<NoObserver> &, EngineImp &);
template int readModelSim(WordCursor<Recorder> &, EngineImp &);

CommandOptionSet describeModelSimOptions() {
  return describeOptions(modelSimOptions, options<NoObserver>);
}

void describeModelSim(CommandOption &option) {
  option.optionSet = modelSimOptions;
  option.changes = splitFields(modeForm.fields);
}

} // namespace kvo

unsigned KvoOption_Parser::parse_modelsim_options(std::string &command,
                                                  EngineImp &imp) {
  return static_cast<unsigned>(
      kvo::consume(command, imp, kvo::readModelSim<kvo::NoObserver>));
}

} // namespace ZelDebugDialog

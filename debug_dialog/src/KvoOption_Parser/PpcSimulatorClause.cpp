// The simulator of a PowerPC: a configuration file, or a host and port.
//
// The reader takes both, the writer writes the file alone if there is one.
#include "KvoOption_Parser/SimulatorOptions.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

constexpr std::string_view unknownSimulatorOption =
    "UNKNOWN  PowerPC Sim Option '%s'";
constexpr std::string_view fileOption = "-icf";
constexpr std::int32_t defaultPort = 6470;

// The results of what these read are not examined: a missing file or port
// leaves the earlier one (a port is then taken from the earlier value once
// more), and an option word that a debug device clause ran into is lost.

constexpr ValueForm fileForm = text("ppcSimConfigFile");
constexpr ValueForm ipcPortForm = hostAndPort("simIpcHost simIpcPort");

void describeFile(CommandOption &option) {
  describeOptionValue(option, fileForm);
}

void describeIpcPort(CommandOption &option) {
  describeOptionValue(option, ipcPortForm);
}

template <class Observer>
int readFile(WordCursor<Observer> &cursor, std::string_view & /*value*/,
             EngineImp &imp) {
  readUnexamined(cursor, currentRecord(imp).ppcSimConfigFile, fileForm);
  return code::done;
}

template <class Observer>
int readIpcPort(WordCursor<Observer> &cursor, std::string_view &value,
                EngineImp &imp) {
  readUnexamined(cursor, value, ipcPortForm);
  ProcessorInfoImp &record = currentRecord(imp);
  storeIpcPort(value, record.simIpcHost, record.simIpcPort, defaultPort);
  return code::done;
}

template <class Observer>
int readDevice(WordCursor<Observer> &cursor, std::string_view & /*value*/,
               EngineImp &imp) {
  if (readDebugDevice(cursor, imp) == code::option)
    cursor.observer.isNow(WordRole::lost);
  return code::done;
}

template <class Observer>
constexpr std::array<SimulatorOption<Observer>, 3> options{{
    {fileOption, readFile, describeFile},
    {ipcPortOption, readIpcPort, describeIpcPort},
    {debugDeviceOption, readDevice, describeDebugDevice},
}};

} // namespace

template <class Observer>
int readPpcSimulator(WordCursor<Observer> &cursor, EngineImp &imp) {
  return readSimulatorOptions(cursor, imp, options<Observer>,
                              unknownSimulatorOption, {});
}

template int readPpcSimulator(WordCursor<NoObserver> &, EngineImp &);
template int readPpcSimulator(WordCursor<Recorder> &, EngineImp &);

CommandOptionSet describePpcSimulatorOptions() {
  return describeOptions(ppcSimulatorOptions, options<NoObserver>);
}

} // namespace kvo

unsigned KvoOption_Parser::parse_ppcsim_options(std::string &command,
                                                EngineImp &imp) {
  return static_cast<unsigned>(
      kvo::consume(command, imp, kvo::readPpcSimulator<kvo::NoObserver>));
}

int KvoOption_Parser::write_ppcsim_options(std::string &out, EngineImp &imp) {
  const ProcessorInfoImp &record = currentRecord(imp);
  if (!record.ppcSimConfigFile.empty()) {
    kvo::appendWord(out, kvo::fileOption);
    kvo::appendWord(out, record.ppcSimConfigFile);
    return kvo::code::done;
  }
  if (record.simIpcHost.empty())
    return kvo::code::done;
  kvo::appendWord(out, kvo::ipcPortOption);
  kvo::appendWord(out, record.simIpcHost);
  out += ':';
  kvo::appendDecimal(out, record.simIpcPort);
  return kvo::code::done;
}

} // namespace ZelDebugDialog

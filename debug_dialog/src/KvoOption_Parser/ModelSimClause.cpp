// "-sim": the link to a ModelSim co-simulation. It is read and never written.
#include "KvoOption_Parser/SimulatorOptions.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

constexpr std::string_view unknownModelSimOption =
    "UNKNOWN  ModelSim Option '%s'";

// As with the PowerPC simulator, results of what these read are not examined.

constexpr const Fields &modeField = fields<&ProcessorInfoImp::modelSimMode>;
constexpr ValueForm ipcPortForm = hostAndPort(
    fields<&ProcessorInfoImp::modelSimHost, &ProcessorInfoImp::modelSimPort>);

void describeIpcPort(CommandOption &option) {
  describeOptionValue(option, ipcPortForm);
}

int readIpcPort(WordCursor &cursor, std::string_view &value, EngineImp &imp) {
  readUnexamined(cursor, value, ipcPortForm);
  ProcessorInfoImp &record = currentRecord(imp);
  storeIpcPort(cursor, value, record.modelSimHost, record.modelSimPort,
               std::nullopt);
  return code::done;
}

int readDevice(WordCursor &cursor, std::string_view & /*value*/,
               EngineImp &imp) {
  return endUnexamined(cursor, readConfigDevice(cursor, imp));
}

constexpr std::array<SimulatorOption, 2> options{{
    {ipcPortOption, readIpcPort, describeIpcPort},
    {configDeviceOption, readDevice, describeConfigDevice},
}};

} // namespace

/// Ends at the end of the text only, with the code that tells the dispatcher
/// so.
int readModelSim(WordCursor &cursor, EngineImp &imp) {
  cursor.store(currentRecord(imp).modelSimMode, true);
  const int result =
      readSimulatorOptions(cursor, imp, options, unknownModelSimOption, {});
  return result == code::done ? code::end : result;
}

CommandOptionSet describeModelSimOptions() {
  return describeOptions(modelSimOptions, options);
}

void describeModelSim(CommandOption &option) {
  option.optionSet = modelSimOptions;
  option.changes = namesOf(modeField);
}

} // namespace kvo

unsigned KvoOption_Parser::parse_modelsim_options(std::string &command,
                                                  EngineImp &imp) {
  return static_cast<unsigned>(kvo::consume(command, imp, kvo::readModelSim));
}

} // namespace ZelDebugDialog

// "-sim": the link to a ModelSim co-simulation. It is read and never written.
#include "KvoOption_Parser/SimulatorOptions.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

constexpr std::string_view unknownModelSimOption =
    "UNKNOWN  ModelSim Option '%s'";

// As with the PowerPC simulator, results of what these read are not examined.

int readIpcPort(WordCursor &cursor, std::string_view &value, EngineImp &imp) {
  cursor.next(value);
  ProcessorInfoImp &record = currentRecord(imp);
  storeIpcPort(value, record.modelSimHost, record.modelSimPort, std::nullopt);
  return code::done;
}

int readDevice(WordCursor &cursor, std::string_view & /*value*/,
               EngineImp &imp) {
  readConfigDevice(cursor, imp);
  return code::done;
}

constexpr std::array<SimulatorOption, 2> options{{
    {ipcPortOption, readIpcPort},
    {configDeviceOption, readDevice},
}};

} // namespace

/// Ends at the end of the text only, with the code that tells the dispatcher
/// so.
int readModelSim(WordCursor &cursor, EngineImp &imp) {
  currentRecord(imp).modelSimMode = true;
  const int result =
      readSimulatorOptions(cursor, imp, options, unknownModelSimOption, {});
  return result == code::done ? code::end : result;
}

} // namespace kvo

unsigned KvoOption_Parser::parse_modelsim_options(std::string &command,
                                                  EngineImp &imp) {
  return static_cast<unsigned>(kvo::consume(command, imp, kvo::readModelSim));
}

} // namespace ZelDebugDialog

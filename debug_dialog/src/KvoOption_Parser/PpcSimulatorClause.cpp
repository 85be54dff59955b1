// The simulator of a PowerPC: a configuration file, or a host and port.
//
// The reader takes both, the writer writes the file alone if there is one.
#include "KvoOption_Parser/SimulatorOptions.h"
#include "KvoOption_Parser/Writers.h"

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

constexpr const Fields &fileField = fields<&ProcessorInfoImp::ppcSimConfigFile>;

constexpr ValueForm fileForm = text(fileField);
constexpr ValueForm ipcPortForm = hostAndPort(simulatorHostFields);

void describeFile(CommandOption &option) {
  describeOptionValue(option, fileForm);
}

void describeIpcPort(CommandOption &option) {
  describeOptionValue(option, ipcPortForm);
}

int readFile(WordCursor &cursor, std::string_view & /*value*/, EngineImp &imp) {
  // Straight into the record: a lone "-" is stored before it is refused.
  std::string &file = currentRecord(imp).ppcSimConfigFile;
  if (cursor.recorder != nullptr)
    cursor.recorder->keepValue(&file);
  if (cursor.next(file, WordRole::value) == code::end) {
    cursor.missing(CommandFaultKind::missingValue);
    return code::done;
  }
  cursor.reads(fileForm);
  if (cursor.recorder != nullptr)
    cursor.recorder->stored(&file);
  return code::done;
}

int readIpcPort(WordCursor &cursor, std::string_view &value, EngineImp &imp) {
  readUnexamined(cursor, value, ipcPortForm);
  ProcessorInfoImp &record = currentRecord(imp);
  storeIpcPort(cursor, value, record.simIpcHost, record.simIpcPort,
               defaultPort);
  return code::done;
}

int readDevice(WordCursor &cursor, std::string_view & /*value*/,
               EngineImp &imp) {
  return endUnexamined(cursor, readDebugDevice(cursor, imp));
}

constexpr std::array<SimulatorOption, 3> options{{
    {fileOption, readFile, describeFile},
    {ipcPortOption, readIpcPort, describeIpcPort},
    {debugDeviceOption, readDevice, describeDebugDevice},
}};

void tellFile(WriteRecorder &recorder, std::string_view file) {
  recorder.leavesOut(simulatorHostFields, OmissionReason::simulatorFile,
                     fileField);
  recorder.expectAnyWord(file, fileField);
}

void tellHost(WriteRecorder &recorder, const std::string &text,
              std::string_view host) {
  recorder.expectAnyWord(
      recorder.wroteRest(text, WordRole::value, simulatorHostFields),
      simulatorHostFields);
  if (host.find(':') != std::string_view::npos)
    recorder.cannotBeRead(simulatorHostFields, OmissionReason::colonInHost);
}

} // namespace

int readPpcSimulator(WordCursor &cursor, EngineImp &imp) {
  return readSimulatorOptions(cursor, imp, options, unknownSimulatorOption, {});
}

void writePpcSimulator(CommandText out, const EngineImp &imp) {
  const ProcessorInfoImp &record = currentRecord(imp);
  if (!record.ppcSimConfigFile.empty()) {
    out.addKeyword<fileOption>(WordRole::option);
    out.addWord(record.ppcSimConfigFile, WordRole::value, fileField);
    if (out.recorder != nullptr)
      tellFile(*out.recorder, record.ppcSimConfigFile);
    return;
  }
  if (out.recorder != nullptr)
    out.recorder->implies(fileField);
  if (record.simIpcHost.empty()) {
    if (out.recorder != nullptr)
      leaveOutEmptyHost(*out.recorder);
    return;
  }
  out.addKeyword<ipcPortOption>(WordRole::option);
  appendWord(out.text, record.simIpcHost);
  out.text += ':';
  appendDecimal(out.text, record.simIpcPort);
  if (out.recorder != nullptr)
    tellHost(*out.recorder, out.text, record.simIpcHost);
}

void leaveOutEmptyHost(WriteRecorder &recorder) {
  recorder.implies(fields<&ProcessorInfoImp::simIpcHost>);
  recorder.leavesOut(fields<&ProcessorInfoImp::simIpcPort>,
                     OmissionReason::portWithoutHost);
}

void leaveOutSimulatorFile(WriteRecorder &recorder) {
  recorder.leavesOut(fileField, OmissionReason::otherConnection,
                     connectionField);
}

void leaveOutSimulatorHost(WriteRecorder &recorder) {
  recorder.leavesOut(simulatorHostFields, OmissionReason::otherConnection,
                     connectionField);
}

CommandOptionSet describePpcSimulatorOptions() {
  return describeOptions(ppcSimulatorOptions, options);
}

} // namespace kvo

unsigned KvoOption_Parser::parse_ppcsim_options(std::string &command,
                                                EngineImp &imp) {
  return static_cast<unsigned>(
      kvo::consume(command, imp, kvo::readPpcSimulator));
}

int KvoOption_Parser::write_ppcsim_options(std::string &out, EngineImp &imp) {
  kvo::writePpcSimulator(kvo::CommandText(out), imp);
  return kvo::code::done;
}

} // namespace ZelDebugDialog

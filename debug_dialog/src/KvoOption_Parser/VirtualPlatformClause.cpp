// "vpconnect lc": the virtual platform of a Lumacore.
//
// Host and port are written as one word that is no "-ipcport" option to the
// reader, and not at all in configuration mode.
#include "KvoOption_Parser/SimulatorOptions.h"
#include "KvoOption_Parser/Writers.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineFacts.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

constexpr std::string_view unknownVpOption =
    "UNKNOWN virtual platform Option '%s'";
constexpr std::string_view configOption = "-config";
constexpr std::string_view cycleApproximateWord = "cycle_approximate";
constexpr std::array<NamedValue, 1> vpTargets{{{lumacoreTarget, typeLumacore}}};
constexpr std::array<NamedValue, 1> configModes{{{cycleApproximateWord, 1}}};
constexpr std::int32_t defaultPort = 2340;

constexpr ValueForm configForm =
    oneOf(configModes, fields<&ProcessorInfoImp::vpConfigMode,
                              &ProcessorInfoImp::cycleApproximate>);
constexpr ValueForm ipcPortForm = hostAndPort(simulatorHostFields);

void describeConfig(CommandOption &option) {
  describeOptionValue(option, configForm);
}

void describeIpcPort(CommandOption &option) {
  describeOptionValue(option, ipcPortForm);
}

int readConfig(WordCursor &cursor, std::string_view &value, EngineImp &imp) {
  if (cursor.nextValue(value, configModes) != code::value)
    return code::refused;
  cursor.reads(configForm);
  const auto *const mode = findRow(configModes, value, cursor.characters);
  if (mode == nullptr) {
    cursor.fault(CommandFaultKind::refusedValue, configModes);
    return code::refused;
  }
  cursor.store(currentRecord(imp).vpConfigMode, 1U);
  cursor.store(currentRecord(imp).cycleApproximate, mode->value);
  return code::done;
}

int readIpcPort(WordCursor &cursor, std::string_view &value, EngineImp &imp) {
  if (cursor.nextValue(value) != code::value)
    return code::refused;
  cursor.reads(ipcPortForm);
  ProcessorInfoImp &record = currentRecord(imp);
  storeIpcPort(cursor, value, record.simIpcHost, record.simIpcPort,
               defaultPort);
  return code::done;
}

constexpr std::array<SimulatorOption, 2> options{{
    {configOption, readConfig, describeConfig},
    {ipcPortOption, readIpcPort, describeIpcPort},
}};

constexpr const Fields &modeField = fields<&ProcessorInfoImp::vpConfigMode>;
constexpr const Fields &approximateField =
    fields<&ProcessorInfoImp::cycleApproximate>;

/// Both flags are read as 1, and the mode only with a value behind it.
void tellConfigurationMode(WriteRecorder &recorder,
                           const ProcessorInfoImp &record) {
  recorder.leavesOut(simulatorHostFields, OmissionReason::configurationMode,
                     modeField);
  if (record.vpConfigMode != 1)
    recorder.leavesOut(modeField, OmissionReason::betweenNamedValues);
  if (record.cycleApproximate == 0) {
    recorder.implies(approximateField);
    recorder.cannotBeRead(modeField, OmissionReason::configurationModeAlone);
  } else if (record.cycleApproximate != 1) {
    recorder.leavesOut(approximateField, OmissionReason::betweenNamedValues);
  }
}

void writeConfigurationMode(CommandText out, const ProcessorInfoImp &record) {
  out.addKeyword<configOption>(WordRole::option,
                               record.vpConfigMode == 1 ? modeField : Fields());
  if (record.cycleApproximate != 0)
    out.addKeyword<cycleApproximateWord>(
        WordRole::value,
        record.cycleApproximate == 1 ? approximateField : Fields());
  if (out.recorder != nullptr)
    tellConfigurationMode(*out.recorder, record);
}

void writeHost(CommandText out, const ProcessorInfoImp &record) {
  if (record.simIpcHost.empty()) {
    if (out.recorder != nullptr)
      leaveOutEmptyHost(*out.recorder);
    return;
  }
  appendWord(out.text, ipcPortOption);
  out.text += record.simIpcHost;
  appendDecimal(out.text, record.simIpcPort);
  if (out.recorder == nullptr)
    return;
  out.recorder->wroteRest(out.text, WordRole::option, simulatorHostFields);
  out.recorder->cannotBeRead(simulatorHostFields, OmissionReason::oneWord);
}

} // namespace

int readVirtualPlatform(WordCursor &cursor, EngineImp &imp) {
  std::string_view value;
  if (cursor.next(value, WordRole::target) == code::end) {
    cursor.missing(CommandFaultKind::missingTarget, vpTargets);
    return code::refused;
  }
  if (findRow(vpTargets, value, cursor.characters) == nullptr) {
    cursor.fault(CommandFaultKind::unknownTarget, vpTargets);
    return code::refused;
  }
  ProcessorInfoImp &record = currentRecord(imp);
  const bool hasDesign = imp.hwManager != nullptr;
  if (hasDesign && (record.connectionMask & Engine::CONNECT_VP) == 0) {
    cursor.fault(CommandFaultKind::connectionNotAllowed);
    return code::refused;
  }
  cursor.store(record.connectionType, Engine::CONNECT_VP);
  if (!hasDesign) {
    cursor.store(record.connectionMask,
                 record.connectionMask | Engine::CONNECT_VP);
    cursor.store(record.procType, typeLumacore);
  }
  return readSimulatorOptions(cursor, imp, options, unknownVpOption, value);
}

int writeVirtualPlatform(CommandText out, const EngineImp &imp) {
  const ProcessorInfoImp &record = currentRecord(imp);
  out.begin(vpConnectHead, connectionField);
  if (record.procFamily != familyLumacore) {
    if (out.recorder != nullptr)
      out.recorder->gaveUp(connectionField,
                           OmissionReason::connectionWithoutCommand);
    return code::refused;
  }
  writeTarget<lumacoreTarget>(out, record);
  if (record.vpConfigMode != 0) {
    writeConfigurationMode(out, record);
  } else {
    if (out.recorder != nullptr) {
      out.recorder->implies(modeField);
      out.recorder->leavesOut(approximateField,
                              OmissionReason::withConfigurationMode);
    }
    writeHost(out, record);
  }
  if (out.recorder != nullptr) {
    leaveOutWires(*out.recorder, imp);
    leaveOutStub(*out.recorder);
    leaveOutSimulatorFile(*out.recorder);
  }
  return code::done;
}

void leaveOutVirtualPlatform(WriteRecorder &recorder) {
  for (const Fields *const unused : {&modeField, &approximateField})
    recorder.leavesOut(*unused, OmissionReason::otherConnection,
                       connectionField);
}

CommandOptionSet describeVirtualPlatformOptions() {
  return describeOptions(virtualPlatformOptions, options);
}

} // namespace kvo

unsigned KvoOption_Parser::parse_vpoptions(std::string &command,
                                           EngineImp &imp) {
  return static_cast<unsigned>(
      kvo::consume(command, imp, kvo::readVirtualPlatform));
}

int KvoOption_Parser::write_vpoptions(std::string &out, EngineImp &imp) {
  return kvo::writeVirtualPlatform(kvo::CommandText(out), imp);
}

} // namespace ZelDebugDialog

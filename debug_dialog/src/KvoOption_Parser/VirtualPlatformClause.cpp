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
    oneOf(configModes, "vpConfigMode cycleApproximate");
constexpr ValueForm ipcPortForm = hostAndPort("simIpcHost simIpcPort");

void describeConfig(CommandOption &option) {
  describeOptionValue(option, configForm);
}

void describeIpcPort(CommandOption &option) {
  describeOptionValue(option, ipcPortForm);
}

template <class Observer>
int readConfig(WordCursor<Observer> &cursor, std::string_view &value,
               EngineImp &imp) {
  if (cursor.nextValue(value, configModes) != code::value)
    return code::refused;
  cursor.observer.sets(configForm);
  const auto *const mode = findRow(configModes, value, cursor.characters);
  if (mode == nullptr) {
    cursor.observer.fault(CommandFaultKind::refusedValue, configModes);
    return code::refused;
  }
  currentRecord(imp).vpConfigMode = 1;
  currentRecord(imp).cycleApproximate = mode->value;
  return code::done;
}

template <class Observer>
int readIpcPort(WordCursor<Observer> &cursor, std::string_view &value,
                EngineImp &imp) {
  if (cursor.nextValue(value) != code::value)
    return code::refused;
  cursor.observer.sets(ipcPortForm);
  ProcessorInfoImp &record = currentRecord(imp);
  storeIpcPort(value, record.simIpcHost, record.simIpcPort, defaultPort);
  return code::done;
}

template <class Observer>
constexpr std::array<SimulatorOption<Observer>, 2> options{{
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

template <class Observer>
int readVirtualPlatform(WordCursor<Observer> &cursor, EngineImp &imp) {
  std::string_view value;
  if (cursor.next(value, WordRole::target) == code::end) {
    cursor.observer.missing(CommandFaultKind::missingTarget, vpTargets);
    return code::refused;
  }
  if (findRow(vpTargets, value, cursor.characters) == nullptr) {
    cursor.observer.fault(CommandFaultKind::unknownTarget, vpTargets);
    return code::refused;
  }
  ProcessorInfoImp &record = currentRecord(imp);
  const bool hasDesign = imp.hwManager != nullptr;
  if (hasDesign && (record.connectionMask & Engine::CONNECT_VP) == 0) {
    cursor.observer.fault(CommandFaultKind::connectionNotAllowed);
    return code::refused;
  }
  cursor.observer.sets(flag("connectionType"));
  record.connectionType = Engine::CONNECT_VP;
  if (!hasDesign) {
    cursor.observer.sets(flag("connectionType connectionMask procType"));
    record.connectionMask |= Engine::CONNECT_VP;
    record.procType = typeLumacore;
  }
  return readSimulatorOptions(cursor, imp, options<Observer>, unknownVpOption,
                              value);
}

template int readVirtualPlatform(WordCursor<NoObserver> &, EngineImp &);
template int readVirtualPlatform(WordCursor<Recorder> &, EngineImp &);

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
  return describeOptions(virtualPlatformOptions, options<NoObserver>);
}

} // namespace kvo

unsigned KvoOption_Parser::parse_vpoptions(std::string &command,
                                           EngineImp &imp) {
  return static_cast<unsigned>(
      kvo::consume(command, imp, kvo::readVirtualPlatform<kvo::NoObserver>));
}

int KvoOption_Parser::write_vpoptions(std::string &out, EngineImp &imp) {
  return kvo::writeVirtualPlatform(kvo::CommandText(out), imp);
}

} // namespace ZelDebugDialog

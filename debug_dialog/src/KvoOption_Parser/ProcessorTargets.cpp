// "lc", "ppc", "arm", "r5" and "dap": a connection word, and what follows it.
//
// With a design the processor's mask decides which connections are allowed;
// without one the command widens the mask and tells family and type. Everything
// that is no Lumacore is written as a PowerPC.
#include <array>

#include "KvoOption_Parser/Descriptions.h"
#include "KvoOption_Parser/Message.h"
#include "KvoOption_Parser/Numbers.h"
#include "KvoOption_Parser/Readers.h"
#include "KvoOption_Parser/Words.h"
#include "KvoOption_Parser/Writers.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "facts/CurrentRecord.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

constexpr std::string_view invalidLumacoreConnection =
    "Invalid Connect Type for Lumacore Target";
constexpr std::string_view invalidPpcConnection =
    "Invalid Connect Type for PowerPC Target";

constexpr std::string_view simWord = "sim";
constexpr std::string_view stubWord = "stub";
constexpr std::string_view hduWord = "hdu";
constexpr std::string_view hwWord = "hw";

constexpr ValueForm memorySizeForm =
    number(fields<&ProcessorInfoImp::simMemSize>);

void describeMemorySize(CommandOption &option) {
  describeOptionValue(option, memorySizeForm);
}

struct SimulatorOption {
  std::string_view keyword;
  DescribeOption describe;
};

constexpr std::array<SimulatorOption, 1> simulatorOptions{
    {{"-memsize", describeMemorySize}}};

/// The memory size is the last thing that is read; further words are ignored. A
/// value word in place of the option is, too.
int readLumacoreSimulator(WordCursor &cursor, EngineImp &imp) {
  ProcessorInfoImp &record = currentRecord(imp);
  cursor.store(record.connectionType, Engine::CONNECT_SIM);
  std::string_view word;
  if (cursor.next(word, WordRole::ignored) != code::option)
    return code::done;
  cursor.isNow(WordRole::option);
  if (findRow(simulatorOptions, word, cursor.characters) == nullptr) {
    cursor.fault(CommandFaultKind::unknownOption, simulatorOptions);
    return code::refused;
  }
  std::string_view size; // an option word here is a number as well: 0
  if (cursor.next(size, WordRole::value) == code::end) {
    cursor.missing(CommandFaultKind::missingValue);
    return code::refused;
  }
  cursor.reads(memorySizeForm);
  cursor.store(record.simMemSize, lowBits<std::uint32_t>(toUnsigned(size)));
  return code::done;
}

struct Connection {
  std::string_view keyword;
  Engine::ConnectionType type;
  Reader read;
  const char *optionSet;
};

constexpr std::array<Connection, 3> lumacoreConnections{{
    {simWord, Engine::CONNECT_SIM, readLumacoreSimulator,
     lumacoreSimulatorOptions},
    {stubWord, Engine::CONNECT_STUB, readOptions, processorOptions},
    {hduWord, Engine::CONNECT_HW, readOptions, processorOptions},
}};
constexpr std::array<Connection, 2> ppcConnections{{
    {simWord, Engine::CONNECT_SIM, readPpcSimulator, ppcSimulatorOptions},
    {hwWord, Engine::CONNECT_HW, readOptions, processorOptions},
}};
constexpr std::array<Connection, 1> armConnections{{
    {hwWord, Engine::CONNECT_HW, readOptions, processorOptions},
}};

/// When a command without a design tells which processor it is for. A PowerPC's
/// options may tell its type more exactly, so its own comes before them.
enum class IdentityComes { beforeOptions, afterOptions };

struct Identity {
  std::uint32_t family;
  std::uint32_t type;
  IdentityComes comes;
};

constexpr Identity lumacore{familyLumacore, typeLumacore,
                            IdentityComes::afterOptions};
constexpr Identity ppc{familyPowerPc, typePpcUnknown,
                       IdentityComes::beforeOptions};
constexpr Identity cortexA9{familyArm, typeCortexA9,
                            IdentityComes::afterOptions};
constexpr Identity cortexR5{familyArm, typeCortexR5,
                            IdentityComes::afterOptions};

template <std::size_t size>
const Connection *
readConnection(WordCursor &cursor,
               const std::array<Connection, size> &connections) {
  std::string_view word;
  if (cursor.next(word, WordRole::connection) == code::end) {
    cursor.missing(CommandFaultKind::missingConnection, connections);
    return nullptr;
  }
  const auto *const connection = findRow(connections, word, cursor.characters);
  if (connection == nullptr)
    cursor.fault(CommandFaultKind::unknownConnection, connections);
  return connection;
}

void identify(WordCursor &cursor, std::size_t targetWord,
              ProcessorInfoImp &record, const Identity &identity) {
  cursor.storeFor(targetWord, record.procFamily, identity.family);
  cursor.storeFor(targetWord, record.procType, identity.type);
}

template <std::size_t size>
int readTarget(WordCursor &cursor, EngineImp &imp,
               const std::array<Connection, size> &connections,
               const Identity &identity) {
  const std::size_t targetWord = cursor.lastWord();
  const auto *const connection = readConnection(cursor, connections);
  if (connection == nullptr)
    return code::refused;
  const std::size_t connectionWord = cursor.lastWord();
  ProcessorInfoImp &record = currentRecord(imp);
  const bool hasDesign = imp.hwManager != nullptr;
  if (hasDesign && (record.connectionMask & connection->type) == 0) {
    cursor.fault(CommandFaultKind::connectionNotAllowed);
    return code::refused;
  }
  if (!hasDesign && identity.comes == IdentityComes::beforeOptions)
    identify(cursor, targetWord, record, identity);
  if (connection->read(cursor, imp) == code::refused)
    return code::refused;
  cursor.storeFor(connectionWord, record.connectionType, connection->type);
  if (hasDesign)
    return code::done;
  cursor.storeFor(connectionWord, record.connectionMask,
                  record.connectionMask | connection->type);
  if (identity.comes == IdentityComes::afterOptions)
    identify(cursor, targetWord, record, identity);
  return code::done;
}

template <class Rows>
void describeConnections(CommandTarget &target, const Rows &connections) {
  for (const auto &row : connections)
    target.connections.push_back(
        {std::string(row.keyword), row.type, row.optionSet});
}

constexpr const Fields &identityFields =
    fields<&ProcessorInfoImp::procFamily, &ProcessorInfoImp::procType>;
constexpr const Fields &familyField = fields<&ProcessorInfoImp::procFamily>;
constexpr const Fields &kindField = fields<&ProcessorInfoImp::procType>;
constexpr const Fields &stubTypeField = fields<&ProcessorInfoImp::stubType>;

/// What the words of a connection leave unsaid of which processor it is.
void tellIdentity(WriteRecorder &recorder, const ProcessorInfoImp &record,
                  const Identity &read) {
  const bool isModule = IsModuleMask(record.connectionMask);
  recorder.leavesOut(fields<&ProcessorInfoImp::instanceName>,
                     OmissionReason::identity);
  recorder.leavesOut(fields<&ProcessorInfoImp::connectionMask>,
                     isModule ? OmissionReason::writtenAsProcessor
                              : OmissionReason::identity);
  const OmissionReason asPpc = isModule ? OmissionReason::writtenAsProcessor
                                        : OmissionReason::writtenAsPpc;
  if (record.procFamily != read.family)
    recorder.leavesOut(familyField, asPpc);
  if (record.procType == read.type)
    return;
  const bool isOther = isModule || record.procFamily != read.family;
  recorder.leavesOut(kindField,
                     isOther ? asPpc : OmissionReason::processorKind);
}

/// Cable and chain, then the debug device.
int writeHardware(CommandText out, const EngineImp &imp) {
  const std::size_t before = out.text.size();
  if (const int result = writeCable(out, imp); result != code::done)
    return result;
  const std::size_t behindCable = out.text.size();
  writeBoundaryScan(out, imp);
  writeChain(out, imp);
  writeDebugDevice(out, imp);
  const bool endsWithCable =
      before != behindCable && behindCable == out.text.size();
  if (out.recorder != nullptr && endsWithCable &&
      isRefusedAtTheEnd(*imp.cableOption))
    out.recorder->cannotBeRead(fields<&CableOption::frequency>,
                               OmissionReason::frequencyChecked);
  return code::done;
}

int writeStub(CommandText out, const EngineImp &imp) {
  const std::uint32_t kind = currentRecord(imp).stubType;
  out.addKeyword<commOption>(WordRole::option);
  if (kind == Engine::STUB_JTAG) {
    out.addKeyword<jtagLine>(WordRole::value, stubTypeField);
    if (out.recorder != nullptr)
      leaveOutStubLine(*out.recorder);
    return writeHardware(out, imp);
  }
  const bool isNamed = kind == Engine::STUB_SERIAL;
  out.addKeyword<serialLine>(WordRole::value,
                             isNamed ? stubTypeField : Fields());
  writeStubLine(out, imp);
  if (out.recorder != nullptr) {
    if (!isNamed)
      out.recorder->leavesOut(stubTypeField,
                              OmissionReason::betweenNamedValues);
    leaveOutWires(*out.recorder, imp);
  }
  return code::done;
}

/// What commands of other connections carry.
void leaveOutSimulators(WriteRecorder &recorder) {
  leaveOutSimulatorFile(recorder);
  leaveOutSimulatorHost(recorder);
  leaveOutVirtualPlatform(recorder);
}

int refuseConnection(CommandText out, const EngineImp &imp,
                     std::string_view message) {
  if (out.recorder != nullptr)
    out.recorder->gaveUp(connectionField,
                         OmissionReason::connectionWithoutCommand);
  return refuse(imp, message);
}

} // namespace

int readLumacore(WordCursor &cursor, EngineImp &imp) {
  return readTarget(cursor, imp, lumacoreConnections, lumacore);
}

int readPpc(WordCursor &cursor, EngineImp &imp) {
  return readTarget(cursor, imp, ppcConnections, ppc);
}

int readArm(WordCursor &cursor, EngineImp &imp) {
  return readTarget(cursor, imp, armConnections, cortexA9);
}

int readArmR5(WordCursor &cursor, EngineImp &imp) {
  return readTarget(cursor, imp, armConnections, cortexR5);
}

/// Any design or none: the mask is replaced, and allows no ordinary connection.
int readDap(WordCursor &cursor, EngineImp &imp) {
  const std::size_t targetWord = cursor.lastWord();
  const auto *const connection = readConnection(cursor, armConnections);
  if (connection == nullptr)
    return code::refused;
  const std::size_t connectionWord = cursor.lastWord();
  if (connection->read(cursor, imp) == code::refused)
    return code::refused;
  ProcessorInfoImp &record = currentRecord(imp);
  cursor.storeFor(connectionWord, record.connectionType, connection->type);
  cursor.storeFor(targetWord, record.connectionMask, maskDap);
  identify(cursor, targetWord, record, cortexA9);
  return code::done;
}

void tellTarget(CommandText out, std::string_view target,
                const ProcessorInfoImp &record) {
  const Identity &read = target == lumacoreTarget ? lumacore : ppc;
  const bool tellsFamily = record.procFamily == read.family;
  const bool tellsKind = record.procType == read.type;
  out.recorder->wroteWord(out.text, target, WordRole::target,
                          tellsFamily && tellsKind ? identityFields
                          : tellsFamily            ? familyField
                          : tellsKind              ? kindField
                                                   : Fields());
  tellIdentity(*out.recorder, record, read);
  if ((record.connectionMask & record.connectionType) == 0)
    out.recorder->cannotBeRead(connectionField,
                               OmissionReason::connectionNotAllowed);
}

void leaveOutWires(WriteRecorder &recorder, const EngineImp &imp) {
  leaveOutJtagOptions(recorder, imp);
  leaveOutDebugDevice(recorder, imp);
}

void leaveOutStub(WriteRecorder &recorder) {
  recorder.leavesOut(stubTypeField, OmissionReason::otherConnection,
                     connectionField);
  leaveOutStubLine(recorder);
}

int writeLumacore(CommandText out, const EngineImp &imp) {
  const ProcessorInfoImp &record = currentRecord(imp);
  writeTarget<lumacoreTarget>(out, record);
  int result = code::done;
  switch (record.connectionType) {
  case Engine::CONNECT_SIM:
    out.addKeyword<simWord>(WordRole::connection, connectionField);
    if (out.recorder != nullptr)
      leaveOutWires(*out.recorder, imp);
    break;
  case Engine::CONNECT_HW:
    out.addKeyword<hduWord>(WordRole::connection, connectionField);
    result = writeHardware(out, imp);
    break;
  case Engine::CONNECT_STUB:
    out.addKeyword<stubWord>(WordRole::connection, connectionField);
    result = writeStub(out, imp);
    break;
  default:
    return refuseConnection(out, imp, invalidLumacoreConnection);
  }
  if (out.recorder != nullptr && result == code::done) {
    if (record.connectionType != Engine::CONNECT_STUB)
      leaveOutStub(*out.recorder);
    leaveOutSimulators(*out.recorder);
  }
  return result;
}

int writePpc(CommandText out, const EngineImp &imp) {
  const ProcessorInfoImp &record = currentRecord(imp);
  writeTarget<ppcTarget>(out, record);
  switch (record.connectionType) {
  case Engine::CONNECT_SIM:
    out.addKeyword<simWord>(WordRole::connection, connectionField);
    writePpcSimulator(out, imp);
    if (out.recorder != nullptr) {
      leaveOutWires(*out.recorder, imp);
      leaveOutVirtualPlatform(*out.recorder);
    }
    break;
  case Engine::CONNECT_HW:
    out.addKeyword<hwWord>(WordRole::connection, connectionField);
    if (const int result = writeHardware(out, imp); result != code::done)
      return result;
    if (out.recorder != nullptr)
      leaveOutSimulators(*out.recorder);
    break;
  default:
    return refuseConnection(out, imp, invalidPpcConnection);
  }
  if (out.recorder != nullptr)
    leaveOutStub(*out.recorder);
  return code::done;
}

void describeLumacore(CommandTarget &target) {
  describeConnections(target, lumacoreConnections);
}

void describePpc(CommandTarget &target) {
  describeConnections(target, ppcConnections);
}

void describeArm(CommandTarget &target) {
  describeConnections(target, armConnections);
}

CommandOptionSet describeLumacoreSimulatorOptions() {
  return describeOptions(lumacoreSimulatorOptions, simulatorOptions);
}

} // namespace kvo

int KvoOption_Parser::parse_lcoptions(std::string &command, EngineImp &imp) {
  return kvo::consume(command, imp, kvo::readLumacore);
}

int KvoOption_Parser::parse_ppcoptions(std::string &command, EngineImp &imp) {
  return kvo::consume(command, imp, kvo::readPpc);
}

int KvoOption_Parser::parse_armoptions(std::string &command, EngineImp &imp) {
  return kvo::consume(command, imp, kvo::readArm);
}

int KvoOption_Parser::parse_armr5options(std::string &command, EngineImp &imp) {
  return kvo::consume(command, imp, kvo::readArmR5);
}

int KvoOption_Parser::parse_dapoptions(std::string &command, EngineImp &imp) {
  return kvo::consume(command, imp, kvo::readDap);
}

int KvoOption_Parser::write_lcoptions(std::string &out, EngineImp &imp) {
  return kvo::writeLumacore(kvo::CommandText(out), imp);
}

int KvoOption_Parser::write_ppcoptions(std::string &out, EngineImp &imp) {
  return kvo::writePpc(kvo::CommandText(out), imp);
}

} // namespace ZelDebugDialog

// "vpconnect lc": the virtual platform of a Lumacore.
//
// Host and port are written as one word that is no "-ipcport" option to the
// reader, and not at all in configuration mode.
#include "KvoOption_Parser/SimulatorOptions.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog_Engine/Families.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

constexpr std::string_view unknownVpOption =
    "UNKNOWN virtual platform Option '%s'";
constexpr std::string_view configOption = "-config";
constexpr std::string_view cycleApproximateWord = "cycle_approximate";
constexpr std::int32_t defaultPort = 2340;

int readConfig(WordCursor &cursor, std::string_view &value, EngineImp &imp) {
  if (cursor.next(value) != code::value ||
      !cursor.sameWord(value, cycleApproximateWord))
    return code::refused;
  currentRecord(imp).vpConfigMode = 1;
  currentRecord(imp).cycleApproximate = 1;
  return code::done;
}

int readIpcPort(WordCursor &cursor, std::string_view &value, EngineImp &imp) {
  if (cursor.next(value) != code::value)
    return code::refused;
  ProcessorInfoImp &record = currentRecord(imp);
  storeIpcPort(value, record.simIpcHost, record.simIpcPort, defaultPort);
  return code::done;
}

constexpr std::array<SimulatorOption, 2> options{{
    {configOption, readConfig},
    {ipcPortOption, readIpcPort},
}};

} // namespace

int readVirtualPlatform(WordCursor &cursor, EngineImp &imp) {
  std::string_view value;
  if (cursor.next(value) == code::end ||
      !cursor.sameWord(value, lumacoreTarget))
    return code::refused;
  ProcessorInfoImp &record = currentRecord(imp);
  const bool hasDesign = imp.hwManager != nullptr;
  if (hasDesign && (record.connectionMask & Engine::CONNECT_VP) == 0)
    return code::refused;
  record.connectionType = Engine::CONNECT_VP;
  if (!hasDesign) {
    record.connectionMask |= Engine::CONNECT_VP;
    record.procType = typeLumacore;
  }
  return readSimulatorOptions(cursor, imp, options, unknownVpOption, value);
}

} // namespace kvo

unsigned KvoOption_Parser::parse_vpoptions(std::string &command,
                                           EngineImp &imp) {
  return static_cast<unsigned>(
      kvo::consume(command, imp, kvo::readVirtualPlatform));
}

int KvoOption_Parser::write_vpoptions(std::string &out, EngineImp &imp) {
  const ProcessorInfoImp &record = currentRecord(imp);
  out = kvo::vpConnectHead;
  if (record.procFamily != familyLumacore)
    return kvo::code::refused;
  kvo::appendWord(out, kvo::lumacoreTarget);
  if (record.vpConfigMode != 0) {
    kvo::appendWord(out, kvo::configOption);
    if (record.cycleApproximate != 0)
      kvo::appendWord(out, kvo::cycleApproximateWord);
    return kvo::code::done;
  }
  if (record.simIpcHost.empty())
    return kvo::code::done;
  kvo::appendWord(out, kvo::ipcPortOption);
  out += record.simIpcHost;
  kvo::appendDecimal(out, record.simIpcPort);
  return kvo::code::done;
}

} // namespace ZelDebugDialog

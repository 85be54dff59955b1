#include "LossRules.h"

#include <array>
#include <string_view>

#include <fmt/format.h>

#include "CableKeyword.h"
#include "ConnectionKind.h"
#include "output/Suggestion.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::Engine;

constexpr std::uint32_t ppc405 = 1;
constexpr std::uint32_t powerPc = 1;
constexpr std::uint32_t arm = 2;
constexpr std::uint32_t user1 = 2;
constexpr std::uint32_t user2 = 3;
constexpr std::uint32_t unsetAddress = 0xFFFFFFFF;

// --- When a rule holds -----------------------------------------------------

/// A debug module, the kmtc target, or an ARM port or channel: the readers give
/// each a mask of its own.
bool isModule(const Configuration &c) {
  constexpr std::uint32_t moduleMasks = 0x10 | 0x20 | 0x100 | 0x200;
  return (c.record.connectionMask & moduleMasks) != 0;
}
bool isStub(const Configuration &c) {
  return c.record.connectionType == Engine::CONNECT_STUB;
}
bool isSerialStub(const Configuration &c) {
  return isStub(c) && c.record.stubType != Engine::STUB_JTAG;
}
bool isHardware(const Configuration &c) {
  return c.record.connectionType == Engine::CONNECT_HW;
}
bool isSimulator(const Configuration &c) {
  return c.record.connectionType == Engine::CONNECT_SIM;
}
bool isVirtualPlatform(const Configuration &c) {
  return c.record.connectionType == Engine::CONNECT_VP;
}
bool usesCable(const Configuration &c) {
  return isHardware(c) || (isStub(c) && !isSerialStub(c));
}
bool isPpcSimulator(const Configuration &c) {
  return isSimulator(c) && c.record.procFamily == powerPc;
}
bool hasQuorlaCable(const Configuration &c) {
  return c.cable.cableType == Engine::QUORLA_PARALLEL4 ||
         c.cable.cableType == Engine::QUORLA_PARALLEL3 ||
         c.cable.cableType == Engine::QUORLA_PODUSB;
}

bool always(const Configuration & /*any*/) { return true; }
bool noCableUsed(const Configuration &c) { return !usesCable(c); }
bool noSerialStub(const Configuration &c) { return !isSerialStub(c); }
bool noStub(const Configuration &c) { return !isStub(c); }
bool noHardware(const Configuration &c) { return !isHardware(c); }
bool noSimulatorHost(const Configuration &c) {
  return !isPpcSimulator(c) && !isVirtualPlatform(c);
}
bool noPpcSimulator(const Configuration &c) { return !isPpcSimulator(c); }
bool noVirtualPlatform(const Configuration &c) { return !isVirtualPlatform(c); }
bool kindNotAllowed(const Configuration &c) {
  return (c.record.connectionMask & c.record.connectionType) == 0;
}
bool otherQuorlaParameter(const Configuration &c) { return !hasQuorlaCable(c); }
bool hasEsn(const Configuration &c) { return !c.cable.esn.empty(); }
bool noPlugin(const Configuration &c) {
  return c.cable.cableType != Engine::QUORLA_PLUGIN;
}
bool cpuJtagWritten(const Configuration &c) {
  return c.cpuJtag == 1 && usesCable(c);
}
bool noPowerPc(const Configuration &c) {
  return c.record.procFamily != powerPc;
}
bool no405(const Configuration &c) { return c.record.procType != ppc405; }
bool isocmUnset(const Configuration &c) {
  return c.record.isocmStartAdr == unsetAddress;
}
bool romUnset(const Configuration &c) {
  return c.record.romemStartAdr == unsetAddress || c.record.romemSize == 0;
}
bool registerWithoutWord(const Configuration &c) {
  return c.record.bscanUserReg != user1 && c.record.bscanUserReg != user2;
}
bool hasSimulatorFile(const Configuration &c) {
  return !c.record.ppcSimConfigFile.empty();
}
bool hasConfigMode(const Configuration &c) {
  return c.record.vpConfigMode != 0;
}
bool noHost(const Configuration &c) { return c.record.simIpcHost.empty(); }
bool hasPlatformHost(const Configuration &c) {
  return isVirtualPlatform(c) && !hasConfigMode(c) && !noHost(c);
}
bool noConfigMode(const Configuration &c) { return !hasConfigMode(c); }

bool isArm(const Configuration &c) {
  return c.record.procFamily == arm && !isModule(c);
}

bool lacksModule(const Configuration &c) {
  return usesCable(c) && !noPlugin(c) && c.cable.moduleName.empty();
}

/// The frequency of a cable is checked only where the cable clause ends the
/// command.
bool refusedAtTheEnd(const Configuration &c) {
  const bool cableEndsCommand = isStub(c) && usesCable(c) && c.chain.empty() &&
                                c.record.debugDevice == 0 &&
                                c.record.bscanUserReg != user1;
  return cableEndsCommand && !hasEsn(c) &&
         !acceptsFrequency(c.cable.cableType, c.cable.frequency);
}

constexpr const char *otherKind =
    "a command for this kind of connection does not carry it";
constexpr const char *otherCable = "a command does not carry it for this cable";
constexpr const char *powerPcOnly = "a command carries it for a PowerPC only";
constexpr const char *oneWord =
    "host and port are written as one word, '-ipcportHOSTPORT', which no "
    "reader accepts";
constexpr const char *noWriter = "no command can be written that carries it";

// clang-format off

/// What the language cannot carry.
constexpr std::array<LossRule, 62> rules{{
    {"procFamily", isArm, "an ARM processor is written as the target 'ppc'", "", "other-targets"},
    {"procType", isArm, "an ARM processor is written as the target 'ppc'", "", "other-targets"},
    {"connectionMask", isModule, "the target is written as a processor", "", "other-targets"},
    {"procFamily", isModule, "the target is written as a processor", "", "other-targets"},
    {"procType", isModule, "the target is written as a processor", "", "other-targets"},
    {"procType", always, "the kind of PowerPC is not written; the design gives it", "", "processor-kind"},
    {"cpuNr", noHardware, otherKind, "connectionType", "other-connections"},
    {"connectionType", kindNotAllowed, "the processor does not allow this kind of connection", "", "connection-mask"},
    {"stubType", noStub, otherKind, "connectionType", "other-connections"},
    {"stub*", noSerialStub, otherKind, "connectionType", "other-connections"},
    {"cable.svfFile", always, noWriter, "", "never-written"},
    {"svfFileFlag", always, noWriter, "", "never-written"},
    {"cable.url", always, noWriter, "", "never-written"},
    {"cable.*", noCableUsed, otherKind, "connectionType", "other-connections"},
    {"cable.port", otherQuorlaParameter, otherCable, "cable.cableType", "other-cables"},
    {"cable.frequency", otherQuorlaParameter, otherCable, "cable.cableType", "other-cables"},
    {"cable.port", hasEsn, "the serial number takes its place", "cable.esn", "serial-number"},
    {"cable.frequency", hasEsn, "the serial number takes its place", "cable.esn", "serial-number"},
    {"cable.esn", otherQuorlaParameter, otherCable, "cable.cableType", "other-cables"},
    {"cable.module*", noPlugin, otherCable, "cable.cableType", "other-cables"},
    {"cpuJtag", noCableUsed, otherKind, "connectionType", "other-connections"},
    {"chain*", noCableUsed, otherKind, "connectionType", "other-connections"},
    {"chain*.isfpga", always, noWriter, "", "never-written"},
    {"chain*.hardppc", always, noWriter, "", "never-written"},
    {"chain*.nppc", always, noWriter, "", "never-written"},
    {"debugDevice", noCableUsed, otherKind, "connectionType", "other-connections"},
    {"romem*", noHardware, otherKind, "connectionType", "other-connections"},
    {"romem*", romUnset, "a range without start or size is not written", "", "rom-range"},
    {"isocm*", no405, "a command carries it for a ppc405 only", "", "isocm"},
    {"isocm*", noHardware, otherKind, "connectionType", "other-connections"},
    {"isocm*", isocmUnset, "a region without a start is not written", "", "isocm"},
    {"fpuType", noPowerPc, powerPcOnly, "", "other-processors"},
    {"icacheStartAdr", noPowerPc, powerPcOnly, "", "other-processors"},
    {"dcacheStartAdr", noPowerPc, powerPcOnly, "", "other-processors"},
    {"itagStartAdr", noPowerPc, powerPcOnly, "", "other-processors"},
    {"dtagStartAdr", noPowerPc, powerPcOnly, "", "other-processors"},
    {"tlbStartAdr", noPowerPc, powerPcOnly, "", "other-processors"},
    {"dcrStartAdr", noPowerPc, powerPcOnly, "", "other-processors"},
    {"debugAddressMap", noPowerPc, powerPcOnly, "", "other-processors"},
    {"icacheStartAdr", noHardware, otherKind, "connectionType", "other-connections"},
    {"dcacheStartAdr", noHardware, otherKind, "connectionType", "other-connections"},
    {"itagStartAdr", noHardware, otherKind, "connectionType", "other-connections"},
    {"dtagStartAdr", noHardware, otherKind, "connectionType", "other-connections"},
    {"tlbStartAdr", noHardware, otherKind, "connectionType", "other-connections"},
    {"dcrStartAdr", noHardware, otherKind, "connectionType", "other-connections"},
    {"debugAddressMap", noHardware, otherKind, "connectionType", "other-connections"},
    {"simMemSize", always, noWriter, "", "never-written"},
    {"nCpu", always, noWriter, "", "never-written"},
    {"cpu_version", always, noWriter, "", "never-written"},
    {"hdu_version", always, noWriter, "", "never-written"},
    {"modelSim*", always, noWriter, "", "never-written"},
    {"uartOverHdu", always, noWriter, "", "never-written"},
    {"bscanUserReg", registerWithoutWord, "only USER1 and USER2 can be written", "", "never-written"},
    {"bscanUserReg", noCableUsed, otherKind, "connectionType", "other-connections"},
    {"ppcSimConfigFile", noPpcSimulator, otherKind, "connectionType", "other-connections"},
    {"simIpc*", noSimulatorHost, otherKind, "connectionType", "other-connections"},
    {"simIpc*", hasSimulatorFile, "the simulator file takes its place", "ppcSimConfigFile", "simulator-file"},
    {"simIpc*", hasConfigMode, "the configuration mode takes its place", "vpConfigMode", "configuration-mode"},
    {"simIpcPort", noHost, "a port without a host is not written", "", "port-without-host"},
    {"vpConfigMode", noVirtualPlatform, otherKind, "connectionType", "other-connections"},
    {"cycleApproximate", noVirtualPlatform, otherKind, "connectionType", "other-connections"},
    {"cycleApproximate", noConfigMode, "it is written with the configuration mode only", "", "configuration-mode"},
}};

/// What is written in a form that the reader refuses.
constexpr std::array<LossRule, 6> blockers{{
    {"connectionType", kindNotAllowed, "the processor does not allow this kind of connection", "", "connection-mask"},
    {"cpuJtag", cpuJtagWritten, "it is written as '-configdevice jtagpin cpujtag', which no reader accepts", "", "cpu-jtag-marker"},
    {"simIpcHost", hasPlatformHost, oneWord, "", "virtual-platform-host"},
    {"simIpcPort", hasPlatformHost, oneWord, "", "virtual-platform-host"},
    {"cable.moduleName", lacksModule, "a plug-in cable needs a module", "", "empty-text"},
    {"cable.frequency", refusedAtTheEnd, "it is none of the cable's frequencies, and the cable clause that ends a command is checked", "", "frequency"},
}};
// clang-format on

bool matches(std::string_view pattern, std::string_view name) {
  const std::size_t star = pattern.find('*');
  if (star == std::string_view::npos)
    return pattern == name;
  const std::string_view front = pattern.substr(0, star);
  const std::string_view back = pattern.substr(star + 1);
  return name.size() >= front.size() + back.size() &&
         name.substr(0, front.size()) == front &&
         name.substr(name.size() - back.size()) == back;
}

} // namespace

const LossRule *findLossRule(const std::string &field,
                             const Configuration &wanted) {
  for (const LossRule &rule : rules)
    if (matches(rule.field, field) && rule.holds(wanted))
      return &rule;
  return nullptr;
}

const LossRule *findBlocker(const std::string &field,
                            const Configuration &wanted) {
  for (const LossRule &rule : blockers)
    if (field == rule.field && rule.holds(wanted))
      return &rule;
  return nullptr;
}

std::string shownReason(const LossRule &rule, const Configuration &wanted) {
  if (rule.holds != kindNotAllowed)
    return rule.reason;
  return fmt::format("{}; it allows {}", rule.reason,
                     quotedList(allowedKinds(wanted.record.connectionMask)));
}

} // namespace zeldebug

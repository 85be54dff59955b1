#include "Loss.h"

#include <algorithm>
#include <array>

#include <fmt/format.h>

#include "CableKeyword.h"
#include "ConnectionKind.h"
#include "OptionFile.h"
#include "SettingText.h"
#include "Suggestion.h"

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
  const std::vector<std::uint32_t> accepted =
      acceptedFrequencies(c.cable.cableType);
  const bool cableEndsCommand = isStub(c) && usesCable(c) && c.chain.empty() &&
                                c.record.debugDevice == 0 &&
                                c.record.bscanUserReg != user1;
  return cableEndsCommand && !hasEsn(c) && !accepted.empty() &&
         std::find(accepted.begin(), accepted.end(), c.cable.frequency) ==
             accepted.end();
}

struct Rule {
  const char *field; ///< a name; '*' stands for anything
  bool (*holds)(const Configuration &);
  const char *reason;
  const char *displacedBy;
};

constexpr const char *otherKind =
    "a command for this kind of connection does not carry it";
constexpr const char *otherCable = "a command does not carry it for this cable";
constexpr const char *powerPcOnly = "a command carries it for a PowerPC only";
constexpr const char *noWriter = "no command can be written that carries it";

// clang-format off

/// What the language cannot carry; the first rule that holds explains a field.
constexpr std::array<Rule, 61> rules{{
    {"procFamily", isArm, "an ARM processor is written as the target 'ppc'", ""},
    {"procType", isArm, "an ARM processor is written as the target 'ppc'", ""},
    {"connectionMask", isModule, "the target is written as a processor", ""},
    {"procFamily", isModule, "the target is written as a processor", ""},
    {"procType", isModule, "the target is written as a processor", ""},
    {"procType", always, "the kind of PowerPC is not written; the design gives it", ""},
    {"cpuNr", noHardware, otherKind, "connectionType"},
    {"connectionType", kindNotAllowed, "the processor does not allow this kind of connection", ""},
    {"stubType", noStub, otherKind, "connectionType"},
    {"stub*", noSerialStub, otherKind, "connectionType"},
    {"cable.svfFile", always, noWriter, ""},
    {"svfFileFlag", always, noWriter, ""},
    {"cable.url", always, noWriter, ""},
    {"cable.*", noCableUsed, otherKind, "connectionType"},
    {"cable.port", hasEsn, "the serial number takes its place", "cable.esn"},
    {"cable.frequency", hasEsn, "the serial number takes its place", "cable.esn"},
    {"cable.port", otherQuorlaParameter, otherCable, "cable.cableType"},
    {"cable.frequency", otherQuorlaParameter, otherCable, "cable.cableType"},
    {"cable.esn", otherQuorlaParameter, otherCable, "cable.cableType"},
    {"cable.module*", noPlugin, otherCable, "cable.cableType"},
    {"cpuJtag", noCableUsed, otherKind, "connectionType"},
    {"chain*", noCableUsed, otherKind, "connectionType"},
    {"chain*.isfpga", always, noWriter, ""},
    {"chain*.hardppc", always, noWriter, ""},
    {"chain*.nppc", always, noWriter, ""},
    {"debugDevice", noCableUsed, otherKind, "connectionType"},
    {"romem*", noHardware, otherKind, "connectionType"},
    {"romem*", romUnset, "a range without start or size is not written", ""},
    {"isocm*", no405, "a command carries it for a ppc405 only", ""},
    {"isocm*", noHardware, otherKind, "connectionType"},
    {"isocm*", isocmUnset, "a region without a start is not written", ""},
    {"icacheStartAdr", noPowerPc, powerPcOnly, ""},
    {"dcacheStartAdr", noPowerPc, powerPcOnly, ""},
    {"itagStartAdr", noPowerPc, powerPcOnly, ""},
    {"dtagStartAdr", noPowerPc, powerPcOnly, ""},
    {"tlbStartAdr", noPowerPc, powerPcOnly, ""},
    {"dcrStartAdr", noPowerPc, powerPcOnly, ""},
    {"debugAddressMap", noPowerPc, powerPcOnly, ""},
    {"icacheStartAdr", noHardware, otherKind, "connectionType"},
    {"dcacheStartAdr", noHardware, otherKind, "connectionType"},
    {"itagStartAdr", noHardware, otherKind, "connectionType"},
    {"dtagStartAdr", noHardware, otherKind, "connectionType"},
    {"tlbStartAdr", noHardware, otherKind, "connectionType"},
    {"dcrStartAdr", noHardware, otherKind, "connectionType"},
    {"debugAddressMap", noHardware, otherKind, "connectionType"},
    {"simMemSize", always, noWriter, ""},
    {"nCpu", always, noWriter, ""},
    {"cpu_version", always, noWriter, ""},
    {"hdu_version", always, noWriter, ""},
    {"modelSim*", always, noWriter, ""},
    {"uartOverHdu", always, noWriter, ""},
    {"bscanUserReg", registerWithoutWord, "only USER1 and USER2 can be written", ""},
    {"bscanUserReg", noCableUsed, otherKind, "connectionType"},
    {"ppcSimConfigFile", noPpcSimulator, otherKind, "connectionType"},
    {"simIpc*", noSimulatorHost, otherKind, "connectionType"},
    {"simIpc*", hasSimulatorFile, "the simulator file takes its place", "ppcSimConfigFile"},
    {"simIpc*", hasConfigMode, "the configuration mode takes its place", "vpConfigMode"},
    {"simIpcPort", noHost, "a port without a host is not written", ""},
    {"vpConfigMode", noVirtualPlatform, otherKind, "connectionType"},
    {"cycleApproximate", noVirtualPlatform, otherKind, "connectionType"},
    {"cycleApproximate", noConfigMode, "it is written with the configuration mode only", ""},
}};

/// What is written in a form that the reader refuses.
constexpr std::array<Rule, 5> blockers{{
    {"connectionType", kindNotAllowed, "the processor does not allow this kind of connection", ""},
    {"cpuJtag", cpuJtagWritten, "it is written as '-configdevice jtagpin cpujtag', which no reader accepts", ""},
    {"simIpcHost", hasPlatformHost, "host and port are written as one word, '-ipcportHOSTPORT', which no reader accepts", ""},
    {"cable.moduleName", lacksModule, "a plug-in cable needs a module", ""},
    {"cable.frequency", refusedAtTheEnd, "it is none of the cable's frequencies, and the cable clause that ends a command is checked", ""},
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

const Rule *findRule(const std::string &field, const Configuration &wanted) {
  for (const Rule &rule : rules)
    if (matches(rule.field, field) && rule.holds(wanted))
      return &rule;
  return nullptr;
}

/// Why a text that is written is no word; empty for what is one, and for an
/// empty text that is left out.
std::string wordProblem(const Setting &setting) {
  if (setting.kind != FieldKind::text || !setting.value.is_string())
    return "";
  const std::string text = setting.value.get<std::string>();
  const bool writtenEmpty = setting.name == "cable.port" ||
                            setting.name == "stubSerialPort" ||
                            matches("chain*.partname", setting.name);
  if (text.empty() && !writtenEmpty)
    return "";
  if (setting.name != "cable.moduleArgs")
    return whyNoWord(text);
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = text.find(';', start);
    std::string problem = whyNoWord(text.substr(start, end - start));
    if (!problem.empty() || end == std::string::npos)
      return problem;
    start = end + 1;
  }
}

std::string blockerReason(const Rule &blocker, const Configuration &wanted) {
  if (blocker.holds != kindNotAllowed)
    return blocker.reason;
  return fmt::format("{}; it allows {}", blocker.reason,
                     quotedList(allowedKinds(wanted.record.connectionMask)));
}

/// The settings that make the reader refuse, and those that the command does
/// not even carry.
std::vector<Loss> lossesOfRefusal(const Configuration &wanted,
                                  const ReadBack &readBack) {
  std::vector<Loss> losses;
  const std::vector<Setting> defaults = settingsOf(defaultsBeside(wanted));
  std::size_t position = 0;
  for (const Setting &setting : settingsOf(wanted)) {
    const bool isDefault = defaults[position++].value == setting.value;
    const Rule *rule = findRule(setting.name, wanted);
    for (const Rule &blocker : blockers)
      if (setting.name == blocker.field && blocker.holds(wanted))
        losses.push_back({setting.name,
                          setting.kind,
                          setting.value,
                          {},
                          blockerReason(blocker, wanted),
                          "",
                          true});
    const std::string problem =
        rule == nullptr && setting.name != "instanceName" ? wordProblem(setting)
                                                          : std::string();
    if (!problem.empty())
      losses.push_back(
          {setting.name, setting.kind, setting.value, {}, problem, "", true});
    const bool known = !losses.empty() && losses.back().field == setting.name;
    if (rule != nullptr && !isDefault && !known)
      losses.push_back({setting.name, setting.kind, setting.value, Json(),
                        rule->reason, rule->displacedBy, false});
  }
  const bool explained =
      std::any_of(losses.begin(), losses.end(),
                  [](const Loss &loss) { return loss.blocking; });
  if (!explained)
    losses.push_back(
        {"connectCommand", FieldKind::text, wanted.record.connectCommand,
         Json(), "the command that is written is refused: " + readBack.message,
         "", true});
  return losses;
}

Loss explained(const Difference &difference, const Configuration &wanted,
               bool isCut) {
  Loss loss{difference.name,
            difference.kind,
            difference.before,
            difference.after,
            "",
            "",
            false};
  const Rule *rule = findRule(difference.name, wanted);
  if (rule != nullptr) {
    loss.reason = rule->reason;
    loss.displacedBy = rule->displacedBy;
    return loss;
  }
  loss.reason =
      wordProblem({difference.name, difference.kind, difference.before});
  if (loss.reason.empty())
    loss.reason = isCut ? "it stands behind what is read of the line"
                        : "it is read back differently";
  return loss;
}

} // namespace

std::vector<Loss> lossesOf(const Configuration &wanted,
                           const std::string &command, const ReadBack &readBack,
                           bool lineLimit) {
  const bool isCut = lineLimit && command.size() > optionLineLimit;
  std::vector<Loss> losses;
  if (isCut)
    losses.push_back(
        {"connectCommand", FieldKind::text, command, Json(),
         fmt::format("it has {} characters, and only {} of a line are read",
                     command.size(), optionLineLimit),
         "", true});
  if (!readBack.accepted) {
    if (!isCut)
      return lossesOfRefusal(wanted, readBack);
    return losses;
  }
  for (const Difference &difference :
       differencesBetween(wanted, readBack.configuration))
    losses.push_back(explained(difference, wanted, isCut));
  return losses;
}

std::string shownLoss(const Loss &loss) {
  if (loss.field == "connectCommand")
    return fmt::format("the command: {}", loss.reason);
  const std::string value = shownSide(loss.value, loss.kind);
  if (loss.readBack.is_null())
    return fmt::format("{} {}: {}", loss.field, value, loss.reason);
  return fmt::format("{} {} (comes back as {}): {}", loss.field, value,
                     shownSide(loss.readBack, loss.kind), loss.reason);
}

Json toJson(const std::vector<Loss> &losses) {
  Json list = Json::array();
  for (const Loss &loss : losses)
    list.push_back({{"field", loss.field},
                    {"value", loss.value},
                    {"readBack", loss.readBack},
                    {"reason", loss.reason}});
  return list;
}

} // namespace zeldebug

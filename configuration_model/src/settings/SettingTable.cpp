#include "settings/SettingTable.h"

#include <limits>
#include <type_traits>
#include <utility>

#include "settings/Cables.h"
#include "settings/ConnectionKinds.h"

namespace ZelDebugDialog::model {

namespace {

using Processor = ProcessorInfoImp;
using Choices = std::vector<Choice>;

constexpr std::int64_t most32 = std::numeric_limits<std::uint32_t>::max();
constexpr std::int64_t mostInt = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t most7Bits = std::numeric_limits<std::int8_t>::max();

// --- What the rows are made of ----------------------------------------------

/// A row under construction; each step names one thing about it.
struct Draft {
  SettingRow row;

  Draft(const char *id, const char *group, const char *label, SettingKind kind,
        SettingRow::Member member, const char *help) {
    row.info.id = id;
    row.info.group = group;
    row.info.label = label;
    row.info.help = help;
    row.info.kind = kind;
    row.member = member;
  }
  Draft range(std::int64_t least, std::int64_t most, const char *unit = "") {
    row.info.minimum = least;
    row.info.maximum = most;
    row.info.unit = unit;
    return *this;
  }
  Draft shown() {
    row.info.settable = false;
    return *this;
  }
  Draft identity() {
    row.isIdentity = true;
    return shown();
  }
  Draft hexadecimal() {
    row.isHexadecimal = true;
    return *this;
  }
  Draft with(std::vector<std::string> others) {
    row.info.together = std::move(others);
    return *this;
  }
  Draft oneOf(Choices choices) {
    row.info.choices = std::move(choices);
    return *this;
  }
  Draft alsoBy(Choices words) {
    row.synonyms = std::move(words);
    return *this;
  }
  Draft text(TextRule rule) {
    row.textRule = rule;
    return *this;
  }
  Draft option(const char *name) {
    row.info.option = name;
    return *this;
  }
  Draft multipleOf(std::int64_t step) {
    row.step = step;
    return *this;
  }
  Draft refused(const char *code) {
    row.refusedCode = code;
    return *this;
  }
  Draft starts(const char *why) {
    row.effect = why;
    return *this;
  }
  Draft through(Value (*get)(const Snapshot &),
                void (*set)(Snapshot &, const Value &)) {
    row.get = get;
    row.set = set;
    return *this;
  }
};

constexpr std::int64_t unsetAddress = most32;
constexpr std::int64_t regionStep = 0x10000;

Draft identity(const char *id, const char *label, SettingRow::Member member,
               const char *help) {
  return Draft(id, "Processor", label, SettingKind::number, member, help)
      .identity();
}
Draft address(const char *id, const char *label, SettingRow::Member member,
              const char *help) {
  return Draft(id, "Address map", label, SettingKind::address, member, help)
      .range(0, unsetAddress);
}
Draft region(const char *id, const char *label, SettingRow::Member member,
             const char *help) {
  return address(id, label, member, help)
      .multipleOf(regionStep)
      .refused("misaligned-region");
}
Draft text(const char *id, const char *group, const char *label,
           SettingRow::Member member, const char *help) {
  return {id, group, label, SettingKind::text, member, help};
}

// --- Choices ----------------------------------------------------------------

Choices connectionChoices() {
  Choices choices;
  for (const ConnectionKind &kind : connectionKinds())
    choices.push_back({kind.word, kind.word, kind.label});
  return choices;
}

std::string cableLabel(const std::string &keyword) {
  return keyword.empty() ? "No cable" : keyword;
}

Choices cableChoices() {
  Choices choices;
  for (const CommandCable &cable : cableCatalogue()) {
    const std::string word =
        cable.keywords.empty() ? std::string() : cable.keywords.front();
    choices.push_back({static_cast<std::uint32_t>(cable.type),
                       word.empty() ? "none" : word, cableLabel(word)});
  }
  return choices;
}

/// A type that several words are read as.
Choices otherCableWords() {
  Choices words;
  for (const CommandCable &cable : cableCatalogue())
    for (const std::string &word : cable.keywords)
      words.push_back({static_cast<std::uint32_t>(cable.type), word, word});
  return words;
}

Choices registerChoices() {
  return {{2, "USER1", "USER1"},
          {3, "USER2", "USER2"},
          {0x22, "USER3", "USER3"},
          {0x23, "USER4", "USER4"}};
}

Choices flagChoices() { return {{0, "no", "No"}, {1, "yes", "Yes"}}; }

// --- Settings that are made of others ---------------------------------------

Value readConnection(const Snapshot &snapshot) {
  const ConnectionKind *const kind = kindOf(snapshot.record);
  return kind == nullptr ? Value() : Value(kind->word);
}

void storeConnection(Snapshot &snapshot, const Value &value) {
  const ConnectionKind *const kind = findConnectionKind(value.Text());
  snapshot.record.connectionType = kind->type;
  snapshot.record.stubType = kind->stubType;
}

Value readChain(const Snapshot &snapshot) {
  Value::Chain chain;
  chain.reserve(snapshot.chain.size());
  for (const JtagOption &device : snapshot.chain)
    chain.push_back(deviceValue(device));
  return chain;
}

void storeChain(Snapshot &snapshot, const Value &value) {
  snapshot.chain.clear();
  for (const ChainDevice &device : value.Devices())
    snapshot.chain.push_back(deviceOf(device));
}

/// Another cable starts anew; the one that is chosen stays as it is.
void storeCable(Snapshot &snapshot, const Value &value) {
  const auto type = static_cast<Engine::CableType>(value.Number());
  if (snapshot.cable.cableType != type)
    snapshot.cable.CableOptionInit(type);
}

/// The instruction cache's region is the base of the map.
void storeIcache(Snapshot &snapshot, const Value &value) {
  snapshot.record.icacheStartAdr = static_cast<std::uint32_t>(value.Number());
  snapshot.record.debugAddressMap = snapshot.record.icacheStartAdr;
}

// --- The table
// ----------------------------------------------------------------

constexpr const char *connection = "Connection";
constexpr const char *simulator = "Simulator";
constexpr const char *platform = "Virtual platform";
constexpr const char *stub = "Stub";
constexpr const char *debugDevice = "Debug device";
constexpr const char *cable = "Cable";
constexpr const char *jtagChain = "JTAG chain";

// clang-format off
std::vector<Draft> drafts() {
  return {
    Draft("instanceName", "Processor", "Name", SettingKind::text, &Processor::instanceName, "Instance name in the design.").identity(),
    identity("procFamily", "Family", &Processor::procFamily, "Family of the processor: 0 Lumacore, 1 PowerPC, 2 ARM."),
    identity("procType", "Type", &Processor::procType, "Type of the processor: 0 Lumacore, 1 ppc405, 2 ppc440, 4 Cortex-A9, 5 Cortex-R5, 6 a PowerPC whose model is not known."),
    identity("connectionMask", "Allowed connections", &Processor::connectionMask, "The kinds of connection that the design allows, a bit each.").hexadecimal(),
    identity("cpuNr", "Number", &Processor::cpuNr, "Number of the processor on its debug module."),
    Draft("connection", connection, "Connect by", SettingKind::word, {}, "How the debugger reaches the processor.")
        .oneOf(connectionChoices()).through(readConnection, storeConnection).option("--connection").refused("connection-mask").starts("the kind of connection decides it"),
    Draft("connectionType", connection, "Connection type", SettingKind::number, &Processor::connectionType, "Number of the kind of connection: 1 simulator, 2 hardware, 4 stub, 8 virtual platform.").shown(),
    Draft("simMemSize", simulator, "Memory", SettingKind::number, &Processor::simMemSize, "Memory size of the soft processor's simulator.").range(0, most32),
    Draft("ppcSimConfigFile", simulator, "Configuration file", SettingKind::file, &Processor::ppcSimConfigFile, "File that configures the PowerPC simulator; it takes the place of host and port.").text(TextRule::anyWord),
    text("simIpcHost", simulator, "Host", &Processor::simIpcHost, "Host on which the PowerPC simulator or the virtual platform runs.").text(TextRule::anyWord).with({"simIpcPort"}).refused("virtual-platform-host"),
    Draft("simIpcPort", simulator, "Port", SettingKind::number, &Processor::simIpcPort, "Port of the PowerPC simulator or the virtual platform.").range(0, mostInt).with({"simIpcHost"}).refused("virtual-platform-host"),
    Draft("vpConfigMode", platform, "Configuration mode", SettingKind::flag, &Processor::vpConfigMode, "Starts the virtual platform in its configuration mode.").range(0, 1).oneOf(flagChoices()).with({"cycleApproximate"}),
    Draft("cycleApproximate", platform, "Cycle-approximate", SettingKind::flag, &Processor::cycleApproximate, "Counts cycles approximately; a part of the configuration mode.").range(0, 1).oneOf(flagChoices()).with({"vpConfigMode"}),
    Draft("stubType", connection, "Stub type", SettingKind::number, &Processor::stubType, "How the stub is reached: 0 over JTAG, 1 over a serial line.").shown(),
    Draft("stubSerialPort", stub, "Serial device", SettingKind::file, &Processor::stubSerialPort, "Serial device that leads to the stub.").option("--stub-port"),
    Draft("stubBaudRate", stub, "Baud rate", SettingKind::number, &Processor::stubBaudRate, "Bits per second of the stub's line.").range(0, mostInt, "bit/s").option("--stub-baud"),
    Draft("stubTimeout", stub, "Time-out", SettingKind::number, &Processor::stubTimeout, "How long to wait for the stub's answers.").range(0, mostInt, "ms"),
    Draft("debugDevice", debugDevice, "Debug device", SettingKind::number, &Processor::debugDevice, "Number of the debug device in the JTAG chain, 0 for none.").range(0, most7Bits).option("--debug-device"),
    region("debugAddressMap", "Base", &Processor::debugAddressMap, "Base of the debug address map; it follows the instruction cache's region."),
    address("isocmStartAdr", "ISOCM start", &Processor::isocmStartAdr, "Start of the instruction-side on-chip memory.").with({"isocmSize", "isocmDcrStartAdr"}),
    Draft("isocmSize", "Address map", "ISOCM size", SettingKind::number, &Processor::isocmSize, "Size of the instruction-side on-chip memory.").range(0, most32, "bytes").with({"isocmStartAdr", "isocmDcrStartAdr"}),
    address("isocmDcrStartAdr", "ISOCM DCR start", &Processor::isocmDcrStartAdr, "Start of the DCR registers of the instruction-side on-chip memory.").with({"isocmStartAdr", "isocmSize"}),
    region("icacheStartAdr", "Instruction cache", &Processor::icacheStartAdr, "Start of the instruction cache region, and base of the map.").through(nullptr, storeIcache).option("--icache").starts("the instruction cache's region is the base of the map"),
    region("dcacheStartAdr", "Data cache", &Processor::dcacheStartAdr, "Start of the data cache region.").option("--dcache"),
    region("itagStartAdr", "Instruction tags", &Processor::itagStartAdr, "Start of the instruction tag region.").option("--itag"),
    region("dtagStartAdr", "Data tags", &Processor::dtagStartAdr, "Start of the data tag region.").option("--dtag"),
    region("tlbStartAdr", "TLB", &Processor::tlbStartAdr, "Start of the TLB region.").option("--tlb"),
    region("dcrStartAdr", "DCR", &Processor::dcrStartAdr, "Start of the DCR region.").option("--dcr"),
    identity("fpuType", "FPU", &Processor::fpuType, "Floating-point unit: 0 none, 1 single precision, 2 double precision."),
    text("cpu_version", debugDevice, "Processor version", &Processor::cpu_version, "Version of the processor, as free text."),
    text("hdu_version", debugDevice, "Debug module version", &Processor::hdu_version, "Version of the debug module, as free text."),
    Draft("nCpu", debugDevice, "Processors", SettingKind::number, &Processor::nCpu, "Number of processors on the debug module.").range(0, mostInt),
    address("romemStartAdr", "ROM start", &Processor::romemStartAdr, "Start of the read-only memory.").with({"romemSize"}).option("--rom"),
    Draft("romemSize", "Address map", "ROM size", SettingKind::number, &Processor::romemSize, "Size of the read-only memory.").range(0, most32, "bytes").with({"romemStartAdr"}).option("--rom"),
    Draft("svfFileFlag", cable, "SVF file named", SettingKind::flag, &Processor::svfFileFlag, "A cable clause has named an SVF file."),
    Draft("modelSimMode", simulator, "ModelSim", SettingKind::flag, &Processor::modelSimMode, "Simulates together with ModelSim."),
    text("modelSimHost", simulator, "ModelSim host", &Processor::modelSimHost, "Host on which ModelSim runs.").text(TextRule::anyWord),
    Draft("modelSimPort", simulator, "ModelSim port", SettingKind::number, &Processor::modelSimPort, "Port of ModelSim.").range(0, mostInt),
    Draft("uartOverHdu", debugDevice, "UART over the debug module", SettingKind::flag, &Processor::uartOverHdu, "Passes the processor's serial output through the debug module."),
    Draft("bscanUserReg", jtagChain, "Boundary-scan register", SettingKind::word, &Processor::bscanUserReg, "User register through which the debug module is reached.").oneOf(registerChoices()).hexadecimal(),
    Draft("connectCommand", connection, "Command", SettingKind::text, &Processor::connectCommand, "The connect command that was read or written last.").shown(),

    Draft("cable.cableType", cable, "Cable", SettingKind::word, &CableOption::cableType, "Cable between the debugger and the board; choosing another one starts it anew.")
        .oneOf(cableChoices()).alsoBy(otherCableWords()).through(nullptr, storeCable).option("--cable").starts("choosing a cable brings its port and frequency"),
    Draft("cable.frequency", cable, "Frequency", SettingKind::frequency, &CableOption::frequency, "Clock of the JTAG chain.").range(0, most32, "Hz").option("--frequency").refused("frequency"),
    text("cable.port", cable, "Port", &CableOption::port, "Port that the cable is plugged into.").option("--port"),
    text("cable.esn", cable, "Serial number", &CableOption::esn, "Electronic serial number that picks one of several cables; it takes the place of port and frequency.").option("--esn"),
    Draft("cable.svfFile", cable, "SVF file", SettingKind::file, &CableOption::svfFile, "File that an SVF cable writes."),
    text("cable.moduleName", cable, "Module", &CableOption::moduleName, "Module of a plug-in cable.").option("--module").refused("empty-text"),
    text("cable.moduleArgs", cable, "Module arguments", &CableOption::moduleArgs, "Arguments of the plug-in's module, with ';' between them.").text(TextRule::words).option("--module-arg"),
    text("cable.url", cable, "URL", &CableOption::url, "Address of the cable."),

    Draft("cpuJtag", jtagChain, "Processor's own JTAG pins", SettingKind::flag, &Snapshot::cpuJtag, "The processor's own JTAG pins are the debug path; no command with this mark can be read back.").range(0, 1).oneOf(flagChoices()).option("--cpu-jtag").refused("cpu-jtag-marker"),
    Draft("chain", jtagChain, "Devices", SettingKind::chain, {}, "The devices of the JTAG chain, in their order.").through(readChain, storeChain).option("--device"),
    text("chain[].partname", jtagChain, "Part", &JtagOption::partname, "Name of the part."),
    Draft("chain[].idcode", jtagChain, "IDCODE", SettingKind::number, &JtagOption::idcode, "JTAG IDCODE of the device.").range(0, most32).hexadecimal(),
    Draft("chain[].irlength", jtagChain, "Instruction register", SettingKind::number, &JtagOption::irlength, "Length of the instruction register.").range(0, most7Bits, "bits"),
    Draft("chain[].devicenr", jtagChain, "Number", SettingKind::number, &JtagOption::devicenr, "Position of the device in the chain.").range(0, most7Bits),
    Draft("chain[].isfpga", jtagChain, "FPGA", SettingKind::flag, &JtagOption::isfpga, "The device is an FPGA.").range(0, 1).oneOf(flagChoices()),
    Draft("chain[].hardppc", jtagChain, "PowerPC hard core", SettingKind::number, &JtagOption::hardppc, "Hard core inside the device: 0 none, 1 ppc405, 2 another PowerPC.").range(0, 2),
    Draft("chain[].nppc", jtagChain, "PowerPC hard cores", SettingKind::number, &JtagOption::nppc, "Number of PowerPC hard cores inside the device.").range(0, 255),
  };
}
// clang-format on

// --- Fields of the records
// ----------------------------------------------------

template <typename Owner> struct Access {
  template <typename Field>
  static Value read(const Owner &owner, Field Owner::*member) {
    if constexpr (std::is_enum_v<Field>)
      return static_cast<std::uint32_t>(owner.*member);
    else
      return owner.*member;
  }
  template <typename Field>
  static void store(Owner &owner, Field Owner::*member, const Value &value) {
    if constexpr (std::is_same_v<Field, std::string>)
      owner.*member = value.Text();
    else if constexpr (std::is_same_v<Field, bool>)
      owner.*member = value.Flag();
    else
      owner.*member = static_cast<Field>(value.Number());
  }
};

template <typename Field>
Value readMember(const Snapshot &snapshot, Field ProcessorInfoImp::*member,
                 std::size_t /*device*/) {
  return Access<ProcessorInfoImp>::read(snapshot.record, member);
}
template <typename Field>
Value readMember(const Snapshot &snapshot, Field CableOption::*member,
                 std::size_t /*device*/) {
  return Access<CableOption>::read(snapshot.cable, member);
}
template <typename Field>
Value readMember(const Snapshot &snapshot, Field JtagOption::*member,
                 std::size_t device) {
  return device < snapshot.chain.size()
             ? Access<JtagOption>::read(snapshot.chain[device], member)
             : Value();
}
template <typename Field>
Value readMember(const Snapshot &snapshot, Field Snapshot::*member,
                 std::size_t /*device*/) {
  return Access<Snapshot>::read(snapshot, member);
}
Value readMember(const Snapshot & /*snapshot*/, std::monostate /*none*/,
                 std::size_t /*device*/) {
  return {};
}

template <typename Field>
void storeMember(Snapshot &snapshot, Field ProcessorInfoImp::*member,
                 const Value &value, std::size_t /*device*/) {
  Access<ProcessorInfoImp>::store(snapshot.record, member, value);
}
template <typename Field>
void storeMember(Snapshot &snapshot, Field CableOption::*member,
                 const Value &value, std::size_t /*device*/) {
  Access<CableOption>::store(snapshot.cable, member, value);
}
template <typename Field>
void storeMember(Snapshot &snapshot, Field JtagOption::*member,
                 const Value &value, std::size_t device) {
  Access<JtagOption>::store(snapshot.chain.at(device), member, value);
}
template <typename Field>
void storeMember(Snapshot &snapshot, Field Snapshot::*member,
                 const Value &value, std::size_t /*device*/) {
  Access<Snapshot>::store(snapshot, member, value);
}
void storeMember(Snapshot & /*snapshot*/, std::monostate /*none*/,
                 const Value & /*value*/, std::size_t /*device*/) {}

bool startsWith(std::string_view text, std::string_view front) {
  return text.substr(0, front.size()) == front;
}

constexpr std::string_view deviceFront = "chain[";

} // namespace

bool SettingRow::isOfDevice() const { return startsWith(info.id, deviceFront); }

bool SettingRow::isOfCable() const { return startsWith(info.id, "cable."); }

const std::vector<SettingRow> &settingRows() {
  static const std::vector<SettingRow> rows = [] {
    std::vector<SettingRow> made;
    for (Draft &draft : drafts())
      made.push_back(std::move(draft.row));
    return made;
  }();
  return rows;
}

const SettingRow *findRow(std::string_view id) {
  std::string general;
  const std::size_t end = id.find(']');
  if (startsWith(id, deviceFront) && end != std::string_view::npos) {
    general = std::string(deviceFront) + std::string(id.substr(end));
    id = general;
  }
  for (const SettingRow &row : settingRows())
    if (row.info.id == id)
      return &row;
  return nullptr;
}

Value valueIn(const Snapshot &snapshot, const SettingRow &row,
              std::size_t device) {
  if (row.get != nullptr)
    return row.get(snapshot);
  return std::visit(
      [&](auto member) { return readMember(snapshot, member, device); },
      row.member);
}

void storeIn(Snapshot &snapshot, const SettingRow &row, const Value &value,
             std::size_t device) {
  if (row.set != nullptr)
    return row.set(snapshot, value);
  std::visit([&](auto member) { storeMember(snapshot, member, value, device); },
             row.member);
}

ChainDevice deviceValue(const JtagOption &device) {
  Snapshot one;
  one.chain.push_back(device);
  ChainDevice fields;
  for (const SettingRow &row : settingRows())
    if (row.isOfDevice())
      fields.emplace_back(row.deviceField(), valueIn(one, row));
  return fields;
}

JtagOption deviceOf(const ChainDevice &value) {
  Snapshot one;
  one.chain.resize(1);
  for (const auto &[name, field] : value)
    for (const SettingRow &row : settingRows())
      if (row.isOfDevice() && row.deviceField() == name)
        storeIn(one, row, field);
  return one.chain.front();
}

std::string SettingRow::deviceField() const {
  return info.id.substr(info.id.find('.') + 1);
}

std::string deviceName(std::size_t position) {
  return std::string(deviceFront) + std::to_string(position) + "]";
}

} // namespace ZelDebugDialog::model

#include "settings/SettingTable.h"

#include <algorithm>
#include <limits>
#include <string>
#include <unordered_map>
#include <utility>
#include <variant>

#include "ZelDebugDialog/EngineFacts.h"
#include "settings/Cables.h"
#include "settings/ConnectionKinds.h"
#include "text/Front.h"

namespace ZelDebugDialog::model {

namespace {

using Choices = std::vector<Choice>;

constexpr std::int64_t most32 = std::numeric_limits<std::uint32_t>::max();
constexpr std::int64_t mostInt = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t most7Bits = std::numeric_limits<std::int8_t>::max();

// --- What the rows are made of ----------------------------------------------

/// A row under construction; each step names one thing about it.
struct Draft {
  SettingRow row;

  Draft(const char *id, const char *group, const char *label, SettingKind kind,
        const char *help) {
    row.info.id = id;
    row.info.group = group;
    row.info.label = label;
    row.info.help = help;
    row.info.kind = kind;
    row.field = FindField(id);
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
  Draft ofDesk(DeskRule rule) {
    row.info.desk = rule;
    return *this;
  }
  Draft multipleOf(std::int64_t step) {
    row.step = step;
    return *this;
  }
  Draft brings(std::vector<std::string> others, const char *why) {
    row.brought = std::move(others);
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

Draft identity(const char *id, const char *label, const char *help) {
  return Draft(id, "Processor", label, SettingKind::number, help).identity();
}
Draft address(const char *id, const char *label, const char *help) {
  return Draft(id, "Address map", label, SettingKind::address, help)
      .range(0, unsetAddress);
}
Draft region(const char *id, const char *label, const char *help) {
  return address(id, label, help).multipleOf(regionStep);
}
Draft text(const char *id, const char *group, const char *label,
           const char *help) {
  return {id, group, label, SettingKind::text, help};
}

// --- Choices ----------------------------------------------------------------

Choices connectionChoices() {
  Choices choices;
  for (const ConnectionKind &kind : connectionKinds) {
    const std::string word(kind.name);
    choices.push_back({word, word, labelOf(kind)});
  }
  return choices;
}

/// A cable that no command names goes by its number.
Choice cableChoice(const CommandCable &cable) {
  const auto type = static_cast<std::uint32_t>(cable.type);
  if (cable.type == Engine::CABLE_NONE)
    return {type, "none", "No cable"};
  if (!cable.keywords.empty())
    return {type, cable.keywords.front(), cable.keywords.front()};
  const std::string number = std::to_string(type);
  return {type, number, "Cable " + number + ", which no command names"};
}

Choices cableChoices() {
  Choices choices;
  for (const CommandCable &cable : cableCatalogue())
    choices.push_back(cableChoice(cable));
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
  Choices choices;
  for (const auto &row : boundaryScanRegisters) {
    const std::string word(row.keyword);
    choices.push_back({row.value, word, word});
  }
  return choices;
}

Choices flagChoices() { return {{0, "no", "No"}, {1, "yes", "Yes"}}; }

// --- Settings that are made of others ---------------------------------------

Value readConnection(const Snapshot &snapshot) {
  const ConnectionKind *const kind = kindOf(snapshot.record);
  return kind == nullptr ? Value() : Value(std::string(kind->name));
}

void storeConnection(Snapshot &snapshot, const Value &value) {
  const ConnectionKind *const kind = findConnectionKind(value.Text());
  snapshot.record.connectionType = kind->connectionType;
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
    Draft("instanceName", "Processor", "Name", SettingKind::text, "Instance name in the design.").identity(),
    identity("procFamily", "Family", "Family of the processor: 0 Lumacore, 1 PowerPC, 2 ARM."),
    identity("procType", "Type", "Type of the processor: 0 Lumacore, 1 ppc405, 2 ppc440, 4 Cortex-A9, 5 Cortex-R5, 6 a PowerPC whose model is not known."),
    identity("connectionMask", "Allowed connections", "The kinds of connection that the design allows, a bit each.").hexadecimal(),
    identity("cpuNr", "Number", "Number of the processor on its debug module."),
    Draft("connection", connection, "Connect by", SettingKind::word, "How the debugger reaches the processor.")
        .oneOf(connectionChoices()).through(readConnection, storeConnection).option("--connection").brings({"connectionType", "stubType"}, "the kind of connection decides it"),
    Draft("connectionType", connection, "Connection type", SettingKind::number, "Number of the kind of connection: 1 simulator, 2 hardware, 4 stub, 8 virtual platform.").shown(),
    Draft("simMemSize", simulator, "Memory", SettingKind::number, "Memory size of the soft processor's simulator.").range(0, most32),
    Draft("ppcSimConfigFile", simulator, "Configuration file", SettingKind::file, "File that configures the PowerPC simulator; it takes the place of host and port.").text(TextRule::anyWord).ofDesk(DeskRule::ifAbsolute),
    text("simIpcHost", simulator, "Host", "Host on which the PowerPC simulator or the virtual platform runs.").text(TextRule::anyWord).with({"simIpcPort"}).ofDesk(DeskRule::always),
    Draft("simIpcPort", simulator, "Port", SettingKind::number, "Port of the PowerPC simulator or the virtual platform.").range(0, mostInt).with({"simIpcHost"}).ofDesk(DeskRule::always),
    Draft("vpConfigMode", platform, "Configuration mode", SettingKind::flag, "Starts the virtual platform in its configuration mode.").range(0, 1).oneOf(flagChoices()).with({"cycleApproximate"}),
    Draft("cycleApproximate", platform, "Cycle-approximate", SettingKind::flag, "Counts cycles approximately; a part of the configuration mode.").range(0, 1).oneOf(flagChoices()).with({"vpConfigMode"}),
    Draft("stubType", connection, "Stub type", SettingKind::number, "How the stub is reached: 0 over JTAG, 1 over a serial line.").shown(),
    Draft("stubSerialPort", stub, "Serial device", SettingKind::file, "Serial device that leads to the stub.").option("--stub-port").ofDesk(DeskRule::always),
    Draft("stubBaudRate", stub, "Baud rate", SettingKind::number, "Bits per second of the stub's line.").range(0, mostInt, "bit/s").option("--stub-baud"),
    Draft("stubTimeout", stub, "Time-out", SettingKind::number, "How long to wait for the stub's answers.").range(0, mostInt, "ms"),
    Draft("debugDevice", debugDevice, "Debug device", SettingKind::number, "Number of the debug device in the JTAG chain, 0 for none.").range(0, most7Bits).option("--debug-device"),
    region("debugAddressMap", "Base", "Base of the debug address map; it follows the instruction cache's region."),
    address("isocmStartAdr", "ISOCM start", "Start of the instruction-side on-chip memory.").with({"isocmSize", "isocmDcrStartAdr"}),
    Draft("isocmSize", "Address map", "ISOCM size", SettingKind::number, "Size of the instruction-side on-chip memory.").range(0, most32, "bytes").with({"isocmStartAdr", "isocmDcrStartAdr"}),
    address("isocmDcrStartAdr", "ISOCM DCR start", "Start of the DCR registers of the instruction-side on-chip memory.").with({"isocmStartAdr", "isocmSize"}),
    region("icacheStartAdr", "Instruction cache", "Start of the instruction cache region, and base of the map.").through(nullptr, storeIcache).option("--icache").brings({"debugAddressMap"}, "the instruction cache's region is the base of the map"),
    region("dcacheStartAdr", "Data cache", "Start of the data cache region.").option("--dcache"),
    region("itagStartAdr", "Instruction tags", "Start of the instruction tag region.").option("--itag"),
    region("dtagStartAdr", "Data tags", "Start of the data tag region.").option("--dtag"),
    region("tlbStartAdr", "TLB", "Start of the TLB region.").option("--tlb"),
    region("dcrStartAdr", "DCR", "Start of the DCR region.").option("--dcr"),
    identity("fpuType", "FPU", "Floating-point unit: 0 none, 1 single precision, 2 double precision."),
    text("cpu_version", debugDevice, "Processor version", "Version of the processor, as free text."),
    text("hdu_version", debugDevice, "Debug module version", "Version of the debug module, as free text."),
    Draft("nCpu", debugDevice, "Processors", SettingKind::number, "Number of processors on the debug module.").range(0, mostInt),
    address("romemStartAdr", "ROM start", "Start of the read-only memory.").with({"romemSize"}).option("--rom"),
    Draft("romemSize", "Address map", "ROM size", SettingKind::number, "Size of the read-only memory.").range(0, most32, "bytes").with({"romemStartAdr"}).option("--rom"),
    Draft("svfFileFlag", cable, "SVF file named", SettingKind::flag, "A cable clause has named an SVF file."),
    Draft("modelSimMode", simulator, "ModelSim", SettingKind::flag, "Simulates together with ModelSim."),
    text("modelSimHost", simulator, "ModelSim host", "Host on which ModelSim runs.").text(TextRule::anyWord).ofDesk(DeskRule::always),
    Draft("modelSimPort", simulator, "ModelSim port", SettingKind::number, "Port of ModelSim.").range(0, mostInt).ofDesk(DeskRule::always),
    Draft("uartOverHdu", debugDevice, "UART over the debug module", SettingKind::flag, "Passes the processor's serial output through the debug module."),
    Draft("bscanUserReg", jtagChain, "Boundary-scan register", SettingKind::word, "User register through which the debug module is reached.").oneOf(registerChoices()).hexadecimal(),
    Draft("connectCommand", connection, "Command", SettingKind::text, "The connect command that was read or written last.").shown(),

    Draft("cable.cableType", cable, "Cable", SettingKind::word, "Cable between the debugger and the board; choosing another one starts it anew.")
        .oneOf(cableChoices()).alsoBy(otherCableWords()).through(nullptr, storeCable).option("--cable").brings({"cable.frequency", "cable.port", "cable.esn", "cable.svfFile", "cable.moduleName", "cable.moduleArgs", "cable.url"}, "choosing a cable brings its port and frequency"),
    Draft("cable.frequency", cable, "Frequency", SettingKind::frequency, "Clock of the JTAG chain.").range(0, most32, "Hz").option("--frequency"),
    text("cable.port", cable, "Port", "Port that the cable is plugged into.").option("--port").ofDesk(DeskRule::unlessOfCable),
    text("cable.esn", cable, "Serial number", "Electronic serial number that picks one of several cables; it takes the place of port and frequency.").option("--esn").ofDesk(DeskRule::always),
    Draft("cable.svfFile", cable, "SVF file", SettingKind::file, "File that an SVF cable writes.").ofDesk(DeskRule::ifAbsolute),
    text("cable.moduleName", cable, "Module", "Module of a plug-in cable.").option("--module"),
    text("cable.moduleArgs", cable, "Module arguments", "Arguments of the plug-in's module, with ';' between them.").text(TextRule::words).option("--module-arg"),
    text("cable.url", cable, "URL", "Address of the cable.").ofDesk(DeskRule::always),

    Draft("cpuJtag", jtagChain, "Processor's own JTAG pins", SettingKind::flag, "The processor's own JTAG pins are the debug path; no command with this mark can be read back.").range(0, 1).oneOf(flagChoices()).option("--cpu-jtag"),
    Draft("chain", jtagChain, "Devices", SettingKind::chain, "The devices of the JTAG chain, in their order.").through(readChain, storeChain).option("--device"),
    text("chain[].partname", jtagChain, "Part", "Name of the part."),
    Draft("chain[].idcode", jtagChain, "IDCODE", SettingKind::number, "JTAG IDCODE of the device.").range(0, most32).hexadecimal(),
    Draft("chain[].irlength", jtagChain, "Instruction register", SettingKind::number, "Length of the instruction register.").range(0, most7Bits, "bits"),
    Draft("chain[].devicenr", jtagChain, "Number", SettingKind::number, "Position of the device in the chain.").range(0, most7Bits),
    Draft("chain[].isfpga", jtagChain, "FPGA", SettingKind::flag, "The device is an FPGA.").range(0, 1).oneOf(flagChoices()),
    Draft("chain[].hardppc", jtagChain, "PowerPC hard core", SettingKind::number, "Hard core inside the device: 0 none, 1 ppc405, 2 another PowerPC.").range(0, 2),
    Draft("chain[].nppc", jtagChain, "PowerPC hard cores", SettingKind::number, "Number of PowerPC hard cores inside the device.").range(0, 255),
  };
}
// clang-format on

// --- Fields of the records
// ----------------------------------------------------

FieldValue fieldValueOf(const Value &value) {
  if (value.IsText())
    return value.Text();
  if (value.IsFlag())
    return std::int64_t{value.Flag() ? 1 : 0};
  return value.Number();
}

constexpr std::string_view deviceFront = "chain[";

} // namespace

bool SettingRow::isOfDevice() const { return startsWith(info.id, deviceFront); }

bool SettingRow::brings(const SettingRow &other) const {
  return std::find(brought.begin(), brought.end(), other.info.id) !=
         brought.end();
}

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

const std::vector<const SettingRow *> &deviceRows() {
  static const std::vector<const SettingRow *> rows = [] {
    std::vector<const SettingRow *> found;
    for (const SettingRow &row : settingRows())
      if (row.isOfDevice())
        found.push_back(&row);
    return found;
  }();
  return rows;
}

std::string settingOf(const std::string &field) {
  if (field == "connectionType" || field == "stubType")
    return connectionSetting;
  return startsWith(field, deviceFront) ? chainSetting : field;
}

const SettingRow *findRow(std::string_view id) {
  static const std::unordered_map<std::string_view, const SettingRow *> byName =
      [] {
        std::unordered_map<std::string_view, const SettingRow *> made;
        for (const SettingRow &row : settingRows())
          made.emplace(row.info.id, &row);
        return made;
      }();
  std::string general;
  if (startsWith(id, deviceFront)) {
    const std::size_t end =
        id.find_first_not_of("0123456789", deviceFront.size());
    if (end == std::string_view::npos)
      return nullptr;
    general = std::string(deviceFront) + std::string(id.substr(end));
    id = general;
  }
  const auto found = byName.find(id);
  return found == byName.end() ? nullptr : found->second;
}

Value valueOf(const FieldValue &value, const SettingRow &row) {
  if (const auto *const text = std::get_if<std::string>(&value))
    return *text;
  const std::int64_t number = std::get<std::int64_t>(value);
  // A flag of the records is one here as well.
  const bool isFlag = GetSettingFields()[row.field].maximum == 1;
  return isFlag ? Value(number != 0) : Value(number);
}

Value valueIn(const Snapshot &snapshot, const SettingRow &row,
              std::size_t device) {
  if (row.get != nullptr)
    return row.get(snapshot);
  switch (GetSettingFields()[row.field].owner) {
  case FieldOwner::processor:
    return valueOf(GetField(snapshot.record, row.field), row);
  case FieldOwner::cable:
    return valueOf(GetField(snapshot.cable, row.field), row);
  case FieldOwner::device:
    if (device >= snapshot.chain.size())
      return {};
    return valueOf(GetField(snapshot.chain[device], row.field), row);
  case FieldOwner::state:
    break;
  }
  return snapshot.cpuJtag;
}

bool isSameIn(const Snapshot &before, const Snapshot &after,
              const SettingRow &row) {
  if (row.get != nullptr)
    return row.get(before) == row.get(after);
  switch (GetSettingFields()[row.field].owner) {
  case FieldOwner::processor:
    return GetField(before.record, row.field) ==
           GetField(after.record, row.field);
  case FieldOwner::cable:
    return GetField(before.cable, row.field) ==
           GetField(after.cable, row.field);
  default:
    return valueIn(before, row) == valueIn(after, row);
  }
}

void storeIn(Snapshot &snapshot, const SettingRow &row, const Value &value,
             std::size_t device) {
  if (row.set != nullptr)
    return row.set(snapshot, value);
  switch (GetSettingFields()[row.field].owner) {
  case FieldOwner::processor:
    return SetField(snapshot.record, row.field, fieldValueOf(value));
  case FieldOwner::cable:
    return SetField(snapshot.cable, row.field, fieldValueOf(value));
  case FieldOwner::device:
    return SetField(snapshot.chain.at(device), row.field, fieldValueOf(value));
  case FieldOwner::state:
    break;
  }
  snapshot.cpuJtag = static_cast<std::uint32_t>(value.Number());
}

ChainDevice deviceValue(const JtagOption &device) {
  Snapshot one;
  one.chain.push_back(device);
  ChainDevice fields;
  for (const SettingRow *const row : deviceRows())
    fields.emplace_back(row->deviceField(), valueIn(one, *row));
  return fields;
}

JtagOption deviceOf(const ChainDevice &value) {
  Snapshot one;
  one.chain.resize(1);
  for (const auto &[name, field] : value)
    for (const SettingRow *const row : deviceRows())
      if (row->deviceField() == name)
        storeIn(one, *row, field);
  return one.chain.front();
}

std::string SettingRow::deviceField() const {
  return info.id.substr(info.id.find('.') + 1);
}

std::string deviceName(std::size_t position) {
  return std::string(deviceFront) + std::to_string(position) + "]";
}

} // namespace ZelDebugDialog::model

// "-configdevice": one device of the JTAG chain, or the marker of the
// processor's own JTAG pins.
//
// The marker is written as "jtagpin cpujtag" and read as "jtagport cpu": what
// is written for it is refused when it is read back.
#include <cassert>
#include <memory>

#include "KvoOption_Parser/Descriptions.h"
#include "KvoOption_Parser/Parameters.h"
#include "KvoOption_Parser/Words.h"
#include "KvoOption_Parser/Writers.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "ZelDebugDialog_Engine/Families.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

constexpr std::string_view unknownParameter =
    "UNKNOWN Parameter '%s' for option '-configDevice'";

// Words that are read and written.
constexpr std::string_view numberWord = "devicenr";
constexpr std::string_view idCodeWord = "idcode";
constexpr std::string_view irLengthWord = "irlength";
constexpr std::string_view partNameWord = "partname";

constexpr std::array<NamedValue, 1> jtagPorts{{{"cpu", 1}}};
constexpr std::array<NamedValue, 1> hardPpcs{{{"ppc405", 1}}};
constexpr std::uint8_t hardPpcOther = 2;
// Any word is taken, so there is no list of them.
constexpr ValueForm hardPpcForm{
    ValueConversion::namedValue, "chain.hardppc", {}};

/// What one clause fills.
struct ChainDevice {
  EngineImp &imp;
  JtagOption &device;
};

int readJtagPort(const Argument &argument, ChainDevice &target) {
  const auto *const known =
      findRow(jtagPorts, argument.value, argument.characters);
  target.imp.cpuJtag = known != nullptr ? known->value : 0;
  return known != nullptr ? code::done : code::refused;
}

int readPartName(const Argument &argument, ChainDevice &target) {
  target.device.partname = argument.value;
  return code::done;
}

int readHardPpc(const Argument &argument, ChainDevice &target) {
  const auto *const known =
      findRow(hardPpcs, argument.value, argument.characters);
  target.device.hardppc =
      known == nullptr ? hardPpcOther : lowBits<std::uint8_t>(known->value);
  return code::done;
}

template <auto Field>
int readNumber(const Argument &argument, ChainDevice &target) {
  storeNumber(argument, target.device.*Field);
  return code::done;
}

constexpr std::array<Parameter<ChainDevice>, 8> parameters{{
    {"jtagport", readJtagPort, oneOf(jtagPorts, "cpuJtag")},
    {numberWord, readNumber<&JtagOption::devicenr>, lowByte("chain.devicenr")},
    {idCodeWord, readNumber<&JtagOption::idcode>, number("chain.idcode")},
    {irLengthWord, readNumber<&JtagOption::irlength>,
     lowByte("chain.irlength")},
    {partNameWord, readPartName, text("chain.partname")},
    {"isfpga", readNumber<&JtagOption::isfpga>, lowByte("chain.isfpga")},
    {"hardppc", readHardPpc, hardPpcForm},
    {"nppc", readNumber<&JtagOption::nppc>, lowByte("chain.nppc")},
}};

void writeDevice(std::string &out, const JtagOption &device) {
  out += joined<configDeviceOption, numberWord>;
  appendDecimal(out, device.devicenr);
  out += joined<partNameWord>;
  out += device.partname;
  out += joined<irLengthWord>;
  appendDecimal(out, device.irlength);
  out += joined<idCodeWord>;
  appendHexadecimal(out, device.idcode);
}

} // namespace

/// The device joins the chain also when the clause ends with a name that lacks
/// its value, and when it only carries the marker.
template <class Observer>
int readConfigDevice(WordCursor<Observer> &cursor, EngineImp &imp) {
  auto device = std::make_unique<JtagOption>();
  ChainDevice target{imp, *device};
  const ClauseEnd end =
      readParameters(cursor, imp, parameters, unknownParameter, target);
  if (end.byParameter)
    return end.code;
  imp.jtagChain.push_back(device.get());
  static_cast<void>(device.release()); // the chain's from here on
  return end.code;
}

template int readConfigDevice(WordCursor<NoObserver> &, EngineImp &);
template int readConfigDevice(WordCursor<Recorder> &, EngineImp &);

void writeChain(std::string &out, const EngineImp &imp) {
  if (imp.cpuJtag == 1) {
    appendWord(out, configDeviceOption);
    out += " jtagpin cpujtag";
  }
  for (const JtagOption *const device : imp.jtagChain) {
    assert(device != nullptr && "a chain has no null records");
    writeDevice(out, *device);
  }
}

void describeConfigDevice(CommandOption &option) {
  describeParameters(option, parameters);
}

} // namespace kvo

int KvoOption_Parser::parse_configdevice(std::string &command, EngineImp &imp) {
  return kvo::consume(command, imp, kvo::readConfigDevice<kvo::NoObserver>);
}

} // namespace ZelDebugDialog

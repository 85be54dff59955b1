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
#include "ZelDebugDialog/EngineFacts.h"
#include "ZelDebugDialog/KvoOption_Parser.h"

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
    ValueConversion::namedValue, fields<&JtagOption::hardppc>, {}};

/// What one clause fills.
struct ChainDevice {
  EngineImp &imp;
  JtagOption &device;
};

int readJtagPort(const Argument &argument, ChainDevice &target) {
  const auto *const known = findNamed(argument, jtagPorts);
  argument.cursor.store(target.imp.cpuJtag,
                        known != nullptr ? known->value : 0);
  return known != nullptr ? code::done : code::refused;
}

int readPartName(const Argument &argument, ChainDevice &target) {
  argument.cursor.store(target.device.partname, argument.value);
  return code::done;
}

int readHardPpc(const Argument &argument, ChainDevice &target) {
  const auto *const known = findNamed(argument, hardPpcs);
  argument.cursor.store(target.device.hardppc,
                        known == nullptr ? hardPpcOther
                                         : lowBits<std::uint8_t>(known->value));
  return code::done;
}

template <auto Field>
int readNumber(const Argument &argument, ChainDevice &target) {
  storeNumber(argument, target.device.*Field);
  return code::done;
}

constexpr std::array<Parameter<ChainDevice>, 8> parameters{{
    {"jtagport", readJtagPort, oneOf(jtagPorts, fields<&EngineImp::cpuJtag>)},
    {numberWord, readNumber<&JtagOption::devicenr>,
     lowByte(fields<&JtagOption::devicenr>)},
    {idCodeWord, readNumber<&JtagOption::idcode>,
     number(fields<&JtagOption::idcode>)},
    {irLengthWord, readNumber<&JtagOption::irlength>,
     lowByte(fields<&JtagOption::irlength>)},
    {partNameWord, readPartName, text(fields<&JtagOption::partname>)},
    {"isfpga", readNumber<&JtagOption::isfpga>,
     lowByte(fields<&JtagOption::isfpga>)},
    {"hardppc", readHardPpc, hardPpcForm},
    {"nppc", readNumber<&JtagOption::nppc>, lowByte(fields<&JtagOption::nppc>)},
}};

constexpr std::string_view markerWords = " -configdevice jtagpin ";
constexpr std::string_view markerValue = "cpujtag";
constexpr std::uint32_t marked = 1;

void writeDevice(CommandText out, const JtagOption &device) {
  out.addDecimal(joined<configDeviceOption, numberWord>, device.devicenr,
                 fields<&JtagOption::devicenr>);
  out.addText(joined<partNameWord>, device.partname,
              fields<&JtagOption::partname>);
  out.addDecimal(joined<irLengthWord>, device.irlength,
                 fields<&JtagOption::irlength>);
  out.addHexadecimal(joined<idCodeWord>, device.idcode,
                     fields<&JtagOption::idcode>);
}

constexpr const Fields &markerField = fields<&EngineImp::cpuJtag>;
constexpr const Fields &writtenFields =
    fields<&JtagOption::devicenr, &JtagOption::partname, &JtagOption::irlength,
           &JtagOption::idcode>;
constexpr const Fields &unwrittenFields =
    fields<&JtagOption::isfpga, &JtagOption::hardppc, &JtagOption::nppc>;

void tellMarker(WriteRecorder &recorder, std::uint32_t mark) {
  if (mark == marked)
    recorder.cannotBeRead(markerField, OmissionReason::cpuJtagMarker);
  else if (mark == 0)
    recorder.implies(markerField);
  else
    recorder.leavesOut(markerField, OmissionReason::betweenNamedValues);
}

} // namespace

/// The device joins the chain also when the clause ends with a name that lacks
/// its value, and when it only carries the marker.
int readConfigDevice(WordCursor &cursor, EngineImp &imp) {
  auto device = std::make_unique<JtagOption>();
  ChainDevice target{imp, *device};
  if (cursor.recorder != nullptr)
    cursor.recorder->beginsDevice(*device);
  const ClauseEnd end =
      readParameters(cursor, imp, parameters, unknownParameter, target);
  if (cursor.recorder != nullptr)
    cursor.recorder->endsDevice();
  if (end.byParameter)
    return end.code;
  imp.jtagChain.push_back(device.get());
  static_cast<void>(device.release()); // the chain's from here on
  return end.code;
}

void writeChain(CommandText out, const EngineImp &imp) {
  if (imp.cpuJtag == marked)
    out.addName(markerWords, markerValue, markerField);
  if (out.recorder != nullptr)
    tellMarker(*out.recorder, imp.cpuJtag);
  std::size_t position = 0;
  for (const JtagOption *const device : imp.jtagChain) {
    assert(device != nullptr && "a chain has no null records");
    if (out.recorder != nullptr) {
      out.recorder->beginsDevice(position++);
      out.recorder->leavesOut(unwrittenFields, OmissionReason::noWriter);
    }
    writeDevice(out, *device);
  }
}

void leaveOutChain(WriteRecorder &recorder, const EngineImp &imp) {
  const auto leaveOut = [&recorder](const Fields &left) {
    recorder.leavesOut(left, OmissionReason::otherConnection, connectionField);
  };
  leaveOut(markerField);
  for (std::size_t device = 0; device < imp.jtagChain.size(); ++device) {
    recorder.beginsDevice(device);
    leaveOut(writtenFields);
    leaveOut(unwrittenFields);
  }
}

void describeConfigDevice(CommandOption &option) {
  describeParameters(option, parameters);
}

} // namespace kvo

int KvoOption_Parser::parse_configdevice(std::string &command, EngineImp &imp) {
  return kvo::consume(command, imp, kvo::readConfigDevice);
}

} // namespace ZelDebugDialog

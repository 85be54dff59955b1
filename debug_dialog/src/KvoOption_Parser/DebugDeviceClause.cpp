// "-debugdevice": the debug device, and for PowerPC the debug address map.
//
// The writer leaves out what the connection has no use for; the reader takes
// everything from everyone. Names and values may come in any order.
#include <utility>

#include "KvoOption_Parser/Descriptions.h"
#include "KvoOption_Parser/Parameters.h"
#include "KvoOption_Parser/Words.h"
#include "KvoOption_Parser/Writers.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "facts/AddressRegions.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

using Record = ProcessorInfoImp;

constexpr std::string_view unknownParameter =
    "UNKNOWN Parameter '%s' for  option '-debugDevice'";

// Words that are read and written.
// The device number has another letter case than its keyword; readers don't
// mind.
constexpr std::string_view writtenNumberWord = "deviceNr";
constexpr std::string_view cpuNumberWord = "cpunr";
constexpr std::string_view romStartWord = "romemStartAdr";
constexpr std::string_view romSizeWord = "romemSize";
constexpr std::string_view isocmStartWord = "isocmStartAdr";
constexpr std::string_view isocmSizeWord = "isocmSize";
constexpr std::string_view isocmDcrWord = "isocmDcrStartAdr";
constexpr std::string_view isocmDcrWords = "  isocmDcrStartAdr "; // two blanks
constexpr std::string_view fpuWord = "fpuType";

constexpr std::array<NamedValue, 2> ppcTypes{
    {{"ppc405", typePpc405}, {"ppc440", typePpc440}}};

/// With a design the number is the design's, and the command has to agree: all
/// 32 bits of it, so that 128 to 255 never do.
int readCpuNumber(const Argument &argument, EngineImp &imp) {
  Record &record = currentRecord(imp);
  const std::uint64_t number = toUnsigned(argument.value);
  if (imp.hwManager == nullptr) {
    argument.cursor.store(record.cpuNr, lowBits<std::int8_t>(number));
    return code::done;
  }
  return lowBits<std::int32_t>(number) == record.cpuNr ? code::done
                                                       : code::refused;
}

/// A type that is not known is remembered as such, and refused.
int readProcessorType(const Argument &argument, EngineImp &imp) {
  const auto *const type = findNamed(argument, ppcTypes);
  argument.cursor.store(currentRecord(imp).procType,
                        type == nullptr ? typePpcUnknown : type->value);
  return type == nullptr ? code::refused : code::done;
}

int readFpuType(const Argument &argument, EngineImp &imp) {
  const auto *const type = findNamed(argument, fpuTypes);
  if (type == nullptr)
    return refuse(imp, unknownParameterOfOption,
                  {argument.value, argument.name});
  argument.cursor.store(currentRecord(imp).fpuType, type->value);
  return code::done;
}

/// Stores before it checks: a misaligned address stays in the record.
template <const AddressRegion &region>
int readRegion(const Argument &argument, EngineImp &imp) {
  std::uint32_t &start = currentRecord(imp).*region.start;
  storeNumber(argument, start);
  return IsRegionAligned(start) ? code::done : refuse(imp, region.misaligned);
}

/// The instruction cache is where the address map begins.
int readIcacheRegion(const Argument &argument, EngineImp &imp) {
  const int result = readRegion<icacheRegion>(argument, imp);
  Record &record = currentRecord(imp);
  if (result == code::done)
    argument.cursor.store(record.debugAddressMap, record.icacheStartAdr);
  return result;
}

template <auto Field> int readNumber(const Argument &argument, EngineImp &imp) {
  storeNumber(argument, currentRecord(imp).*Field);
  return code::done;
}

template <auto Field> int readText(const Argument &argument, EngineImp &imp) {
  argument.cursor.store(currentRecord(imp).*Field, argument.value);
  return code::done;
}

int readCpuCount(const Argument &argument, EngineImp &imp) {
  argument.cursor.store(currentRecord(imp).nCpu,
                        lowBits<std::int32_t>(toSigned(argument.value, 0)));
  return code::done;
}

constexpr std::array<Parameter<EngineImp>, 18> parameters{{
    {"devicenr", readNumber<&Record::debugDevice>,
     lowByte(fields<&Record::debugDevice>)},
    {cpuNumberWord, readCpuNumber, lowByte(fields<&Record::cpuNr>)},
    {"proctype", readProcessorType, oneOf(ppcTypes, fields<&Record::procType>)},
    {romStartWord, readNumber<&Record::romemStartAdr>,
     number(fields<&Record::romemStartAdr>)},
    {romSizeWord, readNumber<&Record::romemSize>,
     number(fields<&Record::romemSize>)},
    {icacheRegion.keyword, readIcacheRegion,
     number(fields<&Record::icacheStartAdr, &Record::debugAddressMap>)},
    {dcacheRegion.keyword, readRegion<dcacheRegion>,
     number(fields<&Record::dcacheStartAdr>)},
    {itagRegion.keyword, readRegion<itagRegion>,
     number(fields<&Record::itagStartAdr>)},
    {dtagRegion.keyword, readRegion<dtagRegion>,
     number(fields<&Record::dtagStartAdr>)},
    {isocmStartWord, readNumber<&Record::isocmStartAdr>,
     number(fields<&Record::isocmStartAdr>)},
    {isocmSizeWord, readNumber<&Record::isocmSize>,
     number(fields<&Record::isocmSize>)},
    {isocmDcrWord, readNumber<&Record::isocmDcrStartAdr>,
     number(fields<&Record::isocmDcrStartAdr>)},
    {tlbRegion.keyword, readRegion<tlbRegion>,
     number(fields<&Record::tlbStartAdr>)},
    {dcrRegion.keyword, readRegion<dcrRegion>,
     number(fields<&Record::dcrStartAdr>)},
    {"cpu_version", readText<&Record::cpu_version>,
     text(fields<&Record::cpu_version>)},
    {"hdu_version", readText<&Record::hdu_version>,
     text(fields<&Record::hdu_version>)},
    {"nCpu", readCpuCount, signedNumber(fields<&Record::nCpu>)},
    {fpuWord, readFpuType, oneOf(fpuTypes, fields<&Record::fpuType>)},
}};

constexpr const Fields &deviceField = fields<&Record::debugDevice>;
constexpr const Fields &cpuNumberField = fields<&Record::cpuNr>;
constexpr const Fields &romStartField = fields<&Record::romemStartAdr>;
constexpr const Fields &romSizeField = fields<&Record::romemSize>;
constexpr const Fields &isocmStartField = fields<&Record::isocmStartAdr>;
constexpr const Fields &isocmSizeField = fields<&Record::isocmSize>;
constexpr const Fields &isocmDcrField = fields<&Record::isocmDcrStartAdr>;
constexpr const Fields &mapField = fields<&Record::debugAddressMap>;
constexpr const Fields &fpuField = fields<&Record::fpuType>;
constexpr const Fields &regionFields =
    fields<icacheRegion.start, dcacheRegion.start, itagRegion.start,
           dtagRegion.start, tlbRegion.start, dcrRegion.start>;
constexpr const Fields &unwrittenFields =
    fields<&Record::cpu_version, &Record::hdu_version, &Record::nCpu>;

/// Leaving a field out says its value if it is that one.
void leaveOutUnless(WriteRecorder &recorder, bool isImplied, const Fields &left,
                    OmissionReason reason) {
  if (isImplied)
    recorder.implies(left);
  else
    recorder.leavesOut(left, reason);
}

void leaveOutOfConnection(WriteRecorder &recorder, const Fields &left) {
  recorder.leavesOut(left, OmissionReason::otherConnection, connectionField);
}

void tellRomLeftOut(WriteRecorder &recorder, const Record &record) {
  if (record.connectionType != Engine::CONNECT_HW) {
    leaveOutOfConnection(recorder, romStartField);
    leaveOutOfConnection(recorder, romSizeField);
    return;
  }
  leaveOutUnless(recorder, record.romemStartAdr == unsetAddress, romStartField,
                 OmissionReason::incompleteRange);
  leaveOutUnless(recorder, record.romemSize == 0, romSizeField,
                 OmissionReason::incompleteRange);
}

void writeRom(CommandText out, const Record &record) {
  if (record.connectionType != Engine::CONNECT_HW ||
      record.romemStartAdr == unsetAddress || record.romemSize == 0) {
    if (out.recorder != nullptr)
      tellRomLeftOut(*out.recorder, record);
    return;
  }
  out.addHexadecimal(joined<romStartWord>, record.romemStartAdr, romStartField);
  out.addDecimal(joined<romSizeWord>, lowBits<std::int32_t>(record.romemSize),
                 romSizeField);
}

constexpr bool hasIsocm(const Record &record) {
  return record.procType == typePpc405;
}

void tellIsocmLeftOut(WriteRecorder &recorder, const Record &record) {
  if (!hasIsocm(record)) {
    for (const Fields *const field :
         {&isocmStartField, &isocmSizeField, &isocmDcrField})
      recorder.leavesOut(*field, OmissionReason::ppc405Only);
    return;
  }
  recorder.implies(isocmStartField); // it is unset
  leaveOutUnless(recorder, record.isocmSize == 0, isocmSizeField,
                 OmissionReason::regionWithoutStart);
  leaveOutUnless(recorder, record.isocmDcrStartAdr == unsetAddress,
                 isocmDcrField, OmissionReason::regionWithoutStart);
}

void writeIsocm(CommandText out, const Record &record) {
  if (!hasIsocm(record) || record.isocmStartAdr == unsetAddress) {
    if (out.recorder != nullptr)
      tellIsocmLeftOut(*out.recorder, record);
    return;
  }
  out.addHexadecimal(joined<isocmStartWord>, record.isocmStartAdr,
                     isocmStartField);
  out.addDecimal(joined<isocmSizeWord>, lowBits<std::int32_t>(record.isocmSize),
                 isocmSizeField);
  out.addHexadecimal(isocmDcrWords, record.isocmDcrStartAdr, isocmDcrField);
}

void tellAddressMap(WriteRecorder &recorder, const Record &record) {
  for (const std::uint8_t field : regionFields) {
    const auto start =
        std::get<std::uint32_t Record::*>(fieldRows[field].member);
    if (record.*start == unsetAddress)
      recorder.implies(Fields(field));
    else if (!IsRegionAligned(record.*start))
      recorder.cannotBeRead(Fields(field), OmissionReason::misalignedRegion);
  }
  leaveOutUnless(recorder, record.debugAddressMap == record.icacheStartAdr,
                 mapField, OmissionReason::followsIcache);
}

template <const AddressRegion &region>
constexpr std::string_view regionWord = region.keyword;

template <const AddressRegion &region>
void writeRegion(CommandText out, const Record &record) {
  if (record.*region.start != unsetAddress)
    out.addHexadecimal(joined<regionWord<region>>, record.*region.start,
                       fields<region.start>);
}

template <std::size_t... region>
void writeRegions(CommandText out, const Record &record,
                  std::index_sequence<region...> /*all*/) {
  (writeRegion<*addressRegions[region]>(out, record), ...);
}

void writeAddressMap(CommandText out, const Record &record) {
  writeRegions(out, record, std::make_index_sequence<addressRegions.size()>());
  if (out.recorder != nullptr)
    tellAddressMap(*out.recorder, record);
}

void writeFpu(CommandText out, const Record &record) {
  const bool isNamed = record.fpuType <= fpuDouble;
  if (record.fpuType != fpuNone)
    out.addName(joined<fpuWord>,
                fpuTypes[record.fpuType == fpuSingle ? 0 : 1].keyword,
                isNamed ? fpuField : Fields());
  if (out.recorder == nullptr)
    return;
  if (record.fpuType == fpuNone)
    out.recorder->implies(fpuField);
  if (!isNamed)
    out.recorder->leavesOut(fpuField, OmissionReason::betweenNamedValues);
}

void leaveOutPowerPc(WriteRecorder &recorder) {
  for (const Fields *const unused : {&regionFields, &mapField, &fpuField})
    recorder.leavesOut(*unused, OmissionReason::powerPcOnly);
}

void writeBody(CommandText out, const Record &record) {
  if (record.debugDevice != 0)
    writeDebugDeviceNumber(out, record.debugDevice);
  else if (out.recorder != nullptr)
    out.recorder->implies(deviceField);
  if (record.connectionType != Engine::CONNECT_SIM &&
      record.connectionType != Engine::CONNECT_STUB)
    out.addDecimal(joined<cpuNumberWord>, record.cpuNr, cpuNumberField);
  else if (out.recorder != nullptr)
    leaveOutOfConnection(*out.recorder, cpuNumberField);
  writeRom(out, record);
  writeIsocm(out, record);
  if (record.procFamily == familyPowerPc) {
    writeAddressMap(out, record);
    writeFpu(out, record);
  } else if (out.recorder != nullptr) {
    leaveOutPowerPc(*out.recorder);
  }
}

} // namespace

int readDebugDevice(WordCursor &cursor, EngineImp &imp) {
  return readParameters(cursor, imp, parameters, unknownParameter, imp).code;
}

void writeDebugDeviceNumber(CommandText out, int number) {
  out.addDecimal(joined<writtenNumberWord>, number, deviceField);
}

void writeDebugDevice(CommandText out, const EngineImp &imp) {
  std::string &text = out.text;
  const std::size_t before = text.size();
  out.addKeyword<debugDeviceOption>(WordRole::option);
  const std::size_t bare = text.size();
  writeBody(out, currentRecord(imp));
  if (out.recorder != nullptr)
    out.recorder->leavesOut(unwrittenFields, OmissionReason::noWriter);
  if (text.size() != bare)
    return;
  text.resize(before); // nothing to say, not even that
  if (out.recorder != nullptr)
    out.recorder->takesBack(text);
}

void leaveOutDebugDevice(WriteRecorder &recorder, const EngineImp &imp) {
  const Record &record = currentRecord(imp);
  leaveOutOfConnection(recorder, deviceField);
  leaveOutOfConnection(recorder, cpuNumberField);
  leaveOutOfConnection(recorder, romStartField);
  leaveOutOfConnection(recorder, romSizeField);
  recorder.leavesOut(unwrittenFields, OmissionReason::noWriter);
  if (!hasIsocm(record))
    tellIsocmLeftOut(recorder, record);
  else
    for (const Fields *const field :
         {&isocmStartField, &isocmSizeField, &isocmDcrField})
      leaveOutOfConnection(recorder, *field);
  if (record.procFamily != familyPowerPc)
    leaveOutPowerPc(recorder);
  else
    for (const Fields *const unused : {&regionFields, &mapField, &fpuField})
      leaveOutOfConnection(recorder, *unused);
}

void describeDebugDevice(CommandOption &option) {
  describeParameters(option, parameters);
}

} // namespace kvo

unsigned KvoOption_Parser::parse_debugdevice(std::string &command,
                                             EngineImp &imp) {
  return static_cast<unsigned>(
      kvo::consume(command, imp, kvo::readDebugDevice));
}

int KvoOption_Parser::write_debugdeviceoptions(std::string &out,
                                               EngineImp &imp) {
  kvo::writeDebugDevice(kvo::CommandText(out), imp);
  return kvo::code::done;
}

} // namespace ZelDebugDialog

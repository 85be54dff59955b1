// "-debugdevice": the debug device, and for PowerPC the debug address map.
//
// The writer leaves out what the connection has no use for; the reader takes
// everything from everyone. Names and values may come in any order.
#include "KvoOption_Parser/Descriptions.h"
#include "KvoOption_Parser/Parameters.h"
#include "KvoOption_Parser/Words.h"
#include "KvoOption_Parser/Writers.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "ZelDebugDialog_Engine/AddressRegions.h"
#include "ZelDebugDialog_Engine/Families.h"

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
constexpr std::string_view fpuWord = "fpuType";
constexpr std::string_view singleWord = "sp";
constexpr std::string_view doubleWord = "dp";

constexpr std::array<NamedValue, 2> processorTypes{
    {{"ppc405", typePpc405}, {"ppc440", typePpc440}}};
constexpr std::array<NamedValue, 2> fpuTypes{
    {{singleWord, fpuSingle}, {doubleWord, fpuDouble}}};

/// With a design the number is the design's, and the command has to agree: all
/// 32 bits of it, so that 128 to 255 never do.
int readCpuNumber(const Argument &argument, EngineImp &imp) {
  Record &record = currentRecord(imp);
  const std::uint64_t number = toUnsigned(argument.value);
  if (imp.hwManager == nullptr) {
    record.cpuNr = lowBits<std::int8_t>(number);
    return code::done;
  }
  return lowBits<std::int32_t>(number) == record.cpuNr ? code::done
                                                       : code::refused;
}

/// A type that is not known is remembered as such, and refused.
int readProcessorType(const Argument &argument, EngineImp &imp) {
  const auto *const type =
      findRow(processorTypes, argument.value, argument.characters);
  currentRecord(imp).procType = type == nullptr ? typePpcUnknown : type->value;
  return type == nullptr ? code::refused : code::done;
}

int readFpuType(const Argument &argument, EngineImp &imp) {
  const auto *const type =
      findRow(fpuTypes, argument.value, argument.characters);
  if (type == nullptr)
    return refuse(imp, unknownParameterOfOption,
                  {argument.value, argument.name});
  currentRecord(imp).fpuType = type->value;
  return code::done;
}

/// Stores before it checks: a misaligned address stays in the record.
template <const AddressRegion &region>
int readRegion(const Argument &argument, EngineImp &imp) {
  std::uint32_t &start = currentRecord(imp).*region.start;
  start = lowBits<std::uint32_t>(toUnsigned(argument.value));
  return isRegionAligned(start) ? code::done : refuse(imp, region.misaligned);
}

/// The instruction cache is where the address map begins.
int readIcacheRegion(const Argument &argument, EngineImp &imp) {
  const int result = readRegion<icacheRegion>(argument, imp);
  if (result == code::done)
    currentRecord(imp).debugAddressMap = currentRecord(imp).icacheStartAdr;
  return result;
}

template <auto Field> int readNumber(const Argument &argument, EngineImp &imp) {
  storeNumber(argument, currentRecord(imp).*Field);
  return code::done;
}

template <auto Field> int readText(const Argument &argument, EngineImp &imp) {
  currentRecord(imp).*Field = argument.value;
  return code::done;
}

int readCpuCount(const Argument &argument, EngineImp &imp) {
  currentRecord(imp).nCpu = lowBits<std::int32_t>(toSigned(argument.value, 0));
  return code::done;
}

constexpr std::array<Parameter<EngineImp>, 18> parameters{{
    {"devicenr", readNumber<&Record::debugDevice>, lowByte("debugDevice")},
    {cpuNumberWord, readCpuNumber, lowByte("cpuNr")},
    {"proctype", readProcessorType, oneOf(processorTypes, "procType")},
    {romStartWord, readNumber<&Record::romemStartAdr>, number("romemStartAdr")},
    {romSizeWord, readNumber<&Record::romemSize>, number("romemSize")},
    {icacheRegion.keyword, readIcacheRegion,
     number("icacheStartAdr debugAddressMap")},
    {dcacheRegion.keyword, readRegion<dcacheRegion>, number("dcacheStartAdr")},
    {itagRegion.keyword, readRegion<itagRegion>, number("itagStartAdr")},
    {dtagRegion.keyword, readRegion<dtagRegion>, number("dtagStartAdr")},
    {isocmStartWord, readNumber<&Record::isocmStartAdr>,
     number("isocmStartAdr")},
    {isocmSizeWord, readNumber<&Record::isocmSize>, number("isocmSize")},
    {isocmDcrWord, readNumber<&Record::isocmDcrStartAdr>,
     number("isocmDcrStartAdr")},
    {tlbRegion.keyword, readRegion<tlbRegion>, number("tlbStartAdr")},
    {dcrRegion.keyword, readRegion<dcrRegion>, number("dcrStartAdr")},
    {"cpu_version", readText<&Record::cpu_version>, text("cpu_version")},
    {"hdu_version", readText<&Record::hdu_version>, text("hdu_version")},
    {"nCpu", readCpuCount, signedNumber("nCpu")},
    {fpuWord, readFpuType, oneOf(fpuTypes, "fpuType")},
}};

// Each takes the words in front of its number with their blanks.
void writeDecimal(std::string &out, std::string_view words,
                  std::int64_t number) {
  out += words;
  appendDecimal(out, number);
}

void writeAddress(std::string &out, std::string_view words,
                  std::uint32_t address) {
  out += words;
  appendHexadecimal(out, address);
}

void writeSize(std::string &out, std::string_view words, std::uint32_t size) {
  writeDecimal(out, words, lowBits<std::int32_t>(size));
}

void writeRom(std::string &out, const Record &record) {
  if (record.connectionType != Engine::CONNECT_HW ||
      record.romemStartAdr == unsetAddress || record.romemSize == 0)
    return;
  writeAddress(out, joined<romStartWord>, record.romemStartAdr);
  writeSize(out, joined<romSizeWord>, record.romemSize);
}

void writeIsocm(std::string &out, const Record &record) {
  if (record.procType != typePpc405 || record.isocmStartAdr == unsetAddress)
    return;
  writeAddress(out, joined<isocmStartWord>, record.isocmStartAdr);
  writeSize(out, joined<isocmSizeWord>, record.isocmSize);
  out += ' '; // two blanks stand before the next word
  writeAddress(out, joined<isocmDcrWord>, record.isocmDcrStartAdr);
}

void writeAddressMap(std::string &out, const Record &record) {
  for (const AddressRegion *const region : addressRegions)
    if (record.*region->start != unsetAddress) {
      appendWord(out, region->keyword);
      out += ' ';
      appendHexadecimal(out, record.*region->start);
    }
}

void writeFpu(std::string &out, const Record &record) {
  if (record.fpuType == fpuNone)
    return;
  appendWord(out, fpuWord);
  appendWord(out, record.fpuType == fpuSingle ? singleWord : doubleWord);
}

void writeBody(std::string &out, const Record &record) {
  if (record.debugDevice != 0)
    writeDebugDeviceNumber(out, record.debugDevice);
  if (record.connectionType != Engine::CONNECT_SIM &&
      record.connectionType != Engine::CONNECT_STUB)
    writeDecimal(out, joined<cpuNumberWord>, record.cpuNr);
  writeRom(out, record);
  writeIsocm(out, record);
  if (record.procFamily != familyPowerPc)
    return;
  writeAddressMap(out, record);
  writeFpu(out, record);
}

} // namespace

template <class Observer>
int readDebugDevice(WordCursor<Observer> &cursor, EngineImp &imp) {
  return readParameters(cursor, imp, parameters, unknownParameter, imp).code;
}

template int readDebugDevice(WordCursor<NoObserver> &, EngineImp &);
template int readDebugDevice(WordCursor<Recorder> &, EngineImp &);

void writeDebugDeviceNumber(std::string &out, int number) {
  writeDecimal(out, joined<writtenNumberWord>, number);
}

void describeDebugDevice(CommandOption &option) {
  describeParameters(option, parameters);
}

} // namespace kvo

unsigned KvoOption_Parser::parse_debugdevice(std::string &command,
                                             EngineImp &imp) {
  return static_cast<unsigned>(
      kvo::consume(command, imp, kvo::readDebugDevice<kvo::NoObserver>));
}

int KvoOption_Parser::write_debugdeviceoptions(std::string &out,
                                               EngineImp &imp) {
  const std::size_t before = out.size();
  kvo::appendWord(out, kvo::debugDeviceOption);
  const std::size_t bare = out.size();
  kvo::writeBody(out, currentRecord(imp));
  if (out.size() == bare)
    out.resize(before); // nothing to say, not even that
  return kvo::code::done;
}

} // namespace ZelDebugDialog

#include "language/RoundTripMaker.h"

#include <limits>
#include <set>

#include "support/Cables.h"

namespace LanguageTest {
namespace {

using namespace std::string_literals;
using ZelDebugDialog::CableOption;
using ZelDebugDialog::Engine;
using ZelDebugDialog::JtagOption;
using ZelDebugDialog::ProcessorInfoImp;

constexpr std::uint32_t kUnset = 0xFFFFFFFF;

const std::vector<std::uint32_t> kLimits32 = {
    0, 1, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF};
const std::vector<std::int32_t> kSignedLimits32 = {
    0, 1, -1, std::numeric_limits<std::int32_t>::max(),
    std::numeric_limits<std::int32_t>::min()};
const std::vector<std::int8_t> kSignedLimits8 = {0, 1, -1, 127, -128};
const std::vector<std::uint8_t> kLimits8 = {0, 1, 255};
const std::vector<std::uint32_t> kFlags = {0, 1};

/// Words that stay themselves, however odd they look.
const std::vector<std::string> kSturdyTexts = {
    "-5",       "-5x",   "frequency", "connect", "0x10", "%s%n",
    "\xe9\xff", "a\0b"s, "\0"s,       "a\nb",    "'q'",  "a:b"};
/// Words that do not, at least in some places.
const std::vector<std::string> kFrailTexts = {"",   " ",  "\t", "a b", "a\tb",
                                              " a", "a ", "\n", "a\n", "\r\va",
                                              "-",  "-a", "--", "-\0"s};

/// Each that some cable that is written accepts.
std::vector<std::uint32_t> acceptedFrequencies() {
  std::set<std::uint32_t> all;
  for (const support::Cable &cable : support::cables())
    if (cable.form == support::CableForm::line)
      all.insert(cable.accepted.begin(), cable.accepted.end());
  return {all.begin(), all.end()};
}

/// No cable, and each that is written.
std::vector<std::uint32_t> usualCables() {
  std::vector<std::uint32_t> all{0};
  for (const support::Cable &cable : support::cables())
    if (cable.form != support::CableForm::none)
      all.push_back(cable.number);
  return all;
}

} // namespace

std::size_t CaseMaker::below(std::size_t count) {
  return static_cast<std::size_t>(random() % count);
}

/// One of `limits` in `percent` of the cases, which is counted.
template <class T>
T CaseMaker::at(const char *field, const std::vector<T> &limits,
                std::size_t percent, T otherwise) {
  std::vector<std::size_t> &counts = met[field];
  counts.resize(limits.size());
  if (!chance(percent))
    return otherwise;
  const std::size_t index = below(limits.size());
  ++counts[index];
  return limits[index];
}

std::uint32_t CaseMaker::word32(const char *field) {
  return at(field, kLimits32, 40, static_cast<std::uint32_t>(random()));
}

std::int32_t CaseMaker::signed32(const char *field) {
  return at(field, kSignedLimits32, 40, static_cast<std::int32_t>(random()));
}

std::int8_t CaseMaker::signed8(const char *field) {
  return at(field, kSignedLimits8, 40, static_cast<std::int8_t>(random()));
}

/// Mostly unset or aligned, so that not every PowerPC is refused.
std::uint32_t CaseMaker::region(const char *field) {
  const std::uint32_t other =
      chance(50) ? kUnset : static_cast<std::uint32_t>(random()) << 16U;
  if (chance(1))
    return at(
        field,
        {0U, 0x10000U, 0xFFFF0000U, kUnset, 1U, 0x8000U, 0xFFFFU, 0xFFFFFFFEU},
        100, other);
  return other;
}

std::string CaseMaker::plainText() {
  static const std::string letters =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/._";
  std::string word;
  const std::size_t length = 1 + below(10);
  for (std::size_t i = 0; i < length; ++i)
    word += letters[below(letters.size())];
  return chance(1) && chance(20) ? std::string(1100, 'l') : word;
}

std::string CaseMaker::text(const char *field) {
  const std::string sturdy = at(field, kSturdyTexts, 10, plainText());
  return at((field + " (frail)"s).c_str(), kFrailTexts, 2, sturdy);
}

std::string CaseMaker::arguments() {
  std::string joined;
  const std::size_t count = below(4);
  for (std::size_t i = 0; i < count; ++i)
    joined += (i == 0 ? "" : ";") + text("modulearg");
  return joined;
}

void CaseMaker::makeConnection(ProcessorInfoImp &record) {
  record.instanceName = text("instanceName");
  record.procFamily = at<std::uint32_t>(
      "procFamily", {0, 0, 0, 1, 1, 1, 2, 3, 0xFFFFFFFF}, 100, 0);
  record.procType =
      at<std::uint32_t>("procType", {0, 1, 1, 2, 4, 5, 6, 0xFFFFFFFF}, 100, 0);
  record.connectionMask =
      at<std::uint32_t>("connectionMask", {0, 1, 0x200, 0xFFFFFFFF}, 15, 0x8F);
  record.cpuNr = signed8("cpuNr");
  const std::uint32_t usual = record.procFamily == 0
                                  ? std::uint32_t{1} << below(4)
                                  : std::uint32_t{1} << below(2);
  record.connectionType = at<std::uint32_t>(
      "connectionType", {0, 1, 2, 3, 4, 8, 0x84, 0x80000000}, 10, usual);
  record.stubType =
      at("stubType", kLimits32, 5, static_cast<std::uint32_t>(below(2)));
  record.stubSerialPort = text("stubSerialPort");
  record.stubBaudRate = signed32("stubBaudRate");
  record.stubTimeout = signed32("stubTimeout");
}

void CaseMaker::makeSimulators(ProcessorInfoImp &record) {
  record.ppcSimConfigFile = chance(50) ? "" : text("ppcSimConfigFile");
  record.simIpcHost = chance(30) ? "" : text("simIpcHost");
  record.simIpcPort = signed32("simIpcPort");
  record.vpConfigMode =
      at("vpConfigMode", kLimits32, 5, static_cast<std::uint32_t>(below(2)));
  record.cycleApproximate = at(
      "cycleApproximate", kLimits32, 5,
      chance(80) ? record.vpConfigMode : static_cast<std::uint32_t>(below(2)));
}

void CaseMaker::makeDebugDevice(ProcessorInfoImp &record) {
  record.isocmStartAdr = word32("isocmStartAdr");
  record.isocmSize = word32("isocmSize");
  record.isocmDcrStartAdr = word32("isocmDcrStartAdr");
  record.icacheStartAdr = region("icacheStartAdr");
  record.dcacheStartAdr = region("dcacheStartAdr");
  record.itagStartAdr = region("itagStartAdr");
  record.dtagStartAdr = region("dtagStartAdr");
  record.tlbStartAdr = region("tlbStartAdr");
  record.dcrStartAdr = region("dcrStartAdr");
  record.debugAddressMap =
      at("debugAddressMap", kLimits32, 10, record.icacheStartAdr);
  record.fpuType =
      at("fpuType", kLimits32, 20, static_cast<std::uint32_t>(below(3)));
  record.romemStartAdr = word32("romemStartAdr");
  record.romemSize = word32("romemSize");
}

void CaseMaker::makeUnwritten(ProcessorInfoImp &record) {
  record.simMemSize = word32("simMemSize");
  record.cpu_version = text("cpu_version");
  record.hdu_version = text("hdu_version");
  record.nCpu = signed32("nCpu");
  record.svfFileFlag = at("svfFileFlag", kFlags, 100, 0U) != 0;
  record.modelSimMode = at("modelSimMode", kFlags, 100, 0U) != 0;
  record.modelSimHost = text("modelSimHost");
  record.modelSimPort = signed32("modelSimPort");
  record.uartOverHdu = at("uartOverHdu", kFlags, 100, 0U) != 0;
  record.bscanUserReg = at<std::uint32_t>(
      "bscanUserReg", {2, 3, 0x22, 0x23, 0, 0xFFFFFFFF}, 60, 3);
}

void CaseMaker::makeCable(CableOption &cable) {
  static const std::vector<std::uint32_t> frequencies = acceptedFrequencies();
  static const std::vector<std::uint32_t> cables = usualCables();
  const std::uint32_t usual = cables[below(cables.size())];
  cable.cableType = static_cast<Engine::CableType>(
      at<std::uint32_t>("cableType", support::cableNumbers(), 10, usual));
  const std::uint32_t known =
      at("frequency (known)", frequencies, 100, std::uint32_t{0});
  cable.frequency = at("frequency", kLimits32, 10, known);
  cable.port = text("port");
  cable.esn = chance(70) ? "" : text("esn");
  cable.svfFile = text("svfFile");
  cable.moduleName = text("moduleName");
  cable.moduleArgs = arguments();
  cable.url = text("url");
}

void CaseMaker::makeChain(std::vector<JtagOption> &chain) {
  chain.resize(at<std::size_t>("chain", {0, 1, 2, 3}, 100, 0));
  for (JtagOption &device : chain) {
    device.partname = text("partname");
    device.idcode = word32("idcode");
    device.irlength = signed8("irlength");
    device.devicenr = signed8("devicenr");
    device.isfpga = at<std::uint8_t>("isfpga", kLimits8, 100, 0);
    device.hardppc = at<std::uint8_t>("hardppc", kLimits8, 100, 0);
    device.nppc = at<std::uint8_t>("nppc", kLimits8, 100, 0);
  }
}

RoundTripCase CaseMaker::next() {
  RoundTripCase made;
  Configuration &configuration = made.written;
  makeConnection(configuration.record);
  makeSimulators(configuration.record);
  makeDebugDevice(configuration.record);
  makeUnwritten(configuration.record);
  makeCable(configuration.cable);
  makeChain(configuration.chain);
  configuration.cpuJtag = at<std::uint32_t>("cpuJtag", {0, 1, 2}, 4, 0);
  made.askedDevice =
      at("debugDevice", {0, 1, -1, 127, -128, 128, 200, 255, 256, -129}, 30,
         static_cast<int>(below(3)));
  configuration.record.debugDevice = static_cast<std::int8_t>(made.askedDevice);
  made.underDesign = chance(50);
  return made;
}

} // namespace LanguageTest

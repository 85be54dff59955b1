#include "support/Cables.h"
#include "support/RoundTrip.h"

#include <algorithm>
#include <optional>
#include <string>

namespace support {
namespace {

using ZelDebugDialog::CableOption;
using ZelDebugDialog::Engine;
using ZelDebugDialog::JtagOption;
using ZelDebugDialog::ProcessorInfoImp;

constexpr std::uint32_t kUnset = 0xFFFFFFFF;

bool isSpace(char character) {
  return std::string(" \t\n\v\f\r").find(character) != std::string::npos;
}

/// Does the text fall apart, or lose an end?
bool isSpaced(const std::string &text) {
  return text.find_first_of(" \t") != std::string::npos ||
         (!text.empty() && (isSpace(text.front()) || isSpace(text.back())));
}

bool isOptionWord(const std::string &text) {
  return text == "-" || (text.size() > 1 && text[0] == '-' &&
                         (text[1] < '0' || text[1] > '9'));
}

/// Why a text that stands as a value in a clause does not come back.
std::optional<Loss> frailty(const std::string &value) {
  if (value.empty())
    return Loss::EmptyText;
  if (isSpaced(value))
    return Loss::WhiteSpace;
  if (isOptionWord(value))
    return Loss::LeadingMinus;
  return std::nullopt;
}

std::vector<std::string> pieces(const std::string &joined) {
  std::vector<std::string> all(1);
  for (const char character : joined)
    if (character == ';')
      all.emplace_back();
    else
      all.back() += character;
  return all;
}

class Predictor {
public:
  Predictor(const RoundTripCase &roundTrip, Losses &met)
      : given(roundTrip), x(roundTrip.written.record),
        cable(roundTrip.written.cable), cableRow(cableOf(cable.cableType)),
        losses(met) {}

  Prediction run() {
    if (!hasCommand())
      return stopped(Prediction::Kind::NoCommand, Loss::NoCommand);
    if (given.underDesign && (x.connectionMask & x.connectionType) == 0)
      return stopped(Prediction::Kind::Refused, Loss::ConnectionMask);
    if (std::optional<Prediction> early = stumble())
      return *early;
    prediction.result = given.written;
    readIdentity();
    readStub();
    readSimulators();
    readCable();
    readChain();
    readDebugDevice();
    forgetUnwritten();
    return prediction;
  }

private:
  bool isLumacore() const { return x.procFamily == 0; }
  bool isVirtual() const { return x.connectionType == 8; }
  bool isPpcSim() const { return !isLumacore() && x.connectionType == 1; }
  bool isSerialStub() const {
    return isLumacore() && x.connectionType == 4 && x.stubType != 0;
  }
  bool isJtagStub() const {
    return isLumacore() && x.connectionType == 4 && x.stubType == 0;
  }
  bool isHardware() const { return x.connectionType == 2; }
  bool isWired() const { return isHardware() || isJtagStub(); }
  bool isPpcHardware() const { return x.procFamily == 1 && isHardware(); }
  bool isQuorla() const { return cableRow.form == CableForm::line; }
  bool isPlugin() const { return cableRow.form == CableForm::module; }
  bool writesIsocm() const {
    return isWired() && x.procType == 1 && x.isocmStartAdr != kUnset;
  }
  bool writesRom() const {
    return isHardware() && x.romemStartAdr != kUnset && x.romemSize != 0;
  }
  std::vector<std::uint32_t> regions() const {
    return {x.icacheStartAdr, x.dcacheStartAdr, x.itagStartAdr,
            x.dtagStartAdr,   x.tlbStartAdr,    x.dcrStartAdr};
  }
  /// Nothing follows the cable clause: then the frequency is looked at.
  bool endsWithCable() const {
    return isJtagStub() && x.bscanUserReg != 2 && given.written.cpuJtag != 1 &&
           given.written.chain.empty() && x.debugDevice == 0 && !writesIsocm();
  }

  bool hasCommand() const {
    if (isVirtual())
      return isLumacore();
    const std::vector<std::uint32_t> known =
        isLumacore() ? std::vector<std::uint32_t>{1, 2, 4}
                     : std::vector<std::uint32_t>{1, 2};
    if (std::count(known.begin(), known.end(), x.connectionType) == 0)
      return false;
    return !isWired() || cable.cableType == Engine::CABLE_NONE ||
           cableRow.form != CableForm::none;
  }

  Prediction stopped(Prediction::Kind kind, Loss cause) {
    prediction.kind = kind;
    prediction.cause = cause;
    return prediction;
  }
  Prediction refused(Loss cause) {
    return stopped(Prediction::Kind::Refused, cause);
  }
  Prediction unsettled(Loss cause) {
    return stopped(Prediction::Kind::Unsettled, cause);
  }

  /// The first thing in the text that keeps it from being read as it was meant.
  std::optional<Prediction> stumble() {
    if (isVirtual())
      return stumbleOverVirtualPlatform();
    if (isPpcSim())
      return stumbleOverPpcSimulator();
    if (isSerialStub())
      return stumbleOver({x.stubSerialPort});
    if (isWired())
      return stumbleOverWires();
    return std::nullopt;
  }

  std::optional<Prediction> stumbleOver(const std::vector<std::string> &texts) {
    for (const std::string &text : texts)
      if (const std::optional<Loss> cause = frailty(text))
        return unsettled(*cause);
    return std::nullopt;
  }

  std::optional<Prediction> stumbleOverVirtualPlatform() {
    if (x.vpConfigMode != 0)
      return x.cycleApproximate == 0
                 ? std::optional(refused(Loss::ConfigurationMode))
                 : std::nullopt;
    if (x.simIpcHost.empty())
      return std::nullopt;
    if (x.simIpcHost.find_first_of(" \t") != std::string::npos)
      return unsettled(Loss::WhiteSpace);
    return refused(Loss::VirtualPlatformHost);
  }

  /// These values are taken whatever they look like, so a '-' does no harm.
  std::optional<Prediction> stumbleOverPpcSimulator() {
    const std::string &file = x.ppcSimConfigFile;
    if (!file.empty()) {
      if (isSpaced(file))
        return unsettled(Loss::WhiteSpace);
      return file == "-" ? std::optional(unsettled(Loss::LeadingMinus))
                         : std::nullopt;
    }
    const std::string &host = x.simIpcHost;
    if (host.empty())
      return std::nullopt;
    if (host.find_first_of(" \t") != std::string::npos || isSpace(host[0]))
      return unsettled(Loss::WhiteSpace);
    return host.find(':') != std::string::npos
               ? std::optional(unsettled(Loss::ColonInHost))
               : std::nullopt;
  }

  std::optional<Prediction> stumbleOverWires() {
    if (isQuorla())
      if (auto early =
              stumbleOver({cable.esn.empty() ? cable.port : cable.esn}))
        return early;
    if (isPlugin()) {
      std::vector<std::string> words = {cable.moduleName};
      if (!cable.moduleArgs.empty())
        for (const std::string &piece : pieces(cable.moduleArgs))
          words.push_back(piece);
      if (auto early = stumbleOver(words))
        return early;
    }
    if (endsWithCable() && isQuorla() && cable.esn.empty() &&
        !isAccepted(cableRow, cable.frequency))
      return refused(Loss::Frequency);
    if (given.written.cpuJtag == 1)
      return refused(Loss::CpuJtagMarker);
    for (const JtagOption &device : given.written.chain)
      if (auto early = stumbleOver({device.partname}))
        return early;
    if (isPpcHardware())
      for (const std::uint32_t region : regions())
        if (region != kUnset && (region & 0xFFFFU) != 0)
          return refused(Loss::MisalignedRegion);
    return std::nullopt;
  }

  /// One field comes back as `value`; if that is another one, `loss` is why.
  template <class T, class V>
  void becomes(T &field, const V &value, Loss loss) {
    const T next = static_cast<T>(value);
    if (field == next)
      return;
    prediction.countsFieldTwice |=
        std::count(changed.begin(), changed.end(), &field) != 0;
    changed.push_back(&field);
    field = next;
    losses.count(loss);
  }

  void readIdentity() {
    if (given.underDesign)
      return;
    ProcessorInfoImp &y = prediction.result.record;
    becomes(y.instanceName, "", Loss::Identity);
    becomes(y.connectionMask, 1U | x.connectionType, Loss::Identity);
    if (!isHardware())
      becomes(y.cpuNr, 1, Loss::Identity);
    becomes(y.procFamily, isLumacore() ? 0 : 1, Loss::OtherTargets);
    becomes(y.procType, isLumacore() ? 0 : 6, Loss::ProcessorKind);
    prediction.dropsIsocm = writesIsocm();
    if (prediction.dropsIsocm)
      losses.count(Loss::Isocm);
  }

  void readStub() {
    ProcessorInfoImp &y = prediction.result.record;
    if (isSerialStub()) {
      becomes(y.stubType, 1, Loss::OddValues);
      return;
    }
    becomes(y.stubType, 0, Loss::OtherConnections);
    becomes(y.stubSerialPort, "/dev/ttyS0", Loss::OtherConnections);
    becomes(y.stubBaudRate, 0, Loss::OtherConnections);
    becomes(y.stubTimeout, 20000, Loss::OtherConnections);
  }

  void readSimulators() {
    ProcessorInfoImp &y = prediction.result.record;
    if (!isPpcSim())
      becomes(y.ppcSimConfigFile, "", Loss::OtherConnections);
    if (isVirtual() && x.vpConfigMode != 0) {
      becomes(y.vpConfigMode, 1, Loss::OddValues);
      becomes(y.cycleApproximate, 1, Loss::OddValues);
      forgetHost(Loss::ConfigurationMode);
      return;
    }
    if (isVirtual()) { // Without a host: one with a host is refused.
      becomes(y.cycleApproximate, 0, Loss::ConfigurationMode);
      forgetHost(Loss::PortWithoutHost);
      return;
    }
    becomes(y.vpConfigMode, 0, Loss::OtherConnections);
    becomes(y.cycleApproximate, 0, Loss::OtherConnections);
    if (!isPpcSim())
      forgetHost(Loss::OtherConnections);
    else if (!x.ppcSimConfigFile.empty())
      forgetHost(Loss::SimulatorFile);
    else if (x.simIpcHost.empty())
      forgetHost(Loss::PortWithoutHost);
  }

  void forgetHost(Loss loss) {
    becomes(prediction.result.record.simIpcHost, "", loss);
    becomes(prediction.result.record.simIpcPort, 0, loss);
  }

  void readCable() {
    CableOption &y = prediction.result.cable;
    becomes(y.svfFile, "", Loss::NeverWritten);
    becomes(y.url, "", Loss::NeverWritten);
    if (!isWired())
      becomes(y.cableType, Engine::CABLE_NONE, Loss::OtherConnections);
    const Loss loss = isWired() ? Loss::OtherCables : Loss::OtherConnections;
    const bool isWrittenQuorla = isWired() && isQuorla();
    if (isWrittenQuorla && !cable.esn.empty())
      readSerialNumber();
    if (!isWrittenQuorla) {
      becomes(y.port, "", loss);
      becomes(y.esn, "", loss);
      becomes(y.frequency, 0, loss);
    }
    if (!isWired() || !isPlugin()) {
      becomes(y.moduleName, "", loss);
      becomes(y.moduleArgs, "", loss);
    }
  }

  void readSerialNumber() {
    CableOption &y = prediction.result.cable;
    becomes(y.port, cableRow.port, Loss::SerialNumber);
    becomes(y.frequency, endsWithCable() ? cableRow.frequency : 0,
            Loss::SerialNumber);
  }

  void readChain() {
    ProcessorInfoImp &y = prediction.result.record;
    if (!isWired() || x.bscanUserReg != 2)
      becomes(y.bscanUserReg, 3,
              x.bscanUserReg == 2 ? Loss::OtherConnections
                                  : Loss::NeverWritten);
    becomes(prediction.result.cpuJtag, 0,
            isWired() ? Loss::CpuJtagMarker : Loss::OtherConnections);
    std::vector<JtagOption> &chain = prediction.result.chain;
    if (!isWired() && !chain.empty()) {
      chain.clear();
      losses.count(Loss::OtherConnections);
    }
    for (JtagOption &device : chain) {
      becomes(device.isfpga, 0, Loss::NeverWritten);
      becomes(device.hardppc, 0, Loss::NeverWritten);
      becomes(device.nppc, 0, Loss::NeverWritten);
    }
  }

  void readDebugDevice() {
    ProcessorInfoImp &y = prediction.result.record;
    if (!isWired())
      becomes(y.debugDevice, 0, Loss::OtherConnections);
    else if (y.debugDevice != given.askedDevice)
      losses.count(Loss::EightBitNumbers);
    if (!writesRom()) {
      const Loss loss = isHardware() ? Loss::RomRange : Loss::OtherConnections;
      becomes(y.romemStartAdr, kUnset, loss);
      becomes(y.romemSize, 0, loss);
    }
    if (!writesIsocm()) {
      const Loss loss = isWired() ? Loss::Isocm : Loss::OtherConnections;
      becomes(y.isocmStartAdr, kUnset, loss);
      becomes(y.isocmSize, 0, loss);
      becomes(y.isocmDcrStartAdr, kUnset, loss);
    }
    readAddressMap();
  }

  void readAddressMap() {
    ProcessorInfoImp &y = prediction.result.record;
    if (isPpcHardware()) {
      becomes(y.debugAddressMap, x.icacheStartAdr, Loss::AddressMapBase);
      if (x.fpuType > 2)
        becomes(y.fpuType, 2, Loss::OddValues);
      return;
    }
    const Loss loss =
        isWired() ? Loss::OtherProcessors : Loss::OtherConnections;
    for (std::uint32_t *region :
         {&y.icacheStartAdr, &y.dcacheStartAdr, &y.itagStartAdr,
          &y.dtagStartAdr, &y.tlbStartAdr, &y.dcrStartAdr, &y.debugAddressMap})
      becomes(*region, kUnset, loss);
    becomes(y.fpuType, 0, loss);
  }

  void forgetUnwritten() {
    ProcessorInfoImp &y = prediction.result.record;
    becomes(y.simMemSize, 16, Loss::NeverWritten);
    becomes(y.cpu_version, "", Loss::NeverWritten);
    becomes(y.hdu_version, "", Loss::NeverWritten);
    becomes(y.nCpu, 8, Loss::NeverWritten);
    becomes(y.svfFileFlag, false, Loss::NeverWritten);
    becomes(y.modelSimMode, false, Loss::NeverWritten);
    becomes(y.modelSimHost, "localhost", Loss::NeverWritten);
    becomes(y.modelSimPort, 9998, Loss::NeverWritten);
    becomes(y.uartOverHdu, false, Loss::NeverWritten);
  }

  const RoundTripCase &given;
  const ProcessorInfoImp &x;
  const CableOption &cable;
  const Cable &cableRow;
  Losses &losses;
  Prediction prediction;
  std::vector<const void *> changed;
};

} // namespace

Prediction predict(const RoundTripCase &roundTrip, Losses &losses) {
  return Predictor(roundTrip, losses).run();
}

} // namespace support

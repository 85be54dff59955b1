#include "support/StateText.h"

namespace ZelDebugDialog::test {

namespace {

std::string toText(const std::string &value) { return "\"" + value + "\""; }
template <class Number> std::string toText(Number value) {
  return std::to_string(value);
}

} // namespace

std::map<std::string, std::string> settingsOf(const EngineImp &imp) {
  std::map<std::string, std::string> settings;
  const ProcessorInfoImp &record = *imp.currentProcessor;
#define RECORD(field) settings[#field] = toText(record.field)
  RECORD(instanceName);
  RECORD(procFamily);
  RECORD(procType);
  RECORD(connectionMask);
  RECORD(cpuNr);
  RECORD(connectionType);
  RECORD(simMemSize);
  RECORD(ppcSimConfigFile);
  RECORD(simIpcHost);
  RECORD(simIpcPort);
  RECORD(vpConfigMode);
  RECORD(cycleApproximate);
  RECORD(stubType);
  RECORD(stubSerialPort);
  RECORD(stubBaudRate);
  RECORD(stubTimeout);
  RECORD(debugDevice);
  RECORD(debugAddressMap);
  RECORD(isocmStartAdr);
  RECORD(isocmSize);
  RECORD(isocmDcrStartAdr);
  RECORD(icacheStartAdr);
  RECORD(dcacheStartAdr);
  RECORD(itagStartAdr);
  RECORD(dtagStartAdr);
  RECORD(tlbStartAdr);
  RECORD(dcrStartAdr);
  RECORD(fpuType);
  RECORD(cpu_version);
  RECORD(hdu_version);
  RECORD(nCpu);
  RECORD(romemStartAdr);
  RECORD(romemSize);
  RECORD(svfFileFlag);
  RECORD(modelSimMode);
  RECORD(modelSimHost);
  RECORD(modelSimPort);
  RECORD(uartOverHdu);
  RECORD(bscanUserReg);
#undef RECORD
  settings["cpuJtag"] = toText(imp.cpuJtag);
  const CableOption &cable = *imp.cableOption;
  settings["cable.cableType"] =
      toText(static_cast<std::uint32_t>(cable.cableType));
#define CABLE(field) settings["cable." #field] = toText(cable.field)
  CABLE(frequency);
  CABLE(port);
  CABLE(esn);
  CABLE(svfFile);
  CABLE(moduleName);
  CABLE(moduleArgs);
  CABLE(url);
#undef CABLE
  for (std::size_t i = 0; i < imp.jtagChain.size(); ++i) {
    const JtagOption &device = *imp.jtagChain[i];
    const std::string prefix = "chain[" + std::to_string(i) + "].";
#define DEVICE(field) settings[prefix + #field] = toText(device.field)
    DEVICE(partname);
    DEVICE(idcode);
    DEVICE(irlength);
    DEVICE(devicenr);
    DEVICE(isfpga);
    DEVICE(hardppc);
    DEVICE(nppc);
#undef DEVICE
  }
  return settings;
}

} // namespace ZelDebugDialog::test

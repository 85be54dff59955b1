#include "support/RecordText.h"

#include <ios>
#include <sstream>

using namespace ZelDebugDialog;

namespace support {
namespace {

class FieldLines {
public:
  void add(const char *name, const std::string &value) {
    lines << name << " \"" << value << "\"\n";
  }
  void add(const char *name, bool value) {
    lines << name << (value ? " true\n" : " false\n");
  }
  void add(const char *name, std::int8_t value) {
    lines << name << ' ' << static_cast<int>(value) << '\n';
  }
  void add(const char *name, std::uint8_t value) {
    lines << name << ' ' << static_cast<int>(value) << '\n';
  }
  void add(const char *name, std::int32_t value) {
    lines << name << ' ' << value << '\n';
  }
  void add(const char *name, std::uint32_t value) {
    lines << name << " 0x" << std::hex << value << std::dec << '\n';
  }
  void add(const char *name, const void *value) {
    lines << name << ' ' << value << '\n';
  }
  void append(const std::string &more) { lines << more; }
  std::string text() const { return lines.str(); }

private:
  std::ostringstream lines;
};

} // namespace

std::string textOf(const ProcessorInfoImp &r) {
  FieldLines out;
  out.add("instanceName", r.instanceName);
  out.add("procFamily", r.procFamily);
  out.add("procType", r.procType);
  out.add("connectionMask", r.connectionMask);
  out.add("cpuNr", r.cpuNr);
  out.add("connectionType", r.connectionType);
  out.add("simMemSize", r.simMemSize);
  out.add("ppcSimConfigFile", r.ppcSimConfigFile);
  out.add("simIpcHost", r.simIpcHost);
  out.add("simIpcPort", r.simIpcPort);
  out.add("vpConfigMode", r.vpConfigMode);
  out.add("cycleApproximate", r.cycleApproximate);
  out.add("stubType", r.stubType);
  out.add("stubSerialPort", r.stubSerialPort);
  out.add("stubBaudRate", r.stubBaudRate);
  out.add("stubTimeout", r.stubTimeout);
  out.add("debugDevice", r.debugDevice);
  out.add("debugAddressMap", r.debugAddressMap);
  out.add("isocmStartAdr", r.isocmStartAdr);
  out.add("isocmSize", r.isocmSize);
  out.add("isocmDcrStartAdr", r.isocmDcrStartAdr);
  out.add("icacheStartAdr", r.icacheStartAdr);
  out.add("dcacheStartAdr", r.dcacheStartAdr);
  out.add("itagStartAdr", r.itagStartAdr);
  out.add("dtagStartAdr", r.dtagStartAdr);
  out.add("tlbStartAdr", r.tlbStartAdr);
  out.add("dcrStartAdr", r.dcrStartAdr);
  out.add("fpuType", r.fpuType);
  out.add("cpu_version", r.cpu_version);
  out.add("hdu_version", r.hdu_version);
  out.add("nCpu", r.nCpu);
  out.add("romemStartAdr", r.romemStartAdr);
  out.add("romemSize", r.romemSize);
  out.add("svfFileFlag", r.svfFileFlag);
  out.add("modelSimMode", r.modelSimMode);
  out.add("modelSimHost", r.modelSimHost);
  out.add("modelSimPort", r.modelSimPort);
  out.add("uartOverHdu", r.uartOverHdu);
  out.add("bscanUserReg", r.bscanUserReg);
  out.add("connectCommand", r.connectCommand);
  return out.text();
}

std::string textOf(const ProcessorInfo &info) {
  FieldLines out;
  out.add("procType", info.procType);
  out.add("procFamily", info.procFamily);
  out.add("connectionMask", info.connectionMask);
  return out.text();
}

std::string textOf(const CableOption &cable) {
  FieldLines out;
  out.add("cableType", static_cast<std::uint32_t>(cable.cableType));
  out.add("frequency", cable.frequency);
  out.add("port", cable.port);
  out.add("esn", cable.esn);
  out.add("svfFile", cable.svfFile);
  out.add("moduleName", cable.moduleName);
  out.add("moduleArgs", cable.moduleArgs);
  out.add("url", cable.url);
  return out.text();
}

std::string textOf(const JtagOption &device) {
  FieldLines out;
  out.add("partname", device.partname);
  out.add("idcode", device.idcode);
  out.add("irlength", device.irlength);
  out.add("devicenr", device.devicenr);
  out.add("isfpga", device.isfpga);
  out.add("hardppc", device.hardppc);
  out.add("nppc", device.nppc);
  return out.text();
}

std::string textOf(const EngineImp &state) {
  FieldLines out;
  out.add("hwManager", static_cast<const void *>(state.hwManager));
  for (const ProcessorInfoImp *listed : state.processorList)
    out.add("processorList", static_cast<const void *>(listed));
  out.add("currentProcessor",
          static_cast<const void *>(state.currentProcessor));
  out.add("engine", static_cast<const void *>(state.engine));
  out.append(textOf(*state.cableOption));
  out.add("cpuJtag", state.cpuJtag);
  for (const JtagOption *device : state.jtagChain)
    out.add("jtagChain", static_cast<const void *>(device));
  out.add("errorStr", state.errorStr);
  if (state.currentProcessor != nullptr)
    out.append(textOf(*state.currentProcessor));
  return out.text();
}

ProcessorInfoImp unusualRecord() {
  ProcessorInfoImp r;
  r.instanceName = "cpu7";
  r.procFamily = 1;
  r.procType = 2;
  r.connectionMask = 0x87;
  r.cpuNr = -56;
  r.connectionType = 4;
  r.simMemSize = 17;
  r.ppcSimConfigFile = "sim.icf";
  r.simIpcHost = "ipc-host";
  r.simIpcPort = 1;
  r.vpConfigMode = 2;
  r.cycleApproximate = 3;
  r.stubType = 1;
  r.stubSerialPort = "/dev/ttyS9";
  r.stubBaudRate = 115200;
  r.stubTimeout = 20001;
  r.debugDevice = 5;
  r.debugAddressMap = 0x10000;
  r.isocmStartAdr = 0x20000;
  r.isocmSize = 0x30000;
  r.isocmDcrStartAdr = 0x40000;
  r.icacheStartAdr = 0x50000;
  r.dcacheStartAdr = 0x60000;
  r.itagStartAdr = 0x70000;
  r.dtagStartAdr = 0x80000;
  r.tlbStartAdr = 0x90000;
  r.dcrStartAdr = 0xA0000;
  r.fpuType = 2;
  r.cpu_version = "cpu-version";
  r.hdu_version = "hdu-version";
  r.nCpu = 9;
  r.romemStartAdr = 0xB0000;
  r.romemSize = 0xC0000;
  r.svfFileFlag = true;
  r.modelSimMode = true;
  r.modelSimHost = "modelsim-host";
  r.modelSimPort = 9999;
  r.uartOverHdu = true;
  r.bscanUserReg = 2;
  r.connectCommand = "connect command";
  return r;
}

CableOption unusualCable() {
  CableOption cable;
  cable.cableType = Engine::QUORLA_PODUSB;
  cable.frequency = 12345;
  cable.port = "a port";
  cable.esn = "an esn";
  cable.svfFile = "an svf file";
  cable.moduleName = "a module";
  cable.moduleArgs = "first;second";
  cable.url = "a url";
  return cable;
}

} // namespace support

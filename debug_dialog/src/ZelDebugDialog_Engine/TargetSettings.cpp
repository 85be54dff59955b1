#include <string>

#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "facts/AddressRegions.h"
#include "facts/CurrentRecord.h"
#include "facts/Results.h"

namespace ZelDebugDialog {

namespace {

bool isPowerPcOn(const ProcessorInfoImp &record,
                 Engine::ConnectionType connection) {
  return record.procFamily == familyPowerPc &&
         record.connectionType == connection;
}

int copyAddress(std::uint32_t stored, unsigned int &address) {
  if (stored == unsetAddress)
    return result::notSet;
  address = stored;
  return 0;
}

/// An address of the debug address map, which only a PowerPC on hardware has.
int getMapAddress(EngineImp &imp, std::uint32_t ProcessorInfoImp::*field,
                  unsigned int &address) {
  const ProcessorInfoImp &record = currentRecord(imp);
  if (!isPowerPcOn(record, Engine::CONNECT_HW))
    return result::notApplicable;
  return copyAddress(record.*field, address);
}

int setRegion(EngineImp &imp, const AddressRegion &region, unsigned address) {
  if (!IsRegionAligned(address)) {
    imp.errorStr = region.misaligned;
    return result::notSet;
  }
  currentRecord(imp).*region.start = address;
  return 0;
}

} // namespace

int Engine::SetConnectionType(ConnectionType type) {
  ProcessorInfoImp &record = currentRecord(*imp);
  if ((record.connectionMask & type) == 0)
    return result::notSet;
  record.connectionType = type;
  return 0;
}

int Engine::GetConnectionType(ConnectionType &type) {
  const ProcessorInfoImp &record = currentRecord(*imp);
  if (record.connectionType == 0)
    return result::notSet;
  type = static_cast<ConnectionType>(record.connectionType);
  return 0;
}

int Engine::SetStubType(StubType type) {
  ProcessorInfoImp &record = currentRecord(*imp);
  if (type == STUB_SERIAL && (record.connectionType & stubOverUart) == 0) {
    SetErrorStr("UART device not present in system");
    return result::notSet;
  }
  if (type == STUB_JTAG && (record.connectionType & stubOverJtag) == 0) {
    SetErrorStr("JTAG device not present in system");
    return result::notSet;
  }
  record.stubType = type;
  return 0;
}

int Engine::GetStubType(StubType &type) {
  const ProcessorInfoImp &record = currentRecord(*imp);
  if ((record.connectionType & CONNECT_STUB) == 0)
    return result::notApplicable;
  type = static_cast<StubType>(record.stubType);
  return 0;
}

int Engine::SetStubSerialPort(const std::string &port) {
  currentRecord(*imp).stubSerialPort = port;
  return 0;
}

int Engine::GetStubSerialPort(std::string &port) {
  port = currentRecord(*imp).stubSerialPort;
  return 0;
}

int Engine::SetStubBaudrate(int baudRate) {
  currentRecord(*imp).stubBaudRate = baudRate;
  return 0;
}

int Engine::GetStubBaudRate(int &baudRate) {
  const ProcessorInfoImp &record = currentRecord(*imp);
  if (record.stubBaudRate == 0)
    return result::notSet;
  baudRate = record.stubBaudRate;
  return 0;
}

int Engine::SetDebugDevice(int device) {
  currentRecord(*imp).debugDevice = static_cast<std::int8_t>(device);
  return 0;
}

int Engine::GetDebugDevice(int &device) {
  const ProcessorInfoImp &record = currentRecord(*imp);
  if (record.connectionType == CONNECT_SIM || record.stubType == STUB_SERIAL)
    return result::notApplicable;
  if (record.debugDevice == 0)
    return result::notSet;
  device = record.debugDevice;
  return 0;
}

int Engine::SetCpuJtag() {
  imp->cpuJtag = 1;
  return 0;
}

int Engine::SetPPCSimConfigFile(const std::string & /*file*/) { return 0; }

int Engine::GetPPCSimConfigFile(std::string &file) {
  const ProcessorInfoImp &record = currentRecord(*imp);
  if (!isPowerPcOn(record, CONNECT_SIM))
    return result::notApplicable;
  if (record.ppcSimConfigFile.empty())
    return result::notSet;
  file = record.ppcSimConfigFile;
  return 0;
}

int Engine::GetDebugAddressMap(unsigned int &address) {
  return getMapAddress(*imp, &ProcessorInfoImp::debugAddressMap, address);
}

int Engine::GetIcacheBaseAddr(unsigned int &address) {
  return getMapAddress(*imp, icacheRegion.start, address);
}

int Engine::GetDcacheBaseAddr(unsigned int &address) {
  return getMapAddress(*imp, dcacheRegion.start, address);
}

int Engine::GetITagBaseAddr(unsigned int &address) {
  return getMapAddress(*imp, itagRegion.start, address);
}

int Engine::GetDTagBaseAddr(unsigned int &address) {
  return getMapAddress(*imp, dtagRegion.start, address);
}

int Engine::GetTlbBaseAddr(unsigned int &address) {
  return getMapAddress(*imp, tlbRegion.start, address);
}

int Engine::GetDcrBaseAddr(unsigned int &address) {
  return getMapAddress(*imp, dcrRegion.start, address);
}

int Engine::GetISOCMBaseAddr(unsigned int &address) {
  const ProcessorInfoImp &record = currentRecord(*imp);
  if (record.procType != typePpc405 || record.connectionType != CONNECT_HW)
    return result::notApplicable;
  return copyAddress(record.isocmStartAdr, address);
}

int Engine::SetIcacheBaseAddr(unsigned address) {
  const int result = setRegion(*imp, icacheRegion, address);
  if (result == 0)
    currentRecord(*imp).debugAddressMap = address;
  return result;
}

int Engine::SetDcacheBaseAddr(unsigned address) {
  return setRegion(*imp, dcacheRegion, address);
}

int Engine::SetITagBaseAddr(unsigned address) {
  return setRegion(*imp, itagRegion, address);
}

int Engine::SetDTagBaseAddr(unsigned address) {
  return setRegion(*imp, dtagRegion, address);
}

int Engine::SetTlbBaseAddr(unsigned address) {
  return setRegion(*imp, tlbRegion, address);
}

int Engine::SetDcrBaseAddr(unsigned address) {
  return setRegion(*imp, dcrRegion, address);
}

int Engine::UnSetDebugAddressMap() {
  currentRecord(*imp).debugAddressMap = unsetAddress;
  return imp->InitPPCDebugAddressMap();
}

int Engine::SetROMem(unsigned start, unsigned size) {
  ProcessorInfoImp &record = currentRecord(*imp);
  record.romemStartAdr = start;
  record.romemSize = size;
  return 0;
}

int Engine::GetROMem(unsigned int &start, unsigned int &size) {
  const ProcessorInfoImp &record = currentRecord(*imp);
  if (record.connectionType != CONNECT_HW)
    return result::notApplicable;
  if (record.romemStartAdr == unsetAddress)
    return result::notSet;
  start = record.romemStartAdr;
  size = record.romemSize;
  return 0;
}

} // namespace ZelDebugDialog

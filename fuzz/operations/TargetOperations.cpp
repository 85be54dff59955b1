// The settings of a target: connection, stub, debug device, address map, ROM.
#include "common/Require.h"
#include "operations/Session.h"

namespace fuzz {
namespace {

using ZelDebugDialog::Engine;

constexpr std::uint32_t unset = 0xFFFFFFFF;
constexpr int untouched = 77;

/// What a getter must give: a result, and a value where the result is 0.
template <class Value>
void requireGot(int result, int wanted, const Value &out,
                const Value &wantedOut, const Value &before, const char *what) {
  require(result == wanted, what);
  require(out == (wanted == 0 ? wantedOut : before), what);
}

void setConnectionType(Session &s) {
  const std::uint32_t type = s.bytes.number();
  const bool isAllowed = (type & s.model.record().connectionMask) != 0;
  const int result =
      s.engine.SetConnectionType(static_cast<Engine::ConnectionType>(type));
  require(result == (isAllowed ? 0 : 1), "a mask allows connections");
  if (isAllowed)
    s.model.record().connectionType = type;
}

void getConnectionType(Session &s) {
  auto type = static_cast<Engine::ConnectionType>(untouched);
  const int result = s.engine.GetConnectionType(type);
  const std::uint32_t stored = s.model.record().connectionType;
  requireGot<std::uint32_t>(result, stored == 0 ? 1 : 0, type, stored,
                            untouched, "GetConnectionType");
}

void setStubType(Session &s) {
  const std::uint32_t type = s.bytes.number();
  const std::uint32_t connection = s.model.record().connectionType;
  const int result = s.engine.SetStubType(static_cast<Engine::StubType>(type));
  const bool lacksUart = type == 1 && (connection & 0x80U) == 0;
  const bool lacksJtag = type == 0 && (connection & 0x40U) == 0;
  require(result == (lacksUart || lacksJtag ? 1 : 0), "SetStubType");
  if (lacksUart)
    s.model.error = "UART device not present in system";
  else if (lacksJtag)
    s.model.error = "JTAG device not present in system";
  else
    s.model.record().stubType = type;
}

void getStubType(Session &s) {
  auto type = static_cast<Engine::StubType>(untouched);
  const int result = s.engine.GetStubType(type);
  const bool isStub = (s.model.record().connectionType & 4U) != 0;
  requireGot<std::uint32_t>(result, isStub ? 0 : 2, type,
                            s.model.record().stubType, untouched,
                            "GetStubType");
}

void stubSerialPort(Session &s) {
  const std::string port = s.bytes.text();
  require(s.engine.SetStubSerialPort(port) == 0, "SetStubSerialPort");
  s.model.record().stubSerialPort = port;
  std::string got;
  require(s.engine.GetStubSerialPort(got) == 0 && got == port,
          "GetStubSerialPort");
}

void setStubBaudRate(Session &s) {
  const int rate = static_cast<int>(s.bytes.number());
  require(s.engine.SetStubBaudrate(rate) == 0, "SetStubBaudrate");
  s.model.record().stubBaudRate = rate;
}

void getStubBaudRate(Session &s) {
  int rate = untouched;
  const int result = s.engine.GetStubBaudRate(rate);
  const int stored = s.model.record().stubBaudRate;
  requireGot(result, stored == 0 ? 1 : 0, rate, stored, untouched,
             "GetStubBaudRate");
}

void setDebugDevice(Session &s) {
  const int device = static_cast<int>(s.bytes.number());
  require(s.engine.SetDebugDevice(device) == 0, "SetDebugDevice");
  s.model.record().debugDevice = static_cast<std::int8_t>(device);
}

void getDebugDevice(Session &s) {
  int device = untouched;
  const int result = s.engine.GetDebugDevice(device);
  const ProcessorInfoImp &record = s.model.record();
  const bool isWithout = record.connectionType == 1 || record.stubType == 1;
  requireGot<int>(result, isWithout ? 2 : (record.debugDevice == 0 ? 1 : 0),
                  device, record.debugDevice, untouched, "GetDebugDevice");
}

void setCpuJtag(Session &s) {
  require(s.engine.SetCpuJtag() == 0, "SetCpuJtag");
  s.model.cpuJtag = 1;
}

void setPpcSimConfigFile(Session &s) {
  require(s.engine.SetPPCSimConfigFile(s.bytes.text()) == 0,
          "SetPPCSimConfigFile");
}

void getPpcSimConfigFile(Session &s) {
  std::string file = "before";
  const int result = s.engine.GetPPCSimConfigFile(file);
  const ProcessorInfoImp &record = s.model.record();
  const bool applies = record.procFamily == 1 && record.connectionType == 1;
  const int wanted = !applies ? 2 : (record.ppcSimConfigFile.empty() ? 1 : 0);
  requireGot<std::string>(result, wanted, file, record.ppcSimConfigFile,
                          "before", "GetPPCSimConfigFile");
}

struct Region {
  std::uint32_t ProcessorInfoImp::*field;
  int (Engine::*get)(unsigned &);
  int (Engine::*set)(unsigned);
  const char *message;
};
const std::array<Region, 6> regions{{
    {&ProcessorInfoImp::icacheStartAdr, &Engine::GetIcacheBaseAddr,
     &Engine::SetIcacheBaseAddr,
     "Icache Start Address should be aligned at 64k boundry"},
    {&ProcessorInfoImp::itagStartAdr, &Engine::GetITagBaseAddr,
     &Engine::SetITagBaseAddr,
     "Itag Start Address should be aligned at 64k boundry"},
    {&ProcessorInfoImp::dcacheStartAdr, &Engine::GetDcacheBaseAddr,
     &Engine::SetDcacheBaseAddr,
     "Dcache Start Address should be aligned at 64k boundry"},
    {&ProcessorInfoImp::dtagStartAdr, &Engine::GetDTagBaseAddr,
     &Engine::SetDTagBaseAddr,
     "Dtag Start Address should be aligned at 64k boundry"},
    {&ProcessorInfoImp::dcrStartAdr, &Engine::GetDcrBaseAddr,
     &Engine::SetDcrBaseAddr,
     "DCR Start Address should be aligned at 64k boundry"},
    {&ProcessorInfoImp::tlbStartAdr, &Engine::GetTlbBaseAddr,
     &Engine::SetTlbBaseAddr,
     "TLB Start Address should be aligned at 64k boundry"},
}};

void setRegion(Session &s) {
  const Region &region = regions[s.bytes.below(regions.size())];
  const std::uint32_t address = s.bytes.number();
  const bool isAligned = (address & 0xFFFFU) == 0;
  require((s.engine.*region.set)(address) == (isAligned ? 0 : 1), "setRegion");
  if (!isAligned) {
    s.model.error = region.message;
    return;
  }
  s.model.record().*region.field = address;
  if (region.field == &ProcessorInfoImp::icacheStartAdr)
    s.model.record().debugAddressMap = address;
}

void requireAddress(int result, bool applies, std::uint32_t got,
                    std::uint32_t stored, const char *what) {
  requireGot<std::uint32_t>(result, !applies ? 2 : (stored == unset ? 1 : 0),
                            got, stored, untouched, what);
}

void getRegions(Session &s) {
  const ProcessorInfoImp &record = s.model.record();
  const bool isHardware = record.connectionType == 2;
  const bool isPpc = record.procFamily == 1 && isHardware;
  for (const Region &region : regions) {
    unsigned got = untouched;
    const int result = (s.engine.*region.get)(got);
    requireAddress(result, isPpc, got, record.*region.field, region.message);
  }
  unsigned map = untouched;
  const int mapResult = s.engine.GetDebugAddressMap(map);
  requireAddress(mapResult, isPpc, map, record.debugAddressMap,
                 "GetDebugAddressMap");
  unsigned isocm = untouched;
  const int isocmResult = s.engine.GetISOCMBaseAddr(isocm);
  requireAddress(isocmResult, record.procType == 1 && isHardware, isocm,
                 record.isocmStartAdr, "GetISOCMBaseAddr");
}

void unsetAddressMap(Session &s) {
  const bool isWhole = s.bytes.below(2) == 0;
  require((isWhole ? s.engine.UnSetDebugAddressMap()
                   : s.imp.InitPPCDebugAddressMap()) == 0,
          "the address map is unset");
  for (const Region &region : regions)
    s.model.record().*region.field = unset;
  if (isWhole)
    s.model.record().debugAddressMap = unset;
}

void assignAddressMap(Session &s) {
  const std::uint32_t base = s.bytes.number();
  require(s.imp.AssignAddressMap(base) == 0, "AssignAddressMap");
  std::uint32_t next = base;
  for (const Region &region : regions) {
    std::uint32_t &field = s.model.record().*region.field;
    field = field == unset ? next : field;
    next += 0x10000;
  }
}

void setRom(Session &s) {
  const std::uint32_t start = s.bytes.number();
  const std::uint32_t size = s.bytes.number();
  require(s.engine.SetROMem(start, size) == 0, "SetROMem");
  s.model.record().romemStartAdr = start;
  s.model.record().romemSize = size;
}

void getRom(Session &s) {
  unsigned start = untouched;
  unsigned size = untouched;
  const int result = s.engine.GetROMem(start, size);
  const ProcessorInfoImp &record = s.model.record();
  const bool applies = record.connectionType == 2;
  requireAddress(result, applies, start, record.romemStartAdr, "GetROMem");
  require(size == (result == 0 ? record.romemSize : untouched), "GetROMem");
}

} // namespace

const std::vector<Operation> targetOperations = {
    {"SetConnectionType", true, setConnectionType},
    {"GetConnectionType", true, getConnectionType},
    {"SetStubType", true, setStubType},
    {"GetStubType", true, getStubType},
    {"SetStubSerialPort", true, stubSerialPort},
    {"SetStubBaudrate", true, setStubBaudRate},
    {"GetStubBaudRate", true, getStubBaudRate},
    {"SetDebugDevice", true, setDebugDevice},
    {"GetDebugDevice", true, getDebugDevice},
    {"SetCpuJtag", false, setCpuJtag},
    {"SetPPCSimConfigFile", false, setPpcSimConfigFile},
    {"GetPPCSimConfigFile", true, getPpcSimConfigFile},
    {"Set...BaseAddr", true, setRegion},
    {"Get...BaseAddr", true, getRegions},
    {"UnSetDebugAddressMap", true, unsetAddressMap},
    {"AssignAddressMap", true, assignAddressMap},
    {"SetROMem", true, setRom},
    {"GetROMem", true, getRom},
};

} // namespace fuzz

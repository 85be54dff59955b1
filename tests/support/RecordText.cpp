#include "support/RecordText.h"

#include <ios>
#include <sstream>

#include "support/Fields.h"

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
  void add(const char *name, Engine::CableType value) {
    add(name, static_cast<std::uint32_t>(value));
  }
  template <class Record> void addAll(const Record &record) {
    eachField(record, [this](const char *name, const auto &value) {
      this->add(name, value);
    });
  }
  void append(const std::string &more) { lines << more; }
  std::string text() const { return lines.str(); }

private:
  std::ostringstream lines;
};

void makeUnusual(const char *name, std::string &text, std::int8_t /*row*/) {
  text = std::string("unusual ") + name;
}
void makeUnusual(const char * /*name*/, bool &flag, std::int8_t /*row*/) {
  flag = !flag;
}
void makeUnusual(const char * /*name*/, std::int8_t &number, std::int8_t row) {
  number = row;
}
void makeUnusual(const char * /*name*/, std::int32_t &number, std::int8_t row) {
  number = 1000 + row;
}
/// Any of them may be an address: one that a region may start at.
void makeUnusual(const char * /*name*/, std::uint32_t &number,
                 std::int8_t row) {
  number = static_cast<std::uint32_t>(row) << 16U;
}

} // namespace

std::string textOf(const ProcessorInfoImp &record) {
  FieldLines out;
  out.addAll(record);
  out.add("connectCommand", record.connectCommand);
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
  out.addAll(cable);
  return out.text();
}

std::string textOf(const JtagOption &device) {
  FieldLines out;
  out.addAll(device);
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
  ProcessorInfoImp record;
  std::int8_t row = 0;
  eachField(record, [&row](const char *name, auto &field) {
    ++row;
    makeUnusual(name, field, row);
  });
  // What an engine can hold.
  record.instanceName = "cpu7";
  record.procFamily = 1;
  record.procType = 2;
  record.connectionMask = 0x87;
  record.cpuNr = -56;
  record.connectionType = 4;
  record.stubType = 1;
  record.fpuType = 2;
  record.bscanUserReg = 2;
  record.connectCommand = "connect command";
  return record;
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

// A design from a source of one's own: no files, no design model, only answers
// to what the engine asks. Prints the processors that can be debugged.
#include <cstdio>
#include <string>
#include <vector>

#include "HHSMHwManager.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/ProcessorInfo.h"

namespace {

struct Part {
  const char *name;
  const char *type;
  const char *attachedTo; ///< The debug module or processor that it serves.
};

constexpr Part parts[] = {
    {"core_0", "lumacore", "debug_0"},
    {"core_1", "lumacore", "debug_0"},
    {"core_2", "lumacore", ""},
    {"debug_0", "hdu", ""},
    {"serial_0", "uart_mini_ember", "core_1"},
};

class OwnDesign : public HHSMHwManager {
public:
  void getProcessorInstances(std::vector<std::string> &names, bool) override {
    getIpInstances(names, "lumacore");
  }
  void getIpInstances(std::vector<std::string> &names, HwIpType kind) override {
    if (kind == HW_IP_DEBUG)
      getIpInstances(names, "hdu");
  }
  void getIpInstances(std::vector<std::string> &names,
                      const std::string &typeName) override {
    for (const Part &part : parts)
      if (typeName == part.type)
        names.push_back(part.name);
  }
  std::string getIpName(const std::string &instance) override {
    for (const Part &part : parts)
      if (instance == part.name)
        return part.type;
    return "";
  }
  void getHduConnectedProcessorList(std::vector<std::string> &names,
                                    const std::string &instance) override {
    appendAttached(names, instance);
  }
  void getPeripherals(std::vector<std::string> &names,
                      const std::string &processor) override {
    appendAttached(names, processor);
  }
  std::string getParameterValue(const std::string &,
                                const std::string &) override {
    return "";
  }

private:
  static void appendAttached(std::vector<std::string> &names,
                             const std::string &to) {
    for (const Part &part : parts)
      if (to == part.attachedTo)
        names.push_back(part.name);
  }
};

} // namespace

int main() {
  OwnDesign design;
  ZelDebugDialog::Engine engine;
  ZelDebugDialog::EngineImp *const found = engine.GetProcessorList(&design);
  for (const ZelDebugDialog::ProcessorInfoImp *processor : found->processorList)
    std::printf("%s connections 0x%x\n", processor->instanceName.c_str(),
                static_cast<unsigned>(processor->connectionMask));
  ZelDebugDialog::ReleaseProcessorRecords(*found);
}

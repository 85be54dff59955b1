#include "OneLumacore.h"

namespace {

class OwnDesign : public HHSMHwManager {
public:
  void getProcessorInstances(std::vector<std::string> &names,
                             bool /*flag*/) override {
    names.emplace_back("cpu0");
  }
  void getIpInstances(std::vector<std::string> &names, HwIpType kind) override {
    if (kind == HW_IP_DEBUG)
      names.emplace_back("hdu_0");
  }
  void getIpInstances(std::vector<std::string> &names,
                      const std::string &typeName) override {
    if (typeName == "lumacore")
      names.emplace_back("cpu0");
  }
  std::string getIpName(const std::string &instance) override {
    return instance == "cpu0" ? "lumacore" : "hdu";
  }
  void getHduConnectedProcessorList(std::vector<std::string> &names,
                                    const std::string &instance) override {
    if (instance == "hdu_0")
      names.emplace_back("cpu0");
  }
  void getPeripherals(std::vector<std::string> & /*names*/,
                      const std::string & /*processor*/) override {}
  std::string getParameterValue(const std::string & /*instance*/,
                                const std::string & /*parameter*/) override {
    return {};
  }
};

} // namespace

HHSMHwManager &oneLumacore() {
  static OwnDesign design;
  return design;
}

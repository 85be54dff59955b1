#ifndef VENDOR_HHSMHWMANAGER_H
#define VENDOR_HHSMHWMANAGER_H

#include <string>
#include <vector>

enum HwIpType : int {
  HW_IP_PROCESSOR = 1,
  HW_IP_DEBUG = 5,
};

class HHSMHwManager {
public:
  void getProcessorInstances(std::vector<std::string> &names, bool flag);
  void getIpInstances(std::vector<std::string> &names, HwIpType kind);
  void getIpInstances(std::vector<std::string> &names,
                      const std::string &typeName);
  std::string getIpName(const std::string &instance);
  void getHduConnectedProcessorList(std::vector<std::string> &names,
                                    const std::string &instance);
  void getPeripherals(std::vector<std::string> &names,
                      const std::string &processor);
  std::string getParameterValue(const std::string &instance,
                                const std::string &parameter);
};

/// The design of the consumers.
HHSMHwManager &oneLumacore();

#endif

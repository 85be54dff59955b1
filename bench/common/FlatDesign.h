// A hardware design of any size that answers each query at once: what is
// measured is the engine, not the design.
#ifndef ZELDEBUGDIALOG_BENCH_COMMON_FLATDESIGN_H
#define ZELDEBUGDIALOG_BENCH_COMMON_FLATDESIGN_H

#include <cstddef>
#include <string>
#include <vector>

#include "HHSMHwManager.h"

namespace bench {

/// Lumacores, half of them on one debug module and half on none, each with a
/// UART.
class FlatDesign : public HHSMHwManager {
public:
  explicit FlatDesign(std::size_t lumacores) {
    for (std::size_t number = 0; number < lumacores; ++number)
      names.push_back("lumacore_of_the_design_" + std::to_string(number));
    attached.assign(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(
                                                       names.size() / 2));
  }

  const std::vector<std::string> &lumacores() const { return names; }

  void getProcessorInstances(std::vector<std::string> &out,
                             bool /*flag*/) override {
    out = names;
  }
  void getIpInstances(std::vector<std::string> &out,
                      HwIpType /*kind*/) override {
    out.emplace_back("module");
  }
  void getIpInstances(std::vector<std::string> &out,
                      const std::string &typeName) override {
    if (typeName == "lumacore")
      out = names;
  }
  std::string getIpName(const std::string &instance) override {
    return instance == "module" ? "hdu" : "uart_mini_cedar";
  }
  void getHduConnectedProcessorList(std::vector<std::string> &out,
                                    const std::string & /*instance*/) override {
    out = attached;
  }
  void getPeripherals(std::vector<std::string> &out,
                      const std::string & /*processor*/) override {
    out.emplace_back("uart");
  }
  std::string getParameterValue(const std::string & /*instance*/,
                                const std::string & /*parameter*/) override {
    return {};
  }

private:
  std::vector<std::string> names;
  std::vector<std::string> attached;
};

} // namespace bench

#endif

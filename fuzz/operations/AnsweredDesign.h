// A hardware design whose answers come from bytes.
#ifndef FUZZ_OPERATIONS_ANSWEREDDESIGN_H
#define FUZZ_OPERATIONS_ANSWEREDDESIGN_H

#include <string>
#include <vector>

#include "HHSMHwManager.h"
#include "common/Bytes.h"

namespace fuzz {

/// One of a design; the lists hold the places of others.
struct Instance {
  std::string name;
  std::string type;
  bool isProcessor = false;
  bool isDebugKind = false;
  std::vector<std::size_t> attached;
  std::vector<std::size_t> peripherals;
  std::string parameter; ///< The value of each of its parameters.
};

class AnsweredDesign : public HHSMHwManager {
public:
  using Names = std::vector<std::string>;

  explicit AnsweredDesign(Bytes &bytes);

  /// The first of this name; null if there is none.
  const Instance *find(const std::string &name) const;

  void getProcessorInstances(Names &names, bool flag) override;
  void getIpInstances(Names &names, HwIpType kind) override;
  void getIpInstances(Names &names, const std::string &typeName) override;
  std::string getIpName(const std::string &instance) override;
  void getHduConnectedProcessorList(Names &names,
                                    const std::string &instance) override;
  void getPeripherals(Names &names, const std::string &processor) override;
  std::string getParameterValue(const std::string &instance,
                                const std::string &parameter) override;

  std::vector<Instance> instances;

private:
  void append(Names &names, const std::vector<std::size_t> &places) const;
};

} // namespace fuzz

#endif

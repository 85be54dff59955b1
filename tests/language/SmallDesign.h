// A hardware design in a few lines: what a test says, and nothing else.
#ifndef ZELDEBUGDIALOG_TESTS_LANGUAGE_SMALLDESIGN_H
#define ZELDEBUGDIALOG_TESTS_LANGUAGE_SMALLDESIGN_H

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "HHSMHwManager.h"

namespace LanguageTest {

class SmallDesign : public HHSMHwManager {
public:
  using Names = std::vector<std::string>;

  SmallDesign &processor(const std::string &name, const std::string &type) {
    processors.push_back(name);
    return instance(name, type);
  }
  SmallDesign &instance(const std::string &name, const std::string &type) {
    instances.emplace_back(name, type);
    return *this;
  }
  /// A debug module or a controller, and the processors on it.
  SmallDesign &module(const std::string &name, const std::string &type,
                      const Names &connected) {
    modules.push_back(name);
    attached[name] = connected;
    return instance(name, type);
  }
  SmallDesign &peripheral(const std::string &processor, const std::string &name,
                          const std::string &type) {
    peripherals[processor].push_back(name);
    return instance(name, type);
  }

  void getProcessorInstances(Names &names, bool /*flag*/) override {
    append(names, processors);
  }
  void getIpInstances(Names &names, HwIpType kind) override {
    if (kind == HW_IP_DEBUG)
      append(names, modules);
  }
  void getIpInstances(Names &names, const std::string &typeName) override {
    for (const auto &[name, type] : instances)
      if (type == typeName)
        names.push_back(name);
  }
  std::string getIpName(const std::string &instance) override {
    for (const auto &[name, type] : instances)
      if (name == instance)
        return type;
    return "";
  }
  void getHduConnectedProcessorList(Names &names,
                                    const std::string &instance) override {
    append(names, attached[instance]);
  }
  void getPeripherals(Names &names, const std::string &processor) override {
    append(names, peripherals[processor]);
  }
  std::string getParameterValue(const std::string & /*instance*/,
                                const std::string & /*parameter*/) override {
    return "";
  }

private:
  static void append(Names &names, const Names &more) {
    names.insert(names.end(), more.begin(), more.end());
  }

  Names processors;
  Names modules;
  std::vector<std::pair<std::string, std::string>> instances;
  std::map<std::string, Names> attached;
  std::map<std::string, Names> peripherals;
};

} // namespace LanguageTest

#endif

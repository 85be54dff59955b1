// A hardware design that a test fills in by hand. It answers only what it was
// told and writes down every question in the order in which it was asked.
//
//   FakeDesign design;
//   design.processorsOf["dbg0"] = {"cpu0"};
//   design.log; // "getHduConnectedProcessorList(dbg0)", ...
#ifndef TESTS_SUPPORT_FAKEDESIGN_H
#define TESTS_SUPPORT_FAKEDESIGN_H

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "HHSMHwManager.h"

namespace support {

class FakeDesign : public HHSMHwManager {
public:
  using Names = std::vector<std::string>;

  /// Adds a debug module or controller with the processors attached to it.
  void addDebugModule(const std::string &instance, const std::string &typeName,
                      const Names &attached) {
    instancesOfKind[HW_IP_DEBUG].push_back(instance);
    typeOf[instance] = typeName;
    processorsOf[instance] = attached;
  }

  /// Attaches a peripheral to a processor.
  void addPeripheral(const std::string &processor, const std::string &instance,
                     const std::string &typeName) {
    peripheralsOf[processor].push_back(instance);
    typeOf[instance] = typeName;
  }

  void getProcessorInstances(Names &names, bool flag) override {
    log.push_back(std::string("getProcessorInstances(") +
                  (flag ? "true" : "false") + ")");
    append(names, processors);
  }

  void getIpInstances(Names &names, HwIpType kind) override {
    log.push_back("getIpInstances(kind " + std::to_string(kind) + ")");
    append(names, find(instancesOfKind, kind));
  }

  void getIpInstances(Names &names, const std::string &typeName) override {
    log.push_back("getIpInstances(" + typeName + ")");
    append(names, find(instancesOfType, typeName));
  }

  std::string getIpName(const std::string &instance) override {
    log.push_back("getIpName(" + instance + ")");
    return find(typeOf, instance);
  }

  void getHduConnectedProcessorList(Names &names,
                                    const std::string &instance) override {
    log.push_back("getHduConnectedProcessorList(" + instance + ")");
    append(names, find(processorsOf, instance));
  }

  void getPeripherals(Names &names, const std::string &processor) override {
    log.push_back("getPeripherals(" + processor + ")");
    append(names, find(peripheralsOf, processor));
  }

  std::string getParameterValue(const std::string &instance,
                                const std::string &parameter) override {
    log.push_back("getParameterValue(" + instance + ", " + parameter + ")");
    return find(parameterOf, std::make_pair(instance, parameter));
  }

  Names processors;
  std::map<int, Names> instancesOfKind;
  std::map<std::string, Names> instancesOfType;
  std::map<std::string, std::string> typeOf;
  std::map<std::string, Names> processorsOf;
  std::map<std::string, Names> peripheralsOf;
  std::map<std::pair<std::string, std::string>, std::string> parameterOf;

  Names log;

private:
  template <class Map, class Key>
  static typename Map::mapped_type find(const Map &map, const Key &key) {
    const auto found = map.find(key);
    return found == map.end() ? typename Map::mapped_type() : found->second;
  }

  static void append(Names &names, const Names &more) {
    names.insert(names.end(), more.begin(), more.end());
  }
};

} // namespace support

#endif

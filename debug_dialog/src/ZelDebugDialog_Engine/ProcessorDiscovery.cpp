#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "HHSMHwManager.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/TypeNames.h"
#include "ZelDebugDialog_Engine/MetNames.h"
#include "facts/Results.h"

namespace ZelDebugDialog {

namespace {

constexpr std::string_view ppc405InTypeName = "405";

/// One walk through a design. Processors are numbered anew, each family on its
/// own.
class Discovery {
public:
  Discovery(HHSMHwManager &hardware, EngineImp &engine)
      : design(hardware), imp(engine), before(engine.processorList.size()) {}

  void appendAttached();
  void appendUnattachedLumacores();
  void appendCortexA9();

private:
  std::vector<std::string> instancesOf(std::string_view type) {
    std::vector<std::string> instances;
    design.getIpInstances(instances, std::string(type));
    return instances;
  }
  void appendLumacore(const std::string &name, std::uint32_t connections);
  void appendPpc(const std::string &name);
  void append(const std::string &name, std::uint32_t family, std::uint32_t type,
              std::uint32_t mask, int number);

  HHSMHwManager &design;
  EngineImp &imp;
  std::size_t before; ///< So many were listed when it began.
  /// The names of those on debug modules as they were answered: they lie side
  /// by side, their records far apart.
  std::vector<std::vector<std::string>> attached;
  int lumacores = 0;
  int ppcs = 0;
  int cortexA9s = 0;
};

void Discovery::append(const std::string &name, std::uint32_t family,
                       std::uint32_t type, std::uint32_t mask, int number) {
  auto record = std::make_unique<ProcessorInfoImp>();
  record->instanceName = name;
  record->procFamily = family;
  record->procType = type;
  record->connectionMask = mask;
  record->cpuNr = static_cast<std::int8_t>(number);
  imp.processorList.push_back(record.get());
  static_cast<void>(record.release()); // the list's from here on
}

void Discovery::appendLumacore(const std::string &name,
                               std::uint32_t connections) {
  const std::uint32_t serial = imp.IsStubSerialConnect(name);
  const std::uint32_t jtag = imp.IsStubJtagConnect(name);
  append(name, familyLumacore, typeLumacore, serial | connections | jtag,
         ++lumacores);
}

void Discovery::appendPpc(const std::string &name) {
  const bool is405 =
      design.getIpName(name).find(ppc405InTypeName) != std::string::npos;
  append(name, familyPowerPc, is405 ? typePpc405 : typePpc440,
         Engine::CONNECT_SIM | Engine::CONNECT_HW, ++ppcs);
}

void Discovery::appendAttached() {
  std::vector<std::string> modules;
  design.getIpInstances(modules, HW_IP_DEBUG);
  for (const std::string &module : modules) {
    const std::string type = design.getIpName(module);
    std::vector<std::string> processors;
    design.getHduConnectedProcessorList(processors, module);
    if (std::find(debugModuleTypes.begin(), debugModuleTypes.end(), type) !=
        debugModuleTypes.end()) {
      for (const std::string &processor : processors)
        appendLumacore(processor, Engine::CONNECT_SIM | Engine::CONNECT_HW);
    } else if (type == ppcControllerType) {
      for (const std::string &processor : processors)
        appendPpc(processor);
    } else {
      continue;
    }
    attached.push_back(std::move(processors));
  }
}

void Discovery::appendUnattachedLumacores() {
  // Asking the list anew for each instance would make discovery quadratic.
  const std::vector<std::string> instances = instancesOf(lumacoreTypeName);
  MetNames met(imp.processorList.size() + instances.size());
  for (std::size_t i = 0; i < before; ++i)
    met.insert(imp.processorList[i]->instanceName);
  for (const std::vector<std::string> &names : attached)
    for (const std::string &name : names)
      met.insert(name);
  for (const std::string &name : instances)
    if (met.insert(name))
      appendLumacore(name, Engine::CONNECT_SIM);
}

void Discovery::appendCortexA9() {
  for (const std::string &name : instancesOf(cortexA9TypeName))
    append(name, familyArm, typeCortexA9, Engine::CONNECT_HW, ++cortexA9s);
}

/// Takes a discovery back that an exception ends: the design is the former one,
/// and what was appended is gone, so that it can be asked for anew.
class Attempt {
public:
  Attempt(EngineImp &state, HHSMHwManager *design)
      : imp(state), before(std::exchange(state.hwManager, design)),
        listed(state.processorList.size()) {}
  ~Attempt() {
    if (isComplete)
      return;
    imp.hwManager = before;
    while (imp.processorList.size() > listed) {
      delete imp.processorList.back();
      imp.processorList.pop_back();
    }
  }
  Attempt(const Attempt &) = delete;
  Attempt &operator=(const Attempt &) = delete;

  void complete() { isComplete = true; }

private:
  EngineImp &imp;
  HHSMHwManager *before;
  std::size_t listed;
  bool isComplete = false;
};

void discover(HHSMHwManager &design, EngineImp &imp,
              std::vector<std::string> &names) {
  // Not into the caller's list, which a design that fails might spoil.
  std::vector<std::string> found;
  design.getProcessorInstances(found, false);
  Discovery discovery(design, imp);
  discovery.appendAttached();
  discovery.appendUnattachedLumacores();
  discovery.appendCortexA9();
  if (names.empty()) {
    names = std::move(found);
    return;
  }
  names.reserve(names.size() + found.size());
  std::move(found.begin(), found.end(), std::back_inserter(names));
}

} // namespace

int Engine::GetProcessorList(HHSMHwManager *design,
                             std::vector<std::string> &names) {
  Attempt attempt(*imp, design);
  if (design != nullptr)
    discover(*design, *imp, names);
  attempt.complete();
  return result::done;
}

EngineImp *Engine::GetProcessorList(HHSMHwManager *design) {
  std::vector<std::string> names;
  GetProcessorList(design, names);
  return imp.get();
}

} // namespace ZelDebugDialog

#include "operations/Model.h"

#include <algorithm>
#include <cstdlib>

#include "common/Require.h"
#include "support/RecordText.h"
#include "support/RoundTripDesk.h"

namespace fuzz {
namespace {

using ZelDebugDialog::EngineImp;

bool isSame(const ProcessorInfoImp &left, const ProcessorInfoImp &right) {
  return left.connectCommand == right.connectCommand &&
         support::isSame({left, {}, {}, 0}, {right, {}, {}, 0});
}

std::vector<JtagOption> copies(const std::vector<JtagOption *> &chain) {
  std::vector<JtagOption> all;
  for (const JtagOption *device : chain)
    all.push_back(*device);
  return all;
}

std::string textOf(const std::vector<JtagOption> &chain) {
  std::string text;
  for (const JtagOption &device : chain)
    text += support::textOf(device);
  return text;
}

void requireSameRecord(const ProcessorInfoImp &found,
                       const ProcessorInfoImp &wanted, const char *what) {
  if (!isSame(found, wanted))
    requireSame(support::textOf(found), support::textOf(wanted), what);
}

/// The current record is a listed one itself, not a copy.
bool pointsWhere(const EngineImp &found, const Model &wanted) {
  switch (wanted.current) {
  case Model::Current::none:
    return found.currentProcessor == nullptr;
  case Model::Current::listed:
    return found.currentProcessor == found.processorList[wanted.place];
  default:
    return found.currentProcessor != nullptr &&
           std::count(found.processorList.begin(), found.processorList.end(),
                      found.currentProcessor) == 0;
  }
}

} // namespace

void Model::reset() {
  if (hasCurrent())
    record().ProcessorInfoImpInit();
  cable = CableOption();
  cpuJtag = 0;
  chain.clear();
  error.clear();
}

std::uint32_t Model::serialStub(const std::string &processor) const {
  const Instance *const found =
      design == nullptr ? nullptr : design->find(processor);
  if (found == nullptr)
    return 0;
  for (const std::size_t peripheral : found->peripherals) {
    const std::string type =
        design->find(design->instances[peripheral].name)->type;
    if (type == "uart_mini_cedar" || type == "uart_mini_ember")
      return 0x84;
  }
  return 0;
}

void Model::discover(AnsweredDesign *found) {
  design = found;
  if (found == nullptr)
    return;
  std::int8_t lumacores = 0;
  std::int8_t powerPcs = 0;
  std::int8_t arms = 0;
  const auto add = [this](const std::string &name, std::uint32_t family,
                          std::uint32_t type, std::uint32_t mask,
                          std::int8_t number) {
    ProcessorInfoImp made;
    made.instanceName = name;
    made.procFamily = family;
    made.procType = type;
    made.connectionMask = mask;
    made.cpuNr = number;
    list.push_back(made);
  };
  for (const Instance &named : design->instances) {
    const Instance &module = *design->find(named.name);
    if (!named.isDebugKind)
      continue;
    for (const std::size_t at : module.attached) {
      const std::string &name = design->instances[at].name;
      if (module.type == "hdu" || module.type == "hdu_cedar")
        add(name, 0, 0, 3 | serialStub(name), ++lumacores);
      if (module.type == "ppc_jtag_link")
        add(name, 1,
            design->find(name)->type.find("405") != std::string::npos ? 1 : 2,
            3, ++powerPcs);
    }
  }
  for (const Instance &instance : design->instances)
    if (instance.type == "lumacore" && !find(instance.name))
      add(instance.name, 0, 0, 1 | serialStub(instance.name), ++lumacores);
  for (const Instance &instance : design->instances)
    if (instance.type == "soc_cortexa9")
      add(instance.name, 2, 4, 2, ++arms);
}

int Model::takeFpu() {
  record().fpuType = 0;
  if (record().procFamily != 1)
    return 0;
  const Instance *const processor =
      design == nullptr ? nullptr : design->find(record().instanceName);
  if (processor == nullptr)
    return 1;
  for (const std::size_t at : processor->peripherals) {
    const Instance &peripheral = *design->find(design->instances[at].name);
    if (peripheral.type != "aux_fpu" && peripheral.type != "aux_fpu_gen5")
      continue;
    const bool isDouble =
        peripheral.type == "aux_fpu_gen5" &&
        std::strtol(peripheral.parameter.c_str(), nullptr, 0) == 1;
    record().fpuType = isDouble ? 2 : 1;
    return 0;
  }
  return 1;
}

std::optional<std::size_t> Model::find(const std::string &name) const {
  for (std::size_t at = 0; at < list.size(); ++at)
    if (list[at].instanceName == name)
      return at;
  return std::nullopt;
}

void requireSame(const EngineImp &found, const Model &wanted,
                 const char *operation) {
  require(found.hwManager == wanted.design, operation);
  require(found.processorList.size() == wanted.list.size(), operation);
  for (std::size_t at = 0; at < wanted.list.size(); ++at)
    requireSameRecord(*found.processorList[at], wanted.list[at], operation);
  require(pointsWhere(found, wanted), operation);
  if (wanted.current == Model::Current::own)
    requireSameRecord(*found.currentProcessor, wanted.own, operation);
  const std::vector<JtagOption> chain = copies(found.jtagChain);
  const bool isRestSame =
      support::isSame({{}, *found.cableOption, chain, found.cpuJtag},
                      {{}, wanted.cable, wanted.chain, wanted.cpuJtag});
  if (!isRestSame)
    requireSame(support::textOf(*found.cableOption) + textOf(chain),
                support::textOf(wanted.cable) + textOf(wanted.chain),
                operation);
  require(isRestSame, operation);
  requireSame(found.errorStr, wanted.error, operation);
}

} // namespace fuzz

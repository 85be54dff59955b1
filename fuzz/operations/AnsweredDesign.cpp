#include "operations/AnsweredDesign.h"

#include <algorithm>
#include <array>

#include "common/Require.h"

namespace fuzz {
namespace {

constexpr std::size_t mostInstances = 8;

const std::array<const char *, 16> types = {
    "lumacore",        "hdu",
    "hdu_cedar",       "ppc_jtag_link",
    "ppc405_core",     "ppc440_core",
    "soc_cortexa9",    "uart_mini_cedar",
    "uart_mini_ember", "aux_fpu",
    "aux_fpu_gen5",    "Hdu",
    "Lumacore",        "UART_MINI_CEDAR",
    "aux_fpu_gen",     ""};

std::string typeFrom(Bytes &bytes) {
  constexpr std::size_t anyText = types.size();
  const std::size_t which = bytes.below(types.size() + 1);
  return which == anyText ? bytes.text() : types[which];
}

/// The places whose bits are set.
std::vector<std::size_t> placesFrom(Bytes &bytes, std::size_t count) {
  const unsigned bits = bytes.byte();
  std::vector<std::size_t> places;
  for (std::size_t place = 0; place < count; ++place)
    if ((bits >> place & 1U) != 0)
      places.push_back(place);
  return places;
}

} // namespace

AnsweredDesign::AnsweredDesign(Bytes &bytes) {
  instances.resize(bytes.below(mostInstances + 1));
  for (Instance &instance : instances) {
    const unsigned bits = bytes.byte();
    instance.isProcessor = (bits & 1U) != 0;
    instance.isDebugKind = (bits & 2U) != 0;
    instance.name = bytes.text();
    instance.type = typeFrom(bytes);
    instance.attached = placesFrom(bytes, instances.size());
    instance.peripherals = placesFrom(bytes, instances.size());
    instance.parameter = (bits & 4U) != 0 ? bytes.text() : "1";
  }
}

const Instance *AnsweredDesign::find(const std::string &name) const {
  const auto found = std::find_if(
      instances.begin(), instances.end(),
      [&name](const Instance &instance) { return instance.name == name; });
  return found == instances.end() ? nullptr : &*found;
}

void AnsweredDesign::getProcessorInstances(Names &names, bool flag) {
  require(!flag, "the engine passes false");
  for (const Instance &instance : instances)
    if (instance.isProcessor)
      names.push_back(instance.name);
}

void AnsweredDesign::getIpInstances(Names &names, HwIpType kind) {
  require(kind == HW_IP_DEBUG, "the engine asks for debug modules");
  for (const Instance &instance : instances)
    if (instance.isDebugKind)
      names.push_back(instance.name);
}

void AnsweredDesign::getIpInstances(Names &names, const std::string &typeName) {
  for (const Instance &instance : instances)
    if (instance.type == typeName)
      names.push_back(instance.name);
}

std::string AnsweredDesign::getIpName(const std::string &instance) {
  const Instance *const found = find(instance);
  return found == nullptr ? "" : found->type;
}

void AnsweredDesign::getHduConnectedProcessorList(Names &names,
                                                  const std::string &instance) {
  if (const Instance *const found = find(instance))
    append(names, found->attached);
}

void AnsweredDesign::getPeripherals(Names &names,
                                    const std::string &processor) {
  if (const Instance *const found = find(processor))
    append(names, found->peripherals);
}

std::string AnsweredDesign::getParameterValue(const std::string &instance,
                                              const std::string &parameter) {
  require(parameter == "C_DOUBLE_PRECISION", "the engine asks for a precision");
  const Instance *const found = find(instance);
  return found == nullptr ? "" : found->parameter;
}

void AnsweredDesign::append(Names &names,
                            const std::vector<std::size_t> &places) const {
  for (const std::size_t place : places)
    names.push_back(instances[place].name);
}

} // namespace fuzz

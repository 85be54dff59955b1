#include "subcommands/Wiring.h"

#include <array>

namespace zeldebug {

namespace {

using ZelDebugDialog::DesignInterface;
using ZelDebugDialog::DesignModel;
using ZelDebugDialog::DesignPort;
using ZelDebugDialog::DesignWire;
using ZelDebugDialog::InterfaceMode;

constexpr std::size_t mostShown = 100;

struct ModeWord {
  InterfaceMode mode;
  const char *word;
};

constexpr std::array<ModeWord, 7> modeWords{{
    {InterfaceMode::initiator, "initiator"},
    {InterfaceMode::target, "target"},
    {InterfaceMode::system, "system"},
    {InterfaceMode::mirroredInitiator, "mirroredInitiator"},
    {InterfaceMode::mirroredTarget, "mirroredTarget"},
    {InterfaceMode::mirroredSystem, "mirroredSystem"},
    {InterfaceMode::monitor, "monitor"},
}};

Side sideIn(const DesignWire &wire, const DesignPort &end) {
  return wire.within == end.instance ? Side::inside : Side::outside;
}

} // namespace

Wiring::Wiring(const DesignModel &model)
    : design(model), all(model.Connections()) {
  std::size_t ports = 0;
  for (std::size_t at = 0; at < model.Instances().size(); ++at) {
    firstPort.push_back(ports);
    ports += interfacesOf(at).size();
  }
  // How many there are at each port, then where those of each begin.
  firstWire.resize(ports + 1);
  for (const DesignWire &wire : all)
    for (const DesignPort &end : wire.ends)
      ++firstWire[firstPort[end.instance] + end.interface + 1];
  for (std::size_t port = 0; port < ports; ++port)
    firstWire[port + 1] += firstWire[port];
  wiresAt.resize(firstWire[ports]);
  std::vector<std::size_t> next = firstWire;
  for (std::size_t wire = 0; wire < all.size(); ++wire)
    for (const DesignPort &end : all[wire].ends)
      wiresAt[next[firstPort[end.instance] + end.interface]++] = wire;
}

FarEnds Wiring::of(std::size_t instance, std::size_t interface,
                   Side side) const {
  FarEnds found;
  const std::size_t port = firstPort[instance] + interface;
  for (std::size_t at = firstWire[port]; at < firstWire[port + 1]; ++at) {
    const DesignWire &wire = all[wiresAt[at]];
    if (sideIn(wire, {instance, interface}) != side)
      continue;
    bool isOwnSeen = false;
    for (std::size_t end = 0; end < wire.ends.size(); ++end) {
      const DesignPort &far = wire.ends[end];
      const bool isOwn = far.instance == instance && far.interface == interface;
      if (isOwn && !isOwnSeen) {
        isOwnSeen = true;
        continue;
      }
      if (found.shown.size() == mostShown) {
        found.others += wire.ends.size() - end - (isOwnSeen ? 0 : 1);
        break;
      }
      found.shown.push_back(far);
    }
  }
  return found;
}

const std::vector<DesignInterface> &
Wiring::interfacesOf(std::size_t instance) const {
  return design.Component(design.Instances()[instance].component).interfaces;
}

const DesignInterface &Wiring::interfaceOf(const DesignPort &port) const {
  return interfacesOf(port.instance)[port.interface];
}

std::string Wiring::nameOf(const DesignPort &port) const {
  return design.Instances()[port.instance].name + "." + interfaceOf(port).name;
}

bool drives(InterfaceMode mode, Side side) {
  const bool fromOutside = mode == InterfaceMode::initiator ||
                           mode == InterfaceMode::mirroredTarget ||
                           mode == InterfaceMode::mirroredSystem;
  const bool fromInside = mode == InterfaceMode::target ||
                          mode == InterfaceMode::mirroredInitiator ||
                          mode == InterfaceMode::system;
  return side == Side::outside ? fromOutside : fromInside;
}

const char *shownMode(InterfaceMode mode) {
  for (const ModeWord &known : modeWords)
    if (known.mode == mode)
      return known.word;
  return "";
}

} // namespace zeldebug

// What each interface of a design is wired to, on the level of the design that
// the connection is in.
#ifndef ZELDEBUG_WIRING_H
#define ZELDEBUG_WIRING_H

#include <cstddef>
#include <string>
#include <vector>

#include <ZelDebugDialog/DesignModel/DesignModel.h>

namespace zeldebug {

/// Which side of an interface: all but those of hierarchies have only the
/// outer one.
enum class Side { outside, inside };

struct FarEnds {
  /// The first of them; a connection may have very many ends.
  std::vector<ZelDebugDialog::DesignPort> shown;
  std::size_t others = 0; ///< How many more there are.

  bool empty() const { return shown.empty(); }
};

class Wiring {
public:
  /// The model has to stay as it is.
  explicit Wiring(const ZelDebugDialog::DesignModel &model);

  const std::vector<ZelDebugDialog::DesignWire> &wires() const { return all; }

  /// What the interface is wired to.
  FarEnds of(std::size_t instance, std::size_t interface, Side side) const;

  const std::vector<ZelDebugDialog::DesignInterface> &
  interfacesOf(std::size_t instance) const;
  const ZelDebugDialog::DesignInterface &
  interfaceOf(const ZelDebugDialog::DesignPort &port) const;
  /// "instance.interface"
  std::string nameOf(const ZelDebugDialog::DesignPort &port) const;

private:
  const ZelDebugDialog::DesignModel &design;
  std::vector<ZelDebugDialog::DesignWire> all;
  /// Where the ports of an instance begin.
  std::vector<std::size_t> firstPort;
  /// The wires at each port, those of port i from `firstWire[i]` on.
  std::vector<std::size_t> firstWire;
  std::vector<std::size_t> wiresAt;
};

/// Whether an end of a wire is what accesses, or signals, come from.
bool drives(ZelDebugDialog::InterfaceMode mode, Side side);

/// "initiator", "mirroredTarget", ...
const char *shownMode(ZelDebugDialog::InterfaceMode mode);

} // namespace zeldebug

#endif

// What those who only have a parser collect of an IP-XACT design, and what they
// answer of it: the processors with the peripherals that are wired to them.
//
// It knows what the measured design has in it: instances of components,
// connections of two of them, and that a component named "lumacore" is a
// processor.
#ifndef ZELDEBUGDIALOG_BENCH_DESIGNS_NETLIST_H
#define ZELDEBUGDIALOG_BENCH_DESIGNS_NETLIST_H

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Ways.h"

namespace bench {

class Netlist {
public:
  struct Interface {
    std::string name;
    bool isMaster = false;
  };
  struct Component {
    std::string name;
    std::vector<Interface> interfaces;
  };
  /// One end of a connection.
  struct End {
    std::string instance;
    std::string interface;
  };

  /// "vendor:library:name:version".
  static std::string identity(std::string_view vendor, std::string_view library,
                              std::string_view name, std::string_view version);

  void addComponent(const std::string &identity, Component component);
  /// Before the connections, as the standard's schema orders them; its
  /// component may come later.
  void addInstance(std::string name, const std::string &identity);
  void connect(const End &one, const End &other);

  Answer answer() const;

private:
  struct Instance {
    std::string name;
    const Component *component; ///< stays where it is in `components`
  };
  struct Place {
    std::size_t instance;
    std::string interface;
  };
  struct Connection {
    Place one;
    Place other;
  };

  Place find(const End &end) const;
  bool isMaster(const Place &place) const;
  bool isProcessor(const Instance &instance) const;

  std::unordered_map<std::string, Component> components;
  std::vector<Instance> instances;
  std::unordered_map<std::string, std::size_t> instancesByName;
  std::vector<Connection> connections;
};

} // namespace bench

#endif

#include "Netlist.h"

#include <algorithm>
#include <utility>

#include "common/Require.h"

namespace bench {

std::string Netlist::identity(std::string_view vendor, std::string_view library,
                              std::string_view name, std::string_view version) {
  std::string text;
  text.reserve(vendor.size() + library.size() + name.size() + version.size() +
               3);
  text.append(vendor).append(1, ':').append(library).append(1, ':');
  return text.append(name).append(1, ':').append(version);
}

void Netlist::addComponent(const std::string &identity, Component component) {
  components[identity] = std::move(component);
}

void Netlist::addInstance(std::string name, const std::string &identity) {
  require(instancesByName.emplace(name, instances.size()).second,
          "two instances of one name");
  instances.push_back({std::move(name), &components[identity]});
}

void Netlist::connect(const End &one, const End &other) {
  connections.push_back({find(one), find(other)});
}

Netlist::Place Netlist::find(const End &end) const {
  const auto found = instancesByName.find(end.instance);
  require(found != instancesByName.end(), "a connection of no instance");
  return {found->second, end.interface};
}

bool Netlist::isMaster(const Place &place) const {
  const std::vector<Interface> &interfaces =
      instances[place.instance].component->interfaces;
  const auto found = std::find_if(interfaces.begin(), interfaces.end(),
                                  [&place](const Interface &interface) {
                                    return interface.name == place.interface;
                                  });
  require(found != interfaces.end(), "a connection of no interface");
  return found->isMaster;
}

bool Netlist::isProcessor(const Instance &instance) const {
  return instance.component->name == "lumacore";
}

Answer Netlist::answer() const {
  constexpr auto none = static_cast<std::size_t>(-1);
  Answer answer;
  std::vector<std::size_t> rows(instances.size(), none);
  for (std::size_t index = 0; index < instances.size(); ++index)
    if (isProcessor(instances[index])) {
      rows[index] = answer.size();
      answer.push_back({instances[index].name, {}});
    }
  const auto attach = [&](const Place &master, const Place &slave) {
    if (rows[master.instance] != none && isMaster(master) && !isMaster(slave))
      answer[rows[master.instance]].peripherals.push_back(
          instances[slave.instance].name);
  };
  for (const Connection &connection : connections) {
    attach(connection.one, connection.other);
    attach(connection.other, connection.one);
  }
  return answer;
}

} // namespace bench

#include "graph/ResolveComponent.h"

#include <utility>

#include "messages/Quote.h"

namespace ZelDebugDialog {
namespace {

class Resolver {
public:
  Resolver(DesignComponent component, DiagnosticList &list)
      : diagnostics(list) {
    resolved.data = std::move(component);
  }

  GraphComponent run() {
    takeInterfaces();
    takeBridges();
    takeChannels();
    return std::move(resolved);
  }

private:
  void takeInterfaces() {
    std::vector<DesignInterface> kept;
    for (DesignInterface &interface : resolved.data.interfaces) {
      const auto index = static_cast<Index>(kept.size());
      if (resolved.interfaceByName.emplace(interface.name, index).second)
        kept.push_back(std::move(interface));
      else
        refuse(interface.line,
               "a second interface " + quote(interface.name) + " is left out");
    }
    resolved.data.interfaces = std::move(kept);
  }

  void takeBridges() {
    for (const DesignInterface &interface : resolved.data.interfaces) {
      resolved.bridges.emplace_back();
      for (const std::string &name : interface.bridgedTo) {
        const Index bridged =
            find(name, interface.line,
                 "interface " + quote(interface.name) + " is bridged to ");
        if (bridged != noIndex)
          resolved.bridges.back().push_back(bridged);
      }
    }
  }

  void takeChannels() {
    resolved.channelsOf.resize(resolved.data.interfaces.size());
    for (const std::vector<std::string> &names : resolved.data.channels) {
      std::vector<Index> channel;
      for (const std::string &name : names) {
        const Index member =
            find(name, resolved.data.origin.line, "a channel names ");
        if (member != noIndex)
          channel.push_back(member);
      }
      // A channel of one leads nowhere.
      if (channel.size() > 1)
        take(std::move(channel));
    }
  }

  void take(std::vector<Index> channel) {
    const auto index = static_cast<Index>(resolved.channels.size());
    for (const Index member : channel)
      resolved.channelsOf[member].push_back(index);
    resolved.channels.push_back(std::move(channel));
  }

  Index find(const std::string &name, int line, const std::string &what) {
    const auto found = resolved.interfaceByName.find(name);
    if (found != resolved.interfaceByName.end())
      return found->second;
    refuse(line, what + quote(name) + ", which it does not have");
    return noIndex;
  }

  void refuse(int line, const std::string &fault) {
    diagnostics.add(
        {DesignDiagnostic::Severity::error, resolved.data.origin.file, line,
         "component " + quote(resolved.data.typeName) + ": " + fault});
  }

  GraphComponent resolved;
  DiagnosticList &diagnostics;
};

} // namespace

GraphComponent resolveComponent(DesignComponent component,
                                DiagnosticList &diagnostics) {
  return Resolver(std::move(component), diagnostics).run();
}

} // namespace ZelDebugDialog

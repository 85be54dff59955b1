#include "DesignContents.h"

#include "Quote.h"

namespace ZelDebugDialog {

using Severity = DesignDiagnostic::Severity;

namespace {

std::string siblingKey(Index parent, const std::string &name) {
  return std::to_string(parent) + "/" + name;
}

} // namespace

/// A name can be taken only where the full name is: a full name has one split
/// for each parent.
bool DesignContents::isTaken(const std::string &name,
                             const std::string &fullName, Index parent) const {
  const Index first = find(fullName);
  return first != noIndex && (graph.instances[first].parent == parent ||
                              namesakes.count(siblingKey(parent, name)) != 0);
}

void DesignContents::enterName(const std::string &name,
                               const std::string &fullName, Index instance,
                               const DesignOrigin &origin) {
  if (firstByName.emplace(fullName, instance).second)
    return;
  namesakes.insert(siblingKey(graph.instances[instance].parent, name));
  report(
      Severity::warning, origin, origin.line,
      "two instances read " + quote(fullName) +
          ", as a name in one of them holds a dot; the name means the first");
}

/// The last part of its full name.
std::string DesignContents::localName(Index instance) const {
  const Index parent = graph.instances[instance].parent;
  const std::string &name = instances[instance].name;
  return parent == noIndex ? name
                           : name.substr(instances[parent].name.size() + 1);
}

/// The connection with its ends, as far as a message can hold them.
std::string DesignContents::describe(const DesignConnection &connection) const {
  constexpr std::size_t mostNamed = 4;
  std::string text = "connection";
  if (!connection.name.empty())
    text += " " + quote(connection.name);
  const char *separator = " of ";
  for (std::size_t at = 0; at < connection.ends.size() && at < mostNamed;
       ++at) {
    const DesignEnd &end = connection.ends[at];
    text += separator;
    text += quote(localName(static_cast<Index>(end.instance)) + "." +
                  end.interface);
    separator = " and ";
  }
  return connection.ends.size() > mostNamed ? text + " and others" : text;
}

Index DesignContents::findEnd(const DesignEnd &end,
                              const DesignConnection &connection,
                              Index within) {
  const auto instance = static_cast<Index>(end.instance);
  if (instance != within && graph.instances[instance].parent != within) {
    report(Severity::error, connection.origin, end.line,
           describe(connection) + ": instance " + quote(localName(instance)) +
               " is not inside what the connection is in");
    return noIndex;
  }
  const Index port = graph.findPort(instance, end.interface);
  if (port == noIndex)
    report(Severity::error, connection.origin, end.line,
           describe(connection) + ": instance " + quote(localName(instance)) +
               " of type " + quote(instances[instance].typeName) +
               " has no interface " + quote(end.interface));
  return port;
}

} // namespace ZelDebugDialog

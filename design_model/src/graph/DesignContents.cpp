#include "graph/DesignContents.h"

#include <algorithm>
#include <iterator>

#include "messages/Quote.h"
#include "names/Room.h"

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

/// Takes an instance back that could not be entered everywhere.
class DesignContents::Entry {
public:
  Entry(DesignContents &filled, Index component, Index parent)
      : contents(filled), around(parent),
        typeName(filled.graph.components[component].data.typeName),
        ports(filled.graph.ports.size()),
        hadInside(parent != noIndex &&
                  filled.graph.instances[parent].hasInside),
        instance(filled.graph.addInstance(component, parent)) {}
  ~Entry() {
    if (!isComplete)
      takeBack();
  }
  Entry(const Entry &) = delete;
  Entry &operator=(const Entry &) = delete;

  Index index() const { return instance; }
  void addNamesake(const std::string &name) {
    namesake = siblingKey(around, name);
    contents.namesakes.insert(namesake);
  }
  void complete() { isComplete = true; }

private:
  void takeBack() {
    contents.graph.instances.resize(instance);
    contents.graph.ports.resize(ports);
    if (around != noIndex)
      contents.graph.instances[around].hasInside = hadInside;
    contents.instances.resize(instance);
    contents.namesakes.erase(namesake);
    const auto typed = contents.byTypeName.find(typeName);
    if (typed != contents.byTypeName.end())
      dropLast(typed->second);
    dropLast(contents.processors);
    dropLast(contents.debugModules);
  }
  void dropLast(std::vector<Index> &listed) const {
    if (!listed.empty() && listed.back() == instance)
      listed.pop_back();
  }

  DesignContents &contents;
  Index around;
  const std::string &typeName;
  std::size_t ports;
  bool hadInside;
  Index instance;
  std::string namesake; ///< Empty unless another has the full name.
  bool isComplete = false;
};

Index DesignContents::addInstance(const std::string &name, std::string fullName,
                                  Index component, Index parent,
                                  const DesignOrigin &origin) {
  Entry entry(*this, component, parent);
  const Index instance = entry.index();
  const DesignComponent &data = graph.components[component].data;
  DesignInstance &added = instances.emplace_back();
  added.name = std::move(fullName);
  added.typeName = data.typeName;
  added.role = data.role;
  added.component = component;
  added.parent = parent == noIndex ? DesignModel::top : parent;
  byTypeName[data.typeName].push_back(instance);
  if (data.role == DesignRole::processor)
    processors.push_back(instance);
  if (data.role == DesignRole::debugModule)
    debugModules.push_back(instance);
  // A new name is what is entered last, and need not be taken back.
  if (firstByName.enter(added.name, instance, nameIn(instances)) != instance) {
    entry.addNamesake(name);
    report(Severity::warning, origin, origin.line,
           "two instances read " + quote(added.name) +
               ", as a name in one of them holds a dot; the name means the "
               "first");
  }
  entry.complete();
  return instance;
}

void DesignContents::appendNames(const std::vector<Index> &listed,
                                 std::vector<std::string> &names) const {
  std::vector<std::string> found;
  found.reserve(listed.size());
  for (const Index instance : listed)
    found.push_back(instances[instance].name);
  makeRoom(names, found.size());
  std::move(found.begin(), found.end(), std::back_inserter(names));
}

bool DesignContents::state(Index processor, Index module) {
  const std::uint64_t pair = std::uint64_t{processor} << 32 | module;
  if (statedPairs.count(pair) != 0)
    return false;
  std::vector<Index> &onModule = stated[module];
  makeRoom(onModule, 1);
  statedPairs.insert(pair);
  onModule.push_back(processor);
  return true;
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

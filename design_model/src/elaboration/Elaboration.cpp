#include "elaboration/Elaboration.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "kinds/BuiltInKinds.h"
#include "messages/Quote.h"
#include "names/Room.h"

namespace ZelDebugDialog {
namespace {

using Severity = DesignDiagnostic::Severity;

/// No design made by people comes near.
constexpr std::size_t deepestHierarchy = 100;

// What parts of a model take in memory, roughly.
constexpr std::size_t instanceBytes = 450;
constexpr std::size_t portBytes = 32;
constexpr std::size_t parameterBytes = 120;
constexpr std::size_t endBytes = 80;

} // namespace

void Elaboration::elaborate(const DesignRecord &design) {
  ParameterScope scope(design.parameters, diagnostics);
  elaborate(Level{design, nullptr, nullptr, DesignModel::top, scope});
  views.reportUnused(design.file);
}

bool Elaboration::elaborate(const ComponentRecord &component) {
  noteViews(component);
  const ViewRecord *const view = views.choose(component, nullptr, "");
  if (view == nullptr || !view->leadsToDesign()) {
    report(Severity::error, component.interfaces.origin.file,
           component.interfaces.origin.line,
           "component " + quote(toText(component.identity)) +
               (view == nullptr ? " has no view that leads to a design"
                                : ": its view " + quote(view->name) +
                                      " does not lead to a design"));
    return false;
  }
  const InnerDesign inner = views.follow(component, *view);
  if (inner.design == nullptr)
    return false;
  for (const DesignInterface &interface : component.interfaces.interfaces)
    outward.insert(interface.name);
  ParameterScope around(component.parameters, diagnostics);
  ParameterScope scope(inner.design->parameters, diagnostics);
  if (inner.reference != nullptr)
    scope.override(inner.reference->overrides, *inner.reference->identity,
                   component.interfaces.origin.file, around);
  elaborate(Level{*inner.design, inner.configuration, &component,
                  DesignModel::top, scope});
  views.reportUnused(component.interfaces.origin.file);
  return true;
}

void Elaboration::elaborate(const Level &level) {
  open.push_back(&level.design);
  std::vector<Placed> placed(level.design.instances.size());
  makeRoom(DesignContents::of(model).instances,
           std::min(placed.size(), room.instances));
  for (std::size_t index = 0; index < placed.size() && !isFull; ++index)
    placed[index] = addInstance(level, level.design.instances[index]);
  joined.origin.file = level.design.file;
  for (const ConnectionRecord &connection : level.design.connections)
    addConnection(level, connection, placed);
  checkSelections(level);
  open.pop_back();
}

Elaboration::Placed Elaboration::addInstance(const Level &level,
                                             const InstanceRecord &instance) {
  const DesignOrigin origin{level.design.file, instance.line};
  const Item item{level, "instance", instance.name, instance.line};
  const ReferenceRecord &reference = instance.component;
  const Component &component = componentOf(*reference.identity);
  std::size_t bytes = component.bytes + 2 * instance.name.size() +
                      reference.overrides.size() * parameterBytes;
  if (level.instance != DesignModel::top)
    bytes += 2 * model.Instances()[level.instance].name.size();
  if (!spendInstance(item) || !spend(bytes, item))
    return {};
  if (component.record == nullptr)
    report(Severity::error, origin.file, reference.line,
           "instance " + quote(instance.name) + ": component " +
               quote(toText(*reference.identity)) + " is not found");
  const auto id =
      model.AddInstance(instance.name, component.id, level.instance, origin);
  if (!id || component.record == nullptr)
    return {};
  ParameterScope scope(component.record->parameters, diagnostics);
  scope.override(reference.overrides, *reference.identity, origin.file,
                 level.scope);
  if (level.configuration != nullptr) {
    const auto selected = level.configuration->views.find(instance.name);
    if (selected != level.configuration->views.end())
      scope.override(selected->second.overrides, *reference.identity,
                     level.configuration->file, level.scope);
  }
  addParameters(*component.record, scope, *id, item);
  enter(item, instance, component, *id, scope);
  return {*id, true};
}

void Elaboration::addParameters(const ComponentRecord &record,
                                ParameterScope &scope,
                                DesignModel::InstanceId instance,
                                const Item &item) {
  makeRoom(DesignContents::of(model).instances[instance].parameters,
           record.parameters.ownCount);
  for (std::size_t at = 0; at < record.parameters.ownCount; ++at) {
    std::string value = toText(scope.valueAt(at));
    if (!spend(value.size(), item))
      return;
    model.AddParameter(instance, record.parameters.list[at].name,
                       std::move(value));
  }
}

void Elaboration::enter(const Item &item, const InstanceRecord &instance,
                        const Component &component, DesignModel::InstanceId id,
                        ParameterScope &scope) {
  const Level &level = item.level;
  const ComponentRecord &record = *component.record;
  const ViewRecord *const view =
      views.choose(record, level.configuration, instance.name);
  if (view != nullptr && spend(view->name.size(), item))
    model.SetView(id, view->name);
  if (view == nullptr || !view->leadsToDesign())
    return;
  if (component.role == DesignRole::processor)
    return report(Severity::note, level.design.file, instance.line,
                  "instance " + quote(instance.name) +
                      " is a processor: the design inside it is not entered");
  const InnerDesign inner = views.follow(record, *view);
  if (inner.design == nullptr || !canEnter(item, id, *inner.design))
    return;
  if (!spend(inner.design->parameters.list.size() * parameterBytes, item))
    return;
  ParameterScope innerScope(inner.design->parameters, diagnostics);
  if (inner.reference != nullptr)
    innerScope.override(inner.reference->overrides, *inner.reference->identity,
                        record.interfaces.origin.file, scope);
  elaborate(Level{*inner.design, inner.configuration, &record, id, innerScope});
}

/// The design on top may have been read by its path, and once more by its name.
bool Elaboration::canEnter(const Item &item, DesignModel::InstanceId id,
                           const DesignRecord &inner) {
  const bool isOpen =
      std::find(open.begin(), open.end(), &inner) != open.end() ||
      (inner.identity == open.front()->identity && inner.identity.isComplete());
  if (!isOpen && open.size() < deepestHierarchy)
    return true;
  report(Severity::error, item.level.design.file, item.line,
         "instance " + quote(model.Instances()[id].name) +
             (isOpen ? " leads back to the design " +
                           quote(toText(inner.identity)) +
                           " that it is in; it is not entered again"
                     : " is inside " + std::to_string(deepestHierarchy) +
                           " others; it is not entered"));
  return false;
}

/// An end at an instance that was refused, or that has no component, has been
/// reported.
void Elaboration::addConnection(const Level &level,
                                const ConnectionRecord &connection,
                                const std::vector<Placed> &placed) {
  const Item item{level, "connection", connection.name, connection.line};
  if (!spend(connection.ends.size() * endBytes, item))
    return;
  joined.name = connection.name;
  joined.origin.line = connection.line;
  joined.ends.clear();
  for (const EndRecord &end : connection.ends) {
    const bool isOwn = end.instance == EndRecord::own;
    if (isOwn ? hasInterface(level, connection, end)
              : placed[end.instance].hasInterfaces)
      joined.ends.push_back({isOwn ? level.instance : placed[end.instance].id,
                             level.design.interfaceNames[end.interface],
                             end.line});
  }
  model.Connect(joined, level.instance);
}

/// An interface of the design itself is one of the component around it; on top
/// it leads nowhere.
bool Elaboration::hasInterface(const Level &level,
                               const ConnectionRecord &connection,
                               const EndRecord &end) {
  if (level.instance != DesignModel::top)
    return true;
  if (level.component == nullptr)
    return false;
  const std::string &name = level.design.interfaceNames[end.interface];
  if (outward.count(name) != 0)
    return false;
  report(Severity::error, level.design.file, end.line,
         "connection " + quote(connection.name) + ": component " +
             quote(toText(level.component->identity)) + " has no interface " +
             quote(name));
  return false;
}

/// A configuration may select views for instances that are not there.
void Elaboration::checkSelections(const Level &level) {
  if (level.configuration == nullptr)
    return;
  std::unordered_set<std::string_view> names;
  for (const InstanceRecord &instance : level.design.instances)
    names.insert(instance.name);
  for (const auto &[instance, selection] : level.configuration->views)
    if (names.count(instance) == 0)
      report(Severity::warning, level.configuration->file, selection.line,
             "a view is selected for instance " + quote(instance) +
                 ", which design " + quote(toText(level.design.identity)) +
                 " does not have");
}

const Elaboration::Component &
Elaboration::componentOf(const Identity &identity) {
  const auto [entry, isNew] = components.try_emplace(identity);
  Component &component = entry->second;
  if (!isNew)
    return component;
  component.record = store.findComponent(identity);
  DesignComponent data;
  data.typeName = identity.name;
  if (component.record != nullptr) {
    noteViews(*component.record);
    data = component.record->interfaces;
    if (data.hasCpus)
      data.role = DesignRole::processor;
  }
  data.identity = toText(identity);
  if (component.record == nullptr)
    model.AddMissing(
        {std::string(toText(DocumentType::component)), data.identity});
  if (const Kind *const kind = kinds.find(identity)) {
    data.role = kind->role;
    data.typeName = kind->typeName;
  }
  component.bytes = instanceBytes + 2 * data.typeName.size() +
                    data.interfaces.size() * portBytes;
  if (component.record != nullptr)
    component.bytes +=
        component.record->parameters.list.size() * parameterBytes;
  component.role = data.role == DesignRole::byTypeName
                       ? findBuiltInRole(data.typeName)
                       : data.role;
  component.id = model.AddComponent(std::move(data));
  return component;
}

void Elaboration::noteViews(const ComponentRecord &record) {
  for (const ViewRecord &view : record.views)
    DesignContents::of(model).views.insert(view.name);
}

std::vector<Identity> Elaboration::identities() const {
  std::vector<Identity> found;
  found.reserve(components.size());
  for (const auto &entry : components)
    found.push_back(entry.first);
  return found;
}

bool Elaboration::spendInstance(const Item &item) {
  if (isFull)
    return false;
  if (room.instances > 0) {
    --room.instances;
    return true;
  }
  close(item, "the design has more than " + std::to_string(most.instances) +
                  " instances");
  return false;
}

bool Elaboration::spend(std::size_t bytes, const Item &item) {
  if (bytes <= room.bytes) {
    room.bytes -= bytes;
    return true;
  }
  room.bytes = 0;
  if (!isFull)
    close(item, "the design is too large");
  return false;
}

/// Connections between what is there still go in, as long as there is memory.
void Elaboration::close(const Item &item, const std::string &reason) {
  isFull = true;
  const DesignModel::InstanceId around = item.level.instance;
  const std::string path =
      around == DesignModel::top ? "" : model.Instances()[around].name + ".";
  report(Severity::error, item.level.design.file, item.line,
         reason + ": " + item.what + " " + quote(path + item.name) +
             " and what comes after it are left out");
}

void Elaboration::report(Severity severity, const std::string &file, int line,
                         std::string message) {
  diagnostics.add({severity, file, line, std::move(message)});
}

} // namespace ZelDebugDialog

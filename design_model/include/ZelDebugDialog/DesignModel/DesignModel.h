// A hardware design that answers the queries of HHSMHwManager: read from
// IP-XACT files, or built in code.
//
// It is not the engine's: the engine knows HHSMHwManager only. A model owns
// what was put into it, never calls back, prints nothing, and is used by one
// thread at a time. What could not be understood stands in `Diagnostics`.
//
//   DesignModel model;
//   if (!ReadDesign({"board.xml", {}, "", ""}, model))
//     report(model.Diagnostics());
//   engine.GetProcessorList(&model, names);
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_DESIGNMODEL_H
#define ZELDEBUGDIALOG_DESIGNMODEL_DESIGNMODEL_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "HHSMHwManager.h"

#include "ZelDebugDialog/DesignModel/Export.h"

namespace ZelDebugDialog {

// The records have a default for every field, so that the last ones can be left
// out where one is written down.

/// One fault of a design, or one remark about it.
struct DesignDiagnostic {
  /// How much it matters.
  enum class Severity {
    error,   ///< Something is left out of the model.
    warning, ///< Doubtful, but the model has it.
    note,    ///< A choice that was made for the user.
  };
  Severity severity = Severity::error; ///< How much this one matters.
  std::string file = {}; ///< As it was opened; empty for a model built in code.
  int line = 0;          ///< From 1; 0 when the fault is not in a line.
  std::string message = {}; ///< One line without a full stop or line end.
};

/// Where something was read, for the diagnostics about it.
struct DesignOrigin {
  std::string file = {}; ///< Empty: nowhere.
  int line = 0;          ///< From 1; 0: no line of it.
};

/// A document that a design refers to and that was not found.
struct MissingDocument {
  /// "component", "design" or "designConfiguration"; the form of 2009 does not
  /// tell the last two apart, and is taken for "design".
  std::string type = {};
  std::string identity = {}; ///< "vendor:library:name:version"
};

/// What a model is read from.
struct DesignSources {
  /// An IP-XACT design, or the component on top of a hierarchy.
  std::string designFile = {};
  /// Folders that are searched for components, designs, ... with all that is
  /// below them, or catalog files. Empty: the folder of `designFile`.
  std::vector<std::string> libraryFolders = {};
  /// The view to take of a hierarchical component that has one of this name
  /// and whose parent's configuration names none. Empty: the first view that
  /// has a design.
  std::string view = {};
  /// A table that lets components play the part of known ones; docs/
  /// design-files.md has its format. Empty: none.
  std::string kindsFile = {};
  /// No more instances than these, since a few small files can describe a
  /// hierarchy without end; at most 100 million, whatever is asked for. Each
  /// takes less than 400 bytes, beside its full name, its parameters, and 50
  /// bytes for each of its interfaces and ends of connections. All in all a
  /// model takes no more than about 1 KB for each of these, or 1 GB if that is
  /// more. What is past either is left out, with an error that names the first
  /// of it; what is there is connected and answers.
  std::size_t maxInstances = 1000000;
};

/// What a component is to a debugger.
enum class DesignRole {
  byTypeName,  ///< What the built-in table says of the type name, else `other`.
  processor,   ///< Listed by `getProcessorInstances`.
  debugModule, ///< A debug module or JTAG-to-PowerPC controller: kind 5.
  other,
};

/// The side of a bus on which an interface stands.
enum class InterfaceMode {
  initiator, ///< "initiator", formerly "master".
  target,    ///< "target", formerly "slave".
  system,
  mirroredInitiator,
  mirroredTarget,
  mirroredSystem,
  monitor, ///< Attaches nothing.
};

/// A bus interface of a component.
struct DesignInterface {
  std::string name = {}; ///< One of a kind in its component.
  InterfaceMode mode = InterfaceMode::target; ///< Its side of the bus.
  /// Interfaces of the same component to which an access that arrives here is
  /// passed on (a bridge).
  std::vector<std::string> bridgedTo = {};
  /// Has registers or memory of its own although it passes accesses on.
  bool answers = false;
  int line = 0; ///< In the file of the component's origin.
  /// What kind of bus: "vendor:library:name:version". Empty: not known.
  std::string busType = {};
  /// The registers or memory behind it are said to be memory.
  bool isMemory = false;
};

/// What the instances of one component have in common.
struct DesignComponent {
  std::string typeName = {};                    ///< What `getIpName` answers.
  DesignRole role = DesignRole::byTypeName;     ///< What it is to a debugger.
  std::vector<DesignInterface> interfaces = {}; ///< In their own order.
  /// Each a list of interfaces that are one bus inside the component.
  std::vector<std::vector<std::string>> channels = {};
  DesignOrigin origin = {}; ///< For diagnostics.
  /// "vendor:library:name:version". Empty for one that has none.
  std::string identity = {};
  /// The names of its views.
  std::vector<std::string> views = {};
  /// It says of itself that it is a processor: it has a `cpus` element.
  bool hasCpus = false;
};

/// A parameter of an instance.
struct DesignParameter {
  std::string name = {};  ///< What a query asks for.
  std::string value = {}; ///< What it answers.
};

/// An instance as a tool lists it.
struct DesignInstance {
  std::string name = {};     ///< With the names of those around it: "a.b.c".
  std::string typeName = {}; ///< Of its component.
  /// Never `byTypeName`: the built-in table has been asked.
  DesignRole role = DesignRole::other;
  std::vector<DesignParameter> parameters =
      {}; ///< In the order of the component.
  /// For `DesignModel::Component`, which has its identity and its views.
  std::size_t component = 0;
  /// The instance that it is in; `DesignModel::top` for none.
  std::size_t parent = static_cast<std::size_t>(-1);
  /// Which of the views was taken; empty when none was.
  std::string view = {};
};

/// One end of a connection.
struct DesignEnd {
  std::size_t instance = 0;   ///< From `AddInstance`.
  std::string interface = {}; ///< Name of one of its interfaces.
  int line = 0;               ///< In the file of the connection's origin.
};

/// Interfaces that are wired together.
struct DesignConnection {
  std::vector<DesignEnd> ends = {}; ///< Two or more.
  std::string name = {};            ///< For diagnostics; may be empty.
  DesignOrigin origin = {};         ///< For diagnostics.
};

/// An interface of an instance, as an end of a connection that the model has.
struct DesignPort {
  std::size_t instance = 0;  ///< Index in `DesignModel::Instances`.
  std::size_t interface = 0; ///< Index among the interfaces of its component.
};

/// Interfaces that are wired together in the model.
struct DesignWire {
  /// The instance that the connection lies in, `DesignModel::top` for none. An
  /// end that is an interface of it is seen from inside.
  std::size_t within = static_cast<std::size_t>(-1);
  std::vector<DesignPort> ends = {}; ///< In the order of the connection.
};

struct DesignContents;

/// A design. Default-constructed it has nothing in it. A moved-from model may
/// only be assigned to or destroyed.
class ZELDEBUGDIALOG_DESIGNMODEL_API DesignModel : public HHSMHwManager {
public:
  using ComponentId = std::size_t; ///< A component of this model.
  using InstanceId = std::size_t;  ///< An instance of this model.
  /// The design itself, in the place of an instance that encloses others.
  static constexpr InstanceId top = static_cast<InstanceId>(-1);

  DesignModel();
  /// Takes everything from `other`.
  DesignModel(DesignModel &&other) noexcept;
  /// Drops what was there and takes everything from `other`.
  DesignModel &operator=(DesignModel &&other) noexcept;
  DesignModel(const DesignModel &) = delete;
  DesignModel &operator=(const DesignModel &) = delete;
  ~DesignModel() override;

  // Building. What is refused leaves an error in `Diagnostics`, with the place
  // that its origin names, and the model as it was. So does an exception
  // (std::bad_alloc), but for remarks that were made before it.

  /// Adds a component, of which any number of instances can be made. Names in
  /// `bridgedTo` and `channels` that are none of its interfaces, and a second
  /// interface of one name, are left out with a diagnostic.
  ComponentId AddComponent(DesignComponent component);

  /// Adds an instance inside `parent`. Design order is the order of adding: to
  /// have a hierarchy before what is inside it, and that before its neighbours,
  /// add them so.
  /// Nothing: the name is empty, ".", "..", holds a "/" or a null byte (names
  /// become file names), is longer than 1024 bytes, or `parent` has an instance
  /// of that name already. A name that makes a full name another instance has
  /// is kept, with a warning; queries by that name mean the first.
  std::optional<InstanceId> AddInstance(const std::string &name,
                                        ComponentId component,
                                        InstanceId parent = top,
                                        const DesignOrigin &origin = {});

  /// Gives an instance a parameter; of two with one name the first is
  /// answered.
  void AddParameter(InstanceId instance, std::string name, std::string value);

  /// Connects interfaces of instances that are directly inside `within`; an
  /// end that names `within` is its own interface, seen from inside.
  /// False: an end is elsewhere, or has no such interface; the others are
  /// connected.
  bool Connect(const DesignConnection &connection, InstanceId within = top);

  /// Says which view of its component an instance has.
  void SetView(InstanceId instance, std::string view);

  /// States that a processor is on a debug module, whatever the wires say; in
  /// the order of the calls, behind those that are only wired to it.
  /// False, with a diagnostic: one of them is none, or it is stated already.
  bool Attach(InstanceId processor, InstanceId debugModule,
              const DesignOrigin &origin = {});

  /// Adds a document to `Missing`, unless it is there already.
  void AddMissing(const MissingDocument &document);

  /// Adds a remark to `Diagnostics`, unless the same is there already. After
  /// 10,000 one more says that the rest is left out.
  void Report(DesignDiagnostic diagnostic);

  // For tools.

  /// Every instance, each before what is inside it.
  const std::vector<DesignInstance> &Instances() const;
  /// What the instances of a component have in common: as it was added, but for
  /// what was left out with a diagnostic, and never `byTypeName`.
  const DesignComponent &Component(ComponentId component) const;
  /// Every connection that has an end, in the order of `Connect`: what is
  /// inside an instance before what is around it, where the model was read from
  /// files.
  std::vector<DesignWire> Connections() const;
  /// The interfaces that one is wired to, up and down the hierarchy but over no
  /// bridge or channel: those of leaves, and of hierarchies inside which
  /// nothing is wired to them. At most `most` of them.
  std::vector<DesignPort> WiredTo(const DesignPort &port,
                                  std::size_t most = 100) const;
  /// Names of the instances whose role is `debugModule`.
  std::vector<std::string> DebugModules() const;
  /// The names of the views of all components that a read design consists of,
  /// the one on top included; sorted, each once. What `DesignSources::view` can
  /// be.
  std::vector<std::string> Views() const;
  /// In the order in which they were found.
  const std::vector<DesignDiagnostic> &Diagnostics() const;
  /// What the design refers to and was not found, in the order of reference.
  const std::vector<MissingDocument> &Missing() const;

  // The queries of the engine. All answer in design order unless something
  // else is said. Where two instances have one name, the first is meant.

  /// The instances whose role is `processor`.
  void getProcessorInstances(std::vector<std::string> &names,
                             bool flag) override;
  /// `HW_IP_DEBUG`: the debug modules; any other kind: none.
  void getIpInstances(std::vector<std::string> &names, HwIpType kind) override;
  void getIpInstances(std::vector<std::string> &names,
                      const std::string &typeName) override;
  std::string getIpName(const std::string &instance) override;
  /// The processors that an initiator or mirrored interface of the instance is
  /// connected to at a target or mirrored-initiator interface, through the
  /// hierarchy but over no bridge or channel; in the order of the module's
  /// interfaces, then of their connections; then those that `Attach` has put on
  /// it, in that order, also where they are wired. Each once. Empty unless it
  /// is a debug module.
  void getHduConnectedProcessorList(std::vector<std::string> &names,
                                    const std::string &instance) override;
  /// Everything that answers to the initiator interfaces of the processor, over
  /// connections, bridges and channels; depth first in the order of its
  /// interfaces, their connections, and the interfaces of what is reached; each
  /// once. A component that passes accesses on is not among them unless one of
  /// its interfaces that was reached answers for itself; a hierarchical one
  /// only when nothing inside it answers. Processors, initiators, system and
  /// monitor interfaces never answer. Empty unless it is a processor.
  void getPeripherals(std::vector<std::string> &names,
                      const std::string &processor) override;
  std::string getParameterValue(const std::string &instance,
                                const std::string &parameter) override;

private:
  friend struct DesignContents;
  std::unique_ptr<DesignContents> contents;
};

/// Reads `sources` into `model`, whose former content is gone.
/// False: the design file, the kinds file or a library folder could not be
/// read or understood; the reason is the first error among the diagnostics,
/// with file and line, and the model has no instances. True: the model answers
/// as well as the files allow, and the diagnostics say what is missing. An
/// exception (std::bad_alloc) leaves the model as it was.
ZELDEBUGDIALOG_DESIGNMODEL_API bool ReadDesign(const DesignSources &sources,
                                               DesignModel &model);

} // namespace ZelDebugDialog

#endif

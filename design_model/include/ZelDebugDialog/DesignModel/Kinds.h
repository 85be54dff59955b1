// What a kind table for a design could say: which of its components are to play
// processors, debug modules, serial ports and memories that the debugger knows.
//
// Each candidate comes with its evidence. Where the design does not tell, the
// proposal says so, and between what; it is for a person to mend. What is known
// already, by its name or by the table of `DesignSources::kindsFile`, stays.
//
//   KindProposal proposal;
//   DesignModel model;
//   if (ProposeKinds({"soc.xml", {"ip"}, "", ""}, proposal, model))
//     save(proposal.table); // and `model` is the design with it
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_KINDS_H
#define ZELDEBUGDIALOG_DESIGNMODEL_KINDS_H

#include <string>
#include <vector>

#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "ZelDebugDialog/DesignModel/Export.h"

namespace ZelDebugDialog {

/// What a component may be to a debugger.
enum class KindPart {
  processor,
  debugModule,
  uart,   ///< A serial port that a debug stub talks through.
  memory, ///< Of one of the classes that the debugger tells apart.
};

/// What the proposal makes of a candidate.
enum class KindVerdict {
  known,     ///< The debugger knows its type name: no row is needed.
  proposed,  ///< A row of the table.
  undecided, ///< A row that is commented out; `question` says what is open.
  rejected,  ///< It looks like one; `question` says why it is taken for none.
};

/// A component that is, or looks like, one of the parts.
struct KindCandidate {
  KindPart part = KindPart::processor;          ///< What it may be.
  KindVerdict verdict = KindVerdict::undecided; ///< What is made of it.
  std::string identity = {};                    ///< vendor:library:name:version
  /// The type names that it could play; the first is that of the row. Empty
  /// where it is rejected.
  std::vector<std::string> typeNames = {};
  std::vector<std::string> instances = {}; ///< Full names, at most 20.
  std::size_t otherInstances = 0;          ///< How many more there are.
  std::vector<std::string> evidence = {};  ///< Why it is one, a clause each.
  /// "interface: instance.interface" each, at most 20, without clocks, resets
  /// and interrupts; where there are several instances, with the name of the
  /// instance before that of the interface.
  std::vector<std::string> wiredTo = {};
  std::string question = {}; ///< See `KindVerdict`; else empty.
};

/// A row of the table that puts a processor on a debug module.
struct KindConnection {
  std::string processor = {};   ///< Full name of the instance.
  std::string debugModule = {}; ///< The same.
  bool isProposed = false;      ///< Otherwise the row is commented out.
  std::string reason = {};      ///< Why the wires do not do it.
};

/// What a kind table for a design could say.
struct KindProposal {
  /// By their parts, then in design order.
  std::vector<KindCandidate> candidates = {};
  std::vector<KindConnection> connections = {}; ///< In design order.
  /// What could not be decided about the design as a whole.
  std::vector<std::string> questions = {};
  /// The table as text: that of the sources, if they name one, then the rows
  /// that are proposed, with their evidence as comments.
  std::string table = {};
};

/// Reads a design and proposes a kind table for it. `model` becomes the design
/// as it is with that table.
/// False: the design can't be read, as with `ReadDesign`; `model` says why, and
/// the proposal is empty. An exception (std::bad_alloc) leaves both as they
/// were.
ZELDEBUGDIALOG_DESIGNMODEL_API bool ProposeKinds(const DesignSources &sources,
                                                 KindProposal &proposal,
                                                 DesignModel &model);

} // namespace ZelDebugDialog

#endif

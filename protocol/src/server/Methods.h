// Every method that a request can name: its parameters, and what does it.
#ifndef ZELDEBUGDIALOG_PROTOCOL_SERVER_METHODS_H
#define ZELDEBUGDIALOG_PROTOCOL_SERVER_METHODS_H

#include <atomic>
#include <string>
#include <vector>

#include "server/OpenThings.h"
#include "server/Parameters.h"

namespace ZelDebugDialog::protocol {

/// What a method works with.
struct Workplace {
  OpenThings &open;
  /// Where option files lie of a board that is opened without a directory.
  const std::string &directory;
  /// Set by another thread when nobody wants the result any more.
  const std::atomic<bool> &isCancelled;
};

struct Method {
  const char *name;
  std::vector<Parameter> parameters;
  Json (*run)(const Workplace &, const Parameters &);
};

// Those that act where requests come in, beside what is being done.
constexpr const char *cancelMethod = "$/cancelRequest";
constexpr const char *exitMethod = "exit";

const std::vector<Method> &methods();

/// @throws Fault (unknownMethod)
const Method &expectMethod(const std::string &name);

// A result is the document that the answer holds. All throw Fault and Refusal.

Json openBoard(const Workplace &place, const Parameters &given);
Json closeBoard(const Workplace &place, const Parameters &given);
Json saveBoard(const Workplace &place, const Parameters &given);

Json openConfiguration(const Workplace &place, const Parameters &given);
Json stateOfConfiguration(const Workplace &place, const Parameters &given);
Json closeConfiguration(const Workplace &place, const Parameters &given);
Json changeConfiguration(const Workplace &place, const Parameters &given);
Json draftConfiguration(const Workplace &place, const Parameters &given);
Json editConfiguration(const Workplace &place, const Parameters &given);
Json undoConfiguration(const Workplace &place, const Parameters &given);
Json redoConfiguration(const Workplace &place, const Parameters &given);
Json revertConfiguration(const Workplace &place, const Parameters &given);
Json resetConfiguration(const Workplace &place, const Parameters &given);
Json copyConfiguration(const Workplace &place, const Parameters &given);
Json saveConfiguration(const Workplace &place, const Parameters &given);

Json checkCommand(const Workplace &place, const Parameters &given);
Json explainCommand(const Workplace &place, const Parameters &given);
Json diffCommands(const Workplace &place, const Parameters &given);
Json completeCommand(const Workplace &place, const Parameters &given);

} // namespace ZelDebugDialog::protocol

#endif

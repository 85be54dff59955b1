// The processors of a design as the debugger finds them, and why it does not
// find the others.
#ifndef ZELDEBUG_PROCESSORLIST_H
#define ZELDEBUG_PROCESSORLIST_H

#include <string>
#include <vector>

#include <ZelDebugDialog/DesignModel/DesignModel.h>

#include "Session.h"
#include "output/Json.h"
#include "output/Output.h"

namespace zeldebug {

struct Undebuggable {
  std::string name;
  std::string type;
  std::string reason;
  /// "interface: instance.interface", a few.
  std::vector<std::string> wiredTo;
};

class ProcessorList {
public:
  /// Both have to outlive it; the session is of the design.
  ProcessorList(ZelDebugDialog::DesignModel &design, Session &session);

  /// Every processor of the design.
  const std::vector<std::string> &names() const { return allNames; }
  const std::vector<Undebuggable> &undebuggable() const { return others; }
  /// None can be debugged.
  bool isEmpty() const { return session.state->processorList.empty(); }

  /// `names`, `processors` and `undebuggable`.
  Json json() const;
  void print(Output &output) const;

private:
  ZelDebugDialog::DesignModel &design;
  const Session &session;
  std::vector<std::string> allNames;
  std::vector<Undebuggable> others;
};

} // namespace zeldebug

#endif

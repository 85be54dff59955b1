// The processors of a design as the debugger finds them, and why it does not
// find the others.
#ifndef ZELDEBUG_PROCESSORLIST_H
#define ZELDEBUG_PROCESSORLIST_H

#include <string>
#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Board.h>
#include <ZelDebugDialog/DesignModel/DesignModel.h>

#include "documents/Designs.h"
#include "output/JsonForward.h"
#include "output/Output.h"

namespace zeldebug {

using ZelDebugDialog::documents::Undebuggable;

class ProcessorList {
public:
  explicit ProcessorList(ZelDebugDialog::DesignModel &design);

  /// Every processor of the design.
  const std::vector<std::string> &names() const { return board.Names(); }
  const std::vector<Undebuggable> &undebuggable() const { return others; }
  /// None can be debugged.
  bool isEmpty() const { return board.Processors().empty(); }

  /// `names`, `processors` and `undebuggable`.
  Json json() const;
  void print(Output &output) const;

private:
  ZelDebugDialog::Board board;
  std::vector<Undebuggable> others;
};

} // namespace zeldebug

#endif

// What would help a design whose processors can't be debugged, or that lacks
// components.
#ifndef ZELDEBUG_LISTADVICE_H
#define ZELDEBUG_LISTADVICE_H

#include <string>
#include <vector>

#include <ZelDebugDialog/DesignModel/DesignModel.h>

#include "line/DesignOptions.h"
#include "output/JsonForward.h"
#include "output/Output.h"
#include "subcommands/ProcessorList.h"

namespace zeldebug {

struct Advice {
  std::string code;
  std::string message; ///< Sentences.
  /// The words of a command line that would help; none if there is none.
  std::vector<std::string> command;
};

/// What to do about documents that were not found, and about processors without
/// a debug module.
std::vector<Advice> adviceFor(const DesignOptions &options,
                              const ZelDebugDialog::DesignModel &design,
                              const ProcessorList &list);

/// `missing` and `advice`.
Json adviceJson(const ZelDebugDialog::DesignModel &design,
                const std::vector<Advice> &advice);
void printAdvice(const std::vector<Advice> &advice, Output &output);

} // namespace zeldebug

#endif

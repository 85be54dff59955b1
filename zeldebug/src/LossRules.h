// What the language of the debugger cannot carry, setting by setting: the one
// place where it is known.
#ifndef ZELDEBUG_LOSSRULES_H
#define ZELDEBUG_LOSSRULES_H

#include <string>

#include "Configuration.h"

namespace zeldebug {

struct LossRule {
  const char *field; ///< a name; '*' stands for anything
  bool (*holds)(const Configuration &);
  const char *reason;
  const char *displacedBy; ///< the setting in its place; empty for none
  const char *anchor;      ///< of docs/round-trip.md, which tells what to do
};

/// Why a written command does not carry a setting: the first rule that holds;
/// null for none.
const LossRule *findLossRule(const std::string &field,
                             const Configuration &wanted);

/// Why a setting makes the readers refuse the whole command that is written.
const LossRule *findBlocker(const std::string &field,
                            const Configuration &wanted);

/// The reason, with what the processor allows where that is the point.
std::string shownReason(const LossRule &rule, const Configuration &wanted);

} // namespace zeldebug

#endif

// What a kind table could say for a design in memory, and short ways to ask it.
#ifndef ZELDEBUGDIALOG_TESTS_DESIGN_MODEL_PROPOSING_H
#define ZELDEBUGDIALOG_TESTS_DESIGN_MODEL_PROPOSING_H

#include <string>

#include "Reading.h"
#include "ZelDebugDialog/DesignModel/Kinds.h"

namespace ZelDebugDialog {

/// A bus interface whose bus is of a kind "x:bus:type:1".
std::string port(const std::string &name, const std::string &type,
                 const std::string &mode);

/// One that hands what it takes on to `to`.
std::string bridge(const std::string &name, const std::string &to);

/// In place of what else a component has: it is a processor.
inline const std::string cpus = "cpus";

/// A component, which may say that it is a processor.
std::string part(const std::string &name, const std::string &interfaces,
                 const std::string &others = "");

class Proposing {
public:
  explicit Proposing(Files files, const std::string &kinds = "");

  /// "part verdict name types" each.
  Names candidates() const;
  const KindCandidate &named(const std::string &name) const;
  /// The rows of the table that are none but comments.
  Names rows() const;

  KindProposal proposal;
  Reading result;
  bool isRead = false;

private:
  KindCandidate none;
};

} // namespace ZelDebugDialog

#endif

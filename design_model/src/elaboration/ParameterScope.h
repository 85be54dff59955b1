// The parameters of one instance or design, with the values that they have
// there.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_PARAMETERSCOPE_H
#define ZELDEBUGDIALOG_DESIGNMODEL_PARAMETERSCOPE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "expressions/Expression.h"
#include "messages/DiagnosticList.h"
#include "records/Records.h"

namespace ZelDebugDialog {

/// A number, or text.
struct ParameterValue {
  Number number;
  std::shared_ptr<const std::string> text; ///< Null for a number.
};

/// As text, which C's conversions read if it is a number.
std::string toText(const ParameterValue &value);

/// Refers to the records, which must outlive it. Values are worked out when
/// they are asked for, once each; one that can't be stays the text that it is
/// written as, with a diagnostic.
class ParameterScope : private ExpressionNames {
public:
  ParameterScope(const ParameterRecords &parameters, DiagnosticList &list);

  /// Gives parameters of the document `of` values that stand in `file`, worked
  /// out in the scope that is around it.
  void override(const std::vector<OverrideRecord> &values, const Identity &of,
                const std::string &file, ParameterScope &around);

  /// The value of the parameter at an index of the records.
  const ParameterValue &valueAt(std::size_t index);

private:
  enum class State { open, busy, done, failed };
  struct Slot {
    State state = State::open;
    std::uint32_t cutIn = 0; ///< The walk in which it was out of reach.
    ParameterValue value;
  };
  /// A value, and what is to be said about it.
  struct Outcome {
    ParameterValue value;
    bool failed = false;
    bool isTooDeep = false; ///< And has failed for that.
    std::string remark;
  };

  bool isKnown(std::string_view name) const override;
  ExpressionResult find(std::string_view name, int depth) override;

  Outcome evaluate(const std::string &text, ValueForm form, int depth);
  Outcome evaluateFromHere(const std::string &text, ValueForm form);
  void settle(std::vector<std::size_t> pending);
  void workOut(std::size_t index, int depth);
  /// Takes the value out of the outcome.
  static void fill(Slot &slot, Outcome &outcome);
  void remark(const Outcome &outcome, const ParameterRecord &record,
              const std::string &file, int line);

  const ParameterRecords &records;
  DiagnosticList &diagnostics;
  std::vector<Slot> slots;
  std::uint32_t walk = 0; ///< How many have begun, each at a value.
  /// Parameters that are too deep for this walk.
  std::vector<std::size_t> outOfReach;
  bool isCut = false; ///< The value that is worked out uses one of them.
};

} // namespace ZelDebugDialog

#endif

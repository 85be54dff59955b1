// The operators of expressions.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_ARITHMETIC_H
#define ZELDEBUGDIALOG_DESIGNMODEL_ARITHMETIC_H

#include <string_view>

#include "expressions/Numerals.h"

namespace ZelDebugDialog {

/// A binary operator. `apply` gives false where there is no result: division
/// by zero.
struct BinaryOperator {
  std::string_view text;
  int precedence; ///< The higher binds the tighter.
  bool (*apply)(const Number &left, const Number &right, Number &result);
};

/// The operator that `text` begins with; null when there is none.
const BinaryOperator *findBinaryOperator(std::string_view text);

Number negate(const Number &number);
Number complement(const Number &number);
Number logicalNot(const Number &number);
/// How many bits count to one below the number; 0 for 0.
Number ceilingOfLog2(const Number &number);

} // namespace ZelDebugDialog

#endif

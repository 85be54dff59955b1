// Integer expressions of parameter values.
//
//   conditional = binary ["?" conditional ":" conditional]
//   binary      = unary {operator unary}   by precedence, left to right:
//                 **, * / %, + -, << >> <<< >>>, < <= > >=, == !=, &, ^, |,
//                 &&, ||
//   unary       = ("+" | "-" | "!" | "~") unary | primary
//   primary     = number | name | "(" conditional ")"
//               | "$clog2" "(" conditional ")"
//   number      = 12_000 | 'h1F | 32'hC0FF_EE | 8'sb1010 | '0 | '1 | 0x1F
//
// Numbers are 64 bits wide and wrap. They are signed unless a number of 2^63 or
// more takes part.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_EXPRESSION_H
#define ZELDEBUGDIALOG_DESIGNMODEL_EXPRESSION_H

#include <memory>
#include <string>
#include <string_view>

#include "expressions/Numerals.h"

namespace ZelDebugDialog {

/// Decimal, so that strtol and strtoul read it.
std::string toText(const Number &number);

struct ExpressionResult {
  enum class Kind {
    number,
    text,  ///< It is no expression, or a name alone that stands for text.
    fault, ///< It is an expression without a value.
  } kind = Kind::text;
  Number number;
  /// The text that a name stands for; null when the expression means itself.
  std::shared_ptr<const std::string> text;
  /// Why there is no value; why a name alone means itself.
  std::string fault;
  bool isTooDeep = false; ///< That is the fault.
};

/// The names that an expression can use.
class ExpressionNames {
public:
  ExpressionNames() = default;
  ExpressionNames(const ExpressionNames &) = default;
  ExpressionNames &operator=(const ExpressionNames &) = default;
  virtual ~ExpressionNames() = default;
  virtual bool isKnown(std::string_view name) const = 0;
  /// The value of a known name. `depth` says how deep in expressions it is
  /// used, those included that use this one.
  virtual ExpressionResult find(std::string_view name, int depth) = 0;
};

/// How deep parentheses, signs and parameters that use each other can go.
constexpr int deepestExpression = 256;

/// What can't be read as an expression is text unless a known name is in it,
/// and so is a name alone that isn't known. A known name may have any form when
/// it stands alone.
ExpressionResult evaluateExpression(std::string_view text,
                                    ExpressionNames &names, int depth = 0);

} // namespace ZelDebugDialog

#endif

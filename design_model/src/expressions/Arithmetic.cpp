#include "expressions/Arithmetic.h"

#include <array>
#include <cstdint>

namespace ZelDebugDialog {
namespace {

using Bits = std::uint64_t;

bool areSigned(const Number &left, const Number &right) {
  return left.isSigned && right.isSigned;
}

bool isNegative(const Number &number) {
  return number.isSigned && number.bits >> 63 != 0;
}

bool truth(bool value, Number &result) {
  result = {value ? Bits{1} : Bits{0}, true};
  return true;
}

bool isLess(const Number &left, const Number &right) {
  if (areSigned(left, right) && isNegative(left) != isNegative(right))
    return isNegative(left);
  return left.bits < right.bits;
}

Bits magnitude(const Number &number) {
  return isNegative(number) ? Bits{0} - number.bits : number.bits;
}

bool multiply(const Number &left, const Number &right, Number &result) {
  result = {left.bits * right.bits, areSigned(left, right)};
  return true;
}

bool divide(const Number &left, const Number &right, Number &result) {
  if (right.bits == 0)
    return false;
  if (!areSigned(left, right)) {
    result = {left.bits / right.bits, false};
    return true;
  }
  const Bits quotient = magnitude(left) / magnitude(right);
  const bool turns = isNegative(left) != isNegative(right);
  result = {turns ? Bits{0} - quotient : quotient, true};
  return true;
}

bool remainder(const Number &left, const Number &right, Number &result) {
  if (right.bits == 0)
    return false;
  if (!areSigned(left, right)) {
    result = {left.bits % right.bits, false};
    return true;
  }
  const Bits rest = magnitude(left) % magnitude(right);
  result = {isNegative(left) ? Bits{0} - rest : rest, true};
  return true;
}

/// One over a number that isn't 1 or -1 is 0; over 0 it is nothing.
bool reciprocal(const Number &base, const Number &exponent, Number &result) {
  if (base.bits == 0)
    return false;
  const bool isUnit = magnitude(base) == 1;
  const bool turns = isNegative(base) && (exponent.bits & 1) != 0;
  result = {isUnit ? (turns ? ~Bits{0} : Bits{1}) : Bits{0}, base.isSigned};
  return true;
}

bool raise(const Number &base, const Number &exponent, Number &result) {
  if (isNegative(exponent))
    return reciprocal(base, exponent, result);
  result = {1, base.isSigned};
  Bits factor = base.bits;
  for (Bits left = exponent.bits; left != 0; left >>= 1) {
    if ((left & 1) != 0)
      result.bits *= factor;
    factor *= factor;
  }
  return true;
}

bool add(const Number &left, const Number &right, Number &result) {
  result = {left.bits + right.bits, areSigned(left, right)};
  return true;
}

bool subtract(const Number &left, const Number &right, Number &result) {
  result = {left.bits - right.bits, areSigned(left, right)};
  return true;
}

bool shiftLeft(const Number &left, const Number &right, Number &result) {
  result = {right.bits < 64 ? left.bits << right.bits : 0, left.isSigned};
  return true;
}

bool shiftRight(const Number &left, const Number &right, Number &result) {
  result = {right.bits < 64 ? left.bits >> right.bits : 0, left.isSigned};
  return true;
}

bool shiftRightSigned(const Number &left, const Number &right, Number &result) {
  if (!isNegative(left))
    return shiftRight(left, right, result);
  result = {right.bits < 64 ? ~(~left.bits >> right.bits) : ~Bits{0}, true};
  return true;
}

bool less(const Number &left, const Number &right, Number &result) {
  return truth(isLess(left, right), result);
}

bool greaterOrEqual(const Number &left, const Number &right, Number &result) {
  return truth(!isLess(left, right), result);
}

bool greater(const Number &left, const Number &right, Number &result) {
  return truth(left.bits != right.bits && !isLess(left, right), result);
}

bool lessOrEqual(const Number &left, const Number &right, Number &result) {
  return truth(left.bits == right.bits || isLess(left, right), result);
}

bool equal(const Number &left, const Number &right, Number &result) {
  return truth(left.bits == right.bits, result);
}

bool notEqual(const Number &left, const Number &right, Number &result) {
  return truth(left.bits != right.bits, result);
}

bool bitAnd(const Number &left, const Number &right, Number &result) {
  result = {left.bits & right.bits, areSigned(left, right)};
  return true;
}

bool bitXor(const Number &left, const Number &right, Number &result) {
  result = {left.bits ^ right.bits, areSigned(left, right)};
  return true;
}

bool bitOr(const Number &left, const Number &right, Number &result) {
  result = {left.bits | right.bits, areSigned(left, right)};
  return true;
}

bool logicalAnd(const Number &left, const Number &right, Number &result) {
  return truth(left.bits != 0 && right.bits != 0, result);
}

bool logicalOr(const Number &left, const Number &right, Number &result) {
  return truth(left.bits != 0 || right.bits != 0, result);
}

/// An operator that begins with another stands before it.
constexpr std::array<BinaryOperator, 21> operators = {{
    {"**", 11, raise},      {"*", 10, multiply},
    {"/", 10, divide},      {"%", 10, remainder},
    {"+", 9, add},          {"-", 9, subtract},
    {"<<<", 8, shiftLeft},  {">>>", 8, shiftRightSigned},
    {"<<", 8, shiftLeft},   {">>", 8, shiftRight},
    {"<=", 7, lessOrEqual}, {">=", 7, greaterOrEqual},
    {"<", 7, less},         {">", 7, greater},
    {"==", 6, equal},       {"!=", 6, notEqual},
    {"&&", 2, logicalAnd},  {"||", 1, logicalOr},
    {"&", 5, bitAnd},       {"^", 4, bitXor},
    {"|", 3, bitOr},
}};

} // namespace

const BinaryOperator *findBinaryOperator(std::string_view text) {
  for (const BinaryOperator &candidate : operators)
    if (text.substr(0, candidate.text.size()) == candidate.text)
      return &candidate;
  return nullptr;
}

Number negate(const Number &number) {
  // The least number has the bits of what it is the negative of.
  constexpr Bits most = Bits{1} << 63;
  return {Bits{0} - number.bits, number.isSigned || number.bits == most};
}

Number complement(const Number &number) {
  return {~number.bits, number.isSigned};
}

Number logicalNot(const Number &number) {
  return {number.bits == 0 ? Bits{1} : Bits{0}, true};
}

Number ceilingOfLog2(const Number &number) {
  Bits width = 0;
  for (Bits below = number.bits == 0 ? 0 : number.bits - 1; below != 0;
       below >>= 1)
    ++width;
  return {width, true};
}

} // namespace ZelDebugDialog

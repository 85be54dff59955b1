#include "expressions/Expression.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <utility>

#include "expressions/Arithmetic.h"
#include "messages/Quote.h"

namespace ZelDebugDialog {
namespace {

/// Part of an expression: a number, or why there is none. A fault counts only
/// if the value is used: the other branch of a condition may have any.
struct Value {
  Number number;
  std::string fault;

  bool isFaulty() const { return !fault.empty(); }
};

bool beginsName(char c) {
  return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '_';
}

bool continuesName(char c) {
  return beginsName(c) || std::isdigit(static_cast<unsigned char>(c)) != 0 ||
         c == '.' || c == '$';
}

/// Of what the text begins with: a name, or a number and what sticks to it.
std::size_t findWordLength(std::string_view text) {
  std::size_t length = 0;
  while (length < text.size() && continuesName(text[length]))
    ++length;
  return length;
}

/// 0 when the text doesn't begin with a name.
std::size_t findNameLength(std::string_view text) {
  return text.empty() || !beginsName(text.front()) ? 0 : findWordLength(text);
}

/// Wherever it stands. What is in quotes names nothing, and neither do the
/// letters of a number or of a function of the language.
bool holdsKnownName(std::string_view text, const ExpressionNames &names) {
  while (!text.empty()) {
    if (names.isKnown(text.substr(0, findNameLength(text))))
      return true;
    const char first = text.front();
    text.remove_prefix(1);
    if (first == '"')
      text.remove_prefix(text.find('"') + 1);
    else if (first == '\'' || continuesName(first))
      text.remove_prefix(findWordLength(text));
  }
  return false;
}

ExpressionResult tooDeep() {
  ExpressionResult result;
  result.kind = ExpressionResult::Kind::fault;
  result.fault =
      "it goes more than " + std::to_string(deepestExpression) + " levels deep";
  result.isTooDeep = true;
  return result;
}

ExpressionResult evaluateName(std::string_view name, ExpressionNames &names,
                              int depth) {
  if (depth > deepestExpression)
    return tooDeep();
  if (names.isKnown(name))
    return names.find(name, depth);
  ExpressionResult result;
  result.fault = "there is no parameter " + quote(name);
  return result;
}

class Parser {
public:
  Parser(std::string_view expression, ExpressionNames &known, int nesting)
      : text(expression), rest(expression), names(known), depth(nesting) {}

  ExpressionResult run() {
    const Value value = parseConditional();
    skipBlanks();
    if (!rest.empty())
      refuseFrom(rest);
    if (isTooDeep)
      return tooDeep();
    ExpressionResult result;
    if (!isExpression) {
      if (!holdsKnownName(text, names))
        return result;
      result.kind = ExpressionResult::Kind::fault;
      result.fault = "it is no expression from " + quote(refused) + " on";
    } else if (value.isFaulty()) {
      result.kind = ExpressionResult::Kind::fault;
      result.fault = value.fault;
    } else {
      result.kind = ExpressionResult::Kind::number;
      result.number = value.number;
    }
    return result;
  }

private:
  /// Counts a level for as long as it lives.
  class Level {
  public:
    explicit Level(int &counter) : depth(counter) { ++depth; }
    ~Level() { --depth; }
    Level(const Level &) = delete;
    Level &operator=(const Level &) = delete;

  private:
    int &depth;
  };

  Value parseConditional() {
    const Level level(depth);
    if (depth > deepestExpression)
      return giveUp();
    Value condition = parseBinary(0);
    if (!take("?"))
      return condition;
    const Value ifTrue = parseConditional();
    if (!expect(":"))
      return {};
    const Value ifFalse = parseConditional();
    if (condition.isFaulty())
      return condition;
    return condition.number.bits != 0 ? ifTrue : ifFalse;
  }

  Value parseBinary(int precedence) {
    Value left = parseUnary();
    for (;;) {
      skipBlanks();
      const BinaryOperator *const found = findBinaryOperator(rest);
      if (found == nullptr || found->precedence <= precedence)
        return left;
      rest.remove_prefix(found->text.size());
      const Value right = parseBinary(found->precedence);
      left = apply(*found, left, right);
    }
  }

  /// What is decided by its left side doesn't need the right one.
  static Value apply(const BinaryOperator &binary, const Value &left,
                     const Value &right) {
    const bool isDecided =
        !left.isFaulty() && ((binary.text == "&&" && left.number.bits == 0) ||
                             (binary.text == "||" && left.number.bits != 0));
    if (left.isFaulty())
      return left;
    if (right.isFaulty() && !isDecided)
      return right;
    Value value;
    if (!binary.apply(left.number, right.number, value.number))
      value.fault = "it divides by zero";
    return value;
  }

  Value parseUnary() {
    const Level level(depth);
    if (depth > deepestExpression)
      return giveUp();
    if (take("-"))
      return map(parseUnary(), negate);
    if (take("+"))
      return parseUnary();
    if (take("!"))
      return map(parseUnary(), logicalNot);
    if (take("~"))
      return map(parseUnary(), complement);
    return parsePrimary();
  }

  static Value map(Value value, Number (*change)(const Number &)) {
    value.number = change(value.number);
    return value;
  }

  Value parsePrimary() {
    if (take("("))
      return parseParenthesized();
    if (take("$clog2"))
      return expect("(") ? map(parseParenthesized(), ceilingOfLog2) : Value{};
    if (findNameLength(rest) != 0)
      return parseName();
    return parseNumber();
  }

  Value parseParenthesized() {
    Value value = parseConditional();
    expect(")");
    return value;
  }

  Value parseNumber() {
    const std::string_view start = rest;
    Value value;
    switch (takeNumeral(rest, value.number)) {
    case NumeralFault::none:
      break;
    case NumeralFault::tooWide:
      return faulty("a number in it does not fit 64 bits");
    case NumeralFault::notOne:
    case NumeralFault::unknown:
      refuseFrom(start);
      break;
    }
    return value;
  }

  Value parseName() {
    const std::string_view name = rest.substr(0, findNameLength(rest));
    rest.remove_prefix(name.size());
    if (!names.isKnown(name))
      return faulty("there is no parameter " + quote(name));
    const ExpressionResult found = names.find(name, depth);
    Value value;
    value.number = found.number;
    if (found.kind == ExpressionResult::Kind::text)
      return faulty("the parameter " + quote(name) + " is no number");
    if (found.kind == ExpressionResult::Kind::fault)
      return faulty(found.fault);
    return value;
  }

  Value giveUp() {
    isTooDeep = true;
    rest = {};
    return {};
  }

  static Value faulty(std::string fault) {
    Value value;
    value.fault = std::move(fault);
    return value;
  }

  void skipBlanks() {
    constexpr const char *blanks = " \t\r\n";
    rest.remove_prefix(std::min(rest.find_first_not_of(blanks), rest.size()));
  }

  bool take(std::string_view token) {
    skipBlanks();
    if (rest.substr(0, token.size()) != token)
      return false;
    rest.remove_prefix(token.size());
    return true;
  }

  bool expect(std::string_view token) {
    const bool taken = take(token);
    if (!taken)
      refuseFrom(rest);
    return taken;
  }

  /// What the first fault is at is told.
  void refuseFrom(std::string_view place) {
    if (isExpression)
      refused = place;
    isExpression = false;
  }

  const std::string_view text;
  std::string_view rest;
  std::string_view refused;
  ExpressionNames &names;
  int depth;
  bool isExpression = true;
  bool isTooDeep = false;
};

} // namespace

std::string toText(const Number &number) {
  return number.isSigned
             ? std::to_string(static_cast<std::int64_t>(number.bits))
             : std::to_string(number.bits);
}

ExpressionResult evaluateExpression(std::string_view text,
                                    ExpressionNames &names, int depth) {
  const std::size_t nameLength = findNameLength(text);
  const bool isName = nameLength != 0 && nameLength == text.size();
  if (isName ||
      (text.find(' ') == std::string_view::npos && names.isKnown(text)))
    return evaluateName(text, names, depth);
  return Parser(text, names, depth).run();
}

} // namespace ZelDebugDialog

#include "expressions/Expression.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace ZelDebugDialog {
namespace {

using Names = std::vector<std::string>;

/// seven and se-ven are 7, word is text, broken has no value.
class TestNames : public ExpressionNames {
public:
  bool isKnown(std::string_view name) const override {
    return name == "seven" || name == "word" || name == "broken" ||
           name == "se-ven";
  }
  ExpressionResult find(std::string_view name, int) override {
    ExpressionResult result;
    if (name == "seven" || name == "se-ven") {
      result.kind = ExpressionResult::Kind::number;
      result.number.bits = 7;
    } else if (name == "word") {
      result.text = std::make_shared<const std::string>("some text");
    } else {
      result.kind = ExpressionResult::Kind::fault;
      result.fault = "parameter 'broken' has no value";
    }
    return result;
  }
};

/// The value; "text" with the text of a name behind it; or "! " and the fault.
std::string evaluate(const std::string &text) {
  TestNames names;
  const ExpressionResult result = evaluateExpression(text, names);
  switch (result.kind) {
  case ExpressionResult::Kind::number:
    return toText(result.number);
  case ExpressionResult::Kind::text:
    return result.text == nullptr ? "text" : "text " + *result.text;
  case ExpressionResult::Kind::fault:
    return "! " + result.fault;
  }
  return "";
}

struct Row {
  const char *text;
  const char *value;
};

void check(const Row *first, const Row *last) {
  for (; first != last; ++first)
    EXPECT_EQ(evaluate(first->text), first->value) << first->text;
}

TEST(Expression, GivesNumbers) {
  const Row rows[] = {
      {"12", "12"},
      {" 12 ", "12"},
      {"'h0008_0200", "524800"},
      {"32'h1c0ffee1", "470810337"},
      {"64'hf79780bc735f3843", "17840869995729336387"},
      {"seven", "7"},
      {"(seven)", "7"},
      {"se-ven", "7"},
      {"( ( 1 ) )", "1"},
      {"'h400-'h0100", "768"},
      {"'h10 - 'h20", "-16"},
      {"1 +2", "3"},
      {"7 - 10", "-3"},
      {"6*7", "42"},
      {"7/2", "3"},
      {"-7/2", "-3"},
      {"7/-2", "-3"},
      {"-7/-2", "3"},
      {"7%3", "1"},
      {"-7%3", "-1"},
      {"7%-3", "1"},
      {"64'hffffffffffffffff / 2", "9223372036854775807"},
      {"64'hffffffffffffffff % 10", "5"},
      {"-9223372036854775807 - 1", "-9223372036854775808"},
      {"-9223372036854775808", "-9223372036854775808"},
      {"-9223372036854775809", "9223372036854775807"},
      {"9223372036854775808", "9223372036854775808"},
      {"(-9223372036854775807 - 1) / -1", "-9223372036854775808"},
      {"(-9223372036854775807 - 1) % -1", "0"},
      {"9223372036854775807 + 1", "-9223372036854775808"},
      {"2**10", "1024"},
      {"2**0", "1"},
      {"2**64", "0"},
      {"2**-1", "0"},
      {"1**-5", "1"},
      {"(-1)**-3", "-1"},
      {"(-1)**-2", "1"},
      {"(-2)**3", "-8"},
      {"1<<28", "268435456"},
      {"1<<<3", "8"},
      {"1<<63", "-9223372036854775808"},
      {"1<<64", "0"},
      {"256>>4", "16"},
      {"256>>64", "0"},
      {"-1>>60", "15"},
      {"-16>>>2", "-4"},
      {"16>>>2", "4"},
      {"-1>>>64", "-1"},
      {"1<2", "1"},
      {"2<2", "0"},
      {"-1<1", "1"},
      {"1<-1", "0"},
      {"64'hffffffffffffffff<1", "0"},
      // One of the two without a sign takes it from the other.
      {"-1<64'hfffffffffffffffe", "0"},
      {"64'hfffffffffffffffe<-1", "1"},
      {"-1/64'hfffffffffffffffe", "1"},
      {"-1%64'hfffffffffffffffe", "1"},
      {"1*64'hfffffffffffffffe", "18446744073709551614"},
      {"-1+64'hfffffffffffffffe", "18446744073709551613"},
      {"64'hfffffffffffffffe-0", "18446744073709551614"},
      {"-1&64'hfffffffffffffffe", "18446744073709551614"},
      {"0|64'hfffffffffffffffe", "18446744073709551614"},
      {"0^64'hfffffffffffffffe", "18446744073709551614"},
      {"2<=2", "1"},
      {"3<=2", "0"},
      {"3>2", "1"},
      {"2>2", "0"},
      {"2>=2", "1"},
      {"1>=2", "0"},
      {"2==2", "1"},
      {"2==3", "0"},
      {"2!=3", "1"},
      {"2!=2", "0"},
      {"12&10", "8"},
      {"12|10", "14"},
      {"12^10", "6"},
      {"2&&3", "1"},
      {"2&&0", "0"},
      {"0||3", "1"},
      {"0||0", "0"},
      {"-5", "-5"},
      {"+5", "5"},
      {"- -5", "5"},
      {"!5", "0"},
      {"!0", "1"},
      {"~0", "-1"},
      {"~'hff & 'hfff", "3840"},
      {"1?2:3", "2"},
      {"0?2:3", "3"},
      {"seven>5 ? seven : 5", "7"},
      {"0?1:0?2:3", "3"},
      {"$clog2(0)", "0"},
      {"$clog2(1)", "0"},
      {"$clog2(2)", "1"},
      {"$clog2(1024)", "10"},
      {"$clog2(1025)", "11"},
      {"$clog2 ( seven + 2 )", "4"},
  };
  check(std::begin(rows), std::end(rows));
}

TEST(Expression, BindsAsTightlyAsTheLanguageSays) {
  const Row rows[] = {
      {"2*3**2", "18"},   {"-2**2", "4"},          {"2+3*4", "14"},
      {"(2+3)*4", "20"},  {"1<<2+1", "8"},         {"1<2<<1", "1"},
      {"3==2<4", "0"},    {"6&3==3", "0"},         {"1^3&2", "3"},
      {"1|3^2", "1"},     {"0&&1|1", "0"},         {"1||0&&0", "1"},
      {"10-3-2", "5"},    {"100/5/2", "10"},       {"2**3**2", "64"},
      {"1?2:0?3:4", "2"}, {"0 || 1 ? 5 : 6", "5"},
  };
  check(std::begin(rows), std::end(rows));
}

struct Operator {
  const char *text;
  int level; ///< Of two beside each other the higher one binds, or the first.
};

/// Operands for which it makes a difference how the operators are bound.
bool findTelling(const std::string &left, const std::string &right,
                 std::string &plain, std::string &early, std::string &late) {
  const std::string operands[] = {"0", "1", "2", "3", "6"};
  for (const std::string &a : operands)
    for (const std::string &b : operands)
      for (const std::string &c : operands) {
        plain = evaluate(a + left + b + right + c);
        early = evaluate("(" + a + left + b + ")" + right + c);
        late = evaluate(a + left + "(" + b + right + c + ")");
        if (early != late && early[0] != '!' && late[0] != '!')
          return true;
      }
  return false;
}

TEST(Expression, BindsEachOperatorBesideEach) {
  const Operator operators[] = {
      {"**", 11}, {"*", 10}, {"/", 10},  {"%", 10},  {"+", 9}, {"-", 9},
      {"<<", 8},  {">>", 8}, {"<<<", 8}, {">>>", 8}, {"<", 7}, {"<=", 7},
      {">", 7},   {">=", 7}, {"==", 6},  {"!=", 6},  {"&", 5}, {"^", 4},
      {"|", 3},   {"&&", 2}, {"||", 1},
  };
  Names same; // of different levels, and nothing tells
  for (const Operator &left : operators)
    for (const Operator &right : operators) {
      const std::string both = std::string(left.text) + " " + right.text;
      std::string plain;
      std::string early;
      std::string late;
      if (findTelling(left.text, right.text, plain, early, late))
        EXPECT_EQ(plain, left.level >= right.level ? early : late) << both;
      else if (left.level != right.level)
        same.push_back(both);
    }
  EXPECT_EQ(same, (Names{"* <<", "* <<<", "% ==", "|| **"}));
}

TEST(Expression, LeavesTextAlone) {
  const Row rows[] = {
      {"", "text"},
      {"hello", "text"},
      {"hello world", "text"},
      {"ibex_pkg::RV32MFast", "text"},
      {"\"quoted\"", "text"},
      {"1.5", "text"},
      {"12zz", "text"},
      {"0x", "text"},
      {"4'hx", "text"},
      {"(1", "text"},
      {"1)", "text"},
      {"1 2", "text"},
      {"1 +", "text"},
      {"? 1 : 2", "text"},
      {"1 ? 2", "text"},
      {"1 = 2", "text"},
      {"$clog2", "text"},
      {"$clog2 4", "text"},
      {"$log2(4)", "text"},
      // What looks like a name is part of something else.
      {"\"seven\" [", "text"},
      {"$seven(1)", "text"},
      {"1seven", "text"},
      {"'seven [", "text"},
      {"sevens [", "text"},
      {"word", "text some text"},
  };
  check(std::begin(rows), std::end(rows));
}

TEST(Expression, SaysWhyThereIsNoValue) {
  const Row rows[] = {
      {"1/0", "! it divides by zero"},
      {"1%0", "! it divides by zero"},
      {"0**-1", "! it divides by zero"},
      {"1/(seven-7)", "! it divides by zero"},
      {"hello+1", "! there is no parameter 'hello'"},
      {"a-b", "! there is no parameter 'a'"},
      {"(se-ven)", "! there is no parameter 'se'"},
      {"1+word", "! the parameter 'word' is no number"},
      {"broken", "! parameter 'broken' has no value"},
      {"broken*2", "! parameter 'broken' has no value"},
      {"-broken", "! parameter 'broken' has no value"},
      {"broken ? 1 : 2", "! parameter 'broken' has no value"},
      {"seven +", "! it is no expression from '' on"},
      {"seven ! 2", "! it is no expression from '! 2' on"},
      {"|seven", "! it is no expression from '|seven' on"},
      {"$ceil(seven/8)", "! it is no expression from '$ceil(seven/8)' on"},
      {"2 * $max(seven,3)", "! it is no expression from '$max(seven,3)' on"},
      {"{seven,1}", "! it is no expression from '{seven,1}' on"},
      {"1.5*seven", "! it is no expression from '.5*seven' on"},
      {"\"fast\" == word", "! it is no expression from '\"fast\" == word' on"},
      {"\"open seven", "! it is no expression from '\"open seven' on"},
      {"4'hx + seven", "! it is no expression from '4'hx + seven' on"},
      {"int'(seven/2)", "! it is no expression from ''(seven/2)' on"},
      {"18446744073709551616", "! a number in it does not fit 64 bits"},
      {"1+128'h14e8cecae3040d5e12286bb3cc113298",
       "! a number in it does not fit 64 bits"},
  };
  check(std::begin(rows), std::end(rows));
}

TEST(Expression, NeedsNoValueThatIsNotUsed) {
  const Row rows[] = {
      {"seven==0 ? 1/0 : 5", "5"},
      {"1 ? 5 : broken", "5"},
      {"0 && broken", "0"},
      {"1 || broken", "1"},
      {"1 && broken", "! parameter 'broken' has no value"},
      {"0 || broken", "! parameter 'broken' has no value"},
      {"broken && 0", "! parameter 'broken' has no value"},
  };
  check(std::begin(rows), std::end(rows));
}

TEST(Expression, RemarksOnANameAloneThatIsUnknown) {
  TestNames names;
  EXPECT_EQ(evaluateExpression("eight", names).fault,
            "there is no parameter 'eight'");
  EXPECT_EQ(evaluateExpression("two words", names).fault, "");
}

std::string repeat(const std::string &text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i)
    all += text;
  return all;
}

TEST(Expression, EndsAtADepthThatIsBounded) {
  const std::string tooDeep = "! it goes more than 256 levels deep";
  EXPECT_EQ(evaluate(repeat("(", 100) + "1" + repeat(")", 100)), "1");
  // A sign is one level deeper, what stands in brackets two.
  EXPECT_EQ(evaluate(repeat("-", 254) + "1"), "1");
  EXPECT_EQ(evaluate(repeat("-", 255) + "1"), tooDeep);
  EXPECT_EQ(evaluate(repeat("(", 127) + "1" + repeat(")", 127)), "1");
  EXPECT_EQ(evaluate(repeat("(", 128) + "1" + repeat(")", 128)), tooDeep);
  EXPECT_EQ(evaluate(repeat("(", 100000)), tooDeep);
  EXPECT_EQ(evaluate(repeat("-", 100000) + "1"), tooDeep);
  EXPECT_EQ(evaluate(repeat("!(", 100000) + "1"), tooDeep);
  EXPECT_EQ(evaluate(repeat("1?", 100000) + "1"), tooDeep);
  EXPECT_EQ(evaluate(repeat("$clog2(", 100000) + "1"), tooDeep);
}

TEST(Expression, IsAsLongAsItLikes) {
  EXPECT_EQ(evaluate("0" + repeat("+1", 100000)), "100000");
}

TEST(Expression, IsTextWhenSigned) {
  EXPECT_EQ(toText(Number{~std::uint64_t{0}, true}), "-1");
  EXPECT_EQ(toText(Number{~std::uint64_t{0}, false}), "18446744073709551615");
}

} // namespace
} // namespace ZelDebugDialog

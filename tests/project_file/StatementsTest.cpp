// The statements of a text, and the bytes of each.
#include "toml/Statements.h"

#include <gmock/gmock.h>

namespace {

using namespace ZelDebugDialog::project;
using testing::ElementsAre;

std::vector<std::string> shown(const std::string &text) {
  std::vector<std::string> lines;
  for (const Statement &one : statementsOf(text)) {
    const auto bytes = [&text](const Span &span) {
      return text.substr(span.begin, span.end - span.begin);
    };
    std::string line = one.kind == Statement::Kind::pair ? "" : "header ";
    for (const std::string &part : one.path)
      line += "<" + part + ">";
    if (one.kind == Statement::Kind::pair)
      line += "=" + bytes(one.value);
    lines.push_back(line);
  }
  return lines;
}

TEST(Statements, HaveAPathAndAValue) {
  EXPECT_THAT(shown("# c\n\n a.\"b.c\" . 'd' = \"x#y\" # z\r\n[ t . u ]#\n"
                    "n=1\n[[v]]\n"),
              ElementsAre("<a><b.c><d>=\"x#y\"", "header <t><u>", "<n>=1",
                          "header <v>"));
  EXPECT_THAT(shown("a = [ # ]\n 1, ']', [2] ]\nb = {c=\"}\"}\n"),
              ElementsAre("<a>=[ # ]\n 1, ']', [2] ]", "<b>={c=\"}\"}"));
  EXPECT_THAT(
      shown("a = \"\"\"x\n\"\"y\"\"\"\"\nb = '''\n'c''''\nd=1"),
      ElementsAre("<a>=\"\"\"x\n\"\"y\"\"\"\"", "<b>='''\n'c''''", "<d>=1"));
  EXPECT_THAT(shown("\"\\u00e9\\\"\" = 1979-05-27 07:32:00 # d\n"),
              ElementsAre("<\xC3\xA9\">=1979-05-27 07:32:00"));
}

TEST(Statements, WriteKeysAndTexts) {
  EXPECT_EQ(writtenPath({"processor", "a_9-B", "a.b", ""}),
            "processor.a_9-B.\"a.b\".\"\"");
  EXPECT_EQ(writtenText("a\"\\\n\x01"), "\"a\\\"\\\\\\n\\u0001\"");
  EXPECT_EQ(writtenText("a\"\\", '\''), "'a\"\\'");
  EXPECT_EQ(writtenText("a'", '\''), "\"a'\"");
}

} // namespace

// Every word that is ever shown in brackets.
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "ZelDebugDialog/ConfigurationModel/Codes.h"
#include "commands/CodeRows.h"

namespace {

using namespace ZelDebugDialog;

std::vector<std::string> anchorsOfThePage() {
  const std::string front = "<a id=\"";
  std::ifstream page(ROUND_TRIP_PAGE);
  std::vector<std::string> anchors;
  for (std::string line; std::getline(page, line);)
    if (line.compare(0, front.size(), front) == 0)
      anchors.push_back(line.substr(front.size(), line.find('"', front.size()) -
                                                      front.size()));
  return anchors;
}

TEST(Codes, OfLossesAreTheAnchorsOfTheRoundTripPage) {
  std::vector<std::string> codes;
  for (const Code &row : GetCodes())
    if (row.severity == CodeSeverity::loss)
      codes.push_back(row.code);
  EXPECT_EQ(codes.size(), 32U);
  EXPECT_EQ(codes, anchorsOfThePage());
}

TEST(Codes, AreUniqueAndSayEverything) {
  std::set<std::string> codes;
  bool isLoss = false;
  for (const Code &row : GetCodes()) {
    EXPECT_TRUE(codes.insert(row.code).second) << row.code;
    EXPECT_NE(row.summary, "") << row.code;
    EXPECT_EQ(row.meaning.back(), '.') << row.code;
    EXPECT_EQ(row.advice.back(), '.') << row.code;
    const bool isDiagnostic = row.severity != CodeSeverity::loss;
    EXPECT_FALSE(isDiagnostic && row.example.empty()) << row.code;
    EXPECT_FALSE(isDiagnostic && isLoss) << "diagnostics come first";
    isLoss = !isDiagnostic;
  }
}

TEST(Codes, AreFoundByTheirWholeName) {
  ASSERT_NE(FindCode("value-cut"), nullptr);
  EXPECT_EQ(FindCode("value-cut")->code, "value-cut");
  EXPECT_EQ(FindCode("frequency")->severity, CodeSeverity::loss);
  for (const char *unknown : {"", "value-cu", "value-cutt", "VALUE-CUT", " "})
    EXPECT_EQ(FindCode(unknown), nullptr) << unknown;
}

TEST(Codes, HaveOneForEachFaultOfTheReader) {
  std::set<std::string> codes;
  const int last = static_cast<int>(CommandFaultKind::loneDash);
  for (int kind = 0; kind <= last; ++kind) {
    const Code &code = model::codeOf(static_cast<CommandFaultKind>(kind));
    EXPECT_EQ(code.severity, CodeSeverity::error) << code.code;
    EXPECT_TRUE(codes.insert(code.code).second) << code.code;
  }
  EXPECT_EQ(codes.size(), 16U);
}

TEST(Codes, SayHowMuchTheyMatter) {
  EXPECT_STREQ(ShowSeverity(CodeSeverity::error), "error");
  EXPECT_STREQ(ShowSeverity(CodeSeverity::warning), "warning");
  EXPECT_STREQ(ShowSeverity(CodeSeverity::loss), "loss");
}

} // namespace

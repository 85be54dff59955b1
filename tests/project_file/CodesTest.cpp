#include <set>

#include <gmock/gmock.h>

#include "ZelDebugDialog/ProjectFile/Codes.h"
#include "project_file/ProjectTest.h"

namespace {

using namespace ZelDebugDialog;

TEST(ProjectCodes, EachIsThereOnceWithAllThatIsSaidOfIt) {
  std::set<std::string> seen;
  for (const ProjectCode &code : GetProjectCodes()) {
    EXPECT_TRUE(seen.insert(code.code).second) << code.code;
    EXPECT_FALSE(code.meaning.empty()) << code.code;
    EXPECT_FALSE(code.advice.empty()) << code.code;
    EXPECT_EQ(FindProjectCode(code.code), &code);
  }
  EXPECT_EQ(FindProjectCode("unknown-kez"), nullptr);
}

TEST(ProjectCodes, ExamplesOfSingleFilesHaveThem) {
  for (const ProjectCode &code : GetProjectCodes()) {
    const bool isOfDesign = code.example.compare(0, 10, "[processor") == 0 ||
                            code.example.compare(0, 5, "[type") == 0 ||
                            code.severity == ProjectSeverity::note;
    if (code.example.empty() || isOfDesign)
      continue;
    const bool hasTable =
        code.example.front() == '[' || code.example.compare(0, 4, "use.") == 0;
    const Project project =
        project_test::read((hasTable ? "" : "[settings]\n") + code.example);
    ASSERT_FALSE(project.faults.empty()) << code.code;
    EXPECT_EQ(project.faults.front().code, code.code) << code.example;
  }
}

} // namespace

// Subcommands that take DESIGN, where the project names it.
#include <gmock/gmock.h>

#include "ProjectTest.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

using nlohmann::json;
using testing::HasSubstr;

/// A line without DESIGN, and where that would stand.
struct Row {
  std::vector<std::string> before; ///< with the option, if it is one
  std::vector<std::string> behind;

  std::vector<std::string>
  with(const std::vector<std::string> &between,
       const std::vector<std::string> &more = {}) const {
    std::vector<std::string> line = before;
    line.insert(line.end(), between.begin(), between.end());
    line.insert(line.end(), behind.begin(), behind.end());
    line.insert(line.end(), more.begin(), more.end());
    return line;
  }
};

const std::vector<Row> &rows() {
  static const std::vector<Row> all{
      {{"list"}, {}},
      {{"design"}, {}},
      {{"design", "--graph"}, {}},
      {{"kinds"}, {}},
      {{"command"}, {"lumacore_0", "--debug-device", "4"}},
      {{"set"}, {"lumacore_0", "--debug-device", "4", "--dry-run", "--mkdir"}},
      {{"show"}, {"lumacore_0", "--saved"}},
      {{"check", "connect lc hdu", "--design"}, {"--processor", "lumacore_2"}},
  };
  return all;
}

/// The line of a row without its design.
std::vector<std::string> left(const Row &row,
                              const std::vector<std::string> &more = {}) {
  Row without = row;
  if (without.before.back() == "--design")
    without.before.pop_back();
  return without.with({}, more);
}

class DesignLeftOutTest : public ProjectTest {};

TEST_F(DesignLeftOutTest, TheProjectNamesIt) {
  project("");
  for (const Row &row : rows()) {
    const Result named = run(row.with({"hw/board.xml"}));
    const Result found = run(left(row));
    SCOPED_TRACE(testing::PrintToString(left(row)));
    EXPECT_NE(named.out, "");
    EXPECT_EQ(found.out, named.out);
    EXPECT_EQ(found.status, named.status) << found.err;
    // Also where it is found from below, or named.
    EXPECT_EQ(run(left(row, {"-C", "hw"})).out, named.out);
    EXPECT_EQ(run(left(row, {"--project", "zeldebug.toml"})).out, named.out);
  }
}

TEST_F(DesignLeftOutTest, OneOrTheOther) {
  project("[profile.slow.settings]\n");
  for (const Row &row : rows()) {
    SCOPED_TRACE(testing::PrintToString(left(row)));
    const Result both =
        run(row.with({"hw/board.xml"}, {"--project", "zeldebug.toml"}));
    EXPECT_EQ(both.status, 2);
    EXPECT_EQ(both.err, "zeldebug: error: --project: it names the design; "
                        "leave DESIGN out\n");
    EXPECT_EQ(run(row.with({"hw/board.xml"}, {"--profile", "slow"})).status, 2);
    EXPECT_EQ(run(left(row, {"--no-project"})).status, 2);
    EXPECT_EQ(
        run(left(row, {"--no-project", "--project", "zeldebug.toml"})).status,
        2);
    const Result unknown = run(left(row, {"--profile", "slwo"}));
    EXPECT_EQ(unknown.status, 2);
    EXPECT_THAT(unknown.err, HasSubstr("did you mean 'slow'?"));
  }
}

TEST_F(DesignLeftOutTest, WithoutAProjectTheMessageNamesInit) {
  for (const Row &row : rows()) {
    SCOPED_TRACE(testing::PrintToString(left(row)));
    const Result none = run(left(row));
    EXPECT_EQ(none.status, 2);
    EXPECT_THAT(none.err, HasSubstr("there is no zeldebug.toml in '.' nor "
                                    "above it: give DESIGN, or make one with "
                                    "'zeldebug init DESIGN'"));
    EXPECT_EQ(none.out, "");
  }
}

TEST_F(DesignLeftOutTest, WithOneOnTheLineTheProjectIsNotRead) {
  folder.write("zeldebug.toml", "desing = 1\n");
  for (const Row &row : rows()) {
    SCOPED_TRACE(testing::PrintToString(left(row)));
    EXPECT_NE(run(row.with({"hw/board.xml"})).status, 3);
    EXPECT_NE(run(row.with({"hw/board.xml"}, {"--no-project"})).status, 3);
    const json faulty = runJson(left(row), 3);
    EXPECT_EQ(faulty["failure"]["code"], "unknown-key");
    EXPECT_EQ(faulty["faults"].size(), 2U);
  }
}

/// A name that the design does not have is what a person looks up there.
TEST_F(DesignLeftOutTest, TheDesignIsShownWhateverTheFilesSayOfItsProcessors) {
  project("[processor.nobody]\n");
  EXPECT_EQ(run({"list"}).status, 0);
  EXPECT_EQ(run({"design"}).status, 0);
  EXPECT_EQ(run({"kinds"}).status, 0);
  EXPECT_EQ(run({"command", "lumacore_0"}).status, 3);
}

TEST_F(DesignLeftOutTest, ACommandStartsFromWhatTheProjectSays) {
  project("[settings]\ndebugDevice = 3\n");
  EXPECT_EQ(run({"command", "lumacore_0"}).out,
            "connect lc hdu -debugdevice deviceNr 3 cpunr 1\n");
  const json command = runJson({"command", "lumacore_0"});
  EXPECT_EQ(command["project"], "zeldebug.toml");
  // As with `set`, from the option file where there is one.
  save("lumacore_0", "connect lc hdu -debugdevice deviceNr 5 cpunr 1");
  EXPECT_EQ(run({"command", "lumacore_0"}).out,
            "connect lc hdu -debugdevice deviceNr 5 cpunr 1\n");
  EXPECT_EQ(run({"command"}).status, 2);
}

TEST_F(DesignLeftOutTest, ACheckWithoutAProcessorAsksNoProject) {
  project("");
  EXPECT_EQ(run({"check", "connect lc hdu"}).status, 0);
  EXPECT_EQ(
      run({"check", "connect lc hdu", "--project", "zeldebug.toml"}).status, 2);
  EXPECT_EQ(
      run({"check", "connect lc hdu", "--processor", "lumacore_2"}).status, 1);
}

TEST_F(DesignLeftOutTest, AnUnknownViewIsToldAtItsPlace) {
  folder.write("zeldebug.toml",
               "design = \"hw/board.xml\"\nview = \"inside\"\n");
  const std::string message = "'inside' is the view of no component; there are "
                              "no views in this design";
  for (const char *const subcommand : {"list", "sync"}) {
    const json failed = runJson({subcommand}, 3);
    EXPECT_EQ(failed["faults"][0], json({{"file", "zeldebug.toml"},
                                         {"line", 2},
                                         {"column", 8},
                                         {"code", "bad-value"},
                                         {"message", message},
                                         {"accepted", json::array()},
                                         {"suggestion", nullptr}}));
  }
  EXPECT_EQ(run({"list"}).err, "zeldebug: error: zeldebug.toml:2:8: " +
                                   message + " [bad-value]\n");
  // The line's own is the line's fault.
  EXPECT_EQ(run({"list", "--view", "outside"}).status, 2);
}

} // namespace
} // namespace tool

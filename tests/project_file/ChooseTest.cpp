// Project, local file, environment, line.
#include "project_file/ProjectTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace project_test;

constexpr const char *probes = "[probe.a]\n[probe.b]\n[probe.c]\n[probe.d]\n";

struct Row {
  std::string project;
  std::string local;
  std::string environment;
  std::optional<std::string> option;
  std::string expected; ///< "name by"
};

TEST(Choosing, TheLastOneThatSaysSomethingCounts) {
  const std::vector<Row> rows{
      {"", "", "", {}, " "},
      {"a", "", "", {}, "a project"},
      {"a", "b", "", {}, "b local"},
      {"a", "b", "c", {}, "c environment"},
      {"a", "b", "c", "d", "d option"},
      {"", "", "", "d", "d option"},
      {"a", "none", "", {}, " local"},
      {"none", "b", "", {}, "b local"},
      {"a", "b", "none", {}, " environment"},
      {"a", "b", "c", "none", " option"},
      {"a", "", "unknown", "d", "d option"},
  };
  for (const Row &row : rows) {
    const auto use = [](const std::string &name) {
      return name.empty() ? name : "use.probe = \"" + name + "\"\n";
    };
    const Project project = read(use(row.project) + probes, use(row.local));
    ProjectWishes wishes;
    wishes.environmentProbe = row.environment;
    wishes.probe = row.option;
    const ProjectChosen chosen = ChooseProject(project, wishes).probe;
    EXPECT_EQ(chosen.name + " " + chosen.by, row.expected)
        << row.project << " " << row.local << " " << row.environment;
  }
}

TEST(Choosing, RefusesNamesOfLineAndEnvironmentThatAreNone) {
  const Project project = read("[probe.lab]\n[profile.slow]\n");
  ProjectWishes wishes;
  wishes.probe = "lav";
  EXPECT_EQ(model_test::refusalOf([&] { ChooseProject(project, wishes); }),
            "bad-value: --probe: 'lav' is no probe of the project; did you "
            "mean 'lab'?");
  wishes = {};
  wishes.environmentProfile = "x";
  EXPECT_EQ(model_test::refusalOf([&] { ChooseProject(project, wishes); }),
            "bad-value: ZELDEBUG_PROFILE: 'x' is no profile of the project; "
            "accepted are 'slow', 'none'");
  wishes.environmentProfile = "slow";
  wishes.probe = "";
  EXPECT_EQ(model_test::refusalOf([&] { ChooseProject(project, wishes); }),
            "bad-value: --probe: '' is no probe of the project; accepted are "
            "'lab', 'none'");
}

} // namespace

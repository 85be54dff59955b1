// Where a design's components are looked for, which view of a hierarchy is
// taken, what plays the part of what, and how much is read: --library, --view,
// --kinds and --max-instances.
#include <filesystem>

#include <gmock/gmock.h>

#include "ToolTest.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;

class DesignOptionsTest : public ToolTest {
protected:
  /// Names of the processors that can be debugged.
  std::vector<std::string> debuggable(std::vector<std::string> line) {
    line.insert(line.begin(), "list");
    std::vector<std::string> names;
    const json document = runJson(line);
    for (const json &processor : document["processors"])
      names.push_back(processor["instanceName"]);
    return names;
  }

  const fs::path examples = fs::path(board).parent_path();
  const std::string components = (examples / "components").string();
  const std::string buses = (examples / "buses").string();
};

TEST_F(DesignOptionsTest, LibrariesAreLookedThroughForComponents) {
  fs::create_directory("alone");
  fs::copy_file(board, "alone/board.xml");
  // Without its components nothing is connected to anything: these processors
  // need no debug module.
  const std::vector<std::string> alone{"lumacore_0", "lumacore_1", "lumacore_2",
                                       "a9_0", "a9_1"};
  EXPECT_EQ(debuggable({"alone/board.xml"}), alone);
  const json without = runJson({"list", "alone/board.xml"});
  EXPECT_THAT(without["processors"][0]["connections"], ElementsAre("sim"));
  const json with = runJson(
      {"list", "alone/board.xml", "--library", components, "--library", buses});
  EXPECT_EQ(with, runJson({"list", board}));
  // A library is looked through instead of the design's own folder.
  fs::create_directory("empty");
  EXPECT_EQ(debuggable({board, "--library=empty"}), alone);
}

TEST_F(DesignOptionsTest, EverySubcommandWithADesignTakesLibraries) {
  fs::create_directories("alone/etc");
  fs::copy_file(board, "alone/board.xml");
  const std::vector<std::string> rest{"--library", components, "--library",
                                      buses,       "-C",       "alone"};
  const auto line = [&rest](std::vector<std::string> words) {
    words.insert(words.end(), rest.begin(), rest.end());
    return words;
  };
  EXPECT_EQ(run(line({"command", "alone/board.xml", "ppc405_0"})).out,
            "connect ppc hw -debugdevice cpunr 1 fpuType sp\n");
  EXPECT_EQ(run(line({"set", "alone/board.xml", "ppc405_0"})).status, 0);
  EXPECT_EQ(runJson(line(
                {"show", "alone/board.xml", "ppc405_0"}))["record"]["fpuType"],
            1);
  EXPECT_EQ(runJson(line({"design", "alone/board.xml"}))["debugModules"].size(),
            runJson({"design", board})["debugModules"].size());
  EXPECT_EQ(run({"complete", "--", "set", "alone/board.xml", "--library",
                 components, "--library", buses, "a9"})
                .out,
            "a9_0\na9_1\n");
}

TEST_F(DesignOptionsTest, ALibraryThatIsNotThere) {
  const Result run = this->run({"list", board, "--library", "nowhere"});
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err,
            "zeldebug: error: nowhere: there is no such library folder "
            "or catalog\n");
}

/// A design with an error, and a kind table with two warnings.
void writeHoles(support::TemporaryDirectory &folder) {
  folder.write("holes.xml",
               "<design><vendor>x</vendor><library>y</library>"
               "<name>holes</name><version>1</version>\n"
               "<componentInstances><componentInstance>\n"
               "<instanceName>cpu</instanceName>\n"
               "<componentRef vendor='x' library='y' name='absent' "
               "version='1'/>\n"
               "</componentInstance></componentInstances></design>");
  folder.write("odd.kinds", "x:y:absent:1 processor lumacor\n"
                            "x:y:other:1 processor lumacore\n");
}

TEST_F(DesignOptionsTest, DiagnosticsAreToldByTheirSeverity) {
  writeHoles(folder);
  const Result run = this->run(
      {"design", "holes.xml", "--kinds", "odd.kinds", "--view", "middle"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err,
            "zeldebug: warning: odd.kinds:1: the debugger knows no processor "
            "of type 'lumacor'; did you mean 'lumacore'?\n"
            "zeldebug: error: holes.xml:4: instance 'cpu': component "
            "'x:y:absent:1' is not found\n"
            "zeldebug: warning: holes.xml: no component of the design has "
            "the view 'middle'\n"
            "zeldebug: warning: odd.kinds:2: no component of the design or its "
            "libraries fits 'x:y:other:1'\n");
}

TEST_F(DesignOptionsTest, DiagnosticsAreCountedByOtherCommands) {
  writeHoles(folder);
  const Result one = run({"list", "holes.xml"});
  EXPECT_EQ(one.status, 0);
  EXPECT_EQ(one.err,
            "zeldebug: warning: reading the design left 1 error; 'zeldebug "
            "design holes.xml' shows it\n");
  const Result more = run({"list", "holes.xml", "--kinds", "odd.kinds",
                           "--library", ".", "--max-instances", "7"});
  EXPECT_EQ(more.err,
            "zeldebug: warning: reading the design left 1 error, 2 warnings; "
            "'zeldebug design holes.xml --library . --kinds odd.kinds "
            "--max-instances 7' shows them\n");
  const json document = runJson({"list", "holes.xml", "--kinds", "odd.kinds"});
  ASSERT_EQ(document["diagnostics"].size(), 3u);
  EXPECT_EQ(document["diagnostics"], runJson({"design", "holes.xml", "--kinds",
                                              "odd.kinds"})["diagnostics"]);
  EXPECT_EQ(document["diagnostics"][1]["line"], 4);
  EXPECT_EQ(document["diagnostics"][1]["severity"], "error");
  EXPECT_EQ(run({"list", board}).err, "");
  EXPECT_EQ(runJson({"list", board})["diagnostics"], json::array());
}

TEST_F(DesignOptionsTest, WarningsOfADesignAreFailuresWhereTheyAreAskedToBe) {
  writeHoles(folder);
  EXPECT_EQ(run({"list", "holes.xml", "--strict"}).status, 1);
  EXPECT_EQ(run({"list", board, "--strict"}).status, 0);
}

TEST_F(DesignOptionsTest, AKindTableGivesPartsToPlay) {
  folder.write("own.kinds", "# the small core plays a Lumacore\n"
                            "example.org:board:soc_cortexr5:*  processor  "
                            "lumacore\n");
  EXPECT_THAT(debuggable({board}), testing::Not(testing::Contains("r5_0")));
  EXPECT_THAT(debuggable({board, "--kinds", "own.kinds"}),
              testing::Contains("r5_0"));
  EXPECT_EQ(run({"command", board, "r5_0", "--kinds", "own.kinds",
                 "--connection", "sim"})
                .out,
            "connect lc sim\n");
  EXPECT_EQ(
      run({"complete", "--", "show", board, "--kinds", "own.kinds", "r5"}).out,
      "r5_0\n");
}

TEST_F(DesignOptionsTest, AKindTableThatCannotBeUnderstood) {
  folder.write("own.kinds", "\nexample.org:board:x:*  cpu  lumacore\n");
  const Result damaged = run({"list", board, "--kinds", "own.kinds"});
  EXPECT_EQ(damaged.status, 3);
  EXPECT_EQ(damaged.err,
            "zeldebug: error: own.kinds:2: 'cpu' is no kind; the kinds are "
            "processor, debug-module and other\n");
  const Result missing = run({"list", board, "--kinds", "nowhere"});
  EXPECT_EQ(missing.status, 3);
  EXPECT_THAT(missing.err, HasSubstr("nowhere"));
}

TEST_F(DesignOptionsTest, AViewSaysWhatIsInside) {
  const auto name = [](const std::string &what) {
    return "<vendor>x</vendor><library>y</library><name>" + what +
           "</name><version>1</version>\n";
  };
  const auto design = [&](const std::string &what, const std::string &cpu) {
    folder.write(what + ".xml",
                 "<design>" + name(what) +
                     "<componentInstances><componentInstance><instanceName>" +
                     cpu +
                     "</instanceName><componentRef vendor='x' library='y' "
                     "name='lumacore' version='1'/></componentInstance>"
                     "</componentInstances></design>");
  };
  const auto view = [](const std::string &what) {
    return "<view><name>" + what + "</name><designInstantiationRef>" + what +
           "</designInstantiationRef></view>";
  };
  const auto instantiation = [](const std::string &what) {
    return "<designInstantiation><name>" + what +
           "</name><designRef vendor='x' library='y' name='" + what +
           "' version='1'/></designInstantiation>";
  };
  folder.write("lumacore.xml",
               "<component>" + name("lumacore") + "<cpus/></component>");
  design("small", "in_small");
  design("large", "in_large");
  folder.write("top.xml", "<component>" + name("top") + "<model><views>" +
                              view("small") + view("large") +
                              "</views><instantiations>" +
                              instantiation("small") + instantiation("large") +
                              "</instantiations></model></component>");
  EXPECT_THAT(debuggable({"top.xml"}), ElementsAre("in_small"));
  EXPECT_THAT(debuggable({"top.xml", "--view", "small"}),
              ElementsAre("in_small"));
  EXPECT_THAT(debuggable({"top.xml", "--view", "large"}),
              ElementsAre("in_large"));
  EXPECT_EQ(
      run({"complete", "--", "show", "top.xml", "--view", "large", ""}).out,
      "in_large\n");
}

TEST_F(DesignOptionsTest, AViewThatNoComponentHasIsRefused) {
  const auto refusalOf = [this](const std::string &name) {
    const Result run = this->run({"list", board, "--view", name});
    EXPECT_EQ(run.status, 2) << name;
    EXPECT_EQ(run.out, "") << name;
    return run.err;
  };
  EXPECT_EQ(refusalOf("middle"),
            "zeldebug: error: --view: 'middle' is the view of no component; "
            "there are no views in this design\n");
  folder.write("top.xml",
               "<component><vendor>x</vendor><library>y</library>"
               "<name>top</name><version>1</version><model><views>"
               "<view><name>small</name></view><view><name>large</name></view>"
               "</views></model></component>");
  folder.write("holder.xml",
               "<design><vendor>x</vendor><library>y</library>"
               "<name>holder</name><version>1</version><componentInstances>"
               "<componentInstance><instanceName>a</instanceName>"
               "<componentRef vendor='x' library='y' name='top' version='1'/>"
               "</componentInstance></componentInstances></design>");
  const Result run = this->run({"list", "holder.xml", "--view", "larg"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(
      run.err,
      "zeldebug: error: --view: 'larg' is the view of no component; there "
      "are 'large', 'small'; did you mean 'large'?\n");
}

TEST_F(DesignOptionsTest, InstancesAreLimited) {
  const std::vector<std::string> all = debuggable({board});
  EXPECT_EQ(debuggable({board, "--max-instances", "1000"}), all);
  EXPECT_EQ(debuggable({board, "--max-instances", "100000000"}), all);
  EXPECT_EQ(debuggable({board, "--max-instances", "1"}),
            std::vector<std::string>{"lumacore_0"});
  const Result run = this->run({"design", board, "--max-instances", "0x1"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.err, HasSubstr("the design has more than 1 instances: "
                                 "instance 'lumacore_1' and what comes after "
                                 "it are left out\n"));
  EXPECT_EQ(this->run({"complete", "--", "show", board, "--max-instances", "1",
                       "lumacore"})
                .out,
            "lumacore_0\n");
}

TEST_F(DesignOptionsTest, ANumberOfInstancesThatIsNone) {
  for (const std::string number :
       {"0", "100000001", "-1", "1e6", "1 ", "many", "18446744073709551616"})
    for (const char *subcommand :
         {"list", "design", "show", "set", "command"}) {
      std::vector<std::string> line{subcommand, board};
      if (std::string(subcommand) != "list" &&
          std::string(subcommand) != "design")
        line.emplace_back("lumacore_0");
      line.insert(line.end(), {"--max-instances=" + number});
      const Result run = this->run(line);
      EXPECT_EQ(run.status, 2) << number;
      EXPECT_EQ(run.err, "zeldebug: error: --max-instances: '" + number +
                             "' is no number from 1 to 100000000 (decimal or "
                             "0x)\n");
    }
}

} // namespace
} // namespace tool

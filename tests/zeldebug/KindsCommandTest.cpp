#include <filesystem>

#include <gmock/gmock.h>

#include "ToolTest.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

using nlohmann::json;
using testing::HasSubstr;

class KindsCommandTest : public ToolTest {
protected:
  KindsCommandTest() {
    folder.write("soc.xml",
                 document("design", "soc",
                          "<i:componentInstances>" +
                              instance("core", "own_core") +
                              instance("dm", "own_dm") +
                              "</i:componentInstances><i:interconnections>"
                              "<i:interconnection><i:name>w</i:name>"
                              "<i:activeInterface componentRef=\"dm\" "
                              "busRef=\"debug\"/><i:activeInterface "
                              "componentRef=\"core\" busRef=\"debug\"/>"
                              "</i:interconnection></i:interconnections>"));
    folder.write("core.xml", document("component", "own_core",
                                      interface("debug", "slave") +
                                          "<i:cpus><i:cpu><i:name>c</i:name>"
                                          "</i:cpu></i:cpus>"));
    folder.write("dm.xml",
                 document("component", "own_dm", interface("debug", "master")));
  }

  static std::string document(const std::string &root, const std::string &name,
                              const std::string &content) {
    return "<i:" + root +
           " xmlns:i=\"http://www.accellera.org/XMLSchema/IPXACT/1685-2014\">"
           "<i:vendor>v</i:vendor><i:library>l</i:library><i:name>" +
           name + "</i:name><i:version>1</i:version>" + content +
           "</i:" + root + ">";
  }
  static std::string instance(const std::string &name,
                              const std::string &component) {
    return "<i:componentInstance><i:instanceName>" + name +
           "</i:instanceName><i:componentRef vendor=\"v\" library=\"l\" "
           "name=\"" +
           component + "\" version=\"1\"/></i:componentInstance>";
  }
  static std::string interface(const std::string &name,
                               const std::string &mode) {
    return "<i:busInterfaces><i:busInterface><i:name>" + name +
           "</i:name><i:" + mode + "/></i:busInterface></i:busInterfaces>";
  }

  /// What stands in the folder.
  std::set<std::string> names() const {
    std::set<std::string> found;
    for (const auto &entry : fs::directory_iterator(folder.path()))
      found.insert(entry.path().filename());
    return found;
  }
};

TEST_F(KindsCommandTest, ShowsCandidatesAndWhatListWouldAnswer) {
  const Result run = this->run({"kinds", "soc.xml"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(
      run.out,
      "PROCESSORS\n"
      "  v:l:own_core:1 plays 'lumacore'\n"
      "    instances core\n"
      "    why       its component has a 'cpus' element: it says that it is a "
      "processor\n"
      "    why       its name holds 'core'\n"
      "    why       it has a debug interface, 'debug'\n"
      "    why       nothing in its name speaks for another kind than a soft "
      "core\n"
      "    wired     debug: dm.debug\n"
      "\n"
      "DEBUG MODULES\n"
      "  v:l:own_dm:1 plays 'hdu'\n"
      "    instances dm\n"
      "    why       it is wired by 'debug' to 'debug' of 'core'\n"
      "    wired     debug: core.debug\n"
      "\n"
      "With the table of what plays a part, 'list' answers:\n"
      "\n"
      "PROCESSOR  TYPE      NUMBER  FPU  CONNECTIONS\n"
      "core       lumacore  1       -    sim hw\n");
}

TEST_F(KindsCommandTest, TellsTheSameInJson) {
  const json document = runJson({"kinds", "soc.xml"});
  EXPECT_EQ(document["candidates"][1],
            json({{"part", "debug-module"},
                  {"verdict", "proposed"},
                  {"identity", "v:l:own_dm:1"},
                  {"types", {"hdu"}},
                  {"instances", {"dm"}},
                  {"otherInstances", 0},
                  {"evidence", {"it is wired by 'debug' to 'debug' of 'core'"}},
                  {"wiredTo", {"debug: core.debug"}},
                  {"question", nullptr}}));
  EXPECT_EQ(document["connections"], json::array());
  EXPECT_EQ(document["questions"], json::array());
  EXPECT_EQ(document["written"], nullptr);
  EXPECT_EQ(document["list"]["processors"][0]["instanceName"], "core");
  EXPECT_EQ(document["list"]["undebuggable"], json::array());
  EXPECT_THAT(document["table"].get<std::string>(),
              HasSubstr("\nv:l:own_dm:1   debug-module   hdu\n"));
}

TEST_F(KindsCommandTest, AsksWhatItCannotDecide) {
  folder.write(
      "soc.xml",
      document("design", "soc",
               "<i:componentInstances>" + instance("core", "own_core") +
                   instance("jtag", "own_jtag") + "</i:componentInstances>"));
  folder.write("jtag.xml", document("component", "own_jtag", ""));
  const Result run = this->run({"kinds", "soc.xml"});
  EXPECT_THAT(run.out, HasSubstr("  v:l:own_jtag:1 could play 'hdu'\n"));
  EXPECT_THAT(run.out,
              HasSubstr("    open      no wire puts a processor on it; "
                        "if one is, a row 'connect' says so\n"));
  EXPECT_THAT(run.out,
              HasSubstr("\nperhaps connect core jtag: no wire says so\n"
                        "Open: nothing says which debug module 'core' is on: "
                        "nothing is wired to a target interface of it.\n"));
  const json document = runJson({"kinds", "soc.xml"});
  EXPECT_EQ(document["connections"],
            json::array({{{"processor", "core"},
                          {"debugModule", "jtag"},
                          {"proposed", false},
                          {"reason", "no wire says so"}}}));
  EXPECT_EQ(document["questions"].size(), 1U);
  // The core plays a soft one all the same, which a simulator can run.
  EXPECT_EQ(document["list"]["processors"][0]["connections"], json({"sim"}));
}

/// From a design without a known name to a saved option file.
TEST_F(KindsCommandTest, WritesATableThatHelps) {
  EXPECT_EQ(this->run({"set", "soc.xml", "core", "--mkdir"}).status, 1);
  const Result written =
      this->run({"kinds", "soc.xml", "--write", "soc.kinds"});
  EXPECT_EQ(written.status, 0);
  EXPECT_THAT(written.err, HasSubstr("note: written to soc.kinds"));
  EXPECT_EQ(folder.read("soc.kinds"),
            runJson({"kinds", "soc.xml"})["table"].get<std::string>());
  const Result saved =
      this->run({"set", "soc.xml", "core", "--kinds", "soc.kinds", "--mkdir"});
  EXPECT_EQ(saved.status, 0) << saved.err;
  EXPECT_TRUE(folder.exists("etc/kvo_core.opt"));
  EXPECT_EQ(runJson({"kinds", "soc.xml", "--write", "other"})["written"],
            "other");
}

TEST_F(KindsCommandTest, WritesNothingStrictlyWhereTheDesignHasAWarning) {
  folder.write("dm.xml", document("component", "own_dm",
                                  interface("debug", "master") + "<other:x/>"));
  const Result result =
      run({"kinds", "soc.xml", "--write", "mine.kinds", "--strict"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("nothing is written, because a warning is "
                                    "a failure with --strict\n"));
  EXPECT_FALSE(fs::exists("mine.kinds"));
  EXPECT_EQ(run({"kinds", "soc.xml", "--write", "mine.kinds"}).status, 0);
}

TEST_F(KindsCommandTest, ReplacesNothingUnasked) {
  folder.write("mine", "v:l:own_core:1 processor lumacore\n");
  const Result refused = this->run({"kinds", "soc.xml", "--write", "mine"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, HasSubstr("mine: there is a file of that name "
                                     "(--force replaces it)"));
  EXPECT_EQ(folder.read("mine"), "v:l:own_core:1 processor lumacore\n");
  fs::permissions("mine", fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(
      this->run({"kinds", "soc.xml", "--write", "mine", "--force"}).status, 0);
  EXPECT_THAT(folder.read("mine"), HasSubstr("debug-module   hdu"));
  EXPECT_EQ(fs::status("mine").permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
  // The same again needs no permission, and writes nothing.
  const auto before = fs::last_write_time("mine");
  const Result same = this->run({"kinds", "soc.xml", "--write", "mine"});
  EXPECT_EQ(same.status, 0);
  EXPECT_THAT(same.err, HasSubstr("already in mine"));
  EXPECT_EQ(fs::last_write_time("mine"), before);
}

TEST_F(KindsCommandTest, ReplacesNothingButFiles) {
  fs::create_directory("folder");
  fs::create_symlink("nowhere", "link");
  fs::create_symlink("target", "good");
  folder.write("target", "# mine\n");
  const struct {
    const char *file, *problem;
  } rows[] = {{"folder", "folder: is a folder, no file"},
              {"link", "link: is a link to nothing"},
              {"none/file", "none: there is no such folder"},
              {"/dev/null", "/dev/null: is no regular file"},
              {"", ": is no name of a file"}};
  for (const auto &row : rows) {
    const Result run =
        this->run({"kinds", "soc.xml", "--write", row.file, "--force"});
    EXPECT_EQ(run.status, 1) << row.file;
    EXPECT_EQ(run.out, "") << row.file;
    EXPECT_THAT(run.err, HasSubstr(row.problem));
  }
  EXPECT_EQ(
      this->run({"kinds", "soc.xml", "--write", "good", "--force"}).status, 0);
  EXPECT_TRUE(fs::is_symlink("good"));
  EXPECT_THAT(folder.read("target"), HasSubstr("debug-module   hdu"));
  EXPECT_EQ(names(),
            (std::set<std::string>{"core.xml", "dm.xml", "folder", "good",
                                   "link", "soc.xml", "target"}));
}

TEST_F(KindsCommandTest, LeavesNothingHalfWritten) {
  Surroundings small;
  small.fileSizeLimit = 100;
  const Result run = this->run({"kinds", "soc.xml", "--write", "new"}, small);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(names(), (std::set<std::string>{"core.xml", "dm.xml", "soc.xml"}));
}

TEST_F(KindsCommandTest, StartsFromATable) {
  folder.write("mine", "v:l:own_dm:1 debug-module hdu_cedar\n");
  const json document = runJson({"kinds", "soc.xml", "--kinds", "mine"});
  EXPECT_EQ(document["candidates"][1]["verdict"], "known");
  EXPECT_EQ(document["candidates"][1]["types"], json({"hdu_cedar"}));
  EXPECT_EQ(document["table"].get<std::string>().rfind(
                "v:l:own_dm:1 debug-module hdu_cedar\n", 0),
            0U);
}

TEST_F(KindsCommandTest, RefusesWhatItCannotRead) {
  EXPECT_EQ(this->run({"kinds", "nowhere.xml"}).status, 3);
  EXPECT_EQ(this->run({"kinds", "soc.xml", "--kinds", "nowhere"}).status, 3);
  const Result run = this->run({"kinds", "soc.xml", "--force"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("--force is for the file of --write"));
  EXPECT_EQ(names(), (std::set<std::string>{"core.xml", "dm.xml", "soc.xml"}));
}

/// Its parts have the names that the debugger knows. One processor is on no
/// debug module.
TEST_F(KindsCommandTest, HasNoRowsForTheBoard) {
  const json document = runJson({"kinds", board});
  for (const json &candidate : document["candidates"])
    EXPECT_EQ(candidate["verdict"], "known") << candidate;
  EXPECT_EQ(document["connections"], json::array());
  EXPECT_EQ(document["questions"],
            json({"nothing says which debug module 'lumacore_2' is on: nothing "
                  "is wired to a target interface of it"}));
}

} // namespace
} // namespace tool

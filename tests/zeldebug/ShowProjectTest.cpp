// show and explain with a project: what its files make of a processor, and
// where each value comes from.
#include <gmock/gmock.h>

#include "ProjectTest.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

/// Its files, line by line.
constexpr const char *shared = "[settings]\n"                          // 4
                               "cable.cableType = \"quorla_podusb\"\n" // 5
                               "cable.frequency = 3_000_000\n"         // 6
                               "[type.lumacore]\n"                     // 7
                               "debugDevice = 3\n"                     // 8
                               "[processor.lumacore_1]\n"              // 9
                               "chain = [{devicenr = 1, partname = \"a\", "
                               "irlength = 6, idcode = 1},\n" // 10
                               "  {idcode = 2, partname = \"b\", irlength = 4, "
                               "devicenr = 2, nppc = 0}]\n" // 11
                               "[probe.lab]\n"              // 12
                               "esn = '0042'\n";            // 13

class ShowProjectTest : public ProjectTest {
protected:
  json show(std::vector<std::string> line, int status = 0) {
    line.insert(line.begin(), "show");
    return runJson(line, status);
  }
};

TEST_F(ShowProjectTest, WhatIsShownIsTakenAsSettings) {
  project(shared);
  folder.write("shown.json", show({"lumacore_0"}).dump());
  const Result result =
      run({"command", "lumacore_0", "--settings", "shown.json"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out,
            show({"lumacore_0"})["connectCommand"].get<std::string>() + "\n");
  folder.write("shown.json", show({}).dump(2));
  EXPECT_THAT(run({"command", "lumacore_0", "--settings", "shown.json"}).err,
              HasSubstr("it has the settings of several processors"));
}

TEST_F(ShowProjectTest, EachValueHasThePlaceOfItsFirstByte) {
  project(shared);
  local("  [processor.lumacore_0]\n  debugDevice =   0x7\n");
  const json shown = show({"lumacore_0"});
  EXPECT_EQ(shown["connectCommand"],
            "connect lc hdu -cable type quorla_podusb port USB21 frequency "
            "3000000 -debugdevice deviceNr 7 cpunr 1");
  EXPECT_EQ(shown["record"]["debugDevice"], 7);
  const json &origin = shown["origin"];
  EXPECT_EQ(origin["record"]["debugDevice"], "zeldebug.local.toml:2:19");
  EXPECT_EQ(origin["cable"]["cableType"], "zeldebug.toml:5:19");
  EXPECT_EQ(origin["cable"]["frequency"], "zeldebug.toml:6:19");
  EXPECT_EQ(origin["cable"]["port"], "default");
  EXPECT_EQ(origin["record"]["instanceName"], "design");
  EXPECT_EQ(origin["record"]["cpuNr"], "design");
  EXPECT_EQ(origin["connection"], "default");
  EXPECT_EQ(shown["project"], "zeldebug.toml");
  EXPECT_EQ(shown["local"], "zeldebug.local.toml");
  EXPECT_EQ(shown["probe"], nullptr);
  EXPECT_EQ(shown["instanceName"], "lumacore_0");
  EXPECT_EQ(shown["file"], "etc/kvo_lumacore_0.opt");
  EXPECT_EQ(shown["differences"], nullptr);
  // With --origin it says no more, and without a name of its own the file is
  // found from below.
  EXPECT_EQ(show({"lumacore_0", "--origin"}), shown);
  EXPECT_EQ(show({"lumacore_0", "-C", "hw"})["origin"], origin);
  // What is saved changes no origin.
  EXPECT_EQ(run({"sync", "lumacore_0"}).status, 0);
  EXPECT_EQ(show({"lumacore_0"})["origin"], origin);
}

TEST_F(ShowProjectTest, OfAChainEachDevicesValueHasItsPlace) {
  project(shared);
  const json chain = show({"lumacore_1"})["origin"]["chain"];
  ASSERT_EQ(chain.size(), 2U);
  EXPECT_EQ(chain[0]["devicenr"], "zeldebug.toml:10:22");
  EXPECT_EQ(chain[0]["partname"], "zeldebug.toml:10:36");
  EXPECT_EQ(chain[0]["idcode"], "zeldebug.toml:10:64");
  EXPECT_EQ(chain[0]["nppc"], "default");
  EXPECT_EQ(chain[1]["idcode"], "zeldebug.toml:11:13");
  EXPECT_EQ(chain[1]["nppc"], "zeldebug.toml:11:67");
  EXPECT_EQ(show({"lumacore_1", "--clear-chain"})["origin"]["chain"],
            json::array());
}

TEST_F(ShowProjectTest, WhatFollowsFromTheConnectionHasItsPlace) {
  project("");
  const json shown = show({"lumacore_2"});
  EXPECT_EQ(shown["connection"], "sim");
  for (const char *const name : {"connectionType", "stubType"})
    EXPECT_EQ(shown["origin"]["record"][name], "zeldebug.toml:3:14") << name;
  EXPECT_EQ(shown["origin"]["connection"], "zeldebug.toml:3:14");
  EXPECT_EQ(show({"lumacore_0"})["origin"]["record"]["stubType"], "default");
  EXPECT_EQ(show({"lumacore_0", "--connection",
                  "stub-jtag"})["origin"]["record"]["stubType"],
            "option");
}

TEST_F(ShowProjectTest, TheLineIsTheHighestSource) {
  project(shared);
  const json shown = show({"lumacore_0", "--debug-device", "9", "--device",
                           "devicenr=1,partname=x,irlength=6,idcode=1"});
  EXPECT_EQ(shown["origin"]["record"]["debugDevice"], "option");
  EXPECT_EQ(shown["origin"]["chain"][0]["nppc"], "option");
  EXPECT_EQ(shown["origin"]["cable"]["frequency"], "zeldebug.toml:6:19");
  // Another cable drops what belongs to the one that the file names.
  const json other = show({"lumacore_0", "--cable", "quorla_parallel4"});
  EXPECT_EQ(other["origin"]["cable"]["frequency"], "default");
  ASSERT_EQ(other["dropped"].size(), 1U);
  EXPECT_EQ(other["dropped"][0]["setting"], "cable.frequency");
  EXPECT_EQ(other["dropped"][0]["by"], "option");
  // So do whole commands and what goes back.
  EXPECT_EQ(show({"lumacore_0", "--unset",
                  "debugDevice"})["origin"]["record"]["debugDevice"],
            "option");
  const json whole =
      show({"lumacore_0", "--from",
            "connect lc hdu -cable type quorla_podusb port USB21 frequency "
            "3000000 -debugdevice deviceNr 4 cpunr 1"});
  EXPECT_EQ(whole["origin"]["record"]["debugDevice"], "option");
  EXPECT_EQ(whole["origin"]["cable"]["frequency"], "zeldebug.toml:6:19");
  EXPECT_EQ(whole["record"]["debugDevice"], 4);
  EXPECT_FALSE(fs::exists("etc"));
}

TEST_F(ShowProjectTest, WhatIsDisplacedIsNoneOfItsValues) {
  project(shared);
  const json shown = show({"lumacore_0", "--probe", "lab"});
  EXPECT_EQ(shown["origin"]["cable"]["esn"], "zeldebug.toml:13:7");
  EXPECT_EQ(shown["origin"]["cable"]["frequency"], "default");
  EXPECT_EQ(shown["probe"], "lab");
  ASSERT_EQ(shown["dropped"].size(), 1U);
  EXPECT_EQ(shown["dropped"][0]["by"], "zeldebug.toml:13:7");
  EXPECT_EQ(shown["warnings"][0]["code"], "displaced");
}

TEST_F(ShowProjectTest, DifferencesAreThoseOfTheOptionFile) {
  project(shared);
  save("lumacore_0", "connect lc hdu -debugdevice deviceNr 5 cpunr 1");
  const json shown = show({"lumacore_0"});
  // The cable, with its port and frequency, is the rest.
  ASSERT_EQ(shown["differences"].size(), 4U);
  EXPECT_EQ(shown["differences"][0], json({{"setting", "debugDevice"},
                                           {"before", 5},
                                           {"after", 3},
                                           {"origin", "zeldebug.toml:8:15"}}));
  const Result run = this->run({"show", "lumacore_0"});
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(run.out, HasSubstr("\ndebugDevice       3              "
                                 "zeldebug.toml:8:15\n"));
  EXPECT_THAT(run.out, HasSubstr("\netc/kvo_lumacore_0.opt\n"
                                 "  debugDevice: 5 in the file, 3 by "
                                 "zeldebug.toml:8:15\n"));
  EXPECT_EQ(this->run({"sync", "lumacore_0", "--force"}).status, 0);
  EXPECT_EQ(show({"lumacore_0"})["differences"], json::array());
  EXPECT_THAT(this->run({"show", "lumacore_0"}).out,
              Not(HasSubstr("kvo_lumacore_0")));
  fs::remove("etc/kvo_lumacore_0.opt");
  EXPECT_THAT(this->run({"show", "lumacore_0"}).err,
              HasSubstr("there is no etc/kvo_lumacore_0.opt yet: 'zeldebug "
                        "sync' makes it"));
}

TEST_F(ShowProjectTest, WhatIsSavedIsShownAsEver) {
  project(shared);
  save("lumacore_0", "connect lc hdu -debugdevice deviceNr 5 cpunr 1");
  std::vector<std::string> line{"show", "lumacore_0", "--saved", "--origin"};
  const std::string ofProject = run(line).out;
  EXPECT_THAT(ofProject, HasSubstr("file:38"));
  line = {"show", "hw/board.xml", "lumacore_0", "--origin"};
  EXPECT_EQ(run(line).out, ofProject);
  EXPECT_EQ(show({"lumacore_0", "--saved"})["record"]["debugDevice"], 5);
  EXPECT_EQ(run({"show", "--saved"}).status, 2);
  EXPECT_EQ(run({"show", "--saved", "--file", "etc/kvo_lumacore_0.opt"}).status,
            2);
}

TEST_F(ShowProjectTest, WithoutAProcessorAllAreShown) {
  project(shared);
  const json all = show({})["processors"];
  ASSERT_EQ(all.size(), 7U);
  const json one = show({"lumacore_1"});
  for (const auto &[name, value] : one["origin"].items())
    EXPECT_EQ(all[1]["origin"][name], value) << name;
  EXPECT_EQ(all[1]["connectCommand"], one["connectCommand"]);
  EXPECT_EQ(all[1]["message"], nullptr);
  const Result run = this->run({"show", "-q"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr("\n\nlumacore_2\nconnect lc sim\n\n"));
  // Only what is said somewhere.
  EXPECT_THAT(run.out, Not(HasSubstr("  default\n")));
}

TEST_F(ShowProjectTest, WhatOneCannotHaveStopsNoOther) {
  project("[processor.ppc405_0]\nconnection = \"vp\"\n");
  const std::string problem =
      "zeldebug.toml:5:14: 'vp': 'ppc405_0' does not allow it; it allows "
      "'sim', 'hw'";
  Result run = this->run({"show", "ppc405_0"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "zeldebug: error: " + problem + "\n");
  run = this->run({"explain", "ppc405_0"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "zeldebug: error: " + problem + "\n");
  run = this->run({"show"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("ppc405_0: " + problem));
  EXPECT_THAT(run.out, HasSubstr("\n\nppc440_0\nconnect ppc hw"));
  const json all = show({}, 1)["processors"];
  EXPECT_EQ(all[2], json({{"instanceName", "ppc405_0"},
                          {"file", "etc/kvo_ppc405_0.opt"},
                          {"message", problem}}));
  // What the line asks for is told as the line's.
  EXPECT_THAT(this->run({"show", "lumacore_2", "--connection", "vp"}).err,
              HasSubstr("error: --connection vp: "));
}

TEST_F(ShowProjectTest, WhatWouldNotSurviveIsTold) {
  project("connection = \"sim\"\n"
          "[processor.lumacore_0]\nconnection = \"sim\"\n"
          "cable.cableType = \"quorla_podusb\"\n");
  // Line 4 has a key that is there already.
  EXPECT_EQ(run({"show", "lumacore_0"}).status, 3);
  project("[processor.lumacore_0]\nconnection = \"sim\"\n"
          "cable.cableType = \"quorla_podusb\"\n");
  const json shown = show({"lumacore_0"});
  ASSERT_EQ(shown["lost"].size(), 1U);
  EXPECT_EQ(shown["lost"][0]["origin"], "zeldebug.toml:6:19");
  EXPECT_THAT(run({"show", "lumacore_0"}).err,
              HasSubstr("zeldebug.toml:6:19: would not survive: "
                        "cable.cableType"));
}

TEST_F(ShowProjectTest, UnknownNamesAreToldWithTheNearest) {
  project("");
  for (const char *const subcommand : {"show", "explain"}) {
    const Result run = this->run({subcommand, "lumacore_9"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "zeldebug: error: 'lumacore_9' is no processor of the "
                       "design; did you mean 'lumacore_0'?\n");
  }
  EXPECT_THAT(run({"show", "r5_0"}).err, HasSubstr("cannot be debugged"));
}

TEST_F(ShowProjectTest, ExplainTellsWhereEachWordComesFrom) {
  project(shared);
  const Result run = this->run({"explain", "lumacore_0", "-q"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, testing::StartsWith("COLUMN  WORD "));
  EXPECT_THAT(run.out, HasSubstr("cable.frequency = 3000000"));
  EXPECT_THAT(run.out, HasSubstr("zeldebug.toml:6:19\n"));
  const json document = runJson({"explain", "lumacore_0"});
  EXPECT_EQ(document["text"],
            "connect lc hdu -cable type quorla_podusb port USB21 frequency "
            "3000000 -debugdevice deviceNr 3 cpunr 1");
  EXPECT_EQ(document["instanceName"], "lumacore_0");
  std::vector<json> said;
  for (const json &word : document["words"])
    if (word["origin"] != nullptr && word["origin"] != "design")
      said.push_back({word["field"], word["origin"]});
  EXPECT_THAT(said, testing::ElementsAre(
                        json({"connectionType", "default"}),
                        json({"cable.cableType", "zeldebug.toml:5:19"}),
                        json({"cable.port", "default"}),
                        json({"cable.frequency", "zeldebug.toml:6:19"}),
                        json({"debugDevice", "zeldebug.toml:8:15"})));
  // Of a chain, each device's.
  const json words = runJson({"explain", "lumacore_1"})["words"];
  const auto part = std::find_if(words.begin(), words.end(), [](const json &w) {
    return w["field"] == "chain[0].partname";
  });
  ASSERT_NE(part, words.end());
  EXPECT_EQ((*part)["changes"][0]["origin"], "zeldebug.toml:10:36");
}

TEST_F(ShowProjectTest, ACommandIsExplainedAsEver) {
  project(shared);
  const std::string command = "connect lc sim";
  const Result run = this->run({"explain", command});
  EXPECT_THAT(run.out, Not(HasSubstr("FROM")));
  EXPECT_FALSE(runJson({"explain", command}).contains("project"));
  EXPECT_THAT(this->run({"explain", "connect"}).err,
              HasSubstr("the command is refused"));
  EXPECT_THAT(this->run({"explain", "lumacore_0", "--no-project"}).err,
              HasSubstr("the command is refused"));
  EXPECT_EQ(this->run({"explain", command, "--probe", "lab"}).status, 2);
  // Where the project is named, a word is its processor.
  EXPECT_THAT(
      this->run({"explain", "connect", "--project", "zeldebug.toml"}).err,
      HasSubstr("'connect' is no processor of the design"));
  fs::remove("zeldebug.toml");
  EXPECT_THAT(this->run({"explain", "lumacore_0"}).err,
              HasSubstr("the command is refused"));
}

} // namespace
} // namespace tool

#include <gmock/gmock.h>

#include "ToolTest.h"

namespace tool {
namespace {

using nlohmann::json;
using testing::HasSubstr;

using LanguageCommandTest = ToolTest;

TEST_F(LanguageCommandTest, ShowsTheWholeLanguage) {
  const Result run = this->run({"language"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(run.out, HasSubstr("HEAD        TARGET  IN FILES  CONNECTION  "
                                 "OPTIONS\n"
                                 "connect     lc      yes       sim         "
                                 "Lumacore simulator\n"));
  EXPECT_THAT(run.out, HasSubstr("kconnect    lc      no        hdu  "));
  EXPECT_THAT(run.out, HasSubstr("\n\nOptions: virtual platform\n"
                                 "OPTION    NAME  VALUE              SETTINGS\n"
                                 "-config         cycle_approximate  "
                                 "vpConfigMode cycleApproximate\n"
                                 "-ipcport        host-and-port      "
                                 "simIpcHost simIpcPort\n"));
  EXPECT_THAT(run.out, HasSubstr("\n7     quorla_tcf "));
}

TEST_F(LanguageCommandTest, ShowsOneWord) {
  const std::string comm = "Options: processor\n"
                           "OPTION  NAME  VALUE        SETTINGS\n"
                           "-comm         jtag serial  stubType\n";
  const struct {
    std::vector<std::string> line;
    std::string out;
  } rows[] = {
      {{"language", "-comm"}, comm},
      {{"language", "comm"}, comm},
      {{"language", "-COMM"}, comm},
      {{"language", "--", "-comm"}, comm},
      {{"-C", "language", "language", "-comm", "-C", "."}, comm},
      {{"language", "kmtc"},
       "HEAD      TARGET  IN FILES  CONNECTION  OPTIONS\n"
       "connect   kmtc    no        -           kmtc\n"
       "kconnect  kmtc    no        -           kmtc\n"},
      {{"language", "QUORLA_PARALLEL4"},
       "TYPE  KEYWORD READ                      TEXT WRITTEN     WRITABLE  "
       "DEFAULT HZ  DEFAULT PORT  ACCEPTED HZ\n"
       "2     quorla_parallel quorla_parallel4  quorla_parallel  yes       "
       "5000000     LPT1          200000 625000 2500000 5000000\n"},
  };
  for (const auto &row : rows) {
    const Result run = this->run(row.line);
    const std::string line = testing::PrintToString(row.line);
    EXPECT_EQ(run.status, 0) << line;
    EXPECT_EQ(run.out, row.out) << line;
  }
  // Sets with the same option share a table.
  EXPECT_THAT(this->run({"language", "-bscan"}).out,
              HasSubstr("Options: processor, hdu\n"));
}

TEST_F(LanguageCommandTest, TellsTheSameInJson) {
  const json whole = runJson({"language"});
  EXPECT_EQ(whole["heads"].size(), 4U);
  EXPECT_EQ(whole["cables"], runJson({"cables"})["cables"]);
  const json word = runJson({"language", "-memsize"});
  EXPECT_EQ(word["heads"], json::array());
  EXPECT_EQ(word["cables"], json::array());
  ASSERT_EQ(word["optionSets"].size(), 1U);
  EXPECT_EQ(word["optionSets"][0]["name"], "Lumacore simulator");
  EXPECT_EQ(word["optionSets"][0]["options"],
            json({{{"keyword", "-memsize"},
                   {"parameters", json::array()},
                   {"value",
                    {{"kind", "number"},
                     {"settings", {"simMemSize"}},
                     {"words", json::array()}}},
                   {"optionSet", nullptr},
                   {"settings", json::array()}}}));
}

TEST_F(LanguageCommandTest, RefusesWhatIsNoWord) {
  const Result unknown = this->run({"language", "-cabel"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_EQ(unknown.out, "");
  EXPECT_THAT(unknown.err,
              testing::StartsWith("zeldebug: error: language: '-cabel' is no "
                                  "option, target or cable; there are 'lc', "));
  EXPECT_THAT(unknown.err, HasSubstr("; did you mean '-cable'?\n"));
  EXPECT_EQ(this->run({"language", ""}).status, 2);
  EXPECT_EQ(this->run({"language", "lc", "ppc"}).err,
            "zeldebug: error: 'language' takes no more arguments, but 'ppc' "
            "is left\n");
  EXPECT_EQ(this->run({"language", "--jsn"}).err,
            "zeldebug: error: unknown option '--jsn' of 'language'; there are "
            "'--help', '--json', '-C', '--color', '--quiet', '--strict'; did "
            "you mean '--json'?\n");
}

} // namespace
} // namespace tool

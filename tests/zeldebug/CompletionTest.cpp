#include <cstdlib>

#include <gmock/gmock.h>

#include "ToolTest.h"

namespace tool {
namespace {

using testing::HasSubstr;

class CompletionTest : public ToolTest {
protected:
  std::string complete(const std::vector<std::string> &words) {
    std::vector<std::string> line{"complete", "--"};
    line.insert(line.end(), words.begin(), words.end());
    const Result run = this->run(line);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    return run.out;
  }
};

TEST_F(CompletionTest, KnowsWhatFits) {
  const struct {
    std::vector<std::string> words;
    std::string answer;
  } rows[] = {
      {{"s"}, "show\nset\n"},
      {{"zz"}, ""},
      {{"set", "--deb"}, "--debug-device\n"},
      {{"list", ""}, ":files\n"},
      {{"set", board, "lumacore_"}, "lumacore_0\nlumacore_1\nlumacore_2\n"},
      {{"set", board, "--json", "a"}, "a9_0\na9_1\n"},
      {{"--json", "show", board, "ppc"}, "ppc405_0\nppc440_0\n"},
      {{"set", "nowhere.xml", ""}, ""},
      {{"set", board, "lumacore_0", "--connection", ""},
       "sim\nhw\nstub-serial\nstub-jtag\nvp\n"},
      {{"set", board, "lumacore_0", "--connection", "=", "st"},
       "stub-serial\nstub-jtag\n"},
      {{"set", board, "lumacore_0", "--cable", "quorla_par"},
       "quorla_parallel\nquorla_parallel4\nquorla_parallel3\n"},
      {{"set", board, "lumacore_0", "--cable", "quorla_parallel3",
        "--frequency", ""},
       "200000\n"},
      {{"set", board, "lumacore_0", "--port", ""}, ""},
      {{"set", board, "--library", ""}, ":folders\n"},
      {{"show", "--file", ""}, ":files\n"},
      {{"completion", ""}, "bash\nzsh\nfish\n"},
      {{"explain-code", "unknown-o"}, "unknown-option\n"},
  };
  for (const auto &row : rows)
    EXPECT_EQ(complete(row.words), row.answer)
        << testing::PrintToString(row.words);
}

TEST_F(CompletionTest, TheBashScriptAsksTheProgram) {
  folder.write("complete.bash", this->run({"completion", "bash"}).out);
  const std::string line =
      "bash -c 'source complete.bash; COMP_WORDS=(\"" ZELDEBUG_PROGRAM
      "\" set --cab); COMP_CWORD=2; _zeldebug; echo \"${COMPREPLY[*]}\"' > "
      "answer";
  ASSERT_EQ(std::system(line.c_str()), 0);
  EXPECT_EQ(folder.read("answer"), "--cable\n");
}

TEST_F(CompletionTest, KnowsThreeShells) {
  EXPECT_THAT(this->run({"completion", "zsh"}).out,
              HasSubstr("#compdef zeldebug"));
  EXPECT_THAT(this->run({"completion", "fish"}).out,
              HasSubstr("complete -c zeldebug"));
  const Result run = this->run({"completion", "bsh"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err,
            "zeldebug: error: completion: 'bsh' is unknown; accepted are "
            "'bash', 'zsh', 'fish'; did you mean 'bash'?\n");
}

} // namespace
} // namespace tool

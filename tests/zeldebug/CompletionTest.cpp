#include <cstdlib>
#include <filesystem>

#include <gmock/gmock.h>

#include "ToolTest.h"

namespace tool {
namespace {

using testing::HasSubstr;

constexpr const char *allKinds = "sim\nhw\nstub-serial\nstub-jtag\nvp\n";

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
       "sim\nhw\nstub-serial\nstub-jtag\n"},
      {{"set", board, "lumacore_1", "--connection", ""}, "sim\nhw\n"},
      {{"set", board, "lumacore_1", "--connection", "st"}, ""},
      {{"command", board, "a9_0", "--json", "--connection", ""}, "hw\n"},
      {{"set", board, "--all", "--connection", ""}, allKinds},
      {{"set", board, "r5_0", "--connection", ""}, allKinds},
      {{"set", "nowhere.xml", "lumacore_1", "--connection", ""}, allKinds},
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

/// Runs a script of a shell, with the completion script beside it and the
/// program in its path.
class ShellTest : public CompletionTest {
protected:
  std::string answerOf(const std::string &shell, const std::string &name,
                       const std::string &script) {
    folder.write("completion", this->run({"completion", name}).out);
    folder.write("script", script);
    const auto programs =
        std::filesystem::path(ZELDEBUG_PROGRAM).parent_path().string();
    const std::string line = "HOME=\"$PWD\" PATH=\"" + programs + ":$PATH\" " +
                             shell + " script > answer 2>&1";
    EXPECT_EQ(std::system(line.c_str()), 0) << shell;
    return folder.read("answer");
  }
};

TEST_F(ShellTest, BashCompletes) {
  const auto answer = [this](const std::string &words, int word) {
    return answerOf("bash", "bash",
                    "source completion\n"
                    "COMP_WORDS=(" +
                        words + ")\nCOMP_CWORD=" + std::to_string(word) +
                        "\n_zeldebug\nprintf '<%s>' \"${COMPREPLY[@]}\"\n"
                        "complete -p zeldebug\n");
  };
  const std::string registered = "complete -F _zeldebug zeldebug\n";
  EXPECT_EQ(answer("zeldebug set --cab", 2), "<--cable>" + registered);
  EXPECT_EQ(answer("zeldebug set '" + board + "' lumacore_", 3),
            "<lumacore_0><lumacore_1><lumacore_2>" + registered);
  EXPECT_EQ(answer("zeldebug set '" + board + "' a9_0 --connection = ''", 6),
            "<hw>" + registered);
  EXPECT_EQ(answer("zeldebug zz", 1), "<>" + registered);
}

#ifdef ZELDEBUG_ZSH
/// The shell completes only in a terminal: it gets one, puts everything that
/// fits into each line, and shows the lines.
TEST_F(ShellTest, ZshCompletes) {
  folder.write("folder/file", "");
  folder.write(".zshrc", "TMOUT=60\n"
                         "autoload -Uz compinit && compinit -u -D\n"
                         "source ./completion\n"
                         "every() { compstate[insert]=all }\n"
                         "zle-line-init() {\n"
                         "  local line\n"
                         "  while read -r line; do\n"
                         "    BUFFER=$line CURSOR=${#line}\n"
                         "    comppostfuncs=(every)\n"
                         "    zle complete-word\n"
                         "    print -r -- \"$BUFFER\"\n"
                         "  done <lines >finished\n"
                         "  exit\n"
                         "}\n"
                         "zle -N zle-line-init\n");
  const struct {
    std::string typed;
    std::string completed;
  } rows[] = {
      {"set --cab", "set --cable "},
      {"set " + board + " lumacore_",
       "set " + board + " lumacore_0 lumacore_1 lumacore_2 "},
      {"list compl", "list completion "},
      {"list --library f", "list --library folder/"},
      {"zz", "zz"},
  };
  std::string typed;
  std::string completed;
  for (const auto &row : rows) {
    typed += "zeldebug " + row.typed + "\n";
    completed += "zeldebug " + row.completed + "\n";
  }
  folder.write("lines", typed);
  EXPECT_EQ(answerOf(ZELDEBUG_ZSH " -f", "zsh",
                     "export ZDOTDIR=$PWD TERM=dumb\n"
                     "zmodload zsh/zpty\n"
                     "zpty shell " ZELDEBUG_ZSH " -d -i\n"
                     "while zpty -r shell; do :; done >shown\n"
                     "cat finished\n"),
            completed);
  EXPECT_EQ(answerOf(ZELDEBUG_ZSH " -f -n completion", "zsh", ""), "");
}
#endif

#ifdef ZELDEBUG_FISH
TEST_F(ShellTest, FishCompletes) {
  const auto answer = [this](const std::string &line) {
    return answerOf(ZELDEBUG_FISH " --no-config", "fish",
                    "source completion\ncomplete -C \"" + line + "\"\n");
  };
  EXPECT_EQ(answer("zeldebug set --cab"), "--cable\n");
  EXPECT_EQ(answer("zeldebug set '" + board + "' lumacore_"),
            "lumacore_0\nlumacore_1\nlumacore_2\n");
  EXPECT_THAT(answer("zeldebug list compl"), HasSubstr("completion"));
  EXPECT_EQ(answer("zeldebug zz"), "");
  EXPECT_EQ(answerOf(ZELDEBUG_FISH " --no-execute completion", "fish", ""), "");
}
#endif

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

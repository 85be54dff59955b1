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
      {{"s"}, "show\nset\nsync\nserve\n"},
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
      {{"set", board, "lumacore_0", "--connection=st"},
       "stub-serial\nstub-jtag\n"},
      {{"set", board, "lumacore_1", "--connection="}, "sim\nhw\n"},
      {{"set", "--cable=none", board, "a9"}, "a9_0\na9_1\n"},
      {{"set", board, "--view", "--cable=q"}, ""},
      {{"set", board, "--connectio=s"}, ""},
      {{"set", board, "--jso=s"}, ""},
      {{"set", board, "--json=s"}, ""},
      {{"set", "--file=b"}, ""},
      {{"show", "--file=b"}, ":files\n"},
      {{"set", board, "--library=b"}, ":folders\n"},
      {{"set", board, "=s"}, ""},
      {{"set", board, "lumacore_0", "--cable", "quorla_par"},
       "quorla_parallel\nquorla_parallel4\nquorla_parallel3\n"},
      {{"set", board, "lumacore_0", "--cable", "quorla_parallel3",
        "--frequency", ""},
       "200000\n"},
      {{"set", board, "lumacore_0", "--port", ""}, ""},
      {{"set", board, "lumacore_0", "--unset", "debugD"}, "debugDevice\n"},
      {{"set", board, "lumacore_0", "--unset", "chain"}, "chain\n"},
      {{"set", board, "lumacore_0", "--copy-from", "a9"}, "a9_0\na9_1\n"},
      {{"set", board, "lumacore_0", "--settings", ""}, ":files\n"},
      {{"set", board, "lumacore_0", "--cable", "quorla_t"}, ""},
      {{"list", "--color", "a"}, "auto\nalways\n"},
      {{"set", board, "--library", ""}, ":folders\n"},
      {{"design", board, "--graph", "--under", "hd"}, "hdu_0\n"},
      {{"design", board, "--under=a9"}, "a9_0\na9_1\n"},
      {{"show", "--file", ""}, ":files\n"},
      {{"completion", ""}, "bash\nzsh\nfish\n"},
      {{"explain-code", "unknown-o"}, "unknown-option\n"},
  };
  for (const auto &row : rows)
    EXPECT_EQ(complete(row.words), row.answer)
        << testing::PrintToString(row.words);
}

/// Runs a script of a shell, with the completion script and the example board
/// beside it, the program in its path and the folder as the home folder.
class ShellTest : public CompletionTest {
protected:
  ShellTest() {
    std::filesystem::create_directory_symlink(
        std::filesystem::path(board).parent_path(), "sp ace");
    std::filesystem::create_symlink(board, "q'\"$`\\\\e.xml");
  }

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
  const std::string design = "sp\\ ace/board.xml";
  const std::string processors = "<lumacore_0><lumacore_1><lumacore_2>";
  const struct {
    std::vector<std::string> words;
    std::string answer;
  } rows[] = {
      {{"set", "--cab"}, "<--cable>"},
      {{"set", design, "lumacore_"}, processors},
      {{"set", design, "a9_0", "--connection", "=", ""}, "<hw>"},
      {{"set", design, "a9_0", "--connection", "=", "'h"}, "<hw>"},
      {{"set", design, "a9_0", "--connection=h"}, "<--connection=hw>"},
      {{"set", "--cable", "=", "digi"}, "<digilent_plugin>"},
      {{"set", "--cable=digi"}, "<--cable=digilent_plugin>"},
      {{"zz"}, "<>"},
      {{"set", "~/sp\\ ace/board.xml", "lumacore_"}, processors},
      {{"set", "~/'sp ace'/board.xml", "lumacore_"}, processors},
      {{"set", "'sp ace/board.xml'", "lumacore_"}, processors},
      {{"set", "sp\" \"ac\\e/'board'.xml", "lumacore_"}, processors},
      {{"set", design, "'lumacore_"}, processors},
      {{"set", design, "\"lumacore_"}, processors},
      {{"set", "\"q'\\\"\\$\\`\\\\\\e.xml\"", "lumacore_"}, processors},
      {{"set", "q\\'\\\"'$`\\\\e'.xml", "lumacore_"}, processors},
      {{"set", "sp", "ace/board.xml", "lumacore_"}, "<>"},
      {{"set", "'sp\\ ace/board.xml'", "lumacore_"}, "<>"},
      {{"set", "\"sp\\ ace/board.xml\"", "lumacore_"}, "<>"},
      {{"set", "'~/sp ace/board.xml'", "lumacore_"}, "<>"},
      {{"set", "\\~/sp\\ ace/board.xml", "lumacore_"}, "<>"},
      {{"set", "~sp\\ ace/board.xml", "lumacore_"}, "<>"},
      {{"set", "$HOME/sp\\ ace/board.xml", "lumacore_"}, "<>"},
      {{"set", "$(touch touched)", "\"$(touch touched)"}, "<>"},
      {{"set", "`touch touched`", "\"`touch touched`"}, "<>"},
  };
  for (const auto &row : rows) {
    std::string words = "zeldebug\n";
    for (const std::string &word : row.words)
      words += word + "\n";
    folder.write("words", words);
    EXPECT_EQ(answerOf("bash", "bash",
                       "source completion\n"
                       "mapfile -t COMP_WORDS <words\n"
                       "COMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n"
                       "_zeldebug\nprintf '<%s>' \"${COMPREPLY[@]}\"\n"
                       "complete -p zeldebug\n"),
              row.answer + "complete -F _zeldebug zeldebug\n")
        << words;
  }
  EXPECT_FALSE(folder.exists("touched"));
}

TEST_F(ShellTest, BashTakesTheQuotesOffWordsOfAnyLength) {
  EXPECT_EQ(answerOf("bash", "bash", R"(source completion
text=
for ((length = 0; length < 330; length++)); do
  printf -v escaped %q "$text"
  single="'${text//\'/\'\\\'\'}'"
  double=${text//\\/\\\\} double=${double//\"/\\\"}
  for word in "$escaped" "$single" "\"${double//\$/\\\$}\""; do
    _zeldebug_unquote "$word"
    [[ $unquoted == "$text" ]] || echo "$word"
  done
  next="connect lc 'hdu' \\\\ \"\$x\" "
  text+=${next:length % ${#next}:1}
done
echo "${#text} $text" | cut -c 1-32
)"),
            "330 connect lc 'hdu' \\\\ \"$x\" con\n");
}

#ifdef ZELDEBUG_ZSH
/// The shell's own functions for completion need a terminal; what they would be
/// told is printed.
TEST_F(ShellTest, ZshIsToldWhatFits) {
  const std::string design = "sp\\ ace/board.xml";
  const struct {
    std::vector<std::string> words; ///< the last one is being typed
    std::string answer;
  } rows[] = {
      {{"set", "--cab"}, "<--cable>"},
      {{"set", design, "lumacore_"}, "<lumacore_0><lumacore_1><lumacore_2>"},
      {{"set", "~/sp\\ ace/board.xml", "a9"}, "<a9_0><a9_1>"},
      {{"set", "'sp ace/board.xml'", "a9"}, "<a9_0><a9_1>"},
      {{"set", design, "a9_0", "--connection=h"}, "cut -P 1 *=;<hw>"},
      {{"list", "c"}, "files"},
      {{"list", "--library", "s"}, "files -/"},
      {{"set", "$(touch touched)", "\"$(touch touched)\"/a"}, ""},
      {{"zz"}, ""},
  };
  for (const auto &row : rows) {
    std::string words = "zeldebug\n";
    for (const std::string &word : row.words)
      words += word + "\n";
    folder.write("words", words);
    EXPECT_EQ(answerOf(ZELDEBUG_ZSH " -f", "zsh",
                       "compdef() { print \"compdef $*\" }\n"
                       "compset() { print -n \"cut $*;\" }\n"
                       "compadd() { shift; print -n -- \"<${(j:><:)@}>\" }\n"
                       "_files() { print -n -- files $* }\n"
                       "source ./completion\n"
                       "words=(\"${(@f)$(<words)}\")\n"
                       "CURRENT=$#words PREFIX=$words[-1]\n"
                       "_zeldebug\ntrue\n"),
              "compdef _zeldebug zeldebug\n" + row.answer)
        << words;
  }
  EXPECT_FALSE(folder.exists("touched"));
}

/// The shell completes only in a terminal: it gets one, puts everything that
/// fits into each line, and shows the lines.
TEST_F(ShellTest, ZshCompletes) {
  if (!hasTerminals())
    GTEST_SKIP() << "there are no pseudo-terminals here";
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
      {"set sp\\ ace/board.xml lumacore_",
       "set sp\\ ace/board.xml lumacore_0 lumacore_1 lumacore_2 "},
      {"set ~/sp\\ ace/board.xml a9", "set ~/sp\\ ace/board.xml a9_0 a9_1 "},
      {"set ~/'sp ace'/board.xml a9", "set ~/'sp ace'/board.xml a9_0 a9_1 "},
      {"set 'sp ace/board.xml' a9", "set 'sp ace/board.xml' a9_0 a9_1 "},
      {"set sp\" \"ac\\e/'board'.xml a9",
       "set sp\" \"ac\\e/'board'.xml a9_0 a9_1 "},
      {"set sp\\ ace/board.xml 'lumacore_0",
       "set sp\\ ace/board.xml 'lumacore_0' "},
      {"set sp\\ ace/board.xml a9_0 --connection=",
       "set sp\\ ace/board.xml a9_0 --connection=hw "},
      {"set sp\\ ace/board.xml --connection=st",
       "set sp\\ ace/board.xml --connection=stub-jtag "
       "--connection=stub-serial "},
      {"set --cable=digi", "set --cable=digilent_plugin "},
      {"list compl", "list completion "},
      {"list --library s", "list --library sp\\ ace/"},
      {"list --library=s", "list --library=sp\\ ace/"},
      {"show --file=compl", "show --file=completion "},
      {"show --file=~/compl", "show --file=~/completion "},
      {"zz", "zz"},
      {"set 'sp\\ ace/board.xml' a9", "set 'sp\\ ace/board.xml' a9"},
      {"set '~/sp ace/board.xml' a9", "set '~/sp ace/board.xml' a9"},
      {"set ~sp\\ ace/board.xml a9", "set ~sp\\ ace/board.xml a9"},
      {"set $HOME/sp\\ ace/board.xml a9", "set $HOME/sp\\ ace/board.xml a9"},
      {"set $(touch touched) \"$(touch touched)\"/a",
       "set $(touch touched) \"$(touch touched)\"/a"},
      {"set `touch touched` a", "set `touch touched` a"},
      {"set sp*(e:'touch touched':) a", "set sp*(e:'touch touched':) a"},
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
  EXPECT_FALSE(folder.exists("touched"));
  EXPECT_EQ(answerOf(ZELDEBUG_ZSH " -f -n completion", "zsh", ""), "");
}
#endif

#ifdef ZELDEBUG_FISH
TEST_F(ShellTest, FishCompletes) {
  const std::string processors = "lumacore_0\nlumacore_1\nlumacore_2\n";
  const struct {
    std::string typed;
    std::string answer;
  } rows[] = {
      {"set --cab", "--cable\n"},
      {"set sp\\ ace/board.xml lumacore_", processors},
      {"set ~/sp\\ ace/board.xml lumacore_", processors},
      {"set ~/'sp ace'/board.xml lumacore_", processors},
      {"set 'sp ace/board.xml' lumacore_", processors},
      {"set sp\" \"ac'e'/board\\.xml lumacore_", processors},
      {"set sp\\ ace/board.xml 'lumacore_", processors},
      {"set sp\\ ace/board.xml \"lumacore_", processors},
      {"set sp\\ ace/board.xml a9_0 --connection=", "--connection=hw\n"},
      {"set sp\\ ace/board.xml a9_0 --connection='h", "--connection=hw\n"},
      {"set sp\\ ace/board.xml --connection=st",
       "--connection=stub-jtag\n--connection=stub-serial\n"},
      {"set --cable=digi", "--cable=digilent_plugin\n"},
      {"list compl", "completion\n"},
      {"list ~/compl", "~/completion\n"},
      {"list 'compl", "completion\n"},
      {"show --file=compl", "--file=completion\n"},
      {"show --file=~/compl", "--file=~/completion\n"},
      {"list --library s", "sp ace/\tDirectory\n"},
      {"list --library=s", "--library=sp ace/\tDirectory\n"},
      {"zz", ""},
      {"set 'sp\\ ace/board.xml' lumacore_", ""},
      {"set ~sp\\ ace/board.xml lumacore_", ""},
      {"set $HOME/sp\\ ace/board.xml lumacore_", ""},
      {"set (touch touched) lumacore_", ""},
      {"set \"$(touch touched)\" \"$(touch touched)", ""},
      {"list (touch touched", ""},
      {"list --library='(touch touched)", ""},
  };
  for (const auto &row : rows) {
    folder.write("line", "zeldebug " + row.typed);
    EXPECT_EQ(answerOf(ZELDEBUG_FISH " --no-config", "fish",
                       "source completion\ncomplete -C (cat line)\n"),
              row.answer)
        << row.typed;
  }
  EXPECT_FALSE(folder.exists("touched"));
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

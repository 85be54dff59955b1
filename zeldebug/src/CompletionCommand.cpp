// completion: what a shell needs to complete command lines. The scripts only
// ask `zeldebug complete`, so they know whatever the program knows.
#include <array>
#include <memory>
#include <vector>

#include <fmt/format.h>

#include "CommandLine.h"
#include "CompletionShells.h"
#include "Subcommands.h"
#include "Suggestion.h"

namespace zeldebug {

namespace {

struct Shell {
  const char *name;
  const char *script;
};

constexpr std::array<Shell, 3> shells{{
    {"bash", R"(# zeldebug completion for bash
_zeldebug() {
  local -a answer
  local word=${COMP_WORDS[COMP_CWORD]} option=''
  mapfile -t answer < <("${COMP_WORDS[0]}" complete -- \
    "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
  # Without = in COMP_WORDBREAKS, the option is part of the word.
  if [[ $word == --*=* ]]; then
    option=${word%%=*}=
  fi
  COMPREPLY=()
  case "${answer[0]}" in
  :files) compopt -o default ;;
  :folders) compopt -o dirnames ;;
  *) COMPREPLY=("${answer[@]/#/"$option"}") ;;
  esac
}
complete -F _zeldebug zeldebug
)"},
    {"zsh", R"(#compdef zeldebug
# zeldebug completion for zsh
_zeldebug() {
  local -a answer
  answer=("${(@f)$("${words[1]}" complete -- "${(@)words[2,CURRENT]}" 2>/dev/null)}")
  if [[ "$PREFIX" == --*=* ]]; then
    compset -P 1 '*='
  fi
  case "${answer[1]}" in
  :files) _files ;;
  :folders) _files -/ ;;
  ?*) compadd -- "${answer[@]}" ;;
  esac
}
if [ "$funcstack[1]" = "_zeldebug" ]; then
  _zeldebug "$@"
else
  compdef _zeldebug zeldebug
fi
)"},
    {"fish", R"(# zeldebug completion for fish
function __zeldebug_complete
  set -l words (commandline -opc)
  set -l last (commandline -ct)
  set -l answer (command $words[1] complete -- $words[2..-1] $last 2>/dev/null)
  set -l option (string match -r -- '^--[^=]+=' $last)
  switch "$answer[1]"
    case :files
      complete -C "'' $last"
    case :folders
      __fish_complete_directories $last
    case '?*'
      printf '%s\n' "$option"$answer
  end
end
complete -c zeldebug -f -a '(__zeldebug_complete)'
)"},
}};

ExitStatus run(const std::string &name, Output &output) {
  for (const Shell &shell : shells)
    if (name == shell.name) {
      output.print(shell.script);
      return ExitStatus::done;
    }
  const std::vector<std::string> names = completionShells();
  throw Failure(ExitStatus::wrongUse,
                fmt::format("completion: '{}' is unknown; accepted are {}{}",
                            name, quotedList(names), didYouMean(name, names)));
}

} // namespace

std::vector<std::string> completionShells() {
  std::vector<std::string> names;
  names.reserve(shells.size());
  for (const Shell &shell : shells)
    names.emplace_back(shell.name);
  return names;
}

void addCompletionCommand(CommandLine &line) {
  const auto shell = std::make_shared<std::string>();
  CLI::App &app = line.addSubcommand(
      "completion", "Print the completion script for a shell",
      "source <(zeldebug completion bash)",
      [shell](Output &output) { return run(*shell, output); });
  line.completeWith(app.add_option("SHELL", *shell, "bash, zsh or fish")
                        ->type_name("")
                        ->required(),
                    ValueKind::shell);
}

} // namespace zeldebug

// completion: what a shell needs to complete command lines. The scripts only
// ask `zeldebug complete`, so they know whatever the program knows.
#include <array>
#include <memory>
#include <vector>

#include <fmt/format.h>

#include "line/CommandLine.h"
#include "line/Options.h"
#include "output/Output.h"
#include "output/Suggestion.h"
#include "subcommands/CompletionShells.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

struct Shell {
  const char *name;
  const char *script;
};

// What was typed stands on the line as it was typed: the scripts take off the
// quotes and put in the home folder, but evaluate nothing of it.
constexpr std::array<Shell, 3> shells{{
    {"bash", R"(# zeldebug completion for bash
_zeldebug_unquote() {
  local left=$1 part plain quote=''
  unquoted=''
  if [[ $left == '~' || $left == '~/'* ]]; then
    unquoted=$HOME left=${left:1}
  fi
  # Taking something off costs the length of what is left: in short parts.
  while [[ -n $left ]]; do
    part=${left:0:99} left=${left:99}
    while [[ $part == *\\ && -n $left ]]; do
      part+=${left:0:1} left=${left:1}
    done
    while [[ -n $part ]]; do
      case $quote in
      \') plain=${part%%\'*} ;;
      \") plain=${part%%[\"\\]*} ;;
      *) plain=${part%%[\'\"\\]*} ;;
      esac
      unquoted+=$plain part=${part:${#plain}}
      [[ -n $part ]] || break
      case $quote${part:0:1} in
      \'\' | \"\") quote='' part=${part:1} ;;
      \' | \") quote=${part:0:1} part=${part:1} ;;
      \\) unquoted+=${part:1:1} part=${part:2} ;;
      \"\\)
        [[ $part == \\[\$\`\"\\]* ]] && part=${part:1}
        unquoted+=${part:0:1} part=${part:1}
        ;;
      esac
    done
  done
}
_zeldebug() {
  local -a typed answer
  local word unquoted option=''
  for word in "${COMP_WORDS[@]:0:COMP_CWORD+1}"; do
    _zeldebug_unquote "$word"
    typed+=("$unquoted")
  done
  mapfile -t answer < <("${typed[0]}" complete -- "${typed[@]:1}" 2>/dev/null)
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
  local -a typed answer
  local word
  for word in "${(@)words[1,CURRENT-1]}" "$PREFIX"; do
    case "$word" in
    '~' | '~/'*) typed+=("$HOME${(Q)word#\~}") ;;
    *) typed+=("${(Q)word}") ;;
    esac
  done
  answer=("${(@f)$("${typed[1]}" complete -- "${(@)typed[2,-1]}" 2>/dev/null)}")
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
  set -l raw (commandline -ct)
  set -l last (string unescape -- $raw; or string unescape -- $raw\'; or string unescape -- $raw\")
  set -l words
  for word in (commandline -opc) "$last"
    if string match -qr '^~(/|$)' -- $word
      set word $HOME(string sub -s 2 -- $word)
    end
    set -a words $word
  end
  set -l answer (command $words[1] complete -- $words[2..-1] 2>/dev/null)
  set -l option (string match -r -- '^--[^=]+=' $last)
  switch "$answer[1]"
    case :files
      complete -C "'' $raw"
    case :folders
      __fish_complete_directories $raw
    case '?*'
      printf '%s\n' "$option"$answer
  end
end
complete -c zeldebug -f -a '(__zeldebug_complete)'
)"},
}};

ExitStatus printScript(const std::string &name, Output &output) {
  for (const Shell &shell : shells)
    if (name == shell.name) {
      output.print(shell.script);
      return ExitStatus::done;
    }
  const std::vector<std::string> names = completionShells();
  throw Failure(ExitStatus::wrongUse,
                fmt::format("completion: '{}' is unknown; accepted are {}{}",
                            printable(name), quotedList(names),
                            didYouMean(name, names)),
                {"bad-value", "SHELL", name, names, nearestMatch(name, names)});
}

CommandLine::Runner completionScriptOptions(Options &app) {
  const auto shell = std::make_shared<std::string>();
  app.addRequired("SHELL", *shell, "bash, zsh or fish", ValueKind::shell);
  return [shell](Output &output) { return printScript(*shell, output); };
}

} // namespace

std::vector<std::string> completionShells() {
  std::vector<std::string> names;
  names.reserve(shells.size());
  for (const Shell &shell : shells)
    names.emplace_back(shell.name);
  return names;
}

void addCompletionScriptCommand(CommandLine &line) {
  line.addSubcommand("completion", "Print the completion script for a shell",
                     "source <(zeldebug completion bash)",
                     completionScriptOptions);
}

} // namespace zeldebug

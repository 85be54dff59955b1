// The command line: subcommands with their options, help, wrong use. Help, the
// manual page and completion are all made from what is registered here.
#ifndef ZELDEBUG_COMMANDLINE_H
#define ZELDEBUG_COMMANDLINE_H

#include <array>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "output/Output.h"

// Its header takes seconds to compile: who only adds options does without.
namespace CLI {
class App;
class Option;
} // namespace CLI

namespace zeldebug {

/// What completion offers for a value.
enum class ValueKind {
  text, ///< nothing
  file,
  folder,
  cable,
  frequency,
  connection,
  device,
  processor,
  probe,   ///< of the project
  profile, ///< of the project
  target,  ///< a part of the project that changes
  setting,
  colour,
  instance,
  diagnosticCode,
  languageWord,
  subcommand,
  shell,
};

struct ExitText {
  ExitStatus status;
  const char *text;
};

constexpr std::array<ExitText, 4> exitTexts{{
    {ExitStatus::done, "done"},
    {ExitStatus::refused, "refused, or a check failed"},
    {ExitStatus::wrongUse,
     "wrong use: an unknown option, a value that is not accepted"},
    {ExitStatus::unreadable, "a file could not be read or understood"},
}};

class Options;

class CommandLine {
public:
  using Runner = std::function<ExitStatus(Output &)>;
  /// Adds the options of a subcommand; what it returns is called when it is
  /// chosen and the whole line has been read.
  using Describe = Runner (*)(Options &);

  /// Its options are there once it has been asked for, or chosen.
  struct Subcommand {
    CLI::App *app;
    std::string example;
    Describe describe;
    Runner run;
  };

  CommandLine();
  ~CommandLine();
  CommandLine(const CommandLine &) = delete;
  CommandLine &operator=(const CommandLine &) = delete;

  /// Adds a subcommand with its help text. A line is of one of them: the
  /// options of the others are not made for it.
  Options addSubcommand(const std::string &name, const std::string &summary,
                        const std::string &example, Describe describe);
  /// Says what stands for values of `option`.
  void completeWith(const CLI::Option *option, ValueKind kind);

  /// Lets words that begin with '-' be arguments of a subcommand.
  void takeDashedWords(const CLI::App &taker) { dashed = &taker; }
  /// Those of the line.
  const std::vector<std::string> &dashedWords() const { return heldBack; }

  /// Reads the line and runs what it asks for. @throws Failure.
  ExitStatus run(int argc, const char *const *argv, Output &output);

  const CLI::App &application() const { return *app; }
  /// Those that are meant for people.
  std::vector<const Subcommand *> visible();
  std::vector<std::string> names() const; ///< of those
  ValueKind kindOf(const CLI::Option *option) const;
  /// The subcommand of that name, also one that is not meant for people.
  const Subcommand *findSubcommand(const std::string &name);
  /// The subcommand of that name, if it is meant for people.
  /// @throws Failure (wrong use) with those that there are
  const Subcommand &expectSubcommand(const std::string &name);
  /// The help of a subcommand, in lines that fit; of all of them for null.
  std::string helpOf(const Subcommand *subcommand, const Output &output) const;
  /// The folder of -C; "." without it.
  const std::string &workingFolder() const { return folder; }

private:
  void addCommonOptions(CLI::App &target);
  const Subcommand &described(Subcommand &subcommand);
  std::vector<const char *> withoutDashedWords(int argc,
                                               const char *const *argv);
  const Subcommand *chosen() const;
  void applyCommonOptions(Output &output) const;
  void nameSubcommand(Output &output) const;
  void expectFlagsAlone(const std::vector<std::string> &words) const;
  void expectValues(const std::vector<std::string> &words) const;
  void expectNothingUnknown(int argc, const char *const *argv);

  std::unique_ptr<CLI::App> app;
  std::deque<Subcommand> subcommands;
  std::map<const CLI::Option *, ValueKind> kinds;
  const CLI::App *dashed = nullptr;
  std::vector<std::string> heldBack; ///< words that begin with '-'
  std::string folder = ".";
  bool jsonWanted = false;
  bool isQuiet = false;
  bool isStrict = false;
  std::string colour = "auto";
};

} // namespace zeldebug

#endif

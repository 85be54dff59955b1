// The options and arguments of one subcommand, without the library that reads
// them.
#ifndef ZELDEBUG_OPTIONS_H
#define ZELDEBUG_OPTIONS_H

#include <optional>
#include <string>
#include <vector>

#include "line/CommandLine.h"

namespace zeldebug {

/// A value that is given empty is not missing. What a value is stored in has to
/// outlive the command line.
class Options {
public:
  Options(CommandLine &ofLine, CLI::App &ofSubcommand)
      : whole(ofLine), subcommand(ofSubcommand) {}

  /// @param group  the heading of help under which it stands
  void addFlag(const std::string &name, bool &value, const std::string &help,
               const std::string &group = "");
  void addOption(const std::string &name, const std::string &metavar,
                 std::optional<std::string> &value, const std::string &help,
                 ValueKind kind, const std::string &group = "");
  void addArgument(const std::string &name, std::optional<std::string> &value,
                   const std::string &help, ValueKind kind);
  void addRequired(const std::string &name, std::string &value,
                   const std::string &help, ValueKind kind);
  void addArguments(const std::string &name, std::vector<std::string> &values,
                    const std::string &help, ValueKind kind);

  /// Lets words that begin with '-' be arguments.
  void takeDashedWords() { whole.takeDashedWords(subcommand); }
  /// It is not meant for people.
  void hide();

  CommandLine &line() { return whole; }
  CLI::App &app() { return subcommand; }

private:
  CommandLine &whole;
  CLI::App &subcommand;
};

} // namespace zeldebug

#endif

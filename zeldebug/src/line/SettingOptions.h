// The settings of a command line (--cable, --frequency, ...): an option for
// each row of the table of settings that has one, and the ways in for all
// others.
#ifndef ZELDEBUG_SETTINGOPTIONS_H
#define ZELDEBUG_SETTINGOPTIONS_H

#include <string>
#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Language.h>
#include <ZelDebugDialog/ConfigurationModel/Settings.h>

#include "line/AskedSettings.h"

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace zeldebug {

class CommandLine;
class Options;

class SettingOptions {
public:
  /// Adds the options to a subcommand.
  void addTo(Options &options);

  /// What the line asks for. @throws Failure (wrong use, refused; unreadable
  /// for
  ///   the file of --settings)
  AskedSettings read() const;

private:
  /// An option that sets one setting, or one after the other with ':' between.
  struct Row {
    const CLI::Option *option;
    std::vector<const ZelDebugDialog::SettingInfo *> settings;
  };

  void addRow(CommandLine &line, CLI::App &app,
              const ZelDebugDialog::SettingInfo &setting);
  void readRow(const Row &row, AskedSettings &asked) const;
  void readModuleArguments(AskedSettings &asked) const;
  void readChain(AskedSettings &asked) const;
  void readAddressMap(AskedSettings &asked) const;
  static Failure noneToUnset(const std::string &subject,
                             const std::string &name);
  void readUnset(AskedSettings &asked) const;
  void readWaysIn(AskedSettings &asked) const;

  std::vector<Row> rows;
  const CLI::Option *from = nullptr;
  const CLI::Option *settings = nullptr;
  const CLI::Option *copyFrom = nullptr;
  const CLI::Option *unset = nullptr;
  const CLI::Option *addressMap = nullptr;
  const CLI::Option *unsetAddressMap = nullptr;
  const CLI::Option *moduleArgument = nullptr;
  const CLI::Option *device = nullptr;
  const CLI::Option *clearChain = nullptr;
};

/// The words that choose a cable.
std::vector<std::string> wordsOf(const ZelDebugDialog::CableInfo &cable);

/// The words that choose a cable which a command can be written with.
std::vector<std::string> offeredCables();

} // namespace zeldebug

#endif

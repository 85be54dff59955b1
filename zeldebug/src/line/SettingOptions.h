// The settings of a command line (--cable, --frequency, ...): read and checked
// before anything happens, applied in the order in which they were given.
#ifndef ZELDEBUG_SETTINGOPTIONS_H
#define ZELDEBUG_SETTINGOPTIONS_H

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "Session.h"

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace zeldebug {

class CommandLine;

/// The configuration that settings are applied to.
struct SettingTarget {
  Session &session;
  /// What the design says of the processor.
  ZelDebugDialog::ProcessorInfoImp designed;
  /// The settings that were asked for by name, as `settingsOf` names them; a
  /// chain stands for all its devices.
  std::set<std::string> given;
};

/// One checked setting. @throws Failure (refused) when the engine refuses it.
using SettingAction = std::function<void(SettingTarget &)>;

class SettingOptions {
public:
  /// Adds the options to a subcommand.
  void addTo(CommandLine &line, CLI::App &app);

  /// The settings in their order. @throws Failure (wrong use).
  std::vector<SettingAction> actions() const;
  /// The command of --from; null without it.
  const std::string *from() const;

private:
  CLI::App *subcommand = nullptr;
  const CLI::Option *fromOption = nullptr;
  std::string fromCommand;
};

} // namespace zeldebug

#endif

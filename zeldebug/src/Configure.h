// From what is saved, through the settings of a command line, to a command and
// to what it would lose.
#ifndef ZELDEBUG_CONFIGURE_H
#define ZELDEBUG_CONFIGURE_H

#include <set>
#include <string>
#include <vector>

#include "Loss.h"
#include "SavedConfiguration.h"
#include "line/SettingOptions.h"

namespace zeldebug {

struct Configured {
  SavedConfiguration saved;
  ZelDebugDialog::ProcessorInfoImp designed; ///< what the design says of it
  Configuration loaded;                      ///< what is saved, or the defaults
  std::set<std::string> spelled; ///< settings that what is saved has words for
  Configuration wanted;          ///< with the settings of the line
  std::string command;           ///< for what is wanted
  std::set<std::string> given;

  bool changed() const;
};

/// What the losses of a command mean for the user.
struct Verdict {
  std::vector<Loss> lost; ///< must not get lost in silence
  /// Saved before, and displaced by what the line asks for.
  std::vector<Loss> dropped;
};

/// Loads, applies, and generates the command.
/// @param force  a saved command that cannot be read counts as none
/// @throws Failure: (unreadable) for a saved command that cannot be read,
///   (refused) for a setting or a command that the engine refuses.
Configured configure(Session &session, const std::string &processor,
                     const SettingOptions &settings,
                     const std::vector<SettingAction> &actions, bool force);

/// Selects the current processor from the command of --from, if there is one.
/// @throws Failure (refused)
void applyCommand(SettingTarget &target, const SettingOptions &settings);

/// What comes back as it was saved, but is surely not meant: a frequency of the
/// line that the cable does not have. Empty for nothing.
std::string doubtOf(const Configured &configured);

Verdict judge(const Configured &configured, const std::vector<Loss> &losses);

} // namespace zeldebug

#endif

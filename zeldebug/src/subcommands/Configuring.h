// From what is saved, through the settings of a line, to a configuration and to
// everything that there is to say of it.
#ifndef ZELDEBUG_CONFIGURING_H
#define ZELDEBUG_CONFIGURING_H

#include <set>
#include <string>
#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Session.h>

#include "line/AskedSettings.h"
#include "output/Output.h"

namespace zeldebug {

/// Something to be said of a configuration.
struct Remark {
  bool isWarning;
  std::string text;
  About about;
};

/// A configuration with the settings of a line.
struct Configured {
  ZelDebugDialog::Session session;
  /// The settings that others have changed.
  std::vector<ZelDebugDialog::Effect> effects;
  std::vector<Remark> remarks;
  /// What did not come back before, either, or came by the line itself.
  std::vector<ZelDebugDialog::Loss> lossesBefore;
  /// The settings that words of the file carry.
  std::set<std::string> saved;

  bool hasWarnings() const;
};

struct ConfigureOptions {
  ZelDebugDialog::Session::Hold hold;
  /// A saved command that cannot be read counts as none; a number of --from
  /// that does not fit is taken as it is read.
  bool force = false;
};

/// Loads and changes.
/// @throws Failure: (unreadable) for a saved command that cannot be read,
///   (wrong use, refused) for a setting that is refused; Refusal for a
///   processor that there is not, or that cannot be debugged
Configured configure(const ZelDebugDialog::Board &board,
                     const std::string &processor, const AskedSettings &asked,
                     const ConfigureOptions &options);

/// @throws Failure (unreadable) for a saved command that cannot be read
void expectLoaded(ZelDebugDialog::Session &session, const std::string &advice);

/// Changes a session that is loaded.
/// @param force  as of `ConfigureOptions`
/// @throws Failure
std::vector<ZelDebugDialog::Effect>
applySettings(const ZelDebugDialog::Board &board,
              ZelDebugDialog::Session &session, const AskedSettings &asked,
              bool force, std::vector<Remark> &remarks);

/// What a written command would not bring back, as it is told.
struct Verdict {
  std::vector<ZelDebugDialog::Loss> lost; ///< must not get lost in silence
  /// Displaced by what the line asks for, or at their defaults.
  std::vector<ZelDebugDialog::Loss> dropped;
  /// Of those the ones that would have come back before.
  std::vector<ZelDebugDialog::Loss> noLongerSaved;
};

Verdict judge(const Configured &configured,
              const std::vector<ZelDebugDialog::Loss> &losses);

} // namespace zeldebug

#endif

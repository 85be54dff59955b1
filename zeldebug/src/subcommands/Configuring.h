// From what is saved, through the settings of a line, to a configuration and to
// everything that there is to say of it.
#ifndef ZELDEBUG_CONFIGURING_H
#define ZELDEBUG_CONFIGURING_H

#include <optional>
#include <set>
#include <string>
#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Session.h>

#include "line/AskedSettings.h"
#include "line/ProjectOptions.h"
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
  ZelDebugDialog::Session::Hold hold =
      ZelDebugDialog::Session::Hold::whileSaving;
  /// A saved command that cannot be read counts as none; a number of --from
  /// that does not fit is taken as it is read.
  bool force = false;
  /// What a processor without an option file starts from; null for the
  /// defaults.
  const LineProject *project = nullptr;
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

/// The command of a file that gives the same already, as it is worded there.
std::optional<std::string> findSavedCommand(ZelDebugDialog::Session &session);

/// Makes a session without an option file what the project says.
/// @param project  null: it stays as it is
/// @throws Failure (refused) where the processor cannot have it
void startFrom(const LineProject *project, ZelDebugDialog::Session &session);

/// Changes a session that is loaded.
/// @param options  `hold` is of no account
/// @throws Failure
std::vector<ZelDebugDialog::Effect>
applySettings(const ZelDebugDialog::Board &board,
              ZelDebugDialog::Session &session, const AskedSettings &asked,
              const ConfigureOptions &options, std::vector<Remark> &remarks);

/// What is read as it is written and surely not meant, of a session that has
/// the settings of a line.
void tellDoubts(const ZelDebugDialog::Session &session,
                const AskedSettings &asked, std::vector<Remark> &remarks);

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

// What was wrong with something that was asked for.
//
// Operations of the configuration model that refuse throw a `Refusal`, and
// leave everything as it was. It says in fields what a face needs to tell
// people; its `what()` is the whole sentence.
//
//   try {
//     session.Change({{"cable.frequency", "3 MHx"}});
//   } catch (const Refusal &refusal) {
//     show(refusal.setting, refusal.what(), refusal.accepted);
//   }
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_REFUSAL_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_REFUSAL_H

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Export.h"

namespace ZelDebugDialog {

/// What kind of thing was wrong.
enum class RefusalKind : std::uint8_t {
  unknownProcessor, ///< the design has no processor of that name
  notDebuggable,    ///< it has, but no debugger reaches it
  unknownSetting,   ///< no setting has that name
  notSettable,      ///< it is shown only
  badValue,         ///< no value of the setting
  notAllowed,       ///< a value that this processor does not allow
  excluded,         ///< two settings of one change cannot both stand
  badCommand,       ///< the command is refused
  nothingToUndo,
  nothingToRedo,
  unreadable,    ///< what is saved cannot be read
  wouldBeLost,   ///< saving would lose settings
  changedOnDisk, ///< the file is no longer what was loaded
  readOnly,      ///< the file may not be written
  draft,         ///< a text that is no value stands in a setting
  noCommand,     ///< no command can be written
  noRegularFile, ///< something else stands where the file belongs
  noFolder,      ///< the folder of the file is not there
  fileSystem,    ///< the file system refused
  fileExists,    ///< a file is there that is not to be replaced
};

/// The stable word for it: "unknown-setting", "bad-value", ...
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API const char *ShowKind(RefusalKind kind);

/// Whether saving passes over it with `SaveOptions::force`, where a person
/// agrees to what is lost or replaced.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API bool CanBeForced(RefusalKind kind);

/// One refusal. Fields that do not apply are empty.
class ZELDEBUGDIALOG_CONFIGURATIONMODEL_API Refusal
    : public std::runtime_error {
public:
  /// @param refusalKind  what kind of thing was wrong
  /// @param subject  what it is about, in front of the problem; may be empty
  /// @param problem  what is wrong, without its subject
  Refusal(RefusalKind refusalKind, const std::string &subject,
          std::string problem);
  /// The same refusal.
  Refusal(const Refusal &copied);
  /// The same refusal.
  Refusal &operator=(const Refusal &copied);
  ~Refusal() override;

  RefusalKind kind; ///< What kind of thing was wrong.
  /// What is wrong, without its subject: "'200' is no number from 0 to 127".
  std::string problem;
  std::string setting;               ///< The setting at fault.
  std::string other;                 ///< The one that it excludes.
  std::string value;                 ///< What was given, as a text.
  std::vector<std::string> accepted; ///< What would have been accepted.
  std::string suggestion;            ///< The nearest of them.
  std::string file;                  ///< The file at fault.
  int line = 0;                      ///< The line in it, from 1.
};

} // namespace ZelDebugDialog

#endif

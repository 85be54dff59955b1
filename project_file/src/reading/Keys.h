// The keys of the files, a row each, and the settings that a table takes.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_READING_KEYS_H
#define ZELDEBUGDIALOG_PROJECTFILE_READING_KEYS_H

#include <string>
#include <string_view>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"

namespace ZelDebugDialog::project {

enum class FileKind { project, local };

/// What stands behind a key of the file.
enum class KeyShape {
  version,
  path,
  text,
  paths,
  use,
  settings,
  types,
  processors,
  probes,
  profiles
};

struct KeyRow {
  const char *key;
  KeyShape shape;
  bool inProject;
  bool inLocal;
  const char *help; ///< one sentence
};

const std::vector<KeyRow> &fileKeys();

/// Those of `use`.
const std::vector<std::string> &useKeys();

/// The word that chooses no probe and no profile.
inline constexpr const char *noChoice = "none";
inline constexpr const char *unsetKey = "unset";

/// The keys of one file's top.
std::vector<std::string> keysOf(FileKind kind);
/// Those of a block, in a profile or at the top.
const std::vector<std::string> &blockKeys();

/// Which cable other values belong to, and what a connection keeps out.
inline constexpr const char *cableType = "cable.cableType";
inline constexpr const char *connection = "connection";

/// What the settings of a probe lack in front.
inline constexpr std::string_view cableFront = "cable.";

/// The setting of a name, or null for one that no table takes.
const SettingInfo *findAccepted(std::string_view id);
/// The settings that a table takes, without `front`.
std::vector<std::string> acceptedSettings(std::string_view front = "");
/// What to write for a setting that no table takes; none for what says which
/// processor it is.
std::vector<std::string> writtenFor(std::string_view id);

/// The fields of a device that have to be there.
const std::vector<std::string> &requiredFields();

} // namespace ZelDebugDialog::project

#endif

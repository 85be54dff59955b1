// A project file and the local file beside it, read: what each says, where it
// says it, and everything that is wrong with them.
//
// Plain values that own what they hold; usable from any thread. Nothing is
// written, and no design is opened. Lines and columns count from 1, columns in
// bytes of UTF-8; of a value they are those of its first byte.
//
//   const Project project = ReadProject("board/zeldebug.toml");
//   for (const ProjectFault &fault : project.faults)
//     tell(fault.place, fault.message);
#ifndef ZELDEBUGDIALOG_PROJECTFILE_PROJECT_H
#define ZELDEBUGDIALOG_PROJECTFILE_PROJECT_H

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Value.h"
#include "ZelDebugDialog/ProjectFile/Export.h"

namespace ZelDebugDialog {

/// A place in one of the files. Line 0: no place in a file.
struct ProjectPlace {
  std::string file; ///< As it was opened.
  int line = 0;     ///< From 1.
  int column = 0;   ///< From 1, in bytes.
};

/// How much something matters.
enum class ProjectSeverity : std::uint8_t {
  error,   ///< Nothing is done with the files.
  warning, ///< Surely not meant so.
  note,    ///< What became of a value.
};

/// Something that is wrong with a file, or worth telling.
struct ProjectFault {
  ProjectPlace place;                                ///< Where it is.
  ProjectSeverity severity = ProjectSeverity::error; ///< How much it matters.
  std::string code;                  ///< Known to `FindProjectCode`.
  std::string message;               ///< A sentence without its full stop.
  std::vector<std::string> accepted; ///< What would be accepted instead.
  std::string suggestion;            ///< What to write; may be empty.
  std::string setting;               ///< The setting at fault; may be empty.
};

/// A text, and where it stands.
struct ProjectText {
  std::string text;   ///< The text.
  ProjectPlace place; ///< Its first byte, quote included.
};

/// What one table says of a setting.
struct ProjectValue {
  std::string setting; ///< As of `GetSettings`; the chain is always "chain".
  Value value;         ///< What a change of the model takes.
  ProjectPlace place;  ///< Its first byte.
  /// Of a chain: where the fields of each device stand, by their names.
  std::vector<std::vector<std::pair<std::string, ProjectPlace>>> devices;
};

/// Which processors a table speaks of.
enum class ProjectScope : std::uint8_t {
  all,       ///< `[settings]`, and a probe
  type,      ///< `[type.T]`
  pattern,   ///< `[processor."a*"]`
  processor, ///< `[processor.a]`
};

/// One table of settings.
struct ProjectTable {
  ProjectScope scope = ProjectScope::all; ///< Whom it speaks of.
  std::string name;   ///< A type, a pattern, a processor, a probe.
  ProjectPlace place; ///< Its name.
  std::vector<ProjectValue> values; ///< In the order of the file.
  /// Settings of which nothing counts that lower sources say.
  std::vector<ProjectText> unset;
};

/// Tables that belong together: of a file, or of a profile.
using ProjectBlock = std::vector<ProjectTable>;

/// A profile, as one file has it.
struct ProjectProfile {
  std::string name;    ///< Its name.
  ProjectPlace place;  ///< Where its name stands first.
  ProjectBlock tables; ///< In the order of the file.
};

/// What one file says.
struct ProjectLayer {
  std::string file;                     ///< Its path, as it was opened.
  bool exists = false;                  ///< A local file need not.
  std::optional<ProjectText> design;    ///< Path of the design.
  std::optional<ProjectText> view;      ///< A view of it.
  std::optional<ProjectText> kinds;     ///< Path of a table of kinds.
  std::optional<ProjectText> directory; ///< Above `etc/`.
  std::optional<std::vector<ProjectText>> library; ///< Paths.
  std::optional<ProjectText> probe;     ///< `use.probe`; "none" for none.
  std::optional<ProjectText> profile;   ///< `use.profile`; "none" for none.
  ProjectBlock block;                   ///< What stands in no profile.
  std::vector<ProjectTable> probes;     ///< Those it defines.
  std::vector<ProjectProfile> profiles; ///< Those it defines.
};

/// Both files.
struct Project {
  ProjectLayer project; ///< The shared one.
  ProjectLayer local;   ///< The one of a desk.
  /// Errors and warnings; the project file's first, by line and column.
  std::vector<ProjectFault> faults;

  /// Whether anything among the faults is an error.
  ZELDEBUGDIALOG_PROJECTFILE_API bool HasErrors() const;
  /// The folders and files that the design is read from, the later file's
  /// before the earlier one's; relative ones are of the folder of their file.
  ZELDEBUGDIALOG_PROJECTFILE_API std::string Design() const;
  /// The same; empty for none.
  ZELDEBUGDIALOG_PROJECTFILE_API std::string Kinds() const;
  /// The view, empty for none.
  ZELDEBUGDIALOG_PROJECTFILE_API std::string View() const;
  /// The folders of libraries.
  ZELDEBUGDIALOG_PROJECTFILE_API std::vector<std::string> Libraries() const;
  /// The folder that has `etc/`.
  ZELDEBUGDIALOG_PROJECTFILE_API std::string Directory() const;
};

/// The name of a project file.
inline constexpr const char *projectFileName = "zeldebug.toml";

/// Looks for a project file in a folder and in those above it, up to the root.
/// @return its path; empty if there is none
ZELDEBUGDIALOG_PROJECTFILE_API std::string
FindProject(const std::string &folder);

/// The local file of a project file: "x.local.toml" of "x.toml".
ZELDEBUGDIALOG_PROJECTFILE_API std::string
LocalFileOf(const std::string &projectFile);

/// Reads a project file, and the local file if there is one. What is wrong with
/// what they say stands among the faults.
/// @throws Refusal (unreadable) for a file that cannot be read
ZELDEBUGDIALOG_PROJECTFILE_API Project
ReadProject(const std::string &projectFile);

/// The same of texts, as they would stand in the files.
/// @param projectFile  path that the project file would have
/// @param project      its text
/// @param local  none: there is no local file
ZELDEBUGDIALOG_PROJECTFILE_API Project
ReadProjectTexts(const std::string &projectFile, const std::string &project,
                 const std::optional<std::string> &local);

} // namespace ZelDebugDialog

#endif

// A project that a board is opened from, if there is one. What it says beside
// the model is put into documents here; without the library of project files
// there is none to open.
#ifndef ZELDEBUGDIALOG_PROTOCOL_SERVER_BOARDPROJECT_H
#define ZELDEBUGDIALOG_PROTOCOL_SERVER_BOARDPROJECT_H

#include <memory>
#include <string>
#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Session.h>
#include <ZelDebugDialog/DesignModel/DesignModel.h>

#include "server/Parameters.h"

namespace ZelDebugDialog::protocol {

/// What is to be written to a file of the project.
struct ProjectChange {
  std::string into; ///< "local", "project", "profile:NAME"
  SettingValues values;
  std::vector<std::string> unset;
};

/// The project of an open board. Any thread may use it.
class BoardProject {
public:
  virtual ~BoardProject() = default;

  /// {"file", "local", "probe", "profile", "probes", "profiles", "warnings"}
  virtual Json json() const = 0;
  /// Counts how often it says something else.
  virtual unsigned version() const = 0;
  /// Lets a session start as the files say.
  virtual void start(Session &session) const = 0;
  /// Adds to a state what the files say.
  virtual void addTo(Json &state, const std::string &processor) const = 0;
  /// {"effects", "written"}
  /// @throws Fault, Refusal; then nothing is changed
  virtual Json write(Session &session, const ProjectChange &change) = 0;

protected:
  BoardProject() = default;
  BoardProject(const BoardProject &) = default;
  BoardProject &operator=(const BoardProject &) = default;
};

/// Files of a project that have been read; their design has not.
class ReadFiles {
public:
  virtual ~ReadFiles() = default;

  virtual DesignSources sources() const = 0;
  /// Of the option files.
  virtual std::string folder() const = 0;
  /// What is wrong with the files is told before what is wrong with the design.
  /// @throws Fault
  virtual void expectFine() const = 0;
  /// @throws Fault
  virtual std::shared_ptr<BoardProject> open(const Board &board) const = 0;

protected:
  ReadFiles() = default;
  ReadFiles(const ReadFiles &) = default;
  ReadFiles &operator=(const ReadFiles &) = default;
};

/// Reads the file that "project" names.
/// @throws Fault
std::unique_ptr<ReadFiles> readProjectFiles(const Parameters &given);

} // namespace ZelDebugDialog::protocol

#endif

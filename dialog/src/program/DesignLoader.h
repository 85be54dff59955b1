// Reads designs in a thread of their own, so that the window goes on answering.
#ifndef ZELDEBUGDIALOG_DIALOG_DESIGNLOADER_H
#define ZELDEBUGDIALOG_DIALOG_DESIGNLOADER_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QObject>

#include "ZelDebugDialog/ConfigurationModel/Board.h"
#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "ZelDebugDialog/DesignModel/Libraries.h"
#include "ZelDebugDialog/ProjectFile/ProjectBoard.h"
#include "program/WhatToOpen.h"

class QThread;

namespace ZelDebugDialog::dialog {

/// A design, as far as it could be read. The board refers to the model beside
/// it: neither is moved.
struct LoadedDesign {
  WhatToOpen sources;    ///< What was asked for.
  DesignSources ofModel; ///< What was read: of a project, what that names.
  std::string folder;    ///< Of the option files.
  DesignModel model;
  std::optional<Board> board; ///< None for a design that could not be read.
  /// None for a design alone; then there is no board, either, for one that
  /// could not be read.
  std::optional<ProjectBoard> project;
  /// Of the design, and of the files of a project.
  std::vector<DesignDiagnostic> diagnostics;
  LibrarySearch search; ///< Where what is missing may be.
  std::string problem;  ///< Why there is no board.
};

class DesignLoader : public QObject {
  Q_OBJECT

public:
  explicit DesignLoader(QObject *parent);
  DesignLoader(const DesignLoader &) = delete;
  DesignLoader &operator=(const DesignLoader &) = delete;
  /// Waits for what is being read.
  ~DesignLoader() override;

  /// Takes the place of what is being read.
  void start(const WhatToOpen &sources, const std::string &folder);
  /// What is being read will not be `loaded`; its thread ends by itself.
  void cancel();

signals:
  void loaded(const std::shared_ptr<dialog::LoadedDesign> &design);

private:
  std::shared_ptr<LoadedDesign> wanted;
  std::vector<QThread *> threads;
};

} // namespace ZelDebugDialog::dialog

#endif

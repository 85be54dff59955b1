#include "program/DesignLoader.h"

#include <algorithm>
#include <exception>

#include <QThread>

namespace ZelDebugDialog::dialog {

namespace {

std::string firstErrorOf(const DesignModel &model) {
  for (const DesignDiagnostic &one : model.Diagnostics())
    if (one.severity == DesignDiagnostic::Severity::error)
      return one.message;
  return {};
}

using Severity = DesignDiagnostic::Severity;

/// What a request says stands over what the project says.
DesignSources sourcesOf(const Project &project, const WhatToOpen &asked) {
  DesignSources sources = asked;
  sources.designFile = project.Design();
  if (sources.libraryFolders.empty())
    sources.libraryFolders = project.Libraries();
  if (sources.view.empty())
    sources.view = project.View();
  if (sources.kindsFile.empty())
    sources.kindsFile = project.Kinds();
  return sources;
}

void append(const std::vector<ProjectFault> &faults,
            std::vector<DesignDiagnostic> &to) {
  for (const ProjectFault &fault : faults)
    to.push_back({fault.severity == ProjectSeverity::error ? Severity::error
                                                           : Severity::warning,
                  fault.place.file, fault.place.line, fault.message});
}

void readModel(LoadedDesign &design) {
  if (ReadDesign(design.ofModel, design.model))
    design.board.emplace(design.model, design.folder);
  else
    design.problem = firstErrorOf(design.model);
}

/// All faults of the files are told, as far as there is a design to look at
/// them with.
void loadProject(LoadedDesign &design) {
  try {
    const Project project = ReadProject(design.sources.designFile);
    if (!project.project.design)
      throw FaultyProject(project.faults);
    design.ofModel = sourcesOf(project, design.sources);
    design.folder = OptionFolderOf(project);
    readModel(design);
    if (!design.board && project.HasErrors())
      throw FaultyProject(project.faults);
    if (!design.board)
      return;
    design.project.emplace(project, *design.board, design.sources.wishes);
    append(design.project->Warnings(), design.diagnostics);
  } catch (const FaultyProject &faulty) {
    append(faulty.faults, design.diagnostics);
    throw;
  }
}

void load(LoadedDesign &design) {
  try {
    design.ofModel = design.sources;
    if (design.sources.isProject)
      loadProject(design);
    else
      readModel(design);
    if (!design.model.Missing().empty())
      design.search = FindLibraries(design.ofModel, design.model);
  } catch (const std::exception &failure) {
    design.board.reset();
    design.problem = failure.what();
  }
  const std::vector<DesignDiagnostic> &ofModel = design.model.Diagnostics();
  design.diagnostics.insert(design.diagnostics.end(), ofModel.begin(),
                            ofModel.end());
}

} // namespace

DesignLoader::DesignLoader(QObject *parent) : QObject(parent) {}

DesignLoader::~DesignLoader() {
  for (QThread *const thread : threads) {
    thread->wait();
    delete thread;
  }
}

void DesignLoader::start(const WhatToOpen &sources, const std::string &folder) {
  auto design = std::make_shared<LoadedDesign>();
  design->sources = sources;
  design->folder = folder;
  wanted = design;
  QThread *const thread = QThread::create([design] { load(*design); });
  threads.push_back(thread);
  connect(thread, &QThread::finished, this, [this, thread, design] {
    threads.erase(std::find(threads.begin(), threads.end(), thread));
    thread->deleteLater();
    if (design != wanted)
      return;
    wanted.reset();
    emit loaded(design);
  });
  thread->start();
}

void DesignLoader::cancel() { wanted.reset(); }

} // namespace ZelDebugDialog::dialog

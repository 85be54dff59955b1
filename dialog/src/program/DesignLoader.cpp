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

void load(LoadedDesign &design) {
  try {
    if (ReadDesign(design.sources, design.model))
      design.board.emplace(design.model, design.folder);
    else
      design.problem = firstErrorOf(design.model);
    if (!design.model.Missing().empty())
      design.search = FindLibraries(design.sources, design.model);
  } catch (const std::exception &failure) {
    design.board.reset();
    design.problem = failure.what();
  }
}

} // namespace

DesignLoader::DesignLoader(QObject *parent) : QObject(parent) {}

DesignLoader::~DesignLoader() {
  for (QThread *const thread : threads) {
    thread->wait();
    delete thread;
  }
}

void DesignLoader::start(const DesignSources &sources,
                         const std::string &folder) {
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

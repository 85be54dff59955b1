#include "subcommands/NewProject.h"

#include <filesystem>

#include <fmt/format.h>

#include <ZelDebugDialog/ProjectFile/Project.h>

#include "output/Json.h"
#include "output/Place.h"

namespace zeldebug {

namespace fs = std::filesystem;

namespace {

using ZelDebugDialog::AdoptedProject;
using ZelDebugDialog::LocalFileOf;
using ZelDebugDialog::PathFor;
using ZelDebugDialog::ProjectSources;

Json nameIf(bool isThere, const std::string &file) {
  return isThere ? Json(file) : Json();
}

} // namespace

std::string newProjectFile(const std::string &workingFolder) {
  std::error_code error;
  const fs::path folder = fs::canonical(workingFolder, error);
  return shownPath(folder / ZelDebugDialog::projectFileName);
}

ProjectSources sourcesFor(const DesignOptions &options,
                          const std::string &projectFile) {
  const ZelDebugDialog::DesignSources given = options.expectSources();
  ProjectSources sources;
  sources.design = PathFor(projectFile, given.designFile);
  sources.view = given.view;
  if (!given.kindsFile.empty())
    sources.kinds = PathFor(projectFile, given.kindsFile);
  for (const std::string &folder : given.libraryFolders)
    sources.library.push_back(PathFor(projectFile, folder));
  return sources;
}

void writeProject(const std::string &projectFile, const AdoptedProject &made,
                  const Json &members, Output &output) {
  output.expectNoWarnings();
  WriteNewProject(projectFile, made);
  const std::string local = LocalFileOf(projectFile);
  const std::string kinds =
      (fs::path(projectFile).parent_path() / ZelDebugDialog::kindsFileName)
          .string();
  output.note("written; 'zeldebug sync' makes the option files follow");
  if (output.json()) {
    Json document{{"project", projectFile},
                  {"local", nameIf(made.local.has_value(), local)},
                  {"kinds", nameIf(made.kinds.has_value(), kinds)}};
    document.update(members);
    output.document(document);
    return;
  }
  output.printLine(printable(projectFile));
  if (made.local)
    output.printLine(printable(local));
  if (made.kinds)
    output.printLine(printable(kinds));
}

} // namespace zeldebug

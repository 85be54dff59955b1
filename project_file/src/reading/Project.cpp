#include "ZelDebugDialog/ProjectFile/Project.h"

#include <algorithm>
#include <filesystem>

#include "files/ReadFile.h"
#include "reading/DeskSettings.h"
#include "reading/Faults.h"
#include "reading/FileReader.h"
#include "reading/Keys.h"
#include "reading/Names.h"

namespace ZelDebugDialog {

namespace fs = std::filesystem;

namespace {

using namespace project;

constexpr std::string_view ending = ".toml";

/// A path in a file is of the folder of that file.
std::string beside(const ProjectText &path) {
  return (fs::path(path.place.file).parent_path() / path.text)
      .lexically_normal()
      .string();
}

void expectKnown(const std::optional<ProjectText> &name,
                 const std::vector<std::string> &names, const char *code,
                 const char *what, std::vector<ProjectFault> &faults) {
  if (!name || name->text == noChoice ||
      std::find(names.begin(), names.end(), name->text) != names.end())
    return;
  std::vector<std::string> accepted = names;
  accepted.emplace_back(noChoice);
  faults.push_back(
      unknownName(code, name->place, name->text, what, std::move(accepted)));
}

} // namespace

bool Project::HasErrors() const {
  return std::any_of(faults.begin(), faults.end(),
                     [](const ProjectFault &fault) {
                       return fault.severity == ProjectSeverity::error;
                     });
}

std::string Project::Design() const {
  return project.design ? beside(*project.design) : "";
}

std::string Project::Kinds() const {
  return project.kinds ? beside(*project.kinds) : "";
}

std::string Project::View() const {
  return project.view ? project.view->text : "";
}

std::vector<std::string> Project::Libraries() const {
  std::vector<std::string> folders;
  const auto &list = local.library ? local.library : project.library;
  if (list)
    for (const ProjectText &path : *list)
      folders.push_back(beside(path));
  return folders;
}

std::string Project::Directory() const {
  const auto &path = local.directory ? local.directory : project.directory;
  if (path)
    return beside(*path);
  const std::string folder = fs::path(project.file).parent_path().string();
  return folder.empty() ? "." : folder;
}

std::string FindProject(const std::string &folder) {
  std::error_code error;
  // Behind links, what is above is above the folder that they lead to.
  fs::path at = fs::canonical(folder.empty() ? "." : folder, error);
  if (error)
    at = fs::absolute(folder, error).lexically_normal();
  for (;;) {
    const fs::path file = at / projectFileName;
    if (fs::symlink_status(file, error).type() != fs::file_type::not_found &&
        !error)
      return file.string();
    const fs::path above = at.parent_path();
    if (above == at || above.empty())
      return "";
    at = above;
  }
}

std::string LocalFileOf(const std::string &projectFile) {
  const std::size_t size = projectFile.size();
  const bool hasEnding =
      size >= ending.size() &&
      projectFile.compare(size - ending.size(), ending.size(), ending) == 0;
  return (hasEnding ? projectFile.substr(0, size - ending.size())
                    : projectFile) +
         ".local" + std::string(ending);
}

Project ReadProjectTexts(const std::string &projectFile,
                         const std::string &projectText,
                         const std::optional<std::string> &localText) {
  Project result;
  result.project =
      readLayer(FileKind::project, projectFile, projectText, result.faults);
  const std::string localFile = LocalFileOf(projectFile);
  if (localText)
    result.local =
        readLayer(FileKind::local, localFile, *localText, result.faults);
  result.local.file = localFile;
  std::vector<std::string> probes;
  std::vector<std::string> profiles;
  for (const ProjectLayer *const layer : {&result.project, &result.local}) {
    addNames(layer->probes, probes);
    addNames(layer->profiles, profiles);
  }
  // Of a file that could not be read whole nobody knows what it defines.
  const bool isWhole = std::none_of(
      result.faults.begin(), result.faults.end(),
      [](const ProjectFault &fault) { return fault.code == "toml-syntax"; });
  if (isWhole)
    for (const ProjectLayer *const layer : {&result.project, &result.local}) {
      expectKnown(layer->probe, probes, "unknown-probe", "no probe",
                  result.faults);
      expectKnown(layer->profile, profiles, "unknown-profile", "no profile",
                  result.faults);
    }
  addDeskSettings(result.project, result.faults);
  sortFaults(result.faults, projectFile);
  return result;
}

Project ReadProject(const std::string &projectFile) {
  const std::string text = expectFile(projectFile);
  return ReadProjectTexts(projectFile, text,
                          findFile(LocalFileOf(projectFile)));
}

} // namespace ZelDebugDialog

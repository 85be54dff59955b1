#include <filesystem>
#include <optional>
#include <utility>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Files.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "ZelDebugDialog/ProjectFile/Adopt.h"
#include "ZelDebugDialog/ProjectFile/Project.h"
#include "files/PutBack.h"
#include "files/ReadFile.h"

namespace ZelDebugDialog {

namespace fs = std::filesystem;

namespace {

using namespace project;

void expectNone(const std::string &file) {
  std::error_code error;
  if (fs::symlink_status(file, error).type() == fs::file_type::not_found)
    return;
  Refusal refusal(RefusalKind::fileExists, ShowText(file),
                  "it is there already, and stays as it is");
  refusal.file = file;
  throw refusal;
}

bool hasLine(const std::string &text, const std::string &line) {
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    std::string one = text.substr(start, end - start);
    if (!one.empty() && one.back() == '\r')
      one.pop_back();
    if (one == line || one == "/" + line)
      return true;
    start = end + 1;
  }
  return false;
}

std::string withLines(const std::string &before,
                      const std::vector<std::string> &lines) {
  std::string after = before;
  const std::string lineEnd =
      before.find("\r\n") == std::string::npos ? "\n" : "\r\n";
  for (const std::string &line : lines) {
    if (hasLine(before, line))
      continue;
    if (!after.empty() && after.back() != '\n')
      after += lineEnd;
    after += line + lineEnd;
  }
  return after;
}

} // namespace

void WriteNewProject(const std::string &projectFile,
                     const AdoptedProject &adopted) {
  const fs::path folder = fs::path(projectFile).parent_path();
  std::vector<std::pair<fs::path, const std::string *>> files;
  if (adopted.kinds)
    files.emplace_back(folder / kindsFileName, &*adopted.kinds);
  const fs::path localFile = LocalFileOf(projectFile);
  if (adopted.local)
    files.emplace_back(localFile, &*adopted.local);
  // What names the others comes last.
  files.emplace_back(projectFile, &adopted.project);
  const auto expectNoFile = [&files, &localFile] {
    for (const auto &[file, text] : files)
      expectNone(file.string());
    // One that is there would stand over what is written.
    expectNone(localFile.string());
  };
  expectNoFile();
  const FileLock lock(projectFile);
  expectNoFile();
  const std::string ignoreFile = (folder / ".gitignore").string();
  const FileLock ignoreLock(ignoreFile);
  const std::optional<std::string> ignoredBefore = findFile(ignoreFile);
  const std::string ignored = withLines(
      ignoredBefore.value_or(""), {localFile.filename().string(), "etc/"});
  if (ignored != ignoredBefore)
    WriteWholeFile(ignoreLock, ignored, ExistingFile::replace);
  std::vector<fs::path> written;
  try {
    for (const auto &[file, text] : files) {
      if (file == projectFile)
        WriteWholeFile(lock, *text, ExistingFile::refuse);
      else
        WriteWholeFile(file.string(), *text, ExistingFile::refuse);
      written.push_back(file);
    }
  } catch (...) {
    std::error_code error;
    for (const fs::path &file : written)
      fs::remove(file, error);
    if (ignored != ignoredBefore)
      putBack(ignoreLock, ignoreFile, ignoredBefore);
    throw;
  }
}

std::string PathFor(const std::string &projectFile, const std::string &path) {
  std::error_code error;
  const fs::path folder = fs::weakly_canonical(
      fs::absolute(projectFile, error).parent_path(), error);
  const fs::path whole = fs::weakly_canonical(fs::absolute(path, error), error);
  const fs::path relative = whole.lexically_relative(folder);
  return error || relative.empty() ? path : relative.string();
}

} // namespace ZelDebugDialog

#include <filesystem>

#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "ZelDebugDialog/ProjectFile/Adopt.h"
#include "ZelDebugDialog/ProjectFile/Project.h"
#include "files/ReadFile.h"
#include "files/WriteFile.h"

namespace ZelDebugDialog {

namespace fs = std::filesystem;

namespace {

using namespace project;

void expectNone(const std::string &file) {
  std::error_code error;
  if (fs::symlink_status(file, error).type() == fs::file_type::not_found)
    return;
  Refusal refusal(RefusalKind::changedOnDisk, ShowText(file),
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

void ignore(const fs::path &file, const std::vector<std::string> &lines) {
  const std::string before = findFile(file.string()).value_or("");
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
  if (after != before)
    writeFile(file, after);
}

} // namespace

void WriteNewProject(const std::string &projectFile,
                     const AdoptedProject &adopted) {
  const std::string localFile = LocalFileOf(projectFile);
  expectNone(projectFile);
  const Lock lock(lockOf(projectFile));
  expectNone(projectFile);
  if (adopted.local)
    expectNone(localFile);
  ignore(fs::path(projectFile).parent_path() / ".gitignore",
         {fs::path(localFile).filename().string(), "etc/"});
  if (adopted.local)
    writeFile(localFile, *adopted.local);
  try {
    writeFile(projectFile, adopted.project);
  } catch (const Refusal &) {
    std::error_code ignored;
    if (adopted.local)
      fs::remove(localFile, ignored);
    throw;
  }
}

} // namespace ZelDebugDialog

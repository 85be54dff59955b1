#include "ZelDebugDialog/ConfigurationModel/Files.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "files/FileLock.h"
#include "files/FileSaver.h"
#include "files/Place.h"

namespace ZelDebugDialog {

namespace fs = std::filesystem;

namespace {

bool holds(const fs::path &file, const std::string &text) {
  std::ifstream stream(file, std::ios::binary);
  return stream && text == std::string(std::istreambuf_iterator<char>(stream),
                                       std::istreambuf_iterator<char>());
}

} // namespace

bool WriteWholeFile(const std::string &path, const std::string &text,
                    ExistingFile existing) {
  if (path.empty() || path.find('\0') != std::string::npos)
    model::refuseKind(RefusalKind::noRegularFile, path, "is no name of a file");
  const fs::path target = model::behindLinks(fs::absolute(path));
  model::expectReplaceable(target, true);
  if (holds(target, text))
    return false;
  const model::FileLock lock(target);
  if (existing == ExistingFile::refuse && fs::exists(target))
    model::refuseKind(RefusalKind::fileExists, target,
                      "there is a file of that name");
  model::ScratchFile scratch(target);
  std::ofstream(scratch.path(), std::ios::binary) << text;
  if (!holds(scratch.path(), text))
    model::refuseFile(target, "it could not be written whole: no space left, "
                              "or a limit on the size of files");
  model::flushFiles({&scratch});
  scratch.moveIntoPlace();
  model::flushFolder(target.parent_path());
  return true;
}

} // namespace ZelDebugDialog

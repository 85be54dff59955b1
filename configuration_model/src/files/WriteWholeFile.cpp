#include "ZelDebugDialog/ConfigurationModel/Files.h"

#include <filesystem>
#include <fstream>
#include <utility>

#include "files/FileSaver.h"
#include "files/LockFile.h"
#include "files/Place.h"

namespace ZelDebugDialog {

namespace fs = std::filesystem;

namespace {

/// The file that a name leads to, behind links; or none, which may be made.
fs::path targetOf(const std::string &path) {
  if (path.empty() || path.find('\0') != std::string::npos)
    model::refuseKind(RefusalKind::noRegularFile, path, "is no name of a file");
  fs::path target = model::behindLinks(fs::absolute(path));
  model::expectReplaceable(target, true);
  return target;
}

} // namespace

bool WriteWholeFile(const std::string &path, const std::string &text,
                    ExistingFile existing) {
  return !model::holds(targetOf(path), text) &&
         WriteWholeFile(FileLock(path), text, existing);
}

struct FileLock::Held {
  Held(fs::path file, std::chrono::seconds patience)
      : target(std::move(file)), lock(target, patience) {}

  fs::path target;
  model::LockFile lock;
};

FileLock::FileLock(const std::string &file, std::chrono::seconds patience)
    : held(std::make_unique<Held>(targetOf(file), patience)) {}

FileLock::~FileLock() = default;

bool WriteWholeFile(const FileLock &lock, const std::string &text,
                    ExistingFile existing) {
  const fs::path &target = lock.held->target;
  model::expectReplaceable(target, true);
  if (model::holds(target, text))
    return false;
  if (existing == ExistingFile::refuse && fs::exists(target))
    model::refuseKind(RefusalKind::fileExists, target,
                      "there is a file of that name");
  model::ScratchFile scratch(target);
  std::ofstream(scratch.path(), std::ios::binary) << text;
  if (!model::holds(scratch.path(), text))
    model::refuseFile(target, "it could not be written whole: no space left, "
                              "or a limit on the size of files");
  model::flushFiles({&scratch});
  scratch.moveIntoPlace();
  model::flushFolder(target.parent_path());
  return true;
}

} // namespace ZelDebugDialog

#include "OptionFileSaver.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include "OptionFile.h"
#include "OptionFolder.h"
#include "Refusal.h"
#include "output/Failure.h"
#include "output/Place.h"

namespace zeldebug {

namespace fs = std::filesystem;

namespace {

std::string contentOf(const fs::path &file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream),
          std::istreambuf_iterator<char>()};
}

/// Asks the file system to keep what was written before its name is moved.
/// @return 0, or the error number.
int flush(const fs::path &file) {
  const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0)
    return errno;
  const int problem = fsync(descriptor) == 0 ? 0 : errno;
  close(descriptor);
  return problem;
}

} // namespace

OptionFileSaver::OptionFileSaver(Session &session, const fs::path &folder)
    : processor(session.state->currentProcessor->instanceName) {
  try {
    scratch = std::make_unique<ScratchFolder>(folder);
  } catch (const fs::filesystem_error &problem) {
    refuseToWriteIn(folder, problem.code());
  }
  written = optionFilePath(scratch->path(), processor);
  const int result = session.engine.Generate();
  if (result != 0)
    throw Failure(ExitStatus::refused,
                  fmt::format("no command can be written: {}",
                              reasonOf({result, session.message()})));
  text = session.state->currentProcessor->connectCommand;
  // The engine does not report a disk that is full.
  if (contentOf(written) != text)
    refuse(folder,
           "the option file could not be written whole: no space left, or "
           "a limit on the size of files");
  const int problem = flush(written);
  if (problem != 0)
    refuse(folder, std::generic_category().message(problem));
}

ReadBack OptionFileSaver::readBack(HHSMHwManager *design) const {
  Session fresh(design);
  const Reading reading = fresh.selectSaved(processor);
  return {reading.accepted(),
          reading.accepted() ? std::string()
                             : refusalOf(reading, text, design, processor),
          configurationOf(*fresh.state)};
}

void OptionFileSaver::moveTo(const fs::path &target) const {
  std::error_code error;
  const fs::file_status there = fs::status(target, error);
  if (fs::is_regular_file(there))
    fs::permissions(written, there.permissions(), error);
  fs::rename(written, target, error);
  if (error)
    refuse(target, error.message());
}

void expectReplaceable(const fs::path &target) {
  std::error_code ignored;
  if (fs::is_directory(target, ignored))
    refuse(target, std::make_error_code(std::errc::is_a_directory).message());
}

fs::path behindLinks(const fs::path &path) {
  std::error_code error;
  const fs::path target = fs::canonical(path, error);
  return error ? path : target;
}

} // namespace zeldebug

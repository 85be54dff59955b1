// The content of an option file: read as the command on its line, written back,
// and read again.
//
// The first byte of an input says what stands under the name of the file: '0' a
// file in memory with the rest as its content, '1' nothing, '2' a folder, '3' a
// device, '4' and '5' what is no name of a file, and so on, round and round.
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "ZelDebugDialog/KvoOption_Parser.h"
#include "common/Reading.h"
#include "common/Require.h"
#include "common/ScratchFolder.h"
#include "support/OptionFileText.h"

namespace {

using namespace std::string_literals;
using namespace ZelDebugDialog;
using fuzz::Owner;
using fuzz::Reading;
using fuzz::require;

constexpr int noCommand = 1;
constexpr int noFile = 4;

/// What stands under a processor's name: a file, nothing, and what no file can
/// be written to.
const std::array<std::string, 6> names = {"cpu",    "none",  "folder",
                                          "device", "a\0b"s, "folder/cpu"};

class Files {
public:
  Files() {
    const std::string etc = folder.path() + "/etc";
    const int memory = memfd_create("kvo", MFD_CLOEXEC);
    const std::string file = "/proc/self/fd/" + std::to_string(memory);
    require(memory >= 0 && mkdir(etc.c_str(), 0700) == 0 &&
                mkdir((etc + "/kvo_folder.opt").c_str(), 0700) == 0 &&
                symlink("/dev/null", (etc + "/kvo_device.opt").c_str()) == 0 &&
                symlink(file.c_str(), path().c_str()) == 0,
            "the scratch folder can be filled");
  }
  std::string path(const std::string &name = names[0]) const {
    return folder.path() + "/etc/kvo_" + name + ".opt";
  }

  const fuzz::ScratchFolder folder;
};

Files &files() {
  static Files once;
  return once;
}

Reading readFile(const Owner &owner, const std::string &name) {
  const auto read = [](const std::string &text, EngineImp &imp) {
    return KvoOption_Parser::ReadKvoOptFile(text, imp);
  };
  return fuzz::readFor(owner, name, read, fuzz::desk());
}

int readUnknown(const std::string &line, EngineImp & /*imp*/) {
  return fuzz::readUnknownInFiles(line);
}

int readNothing(const std::string & /*line*/, EngineImp & /*imp*/) {
  return noFile;
}

/// As the command on the line, if option files know it.
Reading expectedFor(const Owner &owner, const std::string &line) {
  fuzz::Reader reader = readUnknown;
  if (line.empty())
    reader = readNothing;
  else if (support::isKnownInFiles(line))
    reader = KvoOption_Parser::ReadKvoCommand;
  Reading reading = fuzz::readFor(owner, line, reader, fuzz::desk());
  reading.command = line;
  return reading;
}

void checkReading(const Owner &owner, const std::string &content,
                  const Reading &reading) {
  const std::string line = support::lineOf(content);
  const Reading expected = expectedFor(owner, line);
  fuzz::requireSame(reading, expected, "a file is read as its command");
  fuzz::requireSame(reading.command, expected.command,
                    "the line of the file is stored");
}

/// Writing says of each file whether it was written; what was written is read.
void checkWriting(const Owner &owner, const std::string &name,
                  const Reading &reading) {
  support::RoundTripDesk &desk = fuzz::desk();
  support::Configuration written = reading.settings;
  written.record.instanceName = name;
  desk.load(written);
  std::string command;
  const bool hasCommand = desk.engine.GenerateCmdString(command) == 0;
  desk.load(written);
  const std::string before = fuzz::contentOf(files().path());
  const int code = desk.engine.Generate();

  require(support::isSame(desk.configuration(), written),
          "writing changes nothing");
  if (!hasCommand) {
    require(code == noCommand, "there is no command to write");
    fuzz::requireSame(fuzz::contentOf(files().path()), before,
                      "without a command the file is as it was");
    return;
  }
  fuzz::requireSame(desk.record.connectCommand, command,
                    "the command is stored");
  std::string error;
  desk.engine.GetErrorStr(error);
  if (name != names[0] && name != names[1]) {
    require(code == noFile && error == "Error Opening File",
            "only a regular file is written");
    return;
  }
  require(code == 0 && error.empty(), "the file is written");
  const std::string path = files().path(name);
  fuzz::requireSame(fuzz::contentOf(path), command,
                    "the file holds the command");
  checkReading(owner, command, readFile(owner, name));
  if (name == names[1])
    unlink(path.c_str());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data,
                                      std::size_t size) {
  if (size == 0)
    return 0;
  const std::string &name = names[data[0] % names.size()];
  const bool isFile = name == names[0];
  const std::string content(data + 1, data + size);
  const fuzz::Visit visit(files().folder);
  for (const Owner &owner : fuzz::owners) {
    fuzz::fill(files().path(), content);
    const Reading reading = readFile(owner, name);
    fuzz::requireSame(fuzz::contentOf(files().path()), content,
                      "reading leaves the file alone");
    checkReading(owner, isFile ? content : "", reading);
    checkWriting(owner, name, reading);
  }
  return 0;
}

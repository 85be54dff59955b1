// Sessions on a small board: operations in any order, with anything in their
// files. Whatever is sent, there is an answer, and nothing is touched but what
// saving may touch.
//
// An input is operations, a byte for which and their arguments behind it
// (common/Bytes.h).
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "common/Bytes.h"
#include "common/Require.h"
#include "common/ScratchFolder.h"
#include "support/FakeDesign.h"

namespace {

using namespace ZelDebugDialog;
using fuzz::Bytes;
using fuzz::require;
using fuzz::requireSame;

namespace fs = std::filesystem;

/// Enough for a life of three sessions, and little enough to go fast.
constexpr int mostOperations = 40;

const std::array<std::string, 3> processors{"lc", "ppc405", "a9"};

support::FakeDesign makeDesign() {
  support::FakeDesign design;
  design.processors = {"lc", "ppc405", "a9", "none"};
  design.typeOf["ppc405"] = "ppc405_core";
  design.addDebugModule("hdu", "hdu", {"lc"});
  design.addDebugModule("link", "ppc_jtag_link", {"ppc405"});
  design.instancesOfType["soc_cortexa9"] = {"a9"};
  design.addPeripheral("lc", "uart", "uart_mini_cedar");
  design.addPeripheral("ppc405", "fpu", "aux_fpu");
  return design;
}

/// The folder of the option files, and one beside it that nobody touches.
struct Place {
  Place() {
    require(mkdir(folder().c_str(), 0700) == 0 &&
                mkdir(beside().c_str(), 0700) == 0,
            "the scratch folder can be filled");
  }
  std::string folder() const { return scratch.path() + "/etc"; }
  std::string beside() const { return scratch.path() + "/beside"; }

  const fuzz::ScratchFolder scratch;
};

const Place &place() {
  static const Place once;
  return once;
}

const Board &board() {
  static support::FakeDesign design = makeDesign();
  static const Board once(design, place().folder());
  return once;
}

/// Every file, and what stands in it.
std::string filesIn(const std::string &folder) {
  std::set<std::string> files;
  for (const auto &entry : fs::directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    const bool isLock =
        name.front() == '.' && entry.path().extension() == ".lock";
    if (!isLock)
      files.insert(name + ": " +
                   (entry.is_regular_file()
                        ? fuzz::contentOf(entry.path().string())
                        : "none"));
  }
  std::string text;
  for (const std::string &file : files)
    text += file + "\n";
  return text;
}

bool isOfSaving(const std::string &name) {
  return std::any_of(processors.begin(), processors.end(),
                     [&name](const std::string &processor) {
                       const std::string file = "kvo_" + processor + ".opt";
                       return name == file || name == "." + file + ".lock";
                     });
}

class Life {
public:
  explicit Life(Bytes &input) : bytes(input) {
    for (const auto &entry : fs::directory_iterator(place().folder()))
      fs::remove_all(entry.path());
    for (const std::string &processor : processors)
      sessions.push_back(std::make_unique<Session>(board(), processor));
  }
  ~Life() {
    sessions.clear();
    for (const auto &entry : fs::directory_iterator(place().folder()))
      fs::remove_all(entry.path());
  }
  Life(const Life &) = delete;
  Life &operator=(const Life &) = delete;

  void step();

private:
  /// What a refusal leaves as it was.
  std::string standing() const {
    const SessionState state = session->State();
    std::string text = state.command.value_or("none") + "\n" +
                       state.draft.value_or("none") + "\n" +
                       std::to_string(state.differences.size());
    for (const SettingState &setting : state.settings)
      text += "\n" + setting.text + setting.origin + setting.error;
    return text;
  }
  std::string setting() {
    const auto &settings = GetSettings();
    const std::size_t which = bytes.byte();
    return which < settings.size() ? settings[which].id : bytes.text();
  }
  Value value(int depth = 0);
  SettingValues values();
  std::vector<std::string> names();
  SaveOptions options();
  void touchFile();
  void save();

  Bytes &bytes;
  std::vector<std::unique_ptr<Session>> sessions;
  std::size_t at = 0;
  Session *session = nullptr;
};

Value Life::value(int depth) {
  switch (bytes.below(depth == 0 ? 6 : 4)) {
  case 0:
    return bytes.text();
  case 1:
    return bytes.number();
  case 2:
    return bytes.below(2) == 1;
  case 3:
    return -static_cast<std::int64_t>(bytes.number());
  case 4:
    return {};
  default:
    break;
  }
  Value::Chain chain;
  for (std::size_t count = bytes.below(4); count > 0; --count) {
    ChainDevice device;
    for (std::size_t fields = bytes.below(8); fields > 0; --fields) {
      const std::string name = setting();
      device.emplace_back(name.substr(name.find('.') + 1), value(depth + 1));
    }
    chain.push_back(device);
  }
  return chain;
}

SettingValues Life::values() {
  SettingValues asked;
  for (std::size_t count = bytes.below(5); count > 0; --count) {
    const std::string name = setting();
    asked.emplace_back(name, value());
  }
  return asked;
}

std::vector<std::string> Life::names() {
  std::vector<std::string> found;
  for (std::size_t count = bytes.below(4); count > 0; --count)
    found.push_back(setting());
  return found;
}

SaveOptions Life::options() {
  const std::uint8_t bits = bytes.byte();
  SaveOptions chosen;
  chosen.force = (bits & 1U) != 0;
  chosen.makeFolder = (bits & 2U) != 0;
  chosen.dryRun = (bits & 4U) != 0;
  return chosen;
}

/// What others do to the file meanwhile.
void Life::touchFile() {
  const std::string file = board().FileOf(processors[at]);
  std::error_code ignored;
  fs::remove_all(file, ignored);
  switch (bytes.below(8)) {
  case 0:
    break;
  case 1:
    fs::create_directory(file);
    break;
  case 2:
    fs::create_symlink("/dev/null", file);
    break;
  case 3:
    require(mkfifo(file.c_str(), 0600) == 0, "a pipe can be made");
    break;
  case 4:
    fs::create_symlink("nowhere", file);
    break;
  case 5:
    fuzz::fill(file, bytes.text());
    fs::permissions(file, fs::perms::owner_read);
    break;
  default:
    fuzz::fill(file, bytes.text() + "\n" + bytes.text());
    break;
  }
}

void Life::save() {
  const SaveOptions chosen = options();
  if (bytes.below(2) == 0) {
    session->Save(chosen);
    return;
  }
  std::vector<Session *> several;
  for (std::size_t count = bytes.below(4); count > 0; --count)
    several.push_back(sessions[bytes.below(sessions.size())].get());
  require(SaveSessions(several, chosen).size() == several.size(),
          "each that is saved has an outcome");
}

void Life::step() {
  at = bytes.below(sessions.size());
  session = sessions[at].get();
  const std::size_t operation = bytes.below(16);
  if (operation == 0) {
    touchFile();
    return;
  }
  if (operation == 1) {
    sessions[at].reset();
    sessions[at] = std::make_unique<Session>(board(), processors[at],
                                             bytes.below(2) == 0
                                                 ? Session::Hold::whileSaving
                                                 : Session::Hold::untilSaved);
    return;
  }
  const bool isSaving = operation == 2;
  const std::string before = standing();
  const std::string files = filesIn(place().folder());
  try {
    switch (operation) {
    case 2:
      save();
      break;
    case 3:
      session->Undo();
      break;
    case 4:
      session->Redo();
      break;
    case 5:
      session->Revert();
      break;
    case 6:
      session->Reset(names());
      break;
    case 7:
      session->CopyFrom(*sessions[bytes.below(sessions.size())]);
      break;
    case 8: {
      const std::string name = bytes.below(4) == 0 ? "command" : setting();
      session->Draft(name, bytes.text());
      break;
    }
    case 9:
      session->DropDraft(setting());
      break;
    case 10:
      session->Edit(bytes.text());
      break;
    case 11: {
      ChangeRequest request;
      if (bytes.below(2) == 1)
        request.copyFrom = sessions[bytes.below(sessions.size())].get();
      if (bytes.below(2) == 1)
        request.command = bytes.text();
      request.values = values();
      request.reset = names();
      session->Change(request);
      break;
    }
    case 12:
      session->Get(setting());
      session->Command();
      break;
    default:
      session->Change(values());
      break;
    }
  } catch (const Refusal &refusal) {
    require(refusal.what()[0] != '\0', "a refusal says why");
    requireSame(standing(), before, "a refusal leaves all as it was");
    if (!isSaving)
      return;
  }
  if (!isSaving)
    requireSame(filesIn(place().folder()), files, "only saving writes");
  for (const auto &entry : fs::directory_iterator(place().folder()))
    require(isOfSaving(entry.path().filename().string()),
            "nothing is left in the folder: " + entry.path().string());
  require(fs::is_empty(place().beside()), "nothing is written elsewhere");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data,
                                      std::size_t size) {
  Bytes bytes(data, size);
  Life life(bytes);
  for (int count = 0; count < mostOperations && !bytes.atEnd(); ++count)
    life.step();
  return 0;
}

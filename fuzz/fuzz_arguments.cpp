// The tool's arguments: whatever they are, it ends with a status of its own,
// prints JSON where it was asked for, and leaves files as they were or whole.
//
// An input is the arguments, one a line; behind an empty line stands what the
// tool finds on its standard input. Its working folder holds the example board
// with two saved option files, and a file of commands.
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "Tool.h"
#include "common/Require.h"
#include "common/ScratchFolder.h"

namespace {

namespace fs = std::filesystem;
using fuzz::require;
using Files = std::map<std::string, std::string>;
using Words = std::vector<std::string>;

constexpr std::size_t mostWords = 24;

/// What goes to the two outputs while the tool runs.
struct Captured {
  bool isOn = false;
  std::string out;
  std::string err;
};
Captured captured;

const Files saved = {
    {"etc/kvo_lumacore_0.opt",
     "connect lc hdu -cable type quorla_podusb port USB21 frequency 3000000 "
     "-configdevice devicenr 1 partname pk9ab100 irlength 6 idcode 0x1234093 "
     "-debugdevice deviceNr 2 cpunr 1"},
    {"etc/kvo_ppc405_0.opt", "connect ppc hw -debugdevice cpunr 9 x"},
};

/// Where the tool works.
class Place {
public:
  Place() {
    fs::copy(BOARD_FOLDER, folder.path(), fs::copy_options::recursive);
    fs::create_directory(fs::path(folder.path()) / "etc");
    fuzz::fill(folder.path() + "/commands",
               "connect lc hdu\nkconnect ppc sim -icf f\n\nconnect arm hw\n"
               "connect lc sim -memsize 0x40 x\nconnect - lc\n");
    fuzz::fill(folder.path() + "/kinds",
               "component :::lumacore_like lumacore\n");
    for (const auto &[name, content] : saved)
      fuzz::fill(folder.path() + "/" + name, content);
    present = files();
  }

  /// Every file that the tool may make or change, with its content.
  Files files() const {
    Files found;
    for (const auto &entry : fs::directory_iterator(folder.path()))
      if (entry.path().filename() != "etc")
        found[entry.path().filename().string()];
    for (const auto &entry : fs::directory_iterator(folder.path() + "/etc"))
      found["etc/" + entry.path().filename().string()] =
          fuzz::contentOf(entry.path().string());
    return found;
  }

  void restore(const Files &now) const {
    for (const auto &[name, content] : now)
      if (present.count(name) == 0)
        fs::remove_all(folder.path() + "/" + name);
    for (const auto &[name, content] : saved)
      fuzz::fill(folder.path() + "/" + name, content);
  }

  const fuzz::ScratchFolder folder;
  Files present;
};

/// Nothing outside the working folder shall be touched.
bool staysBelow(const Words &words) {
  for (const std::string &word : words)
    for (std::size_t at = word.find_first_of("/."); at != std::string::npos;
         at = word.find_first_of("/.", at + 1)) {
      const bool isUp = word.compare(at, 2, "..") == 0;
      const bool isRoot =
          word[at] == '/' && (at == 0 || !isalnum(word[at - 1]));
      if (isUp || isRoot)
        return false;
    }
  return true;
}

/// Takes the arguments off the input; what is left is for standard input.
Words takeWords(std::string &input) {
  Words words = {"zeldebug"};
  while (!input.empty() && words.size() < mostWords) {
    const std::size_t end = std::min(input.find('\n'), input.size());
    const std::string word = input.substr(0, input.find('\0')).substr(0, end);
    input.erase(0, end + 1);
    if (word.empty())
      break;
    words.push_back(word);
  }
  return words;
}

/// Whether the word stands where options do.
bool has(const Words &words, const std::string &word) {
  const auto end = std::find(words.begin(), words.end(), "--");
  return std::find(words.begin(), end, word) != end;
}

int run(const Words &words, const std::string &input) {
  std::vector<const char *> arguments;
  for (const std::string &word : words)
    arguments.push_back(word.c_str());
  arguments.push_back(nullptr);
  std::istringstream standardInput(input);
  std::cin.clear();
  std::streambuf *const before = std::cin.rdbuf(standardInput.rdbuf());
  captured = {true, "", ""};
  zeldebug::Output output;
  const zeldebug::ExitStatus status = zeldebug::runTool(
      static_cast<int>(words.size()), arguments.data(), output);
  const int ended = static_cast<int>(output.finish(status));
  captured.isOn = false;
  std::cin.rdbuf(before);
  return ended;
}

/// How many files are open.
std::ptrdiff_t countOpen() {
  return std::distance(fs::directory_iterator("/proc/self/fd"), {});
}

/// What is shown of a saved command, or has become of each processor, tells of
/// its fault.
bool tellsOfItself(const nlohmann::json &document) {
  return document.contains("error") || document.contains("results");
}

void checkDocument(int status) {
  const auto document =
      nlohmann::json::parse(captured.out, nullptr, /*allow_exceptions=*/false);
  require(document.is_object() && document.value("version", 0) == 1 &&
              document.contains("command"),
          "--json prints one document: " + captured.out);
  require(status < 2 || document.contains("failure") || tellsOfItself(document),
          "wrong use and bad files are told in the document");
  if (document.contains("failure"))
    require(document["failure"]["status"] == status &&
                document["failure"]["message"] != "",
            "a failure's document has its status");
}

void checkOutcome(const Words &words, int status) {
  require(status >= 0 && status <= 3, "the status is a documented one");
  if (has(words, "--json"))
    checkDocument(status);
  if (status >= 2)
    require(captured.err.find("zeldebug: error: ") != std::string::npos,
            "wrong use and bad files are told");
}

/// A file holds what it held, or a whole command.
void checkFiles(const Place &place, const Words &words, const Files &now) {
  const bool maySave = has(words, "set") && !has(words, "--dry-run");
  for (const auto &[name, content] : place.present)
    require(now.count(name) != 0, "no file is lost: " + name);
  for (const auto &[name, content] : now) {
    const auto before = place.present.find(name);
    if (before != place.present.end() && before->second == content)
      continue;
    require(maySave, "only 'set' saves: " + name);
    require(name.find(".zeldebug") == std::string::npos,
            "scratch folders are removed: " + name);
    const bool isFolder = content.empty();
    require(isFolder || content.compare(0, 7, "connect") == 0 ||
                content.compare(0, 9, "vpconnect") == 0,
            "a file is written whole: " + name);
  }
}

const Place &place() {
  static const Place once;
  return once;
}

} // namespace

// The tool writes its outputs through these, as the linker is told.
extern "C" {
ssize_t __real_write(int descriptor, const void *bytes, std::size_t count);
ssize_t __wrap_write(int descriptor, const void *bytes, std::size_t count) {
  if (!captured.isOn || descriptor > STDERR_FILENO)
    return __real_write(descriptor, bytes, count);
  std::string &text = descriptor == STDOUT_FILENO ? captured.out : captured.err;
  text.append(static_cast<const char *>(bytes), count);
  return static_cast<ssize_t>(count);
}
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data,
                                      std::size_t size) {
  std::string input(data, data + size);
  const Words words = takeWords(input);
  if (!staysBelow(words))
    return 0;
  const fuzz::Visit visit(place().folder);
  const std::ptrdiff_t open = countOpen();
  const int status = run(words, input);
  require(countOpen() == open, "every file is closed");
  checkOutcome(words, status);
  const Files now = place().files();
  checkFiles(place(), words, now);
  if (now != place().present)
    place().restore(now);
  return 0;
}

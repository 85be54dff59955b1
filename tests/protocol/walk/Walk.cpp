// A walk through configurations as a client sees them: random requests about
// several configurations of one board, files changed underneath, and after each
// of them what is always true.
//
//   protocol_walk [STEPS [SEED]]
//
// 3  the state before, patched by the answer's patch, is the state asked for
//    afterwards; what was refused has changed nothing
//
// A walk ends at the first step that does not hold, with all that led there.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "protocol/walk/Client.h"
#include "protocol/walk/Requests.h"
#include "walk/Folder.h"

namespace {

namespace fs = std::filesystem;

using walk::Client;
using walk::Json;
using walk::Random;
using walk::Requests;

constexpr std::size_t stepsOfABoard = 2000;
constexpr std::size_t mostSteps = 60; // that are told of a walk that fails

struct Counts {
  std::size_t steps = 0;
  std::size_t refused = 0;
  std::size_t patched = 0;   ///< that made a difference
  std::size_t unchanged = 0; ///< with an empty patch
  std::size_t files = 0;     ///< changed underneath
};

/// A configuration, as its client knows it.
struct Known {
  std::string processor;
  std::int64_t number = 0;
  Json state;
  bool isStale = false; ///< its file has changed since
};

/// Empty for no file.
std::string contentOf(const fs::path &file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

class Walk {
public:
  Walk(Random &numbers, const fs::path &folder, Counts &counted)
      : random(numbers), counts(counted), place(folder / "etc") {
    fs::remove_all(place);
    fs::create_directory(place);
    board = client
                .expect("board/open", {{"design", WALK_BOARD},
                                       {"directory", folder.string()}})
                .at("board");
    requests.settings =
        client.expect("settings", Json::object()).at("settings");
    // Two of one processor share their file.
    for (const char *processor :
         {"lumacore_0", "lumacore_0", "ppc440_0", "a9_0"}) {
      all.push_back({processor, 0, nullptr, false});
      open(all.back());
    }
  }

  void step();

private:
  void open(Known &known);
  void changeFile(Known &known);
  void expectPatched(Known &known, const std::string &method,
                     const Json &params);
  void touch(const Known &known);
  fs::path fileOf(const Known &known) const {
    return place / ("kvo_" + known.processor + ".opt");
  }
  Json stateOf(const Known &known) {
    return client.expect("configuration/state",
                         {{"configuration", known.number}})["state"];
  }
  [[noreturn]] void fail(const std::string &what) const {
    std::fprintf(stderr, "does not hold: %.4000s\n", what.c_str());
    const std::size_t first =
        log.size() - std::min<std::size_t>(log.size(), mostSteps);
    for (std::size_t i = first; i < log.size(); ++i)
      std::fprintf(stderr, "  %.400s\n", log[i].c_str());
    std::exit(1);
  }

  Random &random;
  Counts &counts;
  fs::path place;
  Client client;
  Requests requests;
  std::int64_t board = 0;
  std::vector<Known> all;
  std::vector<std::string> log;
};

void Walk::open(Known &known) {
  if (known.number != 0)
    client.expect("configuration/close", {{"configuration", known.number}});
  Json opened = client.expect(
      "configuration/open", {{"board", board}, {"processor", known.processor}});
  known.number = opened.at("configuration");
  known.state = std::move(opened.at("state"));
  known.isStale = false;
  log.push_back("open " + known.processor + " " + std::to_string(known.number));
}

/// The file of a processor is another one for all its configurations.
void Walk::touch(const Known &known) {
  for (Known &other : all)
    if (other.processor == known.processor)
      other.isStale = true;
}

void Walk::changeFile(Known &known) {
  const fs::path file = fileOf(known);
  ++counts.files;
  touch(known);
  if (random.oneIn(4)) {
    log.push_back("remove " + file.string());
    fs::remove(file);
    return;
  }
  const std::string content = requests.fileContent(random);
  log.push_back("file " + content);
  std::ofstream(file, std::ios::binary) << content;
}

void Walk::expectPatched(Known &known, const std::string &method,
                         const Json &params) {
  log.push_back(method + " " + params.dump(-1, ' ', true));
  const std::string before = contentOf(fileOf(known));
  const Json answer = client.ask(method, params);
  const Json after = stateOf(known);
  if (answer.contains("error")) {
    ++counts.refused;
    log.push_back("  " + answer["error"]["message"].dump(-1, ' ', true));
    if (after != known.state)
      fail("what is refused changes nothing: " +
           Json::diff(known.state, after).dump());
    return;
  }
  const Json &patch = answer.at("result").at("patch");
  const Json patched = known.state.patch(patch);
  if (patched != after)
    fail("3: " + Json::diff(patched, after).dump() + " is missing in " +
         patch.dump());
  ++(patch.empty() ? counts.unchanged : counts.patched);
  known.state = after;
  // For the others of this processor: what is saved over a file that says the
  // same in other words makes no difference to the state of this one.
  if (contentOf(fileOf(known)) != before) {
    touch(known);
    known.isStale = false;
  }
}

void Walk::step() {
  ++counts.steps;
  Known &known = all[random.below(all.size())];
  if (random.oneIn(400)) {
    open(known);
    return;
  }
  if (random.oneIn(20)) {
    changeFile(known);
    return;
  }
  if (known.isStale) {
    known.state = stateOf(known);
    known.isStale = false;
  }
  Json params = requests.any(random, known.state);
  const std::string method = params.at("method");
  params.erase("method");
  params["configuration"] = known.number;
  if (method == "configuration/copy")
    params["from"] = all[random.below(all.size())].number;
  expectPatched(known, method, params);
  requests.learn(known.state);
}

} // namespace

int main(int argc, char **argv) {
  const std::size_t steps =
      argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 1000;
  Random random(argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 20261122);
  const walk::Folder folder("protocol-walk");
  Counts counts;
  try {
    while (counts.steps < steps) {
      Walk walk(random, folder.path, counts);
      for (std::size_t i = 0; i < stepsOfABoard && counts.steps < steps; ++i)
        walk.step();
    }
  } catch (const std::exception &problem) {
    std::fprintf(stderr, "protocol_walk: %s\n", problem.what());
    return 1;
  }
  std::printf("%zu steps, %zu refused, %zu files changed underneath\n"
              "3 patched        %zu, and %zu without a difference\n",
              counts.steps, counts.refused, counts.files, counts.patched,
              counts.unchanged);
  return 0;
}

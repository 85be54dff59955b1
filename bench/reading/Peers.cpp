#include "Peers.h"

#include <limits>

#include <benchmark/benchmark.h>

#include "OrderedJson.h"

namespace bench {

namespace {

constexpr std::size_t any = std::numeric_limits<std::size_t>::max();

std::string withTwoDashes(const std::string &text) {
  std::string doubled;
  for (const char character : text) {
    if (character == '-')
      doubled += '-';
    doubled += character;
  }
  return doubled;
}

std::string toJson(const Command &command) {
  std::string json =
      R"({"target":"lc","connection":"hdu","cable":{"type":"quorla_podusb",)"
      R"("port":"USB21","frequency":6000000},"configdevice":[)";
  for (const Device &device : command.chain) {
    if (json.back() == '}')
      json += ',';
    json += R"({"devicenr":)" + std::to_string(device.number);
    json += R"(,"partname":")" + device.partName;
    json += R"(","irlength":)" + std::to_string(device.irLength);
    json += R"(,"idcode":)" + std::to_string(device.idCode) + '}';
  }
  json += R"(],"debugdevice":{"deviceNr":1,"cpunr":1,"romemStartAdr":0,)"
          R"("romemSize":65536}})";
  json.reserve(json.size() + Input::jsonPadding);
  return json;
}

const Command &toCommand(const Command &read) { return read; }

template <class Result> Result resultOf(bool (*)(const Input &, Result &));
template <auto read> using ResultOf = decltype(resultOf(read));

template <auto read>
bool readsTwice(const Input &input, const Command &expected) {
  for (int time = 0; time < 2; ++time) {
    ResultOf<read> result;
    if (!read(input, result) || !(toCommand(result) == expected))
      return false;
  }
  return true;
}

template <auto read> void readOnce(const Input &input) {
  ResultOf<read> result;
  read(input, result);
  benchmark::DoNotOptimize(result);
}

template <auto read>
Peer peer(const char *name, std::size_t mostDevices,
          const char *leavesOut = "") {
  return {name, readsTwice<read>, readOnce<read>, mostDevices, leavesOut};
}

} // namespace

Input::Input(std::size_t devices)
    : text(chainCommand(devices)), doubleDashed(withTwoDashes(text)),
      json(toJson(chainSettings(devices))) {}

const std::vector<Peer> &peers() {
  static const std::vector<Peer> all{
      peer<readByPlainCursor>("string_view, switch", any,
                              "letter case beyond ASCII"),
      peer<readByStrSplit>("absl::StrSplit", any),
      peer<readByStrtok>("strtok_r", any),
      peer<readByTcl>("Tcl_SplitList", any),
      peer<readByBoostSplit>("boost::split", any),
      peer<readByTextbook>("trim, split, erase", 100),
      peer<readByErasing>("trim, erase", 1000),
      peer<readByProgramOptions>("Boost.Program_options", 1000),
      peer<readByCli11>("CLI11", 10000),
      peer<readByKeptCli11>("CLI11, built once", 10000),
      peer<readBySimdjsonInOrder>("simdjson, keys in order", any,
                                  "letter case, any other order, strings of "
                                  "its own"),
      peer<readBySimdjsonKept>("simdjson, keys in order, as kept", any,
                               "letter case, any other order"),
      peer<readBySimdjson>("simdjson, any order", any),
      peer<readByRapidJson>("RapidJSON", any),
      peer<readByNlohmann>("nlohmann-json", any),
  };
  return all;
}

} // namespace bench

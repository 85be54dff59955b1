#include "Peers.h"

#include <limits>

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
  return json;
}

} // namespace

Input::Input(std::size_t devices)
    : text(chainCommand(devices)), doubleDashed(withTwoDashes(text)),
      json(toJson(chainSettings(devices))) {}

const std::vector<Peer> &peers() {
  static const std::vector<Peer> all{
      {"absl::StrSplit", readByStrSplit, any},
      {"strtok_r", readByStrtok, any},
      {"Tcl_SplitList", readByTcl, any},
      {"boost::split", readByBoostSplit, any},
      {"trim, split, erase", readByTextbook, 100},
      {"trim, erase", readByErasing, 1000},
      {"Boost.Program_options", readByProgramOptions, 1000},
      {"CLI11", readByCli11, 10000},
      {"simdjson", readBySimdjson, any},
      {"RapidJSON", readByRapidJson, any},
      {"nlohmann-json", readByNlohmann, any},
  };
  return all;
}

} // namespace bench

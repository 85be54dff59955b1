// Requests of any kind to a server with a board and two configurations:
// whatever is sent, there is one answer of JSON-RPC 2.0 or none, and a state
// that is patched by an answer is the state that is asked for.
//
// An input is requests, a line each. "$b", "$c" and "$d" stand for the board
// and the configurations.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "common/Require.h"
#include "common/ScratchFolder.h"
#include "server/Server.h"

namespace {

using Json = nlohmann::json;
using fuzz::require;
using ZelDebugDialog::protocol::Server;

namespace fs = std::filesystem;

constexpr int mostRequests = 30;

/// What a client holds; the board is opened once.
class Client {
public:
  Client() {
    fs::create_directory(scratch.path() + "/etc");
    board = result("board/open", {{"design", BOARD_FOLDER "/board.xml"},
                                  {"directory", scratch.path()}})["board"];
  }

  /// Configurations as if for the first time.
  void start() {
    for (const auto &[number, state] : states)
      result("configuration/close", {{"configuration", number}});
    states.clear();
    fs::remove_all(scratch.path() + "/etc");
    fs::create_directory(scratch.path() + "/etc");
    first = open("lumacore_0");
    second = open("ppc440_0");
  }

  void send(std::string line) {
    replace(line, "$b", board);
    replace(line, "$c", first);
    replace(line, "$d", second);
    const Json request = Json::parse(line, nullptr, false);
    if (leavesPlace(request))
      return;
    refresh();
    const std::optional<std::string> answer = server.Answer(line);
    if (answer)
      requireAnswer(Json::parse(*answer), request);
    else
      require(request.is_object() && !request.contains("id"),
              "only notifications have no answer");
    requirePatched(answer ? Json::parse(*answer) : Json(), request);
  }

private:
  static void replace(std::string &line, const std::string &name,
                      std::int64_t number) {
    for (std::size_t at = line.find(name); at != std::string::npos;
         at = line.find(name, at))
      line.replace(at, name.size(), std::to_string(number));
  }

  Json result(const std::string &method, const Json &params) {
    const Json request{
        {"jsonrpc", "2.0"}, {"id", 1}, {"method", method}, {"params", params}};
    const Json answer = Json::parse(server.Answer(request.dump()).value());
    require(answer.contains("result"), "this is done: " + answer.dump());
    return answer["result"];
  }

  std::int64_t open(const std::string &processor) {
    const Json opened = result("configuration/open",
                               {{"board", board}, {"processor", processor}});
    const std::int64_t number = opened["configuration"];
    states[number] = opened["state"];
    return number;
  }

  /// Boards may be opened anywhere, and their files written there; one that is
  /// closed would have to be opened for the next input.
  static bool leavesPlace(const Json &request) {
    return asksFor(request, "board/open") || asksFor(request, "board/close") ||
           asksFor(request, "configuration/open") ||
           asksFor(request, "configuration/close");
  }
  static bool asksFor(const Json &request, const char *method) {
    return request.is_object() && request.contains("method") &&
           request["method"] == method;
  }

  Json stateOf(std::int64_t number) {
    return result("configuration/state", {{"configuration", number}})["state"];
  }
  void refresh() {
    for (auto &[number, state] : states)
      state = stateOf(number);
  }

  static void requireAnswer(const Json &answer, const Json &request) {
    require(answer["jsonrpc"] == "2.0" && answer.contains("id") &&
                answer.contains("result") != answer.contains("error") &&
                answer.size() == 3,
            "an answer is one of JSON-RPC: " + answer.dump());
    require(!answer.contains("error") || answer["error"]["code"] != -32603,
            "the server does not fail: " + answer.dump());
    if (answer.contains("result"))
      require(request.is_object() && request.contains("id") &&
                  answer["id"] == request["id"],
              "an answer has the id of its request: " + answer.dump());
  }

  /// A notification changes what it changes without telling.
  void requirePatched(const Json &answer, const Json &request) {
    if (answer.is_null() || asksFor(request, "board/save"))
      return;
    Json patch = Json::array();
    std::int64_t number = 0;
    if (answer.contains("result") && answer["result"].is_object() &&
        answer["result"].contains("patch")) {
      patch = answer["result"]["patch"];
      number = request["params"]["configuration"];
    }
    for (const auto &[each, before] : states) {
      const Json patched = each == number ? before.patch(patch) : before;
      require(patched == stateOf(each),
              "the state before, patched, is the state after: " + patch.dump());
    }
  }

  const fuzz::ScratchFolder scratch;
  Server server;
  std::int64_t board = 0;
  std::int64_t first = 0;
  std::int64_t second = 0;
  std::map<std::int64_t, Json> states;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data,
                                      std::size_t size) {
  static Client client;
  client.start();
  const std::string input(data, data + size);
  std::size_t from = 0;
  for (int count = 0; count < mostRequests && from < input.size(); ++count) {
    const std::size_t end = std::min(input.find('\n', from), input.size());
    client.send(input.substr(from, end - from));
    from = end + 1;
  }
  return 0;
}

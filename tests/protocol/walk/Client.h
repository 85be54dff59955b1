// A client that speaks with a server in its own process, in texts.
#ifndef TESTS_PROTOCOL_WALK_CLIENT_H
#define TESTS_PROTOCOL_WALK_CLIENT_H

#include <stdexcept>
#include <string>

#include <nlohmann/json.hpp>

#include "server/Server.h"

namespace walk {

using Json = nlohmann::json;

class Client {
public:
  Json ask(const std::string &method, const Json &params) {
    const Json request{{"jsonrpc", "2.0"},
                       {"id", ++last},
                       {"method", method},
                       {"params", params}};
    Json answer = Json::parse(server.Answer(request.dump()).value());
    if (answer.at("id") != last)
      throw std::runtime_error("an answer to another request: " +
                               answer.dump());
    return answer;
  }
  /// The result; a refusal ends the walk.
  Json expect(const std::string &method, const Json &params) {
    Json answer = ask(method, params);
    if (!answer.contains("result"))
      throw std::runtime_error(method + " is refused: " + answer.dump());
    return std::move(answer["result"]);
  }

private:
  ZelDebugDialog::protocol::Server server;
  int last = 0;
};

} // namespace walk

#endif

// Random requests about a configuration: what clients send, and what they had
// better not.
#ifndef TESTS_PROTOCOL_WALK_REQUESTS_H
#define TESTS_PROTOCOL_WALK_REQUESTS_H

#include <string>
#include <vector>

#include "protocol/walk/Client.h"
#include "walk/Random.h"

namespace walk {

class Requests {
public:
  Json settings; ///< the table, as the server gives it

  /// Parameters, but for the configuration, and "method".
  Json any(Random &random, const Json &state) const;
  std::string fileContent(Random &random) const;
  /// Commands that the server writes come back as edits and files.
  void learn(const Json &state);

private:
  const Json &setting(Random &random) const;
  Json value(Random &random, const Json &row) const;
  Json chain(Random &random) const;
  Json text(Random &random) const;
  std::string command(Random &random) const;

  std::vector<std::string> written;
};

} // namespace walk

#endif

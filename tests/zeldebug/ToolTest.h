// Runs the real program, in a folder of its own for each test.
//
// Every JSON document that a run prints is kept; when the test program ends,
// all of them are checked against the schemas, and damaged ones must be
// rejected.
#ifndef TESTS_ZELDEBUG_TOOLTEST_H
#define TESTS_ZELDEBUG_TOOLTEST_H

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "support/TemporaryDirectory.h"

namespace tool {

struct Result {
  int status; ///< exit status; 128 + the number of a signal
  std::string out;
  std::string err;
};

/// What surrounds a run.
struct Surroundings {
  static constexpr int roomThatIsLittle = 4096; ///< of a pipe, in bytes

  long fileSizeLimit = -1;       ///< in bytes; -1 for none
  bool obeysPermissions = false; ///< also when the tests run as root
  bool readerLeaves = false;     ///< nobody reads standard output
  bool fullOutput = false;       ///< standard output is a full device
  bool doesNotWait = false;      ///< standard output, which holds little
  bool terminal = false;         ///< standard output is a terminal
  unsigned short columns = 0;    ///< of that terminal; 0: it does not say
  std::string terminalName;      ///< TERM; as it is if empty
  bool noColour = false;         ///< NO_COLOR is set
  long fatalCall = -1;           ///< the system call that kills it; -1 for none
  std::string input;             ///< on standard input
};

class ToolTest : public testing::Test {
protected:
  Result run(const std::vector<std::string> &arguments,
             const Surroundings &surroundings = {});
  /// Adds --json; the document must parse.
  nlohmann::json runJson(std::vector<std::string> arguments, int status = 0);
  /// Starts all lines before it waits for any; calls `meanwhile` again and
  /// again until the last one ends.
  std::vector<Result>
  runAtOnce(const std::vector<std::vector<std::string>> &lines,
            const std::function<void()> &meanwhile);
  /// A document that is to be checked against the schemas.
  static void keepDocument(const std::string &text);

  /// An option file below the folder of the test.
  void save(const std::string &processor, const std::string &text) {
    folder.write("etc/kvo_" + processor + ".opt", text);
  }
  std::string saved(const std::string &processor) const {
    return folder.read("etc/kvo_" + processor + ".opt");
  }
  /// Names of everything in etc/.
  std::vector<std::string> etc() const;
  /// Whether this machine has pseudo-terminals; some containers have none.
  static bool hasTerminals();

  support::TemporaryDirectory folder;
  /// The example board.
  const std::string board = ZELDEBUG_BOARD;
};

} // namespace tool

#endif

// The ways to read a command that the engine is measured against. Each does the
// whole job: from the text to a filled record, every value converted, every
// keyword recognised without regard to letter case, unless `leavesOut` says
// otherwise.
#ifndef ZELDEBUGDIALOG_BENCH_READING_PEERS_H
#define ZELDEBUGDIALOG_BENCH_READING_PEERS_H

#include <cstddef>
#include <string>
#include <vector>

#include "common/ChainCommand.h"

namespace bench {

/// One command in the forms that the peers read.
struct Input {
  explicit Input(std::size_t devices);

  std::string text;
  std::string doubleDashed; ///< the options with two dashes
  /// The same content, with room for `jsonPadding` characters behind it.
  std::string json;

  static constexpr std::size_t jsonPadding = 64;
};

struct Peer {
  const char *name;
  /// Reads twice, as a peer that is kept has to be able to.
  bool (*isRight)(const Input &input, const Command &expected);
  void (*read)(const Input &input);
  std::size_t mostDevices; ///< beyond it a quadratic peer takes too long
  /// Beyond what all of them do, as docs/performance.md has it.
  const char *leavesOut;
};

// The plainest.
bool readByPlainCursor(const Input &input, Command &command);

// Those that split the text into words.
bool readByStrSplit(const Input &input, Command &command);
bool readByStrtok(const Input &input, Command &command);
bool readByTcl(const Input &input, Command &command);
bool readByBoostSplit(const Input &input, Command &command);
/// Trims, splits the whole rest, takes the first piece and erases it.
bool readByTextbook(const Input &input, Command &command);
/// Trims, takes the first word and erases it.
bool readByErasing(const Input &input, Command &command);

// Those that read options.
bool readByProgramOptions(const Input &input, Command &command);
bool readByCli11(const Input &input, Command &command);
/// With options that were described once.
bool readByKeptCli11(const Input &input, Command &command);

// Those that read JSON; two more are in OrderedJson.h.
bool readBySimdjson(const Input &input, Command &command);
bool readByRapidJson(const Input &input, Command &command);
bool readByNlohmann(const Input &input, Command &command);

const std::vector<Peer> &peers();

} // namespace bench

#endif

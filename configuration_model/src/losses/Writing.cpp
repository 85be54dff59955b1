#include "losses/Writing.h"

#include <algorithm>
#include <utility>

#include "ZelDebugDialog/EngineFacts.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "commands/EngineLock.h"
#include "commands/WhyRefused.h"

namespace ZelDebugDialog::model {

namespace {

/// The message of an engine after an operation that gave `result`.
Reading outcomeOf(Desk &desk, int result) {
  Reading outcome{result, ""};
  if (result != 0)
    desk.state().engine->GetErrorStr(outcome.message);
  return outcome;
}

/// Lays a configuration on the desk; no earlier message is left beside it.
void lay(Desk &desk, const Snapshot &snapshot) {
  restore(desk.state(), snapshot);
  desk.state().engine->SetErrorStr("");
}

ReadBack readBackOf(Desk &desk, const Reading &reading,
                    const std::string &command) {
  if (reading.accepted())
    return {desk.snapshot(), ""};
  return {std::nullopt,
          whyRefused(desk, reading, command, WordPlace::optionFile)};
}

} // namespace

Written writeSnapshot(Desk &desk, const Snapshot &snapshot) {
  const EngineLock lock;
  lay(desk, snapshot);
  Written written;
  std::string command;
  const int result = TraceKvoWriting(desk.state(), command, written.writing);
  if (result == 0)
    written.command = std::move(command);
  else
    written.error = reasonOf(outcomeOf(desk, result).message);
  return written;
}

std::optional<std::string> composeCommand(Desk &desk,
                                          const Snapshot &snapshot) {
  const EngineLock lock;
  lay(desk, snapshot);
  std::string command;
  if (KvoOption_Parser::WriteKvoCmdString(desk.state(), command) != 0)
    return std::nullopt;
  return command;
}

Reading writeSnapshotTo(Desk &desk, const Snapshot &snapshot,
                        const std::string &path) {
  const EngineLock lock;
  lay(desk, snapshot);
  return outcomeOf(desk,
                   KvoOption_Parser::WriteKvoOptFileTo(path, desk.state()));
}

ReadBack readBack(Desk &desk, const std::string &command) {
  return readBackOf(desk, desk.selectFrom(lineOfFile(command)), command);
}

ReadBack readBackFile(Desk &desk, const std::string &path,
                      const std::string &command) {
  return readBackOf(desk, desk.selectFile(path), command);
}

std::string lineOfFile(const std::string &command) {
  const std::size_t start =
      std::min(command.find_first_not_of('\n'), command.size());
  std::string line = command.substr(
      start, std::min(command.find('\n', start), command.size()) - start);
  line.resize(std::min({line.size(), line.find('\0'), longestOptionLine}));
  return line;
}

} // namespace ZelDebugDialog::model

// What a client has open: boards, and configurations of their processors, by
// the numbers that name them in requests. No number is ever given twice.
//
// Any thread may use it. Whoever has found something keeps it, also when
// another thread closes it.
#ifndef ZELDEBUGDIALOG_PROTOCOL_SERVER_OPENTHINGS_H
#define ZELDEBUGDIALOG_PROTOCOL_SERVER_OPENTHINGS_H

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include <ZelDebugDialog/ConfigurationModel/Session.h>
#include <ZelDebugDialog/DesignModel/DesignModel.h>

#include "documents/Json.h"
#include "server/BoardProject.h"

namespace ZelDebugDialog::protocol {

struct OpenBoard {
  DesignModel design;
  std::optional<Board> board;            ///< of `design`
  std::shared_ptr<BoardProject> project; ///< null: none is used
};

class OpenConfiguration {
public:
  OpenConfiguration(std::shared_ptr<OpenBoard> ofBoard,
                    const std::string &processor);

  /// Held by whoever asks for the state, or does something to the session.
  std::mutex &turn() { return mutex; }
  Session &session() { return opened; }
  const OpenBoard &board() const { return *onBoard; }

  // Both are for whoever holds `turn`.

  /// The state as a document, with the file as it is now, to be told to the
  /// client. It stays what it is until the next call.
  const documents::Json &state();
  /// The one that the client has: as it was last told, whatever the project has
  /// come to say since; but with the file as it is now.
  documents::Json toldState();
  /// The session is not what it was.
  void forgetState() { isKnown = false; }

private:
  bool isFileAsTold() const;

  std::mutex mutex;
  std::shared_ptr<OpenBoard> onBoard; ///< outlives the session
  Session opened;
  documents::Json told;
  unsigned toldVersion = 0; ///< of the project that `told` is of
  bool isKnown = false;     ///< whether `told` is of the session as it is
};

class OpenThings {
public:
  std::int64_t add(std::shared_ptr<OpenBoard> board);
  std::int64_t add(std::shared_ptr<OpenConfiguration> configuration);

  // @throws Fault (badParameters) for a number that is none, or no more

  std::shared_ptr<OpenBoard> expectBoard(std::int64_t number);
  /// @param parameter  the one that has the number
  std::shared_ptr<OpenConfiguration>
  expectConfiguration(std::int64_t number,
                      const char *parameter = "configuration");
  /// With all its configurations.
  void closeBoard(std::int64_t number);
  void closeConfiguration(std::int64_t number);
  /// The numbers of the configurations of a board, in the order of opening.
  std::vector<std::int64_t> configurationsOf(const OpenBoard &board);

private:
  std::mutex mutex;
  std::int64_t last = 0;
  std::map<std::int64_t, std::shared_ptr<OpenBoard>> boards;
  std::map<std::int64_t, std::shared_ptr<OpenConfiguration>> configurations;
};

} // namespace ZelDebugDialog::protocol

#endif

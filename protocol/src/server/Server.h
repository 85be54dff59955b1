// Answers requests: JSON-RPC 2.0 in front of the models of configurations and
// designs. It knows no transport, and keeps what one client has open.
//
// Any thread may call. Requests are done at once by the threads that bring
// them; those about one configuration take turns. Answers are one line of
// UTF-8.
//
//   Server server;
//   if (const auto answer = server.Answer(request)) send(*answer);
#ifndef ZELDEBUGDIALOG_PROTOCOL_SERVER_SERVER_H
#define ZELDEBUGDIALOG_PROTOCOL_SERVER_SERVER_H

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace ZelDebugDialog::protocol {

/// A request that was read and is still to be done.
class Call {
public:
  virtual ~Call() = default;
  /// It ends a transport.
  virtual bool IsExit() const = 0;
  /// "board/open 3", for a log.
  virtual std::string Name() const = 0;

protected:
  Call() = default;
  Call(const Call &) = default;
  Call &operator=(const Call &) = default;
};

class Server {
public:
  /// @param directory  where option files lie, in its etc/, of a board whose
  ///   request names no other
  explicit Server(const std::string &directory = ".");
  ~Server();
  Server(const Server &) = delete;
  Server &operator=(const Server &) = delete;

  /// @return nothing for a notification
  /// @throws std::bad_alloc where not even an error can be made
  std::optional<std::string> Answer(std::string_view request);

  // The same in two parts, for who reads ahead: what cancels a request acts
  // when it is accepted, whatever waits before it.

  std::shared_ptr<Call> Accept(std::string_view request);
  /// @param call  as it was accepted here; each is finished once
  std::optional<std::string> Finish(const std::shared_ptr<Call> &call);

private:
  struct State;
  std::unique_ptr<State> state;
};

/// The answer to what is no request, because it is longer than any may be.
std::string answerTooLong();

} // namespace ZelDebugDialog::protocol

#endif

#include "server/Server.h"

#include <atomic>
#include <mutex>
#include <new>
#include <set>

#include "documents/Json.h"
#include "server/Methods.h"
#include "server/Request.h"

namespace ZelDebugDialog::protocol {

namespace {

struct AcceptedCall : Call {
  explicit AcceptedCall(std::string_view text) : request(readRequest(text)) {}

  bool IsExit() const override {
    return !request.fault && !request.id && request.method == exitMethod;
  }
  std::string Name() const override {
    std::string name = request.fault ? "no request" : quote(request.method);
    if (request.id)
      name += " " + request.id->dump();
    return name;
  }

  Request request;
  std::atomic<bool> isCancelled{false};
};

std::string textOf(const Given &id, const char *member, const Json &value) {
  Json answer{{"jsonrpc", "2.0"}};
  answer["id"] = id;
  answer[member] = value;
  // Bytes that are no UTF-8 can stand in an option file; JSON has no place for
  // them.
  return answer.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json run(const AcceptedCall &call, OpenThings &open,
         const std::string &directory) {
  const Request &request = call.request;
  if (request.fault)
    throw Fault(*request.fault);
  if (call.isCancelled)
    throw Fault(FaultCode::cancelled, "the request was cancelled");
  const Method &method = expectMethod(request.method);
  if (const auto &twin = request.twin)
    refuseParameter(twin->parameter,
                    quote(twin->name) + " stands twice in one object",
                    {"", twin->name});
  return method.run({open, directory, call.isCancelled},
                    Parameters(method.parameters, request.params));
}

std::string answerTo(const AcceptedCall &call, OpenThings &open,
                     const std::string &directory) {
  const Given id = call.request.id.value_or(nullptr);
  const auto failed = [&id](const Fault &fault) {
    return textOf(id, "error", fault.json());
  };
  try {
    return textOf(id, "result", run(call, open, directory));
  } catch (const Fault &fault) {
    return failed(fault);
  } catch (const Refusal &refusal) {
    return failed(Fault(refusal));
  } catch (const std::bad_alloc &) {
    return failed({FaultCode::internal, "there is not enough memory"});
  } catch (const std::exception &problem) {
    return failed({FaultCode::internal, problem.what()});
  }
}

bool isCancel(const Request &request) {
  const Given &params = request.params;
  return request.method == cancelMethod && !request.twin &&
         params.is_object() && params.size() == 1 && params.contains("id") &&
         (params["id"].is_string() || params["id"].is_number());
}

} // namespace

struct Server::State {
  std::string directory;
  OpenThings open;
  std::mutex mutex;
  std::set<AcceptedCall *> calls; ///< accepted, and not yet finished

  /// What is done cannot be undone by cancelling it.
  void cancel(const Given &id) {
    const std::lock_guard<std::mutex> turn(mutex);
    for (AcceptedCall *call : calls)
      if (call->request.id == id)
        call->isCancelled = true;
  }

  /// Forgets a call at the end, whatever becomes of it.
  class Done {
  public:
    Done(State &ofServer, AcceptedCall &finished)
        : state(ofServer), call(finished) {}
    ~Done() {
      const std::lock_guard<std::mutex> turn(state.mutex);
      state.calls.erase(&call);
    }
    Done(const Done &) = delete;
    Done &operator=(const Done &) = delete;

  private:
    State &state;
    AcceptedCall &call;
  };
};

Server::Server(const std::string &directory)
    : state(std::make_unique<State>()) {
  state->directory = directory;
}
Server::~Server() = default;

std::shared_ptr<Call> Server::Accept(std::string_view request) {
  const auto call = std::make_shared<AcceptedCall>(request);
  if (isCancel(call->request))
    state->cancel(call->request.params["id"]);
  const std::lock_guard<std::mutex> turn(state->mutex);
  state->calls.insert(call.get());
  return call;
}

std::optional<std::string> Server::Finish(const std::shared_ptr<Call> &call) {
  auto &accepted = static_cast<AcceptedCall &>(*call);
  const State::Done done(*state, accepted);
  std::string answer = answerTo(accepted, state->open, state->directory);
  if (!accepted.request.id)
    return std::nullopt;
  return answer;
}

std::optional<std::string> Server::Answer(std::string_view request) {
  return Finish(Accept(request));
}

std::string answerTooLong() {
  return textOf(nullptr, "error",
                Fault(FaultCode::noJson, "a request has at most " +
                                             std::to_string(longestRequest) +
                                             " bytes")
                    .json());
}

} // namespace ZelDebugDialog::protocol

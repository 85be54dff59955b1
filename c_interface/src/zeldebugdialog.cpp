#include "zeldebugdialog.h"

#include <algorithm>
#include <memory>
#include <new>
#include <optional>
#include <string>

#include "server/Server.h"

struct zdd_server {
  ZelDebugDialog::protocol::Server server;
};

namespace {

/// Runs what may be short of memory, which is all that can be thrown here.
template <class Function> zdd_status guarded(const Function &run) noexcept {
  try {
    return run();
  } catch (...) {
    return ZDD_NO_MEMORY;
  }
}

/// With a null byte behind it; `zdd_answer_release` takes it.
char *copied(const std::string &text) {
  char *const copy = new char[text.size() + 1];
  *std::copy(text.begin(), text.end(), copy) = '\0';
  return copy;
}

} // namespace

zdd_status zdd_server_create(zdd_server **server) {
  if (server == nullptr)
    return ZDD_NULL_POINTER;
  *server = nullptr;
  return guarded([server] {
    *server = std::make_unique<zdd_server>().release();
    return ZDD_OK;
  });
}

zdd_status zdd_server_release(zdd_server *server) {
  if (server == nullptr)
    return ZDD_NULL_POINTER;
  const std::unique_ptr<zdd_server> released(server);
  return ZDD_OK;
}

zdd_status zdd_answer(zdd_server *server, const char *request, size_t length,
                      char **answer, size_t *answer_length) {
  if (answer != nullptr)
    *answer = nullptr;
  if (answer_length != nullptr)
    *answer_length = 0;
  if (server == nullptr || request == nullptr || answer == nullptr)
    return ZDD_NULL_POINTER;
  return guarded([&] {
    const std::optional<std::string> text =
        server->server.Answer({request, length});
    if (!text)
      return ZDD_NO_ANSWER;
    *answer = copied(*text);
    if (answer_length != nullptr)
      *answer_length = text->size();
    return ZDD_OK;
  });
}

zdd_status zdd_answer_release(char *answer) {
  if (answer == nullptr)
    return ZDD_NULL_POINTER;
  char *const owned = answer; // again, as `copied` made it
  delete[] owned;
  return ZDD_OK;
}

const char *zdd_version() { return ZELDEBUGDIALOG_VERSION; }

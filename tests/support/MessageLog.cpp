#include "support/MessageLog.h"

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <utility>

#include "ComMsgMgr.h"

namespace {

std::vector<support::LoggedMessage> &messages() {
  static std::vector<support::LoggedMessage> log;
  return log;
}

std::function<void()> &listener() {
  static std::function<void()> call;
  return call;
}

std::string formatText(const char *format, std::va_list arguments) {
  std::va_list measured;
  va_copy(measured, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, measured);
  va_end(measured);
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  std::vsnprintf(text.data(), text.size(), format, arguments);
  text.pop_back();
  return text;
}

} // namespace

void ComMsgMgr::sendMsg::eval(int kind, const char *sourcePath, int line,
                              const char *tool, unsigned mask,
                              const char *format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  std::string formatted = formatText(format, arguments);
  va_end(arguments);
  messages().push_back(
      {kind, sourcePath, line, tool, mask, format, std::move(formatted)});
  if (listener())
    listener()();
}

void support::onMessage(std::function<void()> call) {
  listener() = std::move(call);
}

std::vector<support::LoggedMessage> support::takeMessages() {
  return std::exchange(messages(), {});
}

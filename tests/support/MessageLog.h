// Message output that writes down what it is given. A program that is made with
// MessageLog.cpp has it in place of the library's.
#ifndef TESTS_SUPPORT_MESSAGELOG_H
#define TESTS_SUPPORT_MESSAGELOG_H

#include <functional>
#include <string>
#include <vector>

namespace support {

struct LoggedMessage {
  int kind;
  std::string sourcePath;
  int line;
  std::string tool;
  unsigned mask;
  std::string format;
  std::string formatted; ///< `format` with the arguments filled in.
};

/// Is called in the midst of each message from now on; null: no more.
void onMessage(std::function<void()> call);

/// The messages sent since the last call; empties the log.
std::vector<LoggedMessage> takeMessages();

} // namespace support

#endif

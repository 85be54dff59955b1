#include "KvoOption_Parser/Message.h"

#include "KvoOption_Parser/Codes.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"

namespace ZelDebugDialog::kvo {

namespace {

constexpr std::size_t longestMessage = 2047;

/// Appends as much as a message has room for, so that the size of a hostile
/// word never becomes the size of a message.
void appendBounded(std::string &message, std::string_view piece) {
  message.append(piece.substr(0, longestMessage - message.size()));
}

} // namespace

std::string formatMessage(std::string_view format,
                          std::initializer_list<std::string_view> arguments) {
  std::string message;
  for (const std::string_view argument : arguments) {
    const std::size_t conversion = format.find('%');
    appendBounded(message, format.substr(0, conversion));
    appendBounded(message, argument);
    format.remove_prefix(conversion + 2);
  }
  appendBounded(message, format);
  return message.substr(0, message.find('\0'));
}

void setMessage(const EngineImp &imp, std::string_view format,
                std::initializer_list<std::string_view> arguments) {
  if (imp.engine != nullptr)
    imp.engine->SetErrorStr(formatMessage(format, arguments));
}

int refuse(const EngineImp &imp, std::string_view format,
           std::initializer_list<std::string_view> arguments) {
  setMessage(imp, format, arguments);
  return code::refused;
}

} // namespace ZelDebugDialog::kvo

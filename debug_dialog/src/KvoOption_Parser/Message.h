// Messages of readers and writers, on their way to the engine's error string.
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_MESSAGE_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_MESSAGE_H

#include <initializer_list>
#include <string>
#include <string_view>

namespace ZelDebugDialog {
class EngineImp;
}

namespace ZelDebugDialog::kvo {

// Formats that more than one clause uses. The blanks are the debugger's own.
inline constexpr std::string_view unknownOption = "UNKNOWN Option '%s'";
inline constexpr std::string_view unknownParameterOfOption =
    "UNKNOWN Parameter '%s' for  option '%s'";

/// Fills the conversions of a printf-like format ("%s", "%d") in their order. A
/// message has at most 2,047 characters and ends at a null byte.
std::string formatMessage(std::string_view format,
                          std::initializer_list<std::string_view> arguments);

/// Formats a message and makes it the last error of the state's engine.
void setMessage(const EngineImp &imp, std::string_view format,
                std::initializer_list<std::string_view> arguments = {});

/// Sets the message; the result of whoever refuses with it.
int refuse(const EngineImp &imp, std::string_view format,
           std::initializer_list<std::string_view> arguments = {});

} // namespace ZelDebugDialog::kvo

#endif

// What the operations of an engine return, by name. Each operation says which
// of them it can return; the readers of single clauses in KvoOption_Parser.h
// have results of their own.
//
// Constants and a pure function, usable from any thread.
//
//   if (engine.GetCablePort(port) == result::notApplicable) ...
#ifndef ZELDEBUGDIALOG_RESULT_H
#define ZELDEBUGDIALOG_RESULT_H

#include <string_view>

namespace ZelDebugDialog::result {

/// It is done, or copied out.
inline constexpr int done = 0;
/// A value is not set, empty or refused; no command can be written.
inline constexpr int notSet = 1;
/// The setting does not apply to the connection, the processor or the cable.
inline constexpr int notApplicable = 2;
/// No processor of the list has that name.
inline constexpr int unknownProcessor = 2;
/// A text or a command was refused.
inline constexpr int notRead = 3;
/// There is no option file, or nothing in it; or it cannot be written. For a
/// selection no error: nothing was saved yet.
inline constexpr int noOptionFile = 4;

/// "done", "not set", "not applicable", "not read" or "no option file"; empty
/// for what is no result. Of 2, which an unknown processor has too, the first
/// meaning.
constexpr std::string_view Show(int value) {
  switch (value) {
  case done:
    return "done";
  case notSet:
    return "not set";
  case notApplicable:
    return "not applicable";
  case notRead:
    return "not read";
  case noOptionFile:
    return "no option file";
  default:
    return "";
  }
}

} // namespace ZelDebugDialog::result

#endif

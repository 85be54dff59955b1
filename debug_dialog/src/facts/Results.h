// What the operations of the engine return.
#ifndef ZELDEBUGDIALOG_FACTS_RESULTS_H
#define ZELDEBUGDIALOG_FACTS_RESULTS_H

namespace ZelDebugDialog::result {

inline constexpr int done = 0;
inline constexpr int notSet = 1;        ///< Not set, empty, or refused.
inline constexpr int notApplicable = 2; ///< Not with this connection or cable.
inline constexpr int unknownProcessor = 2;
inline constexpr int notRead = 3;      ///< A text or command was refused.
inline constexpr int noOptionFile = 4; ///< Not an error: nothing was saved yet.

/// Whether a reader's result counts as success for those who call it.
constexpr bool isSuccess(int result) {
  return result == done || result == noOptionFile;
}

} // namespace ZelDebugDialog::result

#endif

// What the readers of words and clauses tell each other.
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_CODES_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_CODES_H

namespace ZelDebugDialog::kvo::code {

inline constexpr int done = 0;    ///< Read to the end of what belongs to it.
inline constexpr int value = 0;   ///< The word is a value.
inline constexpr int option = 1;  ///< The word begins the next option clause.
inline constexpr int refused = 2; ///< Not understood, or not allowed.
inline constexpr int end = 3;     ///< The text is used up.

} // namespace ZelDebugDialog::kvo::code

#endif

// The whole connect command: head word, target word, and the clause of the
// target.
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_CONNECTCOMMAND_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_CONNECTCOMMAND_H

#include "KvoOption_Parser/WordCursor.h"

namespace ZelDebugDialog {
class EngineImp;
}

namespace ZelDebugDialog::kvo {

/// Where a command stands. An option file knows fewer head and target words.
enum class CommandSource { dialog, optionFile };

/// Reads a command into the current record.
/// @return `result::done` or `result::notRead`.
int readCommand(WordCursor &cursor, EngineImp &imp, CommandSource source);

} // namespace ZelDebugDialog::kvo

#endif

// Why a command is refused, also where the engine says nothing.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_WHYREFUSED_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_WHYREFUSED_H

#include <string>

#include "ZelDebugDialog/CommandTrace.h"
#include "commands/Desk.h"
#include "text/Words.h"

namespace ZelDebugDialog::model {

/// What is wrong with a word: "'-foo' is no option here".
std::string shownFault(const std::string &command, const CommandTrace &trace,
                       const CommandFault &fault);

/// The column and kind of the first fault, and the engine's message.
/// @param desk   for the processor that the command was read for; what is set
///   there is another thing afterwards
/// @param place  an option file takes fewer words
std::string whyRefused(Desk &desk, const Reading &reading,
                       const std::string &command,
                       WordPlace place = WordPlace::command);

} // namespace ZelDebugDialog::model

#endif

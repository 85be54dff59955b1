// Why a command is refused, also where the engine says nothing.
#ifndef ZELDEBUG_REFUSAL_H
#define ZELDEBUG_REFUSAL_H

#include <string>

#include <HHSMHwManager.h>
#include <ZelDebugDialog/CommandTrace.h>

#include "Session.h"

namespace zeldebug {

/// What is wrong with a word: "'-foo' is no option here".
std::string shownFault(const std::string &command,
                       const ZelDebugDialog::CommandTrace &trace,
                       const ZelDebugDialog::CommandFault &fault);

/// The engine's message, and the column and kind of the first fault.
/// @param design, processor  as the command was read; null and "" for reading
///   without a design
std::string refusalOf(const Reading &reading, const std::string &command,
                      HHSMHwManager *design = nullptr,
                      const std::string &processor = "");

/// The same for the command of an option file, where fewer words are taken.
std::string refusalOfFile(const Reading &reading, const std::string &command,
                          HHSMHwManager *design, const std::string &processor);

} // namespace zeldebug

#endif

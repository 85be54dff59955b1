// Everything that is wrong, or surely not meant, in one command.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_DIAGNOSE_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_DIAGNOSE_H

#include <cstddef>
#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "commands/TracedCommand.h"

namespace ZelDebugDialog::model {

/// A diagnostic of one word, or of what follows `start` in it.
CommandDiagnostic diagnosticOf(const TracedCommand &command, std::size_t word,
                               const char *code, const std::string &detail,
                               std::size_t start = 0);

/// What reading finds.
void diagnoseFaults(const TracedCommand &command,
                    std::vector<CommandDiagnostic> &found);
/// What reading leaves unsaid: words that are not what they look like, numbers
/// that are cut, what is given twice.
void diagnoseWords(const TracedCommand &command,
                   std::vector<CommandDiagnostic> &found);
/// What a line of an option file may not have.
void diagnoseLine(const TracedCommand &command,
                  std::vector<CommandDiagnostic> &found);
/// What a processor does not allow, or is another one's.
void diagnoseFor(const BoardProcessor &processor, const TracedCommand &command,
                 std::vector<CommandDiagnostic> &found);

} // namespace ZelDebugDialog::model

#endif

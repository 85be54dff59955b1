// Every subcommand adds itself to the command line.
#ifndef ZELDEBUG_SUBCOMMANDS_H
#define ZELDEBUG_SUBCOMMANDS_H

namespace zeldebug {

class CommandLine;

void addListCommand(CommandLine &line);
void addDesignCommand(CommandLine &line);
void addKindsCommand(CommandLine &line);
void addShowCommand(CommandLine &line);
void addSetCommand(CommandLine &line);
void addCommandCommand(CommandLine &line);
void addInitCommand(CommandLine &line);
void addSyncCommand(CommandLine &line);
void addAdoptCommand(CommandLine &line);
void addCheckCommand(CommandLine &line);
void addExplainCommand(CommandLine &line);
void addExplainCodeCommand(CommandLine &line);
void addDiffCommand(CommandLine &line);
void addRoundtripCommand(CommandLine &line);
void addCablesCommand(CommandLine &line);
void addLanguageCommand(CommandLine &line);
void addServeCommand(CommandLine &line);
void addCompletionScriptCommand(CommandLine &line);
void addCompletionWordsCommand(CommandLine &line);
void addManualCommand(CommandLine &line);
void addHelpCommand(CommandLine &line);

} // namespace zeldebug

#endif

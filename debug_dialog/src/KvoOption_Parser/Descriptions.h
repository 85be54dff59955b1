// What each clause and target tells about itself, for `GetCommandTables`.
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_DESCRIPTIONS_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_DESCRIPTIONS_H

#include <string>
#include <vector>

#include "KvoOption_Parser/ValueForm.h"
#include "ZelDebugDialog/CommandTables.h"
#include "facts/CableCatalogue.h"

namespace ZelDebugDialog::kvo {

using DescribeOption = void (*)(CommandOption &option);
using DescribeTarget = void (*)(CommandTarget &target);

void describeBoundaryScan(CommandOption &option);
void describeCable(CommandOption &option);
void describeConfigDevice(CommandOption &option);
void describeDebugDevice(CommandOption &option);
void describeFsl(CommandOption &option);
void describeModelSim(CommandOption &option);
/// The stub option that `option.keyword` names.
void describeStubLine(CommandOption &option);
inline void describeFlag(CommandOption & /*option*/) {}

void describeLumacore(CommandTarget &target);
void describePpc(CommandTarget &target);
void describeArm(CommandTarget &target);
void describeHdu(CommandTarget &target);
void describeDcc(CommandTarget &target);
void describeKmtc(CommandTarget &target);

std::vector<CommandHead> describeHeads();
CommandOptionSet describeProcessorOptions();
CommandOptionSet describeLumacoreSimulatorOptions();
CommandOptionSet describePpcSimulatorOptions();
CommandOptionSet describeVirtualPlatformOptions();
CommandOptionSet describeModelSimOptions();
std::vector<CommandOptionSet> describeModuleOptions();

// Names of the option sets.
inline constexpr const char *processorOptions = "processor";
inline constexpr const char *lumacoreSimulatorOptions = "Lumacore simulator";
inline constexpr const char *ppcSimulatorOptions = "PowerPC simulator";
inline constexpr const char *virtualPlatformOptions = "virtual platform";
inline constexpr const char *modelSimOptions = "ModelSim";
inline constexpr const char *hduModuleOptions = "hdu";
inline constexpr const char *dccModuleOptions = "dcc";
inline constexpr const char *kmtcModuleOptions = "kmtc";

/// What a clause can carry beside the cable's type.
std::vector<std::string> fieldsCarried(CableClauseForm form);

/// The names of fields; those of a chain device with an "n" for its index.
std::vector<std::string> namesOf(const Fields &described);
CommandValue describeValue(const ValueForm &form);

/// Makes it an option with one value.
void describeOptionValue(CommandOption &option, const ValueForm &form);

/// Describes the rows of a clause of names and values.
template <class Rows>
void describeParameters(CommandOption &option, const Rows &parameters) {
  for (const auto &parameter : parameters)
    option.parameters.push_back(
        {std::string(parameter.keyword), describeValue(parameter.form)});
}

/// Describes the rows of an option set.
template <class Rows>
CommandOptionSet describeOptions(const char *name, const Rows &options) {
  CommandOptionSet set{name, {}};
  for (const auto &row : options) {
    set.options.emplace_back();
    set.options.back().keyword = row.keyword;
    row.describe(set.options.back());
  }
  return set;
}

} // namespace ZelDebugDialog::kvo

#endif

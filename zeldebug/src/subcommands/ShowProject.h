// show and explain with a project: what its files make of a processor, where
// each value comes from, and what the option file has otherwise.
#ifndef ZELDEBUG_SHOWPROJECT_H
#define ZELDEBUG_SHOWPROJECT_H

#include <optional>
#include <string>

#include "line/AskedSettings.h"
#include "line/ProjectOptions.h"
#include "output/Output.h"

namespace zeldebug {

/// @param processor  none: all that can be debugged
/// @param asked      settings of the line, the highest source
/// @throws Failure (refused) where the one that is asked for cannot have what
///   the files say; (wrong use) for settings that are none
ExitStatus showProject(const LineProject &line,
                       const std::optional<std::string> &processor,
                       const AskedSettings &asked, Output &output);

/// The command that the files give a processor, word by word.
/// @throws Failure as `showProject`
ExitStatus explainProject(const LineProject &line, const std::string &processor,
                          Output &output);

} // namespace zeldebug

#endif

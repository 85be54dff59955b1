// What a trace says of the words of a command, held against the settings: a
// second opinion on what each value becomes.
#ifndef FUZZ_COMMON_TRACEDVALUES_H
#define FUZZ_COMMON_TRACEDVALUES_H

#include <string>

#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/EngineImp.h"

namespace fuzz {

/// The words stand in the text, in order and apart; what is wrong is said of
/// one of them, or of the end.
void checkWords(const std::string &text,
                const ZelDebugDialog::CommandTrace &trace);

/// Each setting holds what the last word says that changes it, for a text that
/// was read without a fault.
void checkStoredValues(const std::string &text,
                       const ZelDebugDialog::CommandTrace &trace,
                       const ZelDebugDialog::EngineImp &imp);

} // namespace fuzz

#endif

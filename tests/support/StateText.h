// Everything that reading can change, as text, so that two states compare and
// print as one.
#ifndef ZELDEBUGDIALOG_TESTS_SUPPORT_STATETEXT_H
#define ZELDEBUGDIALOG_TESTS_SUPPORT_STATETEXT_H

#include <map>
#include <string>

#include "ZelDebugDialog/EngineImp.h"

namespace ZelDebugDialog::test {

/// Settings by the names that a trace uses for them; chain devices as
/// "chain[0].idcode". `connectCommand` is left out.
std::map<std::string, std::string> settingsOf(const EngineImp &imp);

} // namespace ZelDebugDialog::test

#endif

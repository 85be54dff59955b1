// Reading by the public readers of single clauses, as the headers say that they
// work together: what they do is what the reader of whole commands does.
#ifndef FUZZ_COMMAND_PUBLICREADERS_H
#define FUZZ_COMMAND_PUBLICREADERS_H

#include <string>

#include "ZelDebugDialog/EngineImp.h"

namespace fuzz {

/// Head and target word, and then the target's reader. @return as
/// `ReadKvoCommand`.
int readByTarget(const std::string &command, ZelDebugDialog::EngineImp &imp);

/// The option clauses, one at a time. @return as `parse_options`.
int readByClauses(const std::string &clauses, ZelDebugDialog::EngineImp &imp);

} // namespace fuzz

#endif

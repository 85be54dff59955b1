// The ways to connect as users name them, and the steps that a dialog takes for
// each.
#ifndef ZELDEBUG_CONNECTIONKIND_H
#define ZELDEBUG_CONNECTIONKIND_H

#include <cstdint>
#include <string>
#include <vector>

#include <ZelDebugDialog/Engine.h>
#include <ZelDebugDialog/ProcessorInfo.h>

namespace zeldebug {

struct ConnectionKind {
  const char *word;
  std::uint32_t connectionType; ///< what is stored at the end
  /// The bit that the stub type asks for, which is set for that step only.
  std::uint32_t stubBit;
  std::uint32_t stubType;
};

const std::vector<ConnectionKind> &connectionKinds();

/// @return null for an unknown word.
const ConnectionKind *findConnectionKind(const std::string &word);

/// The words of the kinds that a `connectionMask` allows.
std::vector<std::string> allowedKinds(std::uint32_t connectionMask);

/// The kind that a record has; "sim", "hw", ... or the number for anything
/// else.
std::string kindOf(const ZelDebugDialog::ProcessorInfoImp &record);

/// Takes the steps. @return 0, or 1 when the engine refuses one.
int applyConnectionKind(ZelDebugDialog::Engine &engine,
                        const ConnectionKind &kind);

} // namespace zeldebug

#endif

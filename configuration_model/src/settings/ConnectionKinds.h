// The one choice of how to connect, which the records hold as a connection type
// and a stub type.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ZelDebugDialog/ProcessorInfo.h"

namespace ZelDebugDialog::model {

struct ConnectionKind {
  const char *word;
  const char *label;
  std::uint32_t type;     ///< `ConnectionType`, and the bit of the mask
  std::uint32_t stubType; ///< what the steps of a dialog leave behind
};

const std::array<ConnectionKind, 5> &connectionKinds();

/// Null for a word that is none.
const ConnectionKind *findConnectionKind(std::string_view word);

/// The kind that a record has; null for a type that is none of them.
const ConnectionKind *kindOf(const ProcessorInfoImp &record);

/// The words that a mask allows.
std::vector<std::string> allowedKinds(std::uint32_t mask);

} // namespace ZelDebugDialog::model

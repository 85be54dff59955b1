// How much of an option file is read.
#pragma once

#include <cstddef>

namespace ZelDebugDialog::model {

/// The engine reads no more characters of a line than this.
constexpr std::size_t optionLineLimit = 1023;

} // namespace ZelDebugDialog::model

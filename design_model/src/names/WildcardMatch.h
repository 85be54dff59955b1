// Patterns with "*" and "?".
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_WILDCARDMATCH_H
#define ZELDEBUGDIALOG_DESIGNMODEL_WILDCARDMATCH_H

#include <string_view>

namespace ZelDebugDialog {

/// Whether all of the text fits the pattern. Takes time in proportion to the
/// product of their lengths at most.
bool matchesWildcard(std::string_view pattern, std::string_view text);

} // namespace ZelDebugDialog

#endif

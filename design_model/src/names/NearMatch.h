// What somebody may have meant who wrote a word that is none.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_NEARMATCH_H
#define ZELDEBUGDIALOG_DESIGNMODEL_NEARMATCH_H

#include <string_view>
#include <vector>

namespace ZelDebugDialog {

/// The candidate that is most like the word, the first of several; empty if
/// none is like it. Letters that differ in case only are almost the same.
std::string_view findNearMatch(std::string_view word,
                               const std::vector<std::string_view> &candidates);

} // namespace ZelDebugDialog

#endif

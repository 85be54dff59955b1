// The accepted word that is nearest to one that was mistyped.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_TEXT_NEARESTMATCH_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_TEXT_NEARESTMATCH_H

#include <string>
#include <string_view>
#include <vector>

namespace ZelDebugDialog::model {

/// The candidate with the fewest edits (letters put in, left out, replaced or
/// swapped, case not counted), the first of several; empty if none is near
/// enough: at most one edit for each three letters of `word`, and one for
/// shorter words.
std::string nearestMatch(std::string_view word,
                         const std::vector<std::string> &candidates);

/// "; did you mean 'X'?", or nothing without a near match.
std::string didYouMean(std::string_view word,
                       const std::vector<std::string> &candidates);

/// "'a', 'b', 'c'".
std::string quotedList(const std::vector<std::string> &words);

} // namespace ZelDebugDialog::model

#endif

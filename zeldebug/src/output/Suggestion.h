// The accepted word that is nearest to one that was mistyped.
#ifndef ZELDEBUG_SUGGESTION_H
#define ZELDEBUG_SUGGESTION_H

#include <string>
#include <string_view>
#include <vector>

namespace zeldebug {

/// The candidate that is nearest; empty if none is near enough.
std::string nearestMatch(std::string_view word,
                         const std::vector<std::string> &candidates);

/// "; did you mean 'X'?", or nothing without a near match.
std::string didYouMean(std::string_view word,
                       const std::vector<std::string> &candidates);

/// "'a', 'b', 'c'".
std::string quotedList(const std::vector<std::string> &words);

} // namespace zeldebug

#endif

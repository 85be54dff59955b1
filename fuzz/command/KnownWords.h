// The words of the command tables, which a reader must not know better.
#ifndef FUZZ_COMMAND_KNOWNWORDS_H
#define FUZZ_COMMAND_KNOWNWORDS_H

#include <set>
#include <string>

namespace fuzz {

/// Every word of the language that the tables name.
std::set<std::string> wordsOfTables();

/// Whether the tables name a word, in any letter case.
bool isInTables(const std::string &word);

} // namespace fuzz

#endif

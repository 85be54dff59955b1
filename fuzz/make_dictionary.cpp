// Prints the fuzzers' dictionary: every word of the command language, from the
// tables that the engine gives out.
#include <cstdio>

#include "command/KnownWords.h"

int main() {
  // A word alone is part of others; with a blank behind it, it ends there.
  for (const std::string &word : fuzz::wordsOfTables())
    std::printf("\"%s \"\n", word.c_str());
}

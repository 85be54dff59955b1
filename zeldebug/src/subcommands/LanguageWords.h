// The words that `language` explains.
#ifndef ZELDEBUG_LANGUAGEWORDS_H
#define ZELDEBUG_LANGUAGEWORDS_H

#include <string>
#include <vector>

namespace zeldebug {

std::vector<std::string> languageWords();

} // namespace zeldebug

#endif

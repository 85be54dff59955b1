// How the text of an option file is taken, by rules of its own: which of its
// lines counts, and which commands on it.
#ifndef TESTS_SUPPORT_OPTIONFILETEXT_H
#define TESTS_SUPPORT_OPTIONFILETEXT_H

#include <string>

namespace support {

/// The first line that is not empty, cut at 1,023 characters and at a null
/// byte; empty where there is none.
std::string lineOf(const std::string &content);

/// Whether the head and the target word are ones that option files know.
bool isKnownInFiles(const std::string &command);

} // namespace support

#endif

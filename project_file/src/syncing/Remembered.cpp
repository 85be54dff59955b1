#include "syncing/Remembered.h"

#include <algorithm>

#include <fmt/format.h>

namespace ZelDebugDialog::project {

namespace {

bool isOneLine(const std::string &text) {
  return text.find_first_of(std::string("\n\0", 2)) == std::string::npos;
}

bool isName(const std::string &name) {
  return !name.empty() && isOneLine(name) &&
         name.find('\t') == std::string::npos;
}

} // namespace

ReadRemembered readRemembered(const std::string &text) {
  ReadRemembered read;
  std::size_t start = 0;
  for (int line = 1; start < text.size(); ++line) {
    const std::size_t end = text.find('\n', start);
    const std::size_t tab = text.find('\t', start);
    const bool isLine = end != std::string::npos && tab < end && tab > start;
    if (!isLine || !read.texts
                        .emplace(text.substr(start, tab - start),
                                 text.substr(tab + 1, end - tab - 1))
                        .second) {
      read.texts.clear();
      read.problem = fmt::format("line {} is no name, tab and text", line);
      return read;
    }
    start = end + 1;
  }
  return read;
}

std::string writtenRemembered(const Remembered &texts) {
  std::string text;
  for (const auto &[name, content] : texts)
    if (isName(name) && isOneLine(content))
      text += fmt::format("{}\t{}\n", name, content);
  return text;
}

} // namespace ZelDebugDialog::project

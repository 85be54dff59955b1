#include "line/CommandsInFile.h"

#include <sstream>

#include "line/InputFile.h"

namespace zeldebug {

std::vector<CommandInFile> expectCommandsIn(const std::string &file) {
  std::istringstream stream(expectText(file));
  std::vector<CommandInFile> lines;
  std::string text;
  for (int number = 1; std::getline(stream, text); ++number)
    if (!text.empty())
      lines.push_back({number, text});
  return lines;
}

} // namespace zeldebug

#include "CommandLines.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>

#include <fmt/format.h>

#include "Failure.h"

namespace zeldebug {

namespace {

std::vector<CommandLineOfFile> linesOf(std::istream &stream) {
  std::vector<CommandLineOfFile> lines;
  std::string text;
  for (int number = 1; std::getline(stream, text); ++number)
    if (!text.empty())
      lines.push_back({number, text});
  return lines;
}

} // namespace

std::vector<CommandLineOfFile> expectCommandLines(const std::string &file) {
  if (file == "-")
    return linesOf(std::cin);
  std::error_code error;
  if (std::filesystem::is_directory(file, error))
    throw Failure(ExitStatus::unreadable,
                  fmt::format("{}: is a folder, no file", file));
  std::ifstream stream(file, std::ios::binary);
  if (!stream)
    throw Failure(
        ExitStatus::unreadable,
        fmt::format("{}: {}", file, std::generic_category().message(errno)));
  return linesOf(stream);
}

} // namespace zeldebug

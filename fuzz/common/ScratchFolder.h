// A folder in memory, made once, that is the working directory while a fuzzer
// calls what works on files.
#ifndef FUZZ_COMMON_SCRATCHFOLDER_H
#define FUZZ_COMMON_SCRATCHFOLDER_H

#include <string>

namespace fuzz {

class ScratchFolder {
public:
  ScratchFolder();
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder &) = delete;
  ScratchFolder &operator=(const ScratchFolder &) = delete;

  const std::string &path() const { return folder; }

private:
  std::string folder;
};

/// Makes a folder the working directory, and goes back at its end: the fuzzer
/// itself has relative paths of its own.
class Visit {
public:
  explicit Visit(const ScratchFolder &folder);
  ~Visit();
  Visit(const Visit &) = delete;
  Visit &operator=(const Visit &) = delete;

private:
  int home;
};

/// Replaces the content of a file; it stays the same file.
void fill(const std::string &path, const std::string &content);
/// The content of a file; nothing if there is none.
std::string contentOf(const std::string &path);

} // namespace fuzz

#endif

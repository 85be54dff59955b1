// Waits for files to change, or to be told to end.
#ifndef ZELDEBUG_WATCHING_H
#define ZELDEBUG_WATCHING_H

#include <csignal>
#include <string>
#include <vector>

namespace zeldebug {

/// What is watched. Folders stand for the documents below them.
struct Watched {
  std::vector<std::string> files;
  std::vector<std::string> folders;
};

/// As long as it lives, SIGINT and SIGTERM wait until they are asked for.
class Watching {
public:
  Watching();
  ~Watching();
  Watching(const Watching &) = delete;
  Watching &operator=(const Watching &) = delete;

  /// How the files are now: another text as soon as one of them changes.
  static std::string look(const Watched &watched);

  /// Waits until the files are no longer as they were, and have been at rest
  /// for a moment.
  /// @return false: the program is to end
  bool waitForChange(const Watched &watched, const std::string &before) const;

private:
  /// @return whether a signal came
  bool pause() const;

  sigset_t ending = {};
  sigset_t former = {};
};

} // namespace zeldebug

#endif

// How the program ends, and the exception that ends it early.
#ifndef ZELDEBUG_FAILURE_H
#define ZELDEBUG_FAILURE_H

#include <stdexcept>
#include <string>

namespace zeldebug {

enum class ExitStatus {
  done = 0,
  refused = 1,    ///< refused, or a check failed
  wrongUse = 2,   ///< unknown option, value that is not accepted
  unreadable = 3, ///< a file could not be read or understood
};

/// Ends a subcommand: the text goes to the user, the status to the caller.
class Failure : public std::runtime_error {
public:
  Failure(ExitStatus status, const std::string &text)
      : std::runtime_error(text), exitStatus(status) {}

  ExitStatus status() const { return exitStatus; }

private:
  ExitStatus exitStatus;
};

} // namespace zeldebug

#endif

// How the program ends, and the exception that ends it early.
#ifndef ZELDEBUG_FAILURE_H
#define ZELDEBUG_FAILURE_H

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace zeldebug {

enum class ExitStatus {
  done = 0,
  refused = 1,    ///< refused, or a check failed
  wrongUse = 2,   ///< unknown option, value that is not accepted
  unreadable = 3, ///< a file could not be read or understood
};

/// What a failure is about, as far as it applies.
struct FailureDetails {
  std::string code = {};   ///< a stable word; that of the status without one
  std::string option = {}; ///< of the line, or a setting's name
  std::optional<std::string> value = {}; ///< what was given
  std::vector<std::string> accepted = {};
  std::string suggestion = {}; ///< the nearest of them
  std::string file = {};
  int line = 0; ///< in the file, from 1
};

/// Ends a subcommand: the text goes to the user, the status to the caller.
class Failure : public std::runtime_error {
public:
  Failure(ExitStatus status, const std::string &text,
          FailureDetails details = {})
      : std::runtime_error(text), exitStatus(status),
        about(std::move(details)) {}

  ExitStatus status() const { return exitStatus; }
  const FailureDetails &details() const { return about; }

private:
  ExitStatus exitStatus;
  FailureDetails about;
};

/// The same, but the user has been told already.
class ToldFailure : public Failure {
public:
  using Failure::Failure;
};

} // namespace zeldebug

#endif

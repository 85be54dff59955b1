// The parameters of a method: which there are, what each is, and reading them.
#ifndef ZELDEBUGDIALOG_PROTOCOL_SERVER_PARAMETERS_H
#define ZELDEBUGDIALOG_PROTOCOL_SERVER_PARAMETERS_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "server/Request.h"

namespace ZelDebugDialog::protocol {

enum class ParameterKind {
  text,
  textOrNull,
  path, ///< a text that may name a file: not empty, without null bytes
  paths,
  texts,
  flag,
  handle, ///< of a board or a configuration
  handles,
  count,  ///< from 1 to 100 million
  offset, ///< from 0
  values, ///< an object
  id,     ///< of a request: a text or a number
};

/// What a parameter of a kind has to be, for messages: "a text".
const char *describe(ParameterKind kind);

struct Parameter {
  const char *name;
  ParameterKind kind;
  bool isRequired = true;
};

/// Parameters that have been checked. What is asked for is one of the method's,
/// of its kind; only those that need not be there can be missing.
class Parameters {
public:
  /// @throws Fault (badParameters) for one that is missing, unknown, or not
  ///   what it has to be
  Parameters(const std::vector<Parameter> &known, const Given &params);

  bool has(const char *name) const { return given.contains(name); }
  const std::string &text(const char *name) const;
  /// Nothing if it is missing or null.
  std::optional<std::string> optionalText(const char *name) const;
  /// Empty if it is missing.
  std::vector<std::string> texts(const char *name) const;
  /// False if it is missing.
  bool flag(const char *name) const;
  std::int64_t handle(const char *name) const;
  std::vector<std::int64_t> handles(const char *name) const;
  std::size_t number(const char *name) const;
  const Given &json(const char *name) const { return given.at(name); }

private:
  const Given &given;
};

/// @param name  the parameter at fault; none for all of them
/// @throws Fault (badParameters)
[[noreturn]] void refuseParameter(const std::string &name,
                                  const std::string &message,
                                  FaultDetails details = {});

/// What was given, as texts of errors have it.
std::string shownJson(const Given &value);

} // namespace ZelDebugDialog::protocol

#endif

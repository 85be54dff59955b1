// An option or argument whose value may be empty: what is given empty is not
// missing.
#ifndef ZELDEBUG_TEXTOPTION_H
#define ZELDEBUG_TEXTOPTION_H

#include <optional>
#include <string>

#include <CLI/CLI.hpp>

namespace zeldebug {

/// @param value  set when the line gives one. CLI11 itself makes an optional
///   of an empty text empty.
inline CLI::Option *addTextOption(CLI::App &app, const std::string &name,
                                  std::optional<std::string> &value,
                                  const std::string &help) {
  return app.add_option_function<std::string>(
      name, [&value](const std::string &text) { value = text; }, help);
}

} // namespace zeldebug

#endif

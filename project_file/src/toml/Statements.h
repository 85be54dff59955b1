// The statements of a TOML text, a header or a key with its value each, and the
// bytes that each stands in. Of a text with a fault, those in front of it.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_TOML_STATEMENTS_H
#define ZELDEBUGDIALOG_PROJECTFILE_TOML_STATEMENTS_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "toml/Document.h"

namespace ZelDebugDialog::project {

using Path = std::vector<std::string>;

struct Statement {
  enum class Kind { header, arrayHeader, pair };
  Kind kind = Kind::pair;
  Path path;       ///< of a pair: behind its header's
  Span lines;      ///< with the indentation and the line end
  Span key;        ///< of a header: with its brackets
  Span value;      ///< of a pair; of a broken one, the rest of its line
  Path headerPath; ///< of the header above it; of a header, its own
};

std::vector<Statement> statementsOf(std::string_view text);

/// The pairs of a table in braces, with their keys and values alone.
/// @param at  of its opening brace, in valid TOML
std::vector<Statement> pairsInBraces(std::string_view text, std::size_t at);

/// Where a key with more parts than these stands.
std::optional<std::size_t> findDeepKey(std::string_view text, std::size_t most);

/// A key as it is to be written: bare where it can be.
std::string writtenKey(const std::string &key);
std::string writtenPath(const Path &path);

/// A text as a TOML string of the kind that `quote` begins; basic where that
/// kind cannot hold it.
std::string writtenText(const std::string &text, char quote = '"');

} // namespace ZelDebugDialog::project

#endif

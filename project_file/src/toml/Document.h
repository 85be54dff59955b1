// A TOML text as a tree of values that knows which bytes each value stands in.
// Nobody else sees how TOML is read.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_TOML_DOCUMENT_H
#define ZELDEBUGDIALOG_PROJECTFILE_TOML_DOCUMENT_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ZelDebugDialog::project {

/// Bytes of a text, from `begin` up to `end`.
struct Span {
  std::size_t begin = 0;
  std::size_t end = 0;
};

struct TomlMember;

enum class TomlType { table, array, text, integer, real, boolean, date };

/// "a table", "an array", "a text", ...
const char *shown(TomlType type);

struct TomlNode {
  TomlType type = TomlType::table;
  bool isInline = false; ///< of a table: in braces
  bool flag = false;
  std::int64_t integer = 0;
  std::string text;                ///< of the others: as it is written
  std::vector<TomlMember> members; ///< of a table, in the order of the text
  std::vector<TomlNode> items;
  /// Of a table with a header, the header; of one that a dotted key made, that
  /// part of the key.
  Span span;

  const TomlMember *find(std::string_view key) const;
};

struct TomlMember {
  std::string key;
  std::size_t offset = 0; ///< of the key, quote included
  TomlNode value;
};

/// Whether two say the same, wherever and however it is written.
bool isSame(const TomlNode &one, const TomlNode &other);

struct TomlError {
  std::size_t offset = 0;
  std::string message;
};

struct TomlDocument {
  TomlNode root;
  std::optional<TomlError> error; ///< the first fault; then the root is empty
};

/// @param text  without a byte order mark
TomlDocument readToml(const std::string &text);

/// Lines of a text, and columns in bytes.
class Lines {
public:
  explicit Lines(std::string_view text);
  int lineOf(std::size_t offset) const;
  int columnOf(std::size_t offset) const;
  std::size_t startOf(int line) const { // from 1
    return starts[static_cast<std::size_t>(line - 1)];
  }
  int count() const { return static_cast<int>(starts.size()); }

private:
  std::vector<std::size_t> starts;
};

} // namespace ZelDebugDialog::project

#endif

// Rows of text in aligned columns.
#ifndef ZELDEBUG_TABLE_H
#define ZELDEBUG_TABLE_H

#include <string>
#include <vector>

#include <fmt/format.h>

#include "output/Output.h"

namespace zeldebug {

class Table {
public:
  explicit Table(std::vector<std::string> headings)
      : head(std::move(headings)) {}

  void addRow(std::vector<std::string> row) { rows.push_back(std::move(row)); }
  bool empty() const { return rows.empty(); }
  /// Two blanks between columns, nothing behind the last; bytes that are no
  /// text are shown as \xNN. On a terminal cells are broken at their blanks
  /// where the table would be wider, and rows become lists where that is not
  /// enough.
  void print(Output &output) const;

private:
  std::vector<std::string> head;
  std::vector<std::vector<std::string>> rows;
};

/// What a cell shows of a text.
inline std::string dashIfEmpty(const std::string &text) {
  return text.empty() ? "-" : text;
}
/// What a cell shows of a list.
template <class List> std::string joined(const List &list) {
  return fmt::format("{}", fmt::join(list, " "));
}

} // namespace zeldebug

#endif

#include "output/Table.h"

#include <algorithm>

namespace zeldebug {

namespace {

/// Columns on a terminal: UTF-8 continuation bytes take none.
std::size_t widthOf(const std::string &text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
      }));
}

std::string alignedLine(const std::vector<std::string> &cells,
                        const std::vector<std::size_t> &widths) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    line += cells[i];
    line.append(widths[i] - widthOf(cells[i]) + 2, ' ');
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

} // namespace

void Table::print(Output &output) const {
  std::vector<std::vector<std::string>> shown = rows;
  std::vector<std::size_t> widths;
  for (const std::string &cell : head)
    widths.push_back(widthOf(cell));
  for (std::vector<std::string> &row : shown)
    for (std::size_t i = 0; i < row.size(); ++i) {
      row[i] = printable(row[i]);
      widths[i] = std::max(widths[i], widthOf(row[i]));
    }
  output.printLine(output.heading(alignedLine(head, widths)));
  for (const std::vector<std::string> &row : shown)
    output.printLine(alignedLine(row, widths));
}

} // namespace zeldebug

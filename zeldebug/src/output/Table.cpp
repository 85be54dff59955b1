#include "output/Table.h"

#include <algorithm>
#include <numeric>

#include "output/Wrap.h"

namespace zeldebug {

namespace {

constexpr std::size_t gap = 2;
constexpr std::size_t narrowest = 12;

using Widths = std::vector<std::size_t>;

std::string alignedLine(const std::vector<std::string> &cells,
                        const Widths &widths) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    line += cells[i];
    line.append(widths[i] - std::min(widths[i], widthOf(cells[i])) + gap, ' ');
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

/// Takes from the widest column until the table fits, or no column can give.
void fit(Widths &widths, std::size_t width) {
  const auto whole = [&widths] {
    return std::accumulate(widths.begin(), widths.end(), std::size_t{0}) +
           gap * (widths.size() - 1);
  };
  while (whole() > width) {
    const auto widest = std::max_element(widths.begin(), widths.end());
    if (*widest <= narrowest)
      return;
    --*widest;
  }
}

/// The lines of a row, whose cells may take several each.
std::vector<std::string> linesOf(const std::vector<std::string> &row,
                                 const Widths &widths, bool isFitted) {
  if (!isFitted)
    return {alignedLine(row, widths)};
  std::vector<std::vector<std::string>> cells;
  std::size_t height = 1;
  for (std::size_t i = 0; i < row.size(); ++i) {
    cells.push_back(wrappedLines(row[i], widths[i], true));
    height = std::max(height, cells.back().size());
  }
  std::vector<std::string> lines;
  for (std::size_t line = 0; line < height; ++line) {
    std::vector<std::string> pieces;
    for (const std::vector<std::string> &cell : cells)
      pieces.push_back(line < cell.size() ? cell[line] : std::string());
    lines.push_back(alignedLine(pieces, widths));
  }
  return lines;
}

} // namespace

void Table::print(Output &output) const {
  std::vector<std::vector<std::string>> shown = rows;
  Widths widths;
  for (const std::string &cell : head)
    widths.push_back(widthOf(cell));
  for (std::vector<std::string> &row : shown)
    for (std::size_t i = 0; i < row.size(); ++i) {
      row[i] = printable(row[i]);
      widths[i] = std::max(widths[i], widthOf(row[i]));
    }
  const bool isFitted = output.width() != 0;
  if (isFitted)
    fit(widths, output.width());
  for (const std::string &line : linesOf(head, widths, isFitted))
    output.printLine(output.heading(line));
  for (const std::vector<std::string> &row : shown)
    for (const std::string &line : linesOf(row, widths, isFitted))
      output.printLine(line);
}

} // namespace zeldebug

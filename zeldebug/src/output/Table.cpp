#include "output/Table.h"

#include <algorithm>
#include <numeric>
#include <sstream>

#include "output/Wrap.h"

namespace zeldebug {

namespace {

constexpr std::size_t gap = 2;

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

std::size_t longestWord(const std::string &cell) {
  std::size_t longest = 0;
  std::istringstream words(cell);
  for (std::string word; words >> word;)
    longest = std::max(longest, widthOf(word));
  return longest;
}

/// Takes from the widest column, down to its longest word, until the table
/// fits.
/// @return false if no column can give any more
bool fit(Widths &widths, const Widths &least, std::size_t width) {
  std::size_t whole =
      std::accumulate(widths.begin(), widths.end(), std::size_t{0}) +
      gap * (widths.size() - 1);
  for (; whole > width; --whole) {
    std::size_t widest = widths.size();
    for (std::size_t i = 0; i < widths.size(); ++i)
      if (widths[i] > least[i] &&
          (widest == widths.size() || widths[i] > widths[widest]))
        widest = i;
    if (widest == widths.size())
      return false;
    --widths[widest];
  }
  return true;
}

/// The lines of a row, whose cells may take several each.
std::vector<std::string> linesOf(const std::vector<std::string> &row,
                                 const Widths &widths, bool isFitted) {
  if (!isFitted)
    return {alignedLine(row, widths)};
  std::vector<std::vector<std::string>> cells;
  std::size_t height = 1;
  for (std::size_t i = 0; i < row.size(); ++i) {
    cells.push_back(wrappedLines(row[i], widths[i]));
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

/// A row as a list of its cells, each behind its heading.
std::vector<std::string> recordOf(const std::vector<std::string> &head,
                                  const std::vector<std::string> &row,
                                  std::size_t width) {
  std::size_t column = 0;
  for (const std::string &cell : head)
    column = std::max(column, widthOf(cell) + gap);
  const std::size_t room = width > column ? width - column : 1;
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < row.size(); ++i) {
    std::string front = head[i];
    for (const std::string &piece : wrappedLines(row[i], room, true)) {
      lines.push_back(alignedLine({front, piece}, {column - gap, room}));
      front.clear();
    }
  }
  return lines;
}

} // namespace

void Table::print(Output &output) const {
  std::vector<std::vector<std::string>> shown = rows;
  Widths widths;
  Widths least;
  for (const std::string &cell : head) {
    widths.push_back(widthOf(cell));
    least.push_back(longestWord(cell));
  }
  for (std::vector<std::string> &row : shown)
    for (std::size_t i = 0; i < row.size(); ++i) {
      row[i] = printable(row[i]);
      widths[i] = std::max(widths[i], widthOf(row[i]));
      least[i] = std::max(least[i], longestWord(row[i]));
    }
  const bool isFitted = output.width() != 0;
  if (isFitted && !fit(widths, least, output.width())) {
    for (std::size_t i = 0; i < shown.size(); ++i) {
      if (i != 0)
        output.printLine("");
      for (const std::string &line : recordOf(head, shown[i], output.width()))
        output.printLine(line);
    }
    return;
  }
  for (const std::string &line : linesOf(head, widths, isFitted))
    output.printLine(output.heading(line));
  for (const std::vector<std::string> &row : shown)
    for (const std::string &line : linesOf(row, widths, isFitted))
      output.printLine(line);
}

} // namespace zeldebug

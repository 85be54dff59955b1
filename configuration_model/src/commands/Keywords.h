// Words of the language, compared as its readers do: without regard to letter
// case.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_KEYWORDS_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_COMMANDS_KEYWORDS_H

#include <string_view>
#include <vector>

namespace ZelDebugDialog::model {

bool sameKeyword(std::string_view a, std::string_view b);
/// Whether `word` begins with `front`.
bool beginsWith(std::string_view word, std::string_view front);
/// The row of a keyword; null if there is none.
template <class Row>
const Row *findKeyword(const std::vector<Row> &rows, std::string_view keyword) {
  for (const Row &row : rows)
    if (sameKeyword(row.keyword, keyword))
      return &row;
  return nullptr;
}

} // namespace ZelDebugDialog::model

#endif

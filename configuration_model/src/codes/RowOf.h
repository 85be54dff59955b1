// Tables that have a row for each value of an enumeration, in its order.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_CODES_ROWOF_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_CODES_ROWOF_H

#include <array>
#include <cstddef>

namespace ZelDebugDialog::model {

/// For a static assertion beside the table.
template <class Row, std::size_t count, class Key>
constexpr bool isInOrder(const std::array<Row, count> &rows, Key Row::*key) {
  for (std::size_t at = 0; at < count; ++at)
    if (static_cast<std::size_t>(rows[at].*key) != at)
      return false;
  return true;
}

/// Null for what is no value of the enumeration.
template <class Row, std::size_t count, class Key>
constexpr const Row *rowOf(const std::array<Row, count> &rows, Key value) {
  const auto at = static_cast<std::size_t>(value);
  return at < count ? &rows[at] : nullptr;
}

} // namespace ZelDebugDialog::model

#endif

#include "server/Numbers.h"

#include <cmath>
#include <limits>

namespace ZelDebugDialog::protocol {

std::optional<std::int64_t> wholeNumber(const Given &value) {
  if (value.is_number_unsigned()) {
    constexpr auto most =
        static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (value.get<std::uint64_t>() > most)
      return std::nullopt;
    return value.get<std::int64_t>();
  }
  if (value.is_number_float()) {
    const double number = value.get<double>();
    if (std::abs(number) > mostExact || std::floor(number) != number)
      return std::nullopt;
    return static_cast<std::int64_t>(number);
  }
  if (value.is_number_integer())
    return value.get<std::int64_t>();
  return std::nullopt;
}

} // namespace ZelDebugDialog::protocol

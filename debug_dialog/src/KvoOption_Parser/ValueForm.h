// What a value means: how it is converted, and which settings it changes.
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_VALUEFORM_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_VALUEFORM_H

#include <array>
#include <cstdint>
#include <string_view>

#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "facts/FieldRows.h"

namespace ZelDebugDialog::kvo {

struct NamedValues {
  const NamedValue *first = nullptr;
  std::size_t count = 0;

  constexpr const NamedValue *begin() const { return first; }
  constexpr const NamedValue *end() const { return first + count; }
};

struct ValueForm {
  ValueConversion conversion = ValueConversion::none;
  Fields changed; ///< what it may change
  NamedValues names;
};

constexpr ValueForm lowByte(const Fields &changed) {
  return {ValueConversion::lowByte, changed, {}};
}
constexpr ValueForm number(const Fields &changed) {
  return {ValueConversion::number, changed, {}};
}
constexpr ValueForm signedNumber(const Fields &changed) {
  return {ValueConversion::signedNumber, changed, {}};
}
constexpr ValueForm text(const Fields &changed) {
  return {ValueConversion::text, changed, {}};
}
constexpr ValueForm hostAndPort(const Fields &changed) {
  return {ValueConversion::hostAndPort, changed, {}};
}
template <std::size_t size>
constexpr ValueForm oneOf(const std::array<NamedValue, size> &names,
                          const Fields &changed) {
  return {ValueConversion::namedValue, changed, {names.data(), size}};
}

} // namespace ZelDebugDialog::kvo

#endif

// What a value means: how it is converted, and which settings it changes.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/EngineFacts.h"

namespace ZelDebugDialog::kvo {

struct NamedValues {
  const NamedValue *first = nullptr;
  std::size_t count = 0;

  constexpr const NamedValue *begin() const { return first; }
  constexpr const NamedValue *end() const { return first + count; }
};

struct ValueForm {
  ValueConversion conversion = ValueConversion::none;
  /// The fields, with blanks between them. "cable." and "chain." stand in front
  /// of those of the cable and of the chain's newest device.
  std::string_view fields;
  NamedValues names;
};

constexpr ValueForm lowByte(std::string_view field) {
  return {ValueConversion::lowByte, field, {}};
}
constexpr ValueForm number(std::string_view fields) {
  return {ValueConversion::number, fields, {}};
}
constexpr ValueForm signedNumber(std::string_view fields) {
  return {ValueConversion::signedNumber, fields, {}};
}
constexpr ValueForm text(std::string_view fields) {
  return {ValueConversion::text, fields, {}};
}
constexpr ValueForm hostAndPort(std::string_view fields) {
  return {ValueConversion::hostAndPort, fields, {}};
}
/// What changes fields by being there.
constexpr ValueForm flag(std::string_view fields) {
  return {ValueConversion::none, fields, {}};
}
template <std::size_t size>
constexpr ValueForm oneOf(const std::array<NamedValue, size> &names,
                          std::string_view fields) {
  return {ValueConversion::namedValue, fields, {names.data(), size}};
}

} // namespace ZelDebugDialog::kvo

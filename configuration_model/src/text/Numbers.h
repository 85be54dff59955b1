// Numbers as people write them.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_TEXT_NUMBERS_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_TEXT_NUMBERS_H

#include <cstdint>
#include <optional>
#include <string_view>

namespace ZelDebugDialog::model {

/// Decimal or 0x, the whole of `text`; nothing for anything else, and for what
/// needs more than 64 bits.
std::optional<std::uint64_t> readNumber(std::string_view text);

/// Hertz of "3000000", "0x2DC6C0", "3000kHz", "3 MHz" or "1.5 MHz": a number,
/// with Hz, kHz or MHz behind it or nothing. Only a decimal number may have a
/// decimal point, digits on both sides of it. Nothing for what is no whole
/// number of hertz, and for what needs more than 32 bits.
std::optional<std::uint32_t> readFrequency(std::string_view text);

} // namespace ZelDebugDialog::model

#endif

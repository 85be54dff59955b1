// The value of a setting: nothing, a flag, a number, a text, or a whole JTAG
// chain.
//
// A plain value that owns what it holds and knows nothing of any engine; usable
// from any thread. Texts are bytes: what they mean is the setting's affair.
//
//   Value port("USB21");
//   Value frequency(3000000);
//   if (port.IsText() && port.Text() == "USB21") ...
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_VALUE_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_VALUE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace ZelDebugDialog {

class Value;

/// One device of a chain: its fields by their names ("partname", "idcode", ...)
/// in the order of the table of settings. A field that a change leaves out has
/// the default of a new device.
using ChainDevice = std::vector<std::pair<std::string, Value>>;

/// The value of one setting.
class Value {
public:
  using Chain = std::vector<ChainDevice>; ///< Devices in the chain's order.

  /// Nothing: no such setting, or a reading that gave no value.
  Value() = default;
  // A change reads as a list of values: {{"cable.frequency", 3000000}}.
  // NOLINTBEGIN(google-explicit-constructor)
  /// A flag that is true or false; what only converts to one is none. Flags
  /// that the records keep as a number are numbers here as well.
  template <class Flag, std::enable_if_t<std::is_same_v<Flag, bool>, int> = 0>
  Value(Flag flag) : data(flag) {}
  /// A number of any width up to 63 bits.
  template <class Number,
            class = std::enable_if_t<std::is_integral_v<Number> &&
                                     !std::is_same_v<Number, bool>>>
  Value(Number number) : data(static_cast<std::int64_t>(number)) {}
  Value(std::string text) : data(std::move(text)) {}   ///< A text.
  Value(const char *text) : data(std::string(text)) {} ///< A text.
  Value(std::nullptr_t) = delete;                      ///< No text.
  Value(Chain chain) : data(std::move(chain)) {}       ///< A whole chain.

  // NOLINTEND(google-explicit-constructor)

  /// Whether it is none.
  bool IsNothing() const { return Holds<std::monostate>(); }
  /// Whether `Flag` has it.
  bool IsFlag() const { return Holds<bool>(); }
  /// Whether `Number` has it.
  bool IsNumber() const { return Holds<std::int64_t>(); }
  /// Whether `Text` has it.
  bool IsText() const { return Holds<std::string>(); }
  /// Whether `Devices` has it.
  bool IsChain() const { return Holds<Chain>(); }

  // Each needs a value of its kind: std::bad_variant_access otherwise.
  /// The flag.
  bool Flag() const { return std::get<bool>(data); }
  /// The number.
  std::int64_t Number() const { return std::get<std::int64_t>(data); }
  /// The text.
  const std::string &Text() const { return std::get<std::string>(data); }
  /// The devices.
  const Chain &Devices() const { return std::get<Chain>(data); }

  /// The same kind with the same value.
  bool operator==(const Value &other) const { return data == other.data; }
  /// Another kind or another value.
  bool operator!=(const Value &other) const { return data != other.data; }

private:
  template <class Kind> bool Holds() const {
    return std::holds_alternative<Kind>(data);
  }

  std::variant<std::monostate, bool, std::int64_t, std::string, Chain> data;
};

} // namespace ZelDebugDialog

#endif

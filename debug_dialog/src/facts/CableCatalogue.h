// The catalogue of JTAG cables, a row a cable, and the words it is known by in
// a connect command.
#ifndef ZELDEBUGDIALOG_FACTS_CABLECATALOGUE_H
#define ZELDEBUGDIALOG_FACTS_CABLECATALOGUE_H

#include <array>
#include <cstdint>
#include <string_view>

#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineFacts.h"

namespace ZelDebugDialog {

/// What a cable clause says about a cable beside its type.
enum class CableClauseForm : std::uint8_t {
  unwritable, ///< there is no clause for it
  line,       ///< port and frequency, or the serial number
  module,     ///< a module and its arguments
  bare,       ///< nothing
};

/// Frequencies in hertz.
struct Frequencies {
  const std::uint32_t *first = nullptr;
  std::size_t count = 0;

  constexpr const std::uint32_t *begin() const { return first; }
  constexpr const std::uint32_t *end() const { return first + count; }
};

struct Cable {
  Engine::CableType type;
  std::string_view keyword;      ///< read and written
  std::string_view otherKeyword; ///< read as well; may be empty
  CableClauseForm form;
  std::uint32_t defaultFrequency;
  std::string_view defaultPort;
  Frequencies offered;      ///< the frequencies to offer
  Frequencies accepted;     ///< the frequencies that a check lets pass
  std::string_view refusal; ///< format for any other; empty: nothing passes
};

/// The row of a cable; of `CABLE_NONE` and of what is no cable type, a row
/// without words and frequencies.
const Cable &findCable(Engine::CableType type);

/// All cables that a connect command has a word for.
struct Cables {
  const Cable *first;
  const Cable *last;

  const Cable *begin() const { return first; }
  const Cable *end() const { return last; }
};
Cables cables();

/// The words that are read as a cable type, a row a word.
extern const std::array<NamedValue, 7> cableKeywords;

} // namespace ZelDebugDialog

#endif

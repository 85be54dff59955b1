// Every cable that the engine knows, a row a cable: the tests' one table, made
// by hand. Tests that say something of all cables walk it; it takes nothing
// from the engine's own catalogue, which is tested against it.
#ifndef TESTS_SUPPORT_CABLES_H
#define TESTS_SUPPORT_CABLES_H

#include <cstdint>
#include <string>
#include <vector>

namespace support {

/// What a written clause says of a cable behind its type.
enum class CableForm {
  none,   ///< No clause is written.
  line,   ///< Port and frequency, or the serial number.
  module, ///< The module and its arguments.
  bare,   ///< Nothing.
};

/// Frequencies are in hertz.
struct Cable {
  std::uint32_t number;           ///< In `Engine::CableType`.
  std::vector<std::string> words; ///< Read as this cable.
  std::string written;            ///< The word that is written, if any.
  CableForm form;
  std::uint32_t frequency; ///< That the cable starts with.
  std::string port;        ///< The same; a cable may have none.
  std::vector<std::uint32_t> offered;
  std::vector<std::uint32_t> accepted;
  /// The message about any other frequency, before and behind the number;
  /// empty for cables that refuse all in silence.
  std::string refusalBefore;
  std::string refusalBehind;
};

/// In the order of their numbers.
const std::vector<Cable> &cables();

/// The row of a cable; for what is no cable, one in which nothing stands.
const Cable &cableOf(std::uint32_t number);

/// All numbers worth a try: no cable, each cable, and what no cable has.
std::vector<std::uint32_t> cableNumbers();
/// The same without one.
std::vector<std::uint32_t> cableNumbersBut(std::uint32_t number);
/// Numbers for which a clause is refused: of cables that are not written, and
/// of no cable.
std::vector<std::uint32_t> unwritableCableNumbers();

/// The words that are read as a cable, in the order of the table.
std::vector<std::string> cableWords();
/// The same in a message: "'a', 'b'".
std::string quotedCableWords();

/// Numbers with a blank between, "0" for none.
std::string inOneText(const std::vector<std::uint32_t> &frequencies);
bool isAccepted(const Cable &cable, std::uint32_t frequency);
/// The message about a frequency that isn't accepted.
std::string refusalOf(const Cable &cable, std::uint32_t frequency);
/// Every frequency that any cable takes, its neighbours, a tenth and the
/// tenfold of it, 20 MHz, which a message lists but nothing takes, and the ends
/// of the range.
std::vector<std::uint32_t> frequenciesToTry();

/// The clause of a cable, with `line` or `module` behind its type; "" for none.
std::string clauseOf(const Cable &cable, const std::string &line,
                     const std::string &module);

} // namespace support

#endif

#include "ZelDebugDialog/CableCatalogue.h"

#include <algorithm>
#include <array>

#include "facts/CableCatalogue.h"

namespace ZelDebugDialog {

namespace {

constexpr std::array<std::uint32_t, 4> parallel4{200000, 625000, 2500000,
                                                 5000000};
constexpr std::array<std::uint32_t, 6> podusb{750000,  1500000,  3000000,
                                              6000000, 12000000, 24000000};
constexpr std::array<std::uint32_t, 1> parallel3{200000};
constexpr std::array<std::uint32_t, 17> tcf{
    125000,   250000,   500000,   750000,   1000000, 1500000,
    2000000,  3000000,  4000000,  5000000,  6000000, 7500000,
    10000000, 12000000, 15000000, 24000000, 30000000};

template <std::size_t count>
constexpr Frequencies all(const std::array<std::uint32_t, count> &frequencies) {
  return {frequencies.data(), count};
}

/// For a cable that offers nothing, or that lets nothing pass.
constexpr Frequencies none;

constexpr Cable noCable{Engine::CABLE_NONE,
                        "",
                        "",
                        CableClauseForm::unwritable,
                        0,
                        "",
                        none,
                        none,
                        ""};

// The message about a refused TCF frequency names another set than the one that
// passes, and the white space in front of the lists differs from cable to
// cable: the debugger's users know them so.
constexpr std::array<Cable, 7> catalogue{{
    {Engine::QUORLA_SVFFILE, "quorla_svffile", "", CableClauseForm::unwritable,
     0, "", none, none, ""},
    {Engine::QUORLA_PARALLEL4, "quorla_parallel", "quorla_parallel4",
     CableClauseForm::line, 5000000, "LPT1", all(parallel4), all(parallel4),
     "UnSupported Quorla Parallel4 Cable Frequency - %d\n Supported "
     "Frequencies: 200000, 625000, 2500000, 5000000"},
    {Engine::QUORLA_PODUSB, "quorla_podusb", "", CableClauseForm::line, 6000000,
     "USB21", all(podusb), all(podusb),
     "UnSupported Quorla PodUSB Cable Frequency - %d\nSupported Frequencies: "
     "750000, 1500000, 3000000, 6000000, 12000000, 24000000"},
    {Engine::QUORLA_PARALLEL3, "quorla_parallel3", "", CableClauseForm::line,
     200000, "LPT1", all(parallel3), all(parallel3),
     "UnSupported Quorla Parallel3 Cable Frequency - %d\n\t Supported "
     "Frequencies: 200000"},
    {Engine::QUORLA_PLUGIN, "quorla_plugin", "", CableClauseForm::module, 0, "",
     none, none, ""},
    {Engine::DIGILENT_PLUGIN, "digilent_plugin", "", CableClauseForm::bare, 0,
     "", none, none, ""},
    {Engine::QUORLA_TCF, "quorla_tcf", "", CableClauseForm::unwritable, 0, "",
     none, all(tcf),
     "UnSupported Quorla TCF Cable Frequency - %d\nSupported Frequencies: "
     "750000, 1500000, 3000000, 6000000, 10000000, 12000000, 15000000, "
     "20000000, 24000000, 30000000"},
}};

template <std::size_t size> constexpr auto collectKeywords() {
  std::array<NamedValue, size> words{};
  std::size_t count = 0;
  for (const Cable &cable : catalogue) {
    if (cable.type == Engine::QUORLA_SVFFILE)
      continue; // known, and refused
    words[count++] = {cable.keyword, cable.type};
    if (!cable.otherKeyword.empty())
      words[count++] = {cable.otherKeyword, cable.type};
  }
  return words;
}

} // namespace

constexpr std::array<NamedValue, 7> cableKeywords = collectKeywords<7>();

const Cable &findCable(Engine::CableType type) {
  const auto *const row =
      std::find_if(catalogue.begin(), catalogue.end(),
                   [type](const Cable &cable) { return cable.type == type; });
  return row == catalogue.end() ? noCable : *row;
}

Cables cables() {
  return {catalogue.data(), catalogue.data() + catalogue.size()};
}

std::string getcable_supported_frequency(Engine::CableType type) {
  std::string text;
  for (const std::uint32_t frequency : findCable(type).offered)
    text += (text.empty() ? "" : " ") + std::to_string(frequency);
  return text.empty() ? "0" : text;
}

std::vector<std::uint32_t> GetOfferedFrequencies(Engine::CableType type) {
  const Frequencies &offered = findCable(type).offered;
  return {offered.begin(), offered.end()};
}

std::vector<std::uint32_t> GetAcceptedFrequencies(Engine::CableType type) {
  const Frequencies &accepted = findCable(type).accepted;
  return {accepted.begin(), accepted.end()};
}

std::uint32_t setcable_default_frequency(Engine::CableType type) {
  return findCable(type).defaultFrequency;
}

std::string setcable_default_port(Engine::CableType type) {
  return std::string(findCable(type).defaultPort);
}

} // namespace ZelDebugDialog

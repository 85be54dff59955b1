#include "support/Cables.h"

#include <algorithm>
#include <set>

#include "ZelDebugDialog/Engine.h"

namespace support {
namespace {

using ZelDebugDialog::Engine;

// What callers are compiled with.
static_assert(Engine::CABLE_NONE == 0);
static_assert(Engine::QUORLA_SVFFILE == 1);
static_assert(Engine::QUORLA_PARALLEL4 == 2);
static_assert(Engine::QUORLA_PODUSB == 3);
static_assert(Engine::QUORLA_PARALLEL3 == 4);
static_assert(Engine::QUORLA_PLUGIN == 5);
static_assert(Engine::DIGILENT_PLUGIN == 6);
static_assert(Engine::QUORLA_TCF == 7);

// clang-format off
std::vector<Cable> makeTable() {
  return {
    {1, {}, "", CableForm::none, 0, "", {}, {}, "", ""},
    {2, {"quorla_parallel", "quorla_parallel4"}, "quorla_parallel",
     CableForm::line, 5000000, "LPT1",
     {200000, 625000, 2500000, 5000000},
     {200000, 625000, 2500000, 5000000},
     "UnSupported Quorla Parallel4 Cable Frequency - ",
     "\n Supported Frequencies: 200000, 625000, 2500000, 5000000"},
    {3, {"quorla_podusb"}, "quorla_podusb",
     CableForm::line, 6000000, "USB21",
     {750000, 1500000, 3000000, 6000000, 12000000, 24000000},
     {750000, 1500000, 3000000, 6000000, 12000000, 24000000},
     "UnSupported Quorla PodUSB Cable Frequency - ",
     "\nSupported Frequencies: 750000, 1500000, 3000000, 6000000, 12000000, "
     "24000000"},
    {4, {"quorla_parallel3"}, "quorla_parallel3",
     CableForm::line, 200000, "LPT1",
     {200000},
     {200000},
     "UnSupported Quorla Parallel3 Cable Frequency - ",
     "\n\t Supported Frequencies: 200000"},
    {5, {"quorla_plugin"}, "quorla_plugin",
     CableForm::module, 0, "", {}, {}, "", ""},
    {6, {"digilent_plugin"}, "digilent_plugin",
     CableForm::bare, 0, "", {}, {}, "", ""},
    {7, {"quorla_tcf"}, "",
     CableForm::none, 0, "",
     {},
     {125000, 250000, 500000, 750000, 1000000, 1500000, 2000000, 3000000,
      4000000, 5000000, 6000000, 7500000, 10000000, 12000000, 15000000,
      24000000, 30000000},
     "UnSupported Quorla TCF Cable Frequency - ",
     "\nSupported Frequencies: 750000, 1500000, 3000000, 6000000, 10000000, "
     "12000000, 15000000, 20000000, 24000000, 30000000"},
  };
}
// clang-format on

const Cable nothing{0, {}, "", CableForm::none, 0, "", {}, {}, "", ""};

/// The number behind the last, and some whose low bits are those of a cable.
std::vector<std::uint32_t> numbersOfNoCable() {
  return {cables().back().number + 1, 0x102, 0x103, 0x105, 0xFFFFFFFF};
}

} // namespace

const std::vector<Cable> &cables() {
  static const std::vector<Cable> table = makeTable();
  return table;
}

const Cable &cableOf(std::uint32_t number) {
  const auto row = std::find_if(
      cables().begin(), cables().end(),
      [number](const Cable &cable) { return cable.number == number; });
  return row == cables().end() ? nothing : *row;
}

std::vector<std::uint32_t> cableNumbers() {
  std::vector<std::uint32_t> numbers{0};
  for (const Cable &cable : cables())
    numbers.push_back(cable.number);
  for (const std::uint32_t number : numbersOfNoCable())
    numbers.push_back(number);
  return numbers;
}

std::vector<std::uint32_t> cableNumbersBut(std::uint32_t number) {
  std::vector<std::uint32_t> numbers = cableNumbers();
  numbers.erase(std::remove(numbers.begin(), numbers.end(), number),
                numbers.end());
  return numbers;
}

std::vector<std::uint32_t> unwritableCableNumbers() {
  std::vector<std::uint32_t> numbers;
  for (const Cable &cable : cables())
    if (cable.form == CableForm::none)
      numbers.push_back(cable.number);
  for (const std::uint32_t number : numbersOfNoCable())
    numbers.push_back(number);
  return numbers;
}

std::vector<std::string> cableWords() {
  std::vector<std::string> words;
  for (const Cable &cable : cables())
    words.insert(words.end(), cable.words.begin(), cable.words.end());
  return words;
}

std::string quotedCableWords() {
  std::string text;
  for (const std::string &word : cableWords())
    text += (text.empty() ? "'" : ", '") + word + "'";
  return text;
}

std::string inOneText(const std::vector<std::uint32_t> &frequencies) {
  std::string text;
  for (const std::uint32_t frequency : frequencies)
    text += (text.empty() ? "" : " ") + std::to_string(frequency);
  return text.empty() ? "0" : text;
}

bool isAccepted(const Cable &cable, std::uint32_t frequency) {
  return std::count(cable.accepted.begin(), cable.accepted.end(), frequency) !=
         0;
}

std::string refusalOf(const Cable &cable, std::uint32_t frequency) {
  return cable.refusalBefore +
         std::to_string(static_cast<std::int32_t>(frequency)) +
         cable.refusalBehind;
}

std::vector<std::uint32_t> frequenciesToTry() {
  std::set<std::uint32_t> tried = {0,          1,          20000000,
                                   0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
  for (const Cable &cable : cables())
    for (const std::uint32_t frequency : cable.accepted)
      tried.insert({frequency - 1, frequency, frequency + 1, frequency / 10,
                    frequency * 10});
  return {tried.begin(), tried.end()};
}

std::string clauseOf(const Cable &cable, const std::string &line,
                     const std::string &module) {
  if (cable.form == CableForm::none)
    return "";
  const std::string type = " -cable type " + cable.written;
  if (cable.form == CableForm::line)
    return type + line;
  return cable.form == CableForm::module ? type + module : type;
}

} // namespace support

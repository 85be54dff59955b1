#include "Writers.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <sstream>

#include <boost/format.hpp>

namespace bench {

namespace {

constexpr const char *start = "connect lc hdu -cable type quorla_podusb port ";

template <class Number>
void append(std::string &out, Number number, int base = 10) {
  std::array<char, 24> digits;
  const auto written =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, base);
  out.append(digits.data(),
             static_cast<std::size_t>(written.ptr - digits.data()));
}

template <class... Arguments>
void print(std::string &out, const char *format, Arguments... arguments) {
  std::array<char, 1024> piece;
  const int size =
      std::snprintf(piece.data(), piece.size(), format, arguments...);
  out.append(piece.data(), static_cast<std::size_t>(size));
}

} // namespace

std::string writeByToChars(const Command &command) {
  std::string out = start;
  out += command.port;
  out += " frequency ";
  append(out, command.frequency);
  for (const Device &device : command.chain) {
    out += " -configdevice devicenr ";
    append(out, device.number);
    out += " partname ";
    out += device.partName;
    out += " irlength ";
    append(out, device.irLength);
    out += " idcode 0x";
    append(out, device.idCode, 16);
  }
  out += " -debugdevice deviceNr ";
  append(out, command.debugDevice);
  out += " cpunr ";
  append(out, command.cpuNumber);
  out += " romemStartAdr 0x";
  append(out, command.romStart, 16);
  out += " romemSize ";
  append(out, command.romSize);
  return out;
}

std::string writeBySnprintf(const Command &command) {
  std::string out = start;
  print(out, "%s frequency %u", command.port.c_str(), command.frequency);
  for (const Device &device : command.chain)
    print(out, " -configdevice devicenr %d partname %s irlength %d idcode 0x%x",
          device.number, device.partName.c_str(), device.irLength,
          device.idCode);
  print(out,
        " -debugdevice deviceNr %d cpunr %d romemStartAdr 0x%x romemSize %u",
        command.debugDevice, command.cpuNumber, command.romStart,
        command.romSize);
  return out;
}

std::string writeByStream(const Command &command) {
  std::ostringstream out;
  out << start << command.port << " frequency " << command.frequency;
  for (const Device &device : command.chain)
    out << " -configdevice devicenr " << device.number << " partname "
        << device.partName << " irlength " << device.irLength << " idcode 0x"
        << std::hex << device.idCode << std::dec;
  out << " -debugdevice deviceNr " << command.debugDevice << " cpunr "
      << command.cpuNumber << " romemStartAdr 0x" << std::hex
      << command.romStart << std::dec << " romemSize " << command.romSize;
  return out.str();
}

std::string writeByFormat(const Command &command) {
  std::string out = start;
  out += (boost::format("%s frequency %u") % command.port % command.frequency)
             .str();
  for (const Device &device : command.chain)
    out += (boost::format(" -configdevice devicenr %d partname %s irlength %d "
                          "idcode 0x%x") %
            device.number % device.partName % device.irLength % device.idCode)
               .str();
  out += (boost::format(" -debugdevice deviceNr %d cpunr %d romemStartAdr 0x%x "
                        "romemSize %u") %
          command.debugDevice % command.cpuNumber % command.romStart %
          command.romSize)
             .str();
  return out;
}

} // namespace bench

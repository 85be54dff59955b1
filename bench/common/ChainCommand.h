// The connect command that everything here is measured with, for a chain of any
// number of devices.
#ifndef ZELDEBUGDIALOG_BENCH_COMMON_CHAINCOMMAND_H
#define ZELDEBUGDIALOG_BENCH_COMMON_CHAINCOMMAND_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

namespace bench {

/// With `Text` for its string.
template <class Text> struct DeviceOf {
  int number = 0;
  Text partName;
  int irLength = 0;
  std::uint32_t idCode = 0;

  bool operator==(const DeviceOf &other) const {
    return std::tie(number, partName, irLength, idCode) ==
           std::tie(other.number, other.partName, other.irLength, other.idCode);
  }
};

using Device = DeviceOf<std::string>;

struct CommandWords {
  enum class Connection { none, hdu, stub, sim };
  enum class CableType { none, parallel, parallel3, podusb, plugin };
};

/// What the command says, with `Text` for its strings and `Held` for a device.
template <class Text, class Held> struct CommandOf : CommandWords {
  Connection connection = Connection::none;
  CableType cableType = CableType::none;
  Text port;
  std::uint32_t frequency = 0;
  std::vector<Held> chain;
  int debugDevice = 0;
  int cpuNumber = 0;
  std::uint32_t romStart = 0xFFFFFFFF;
  std::uint32_t romSize = 0;

  bool operator==(const CommandOf &other) const {
    return std::tie(connection, cableType, port, frequency, chain, debugDevice,
                    cpuNumber, romStart, romSize) ==
           std::tie(other.connection, other.cableType, other.port,
                    other.frequency, other.chain, other.debugDevice,
                    other.cpuNumber, other.romStart, other.romSize);
  }
};

/// As a peer stores it.
using Command = CommandOf<std::string, Device>;

/// Device `index` of the chain. Numbers stay in what the record's field holds.
inline Device chainDevice(std::size_t index) {
  const int number = static_cast<int>(index % 100) + 1;
  if (index % 2 == 0)
    return {number, "pk9ab100", 6, 0x1234093};
  return {number, "pk9cd200", 10, 0x5678093};
}

/// What `chainCommand` says.
inline Command chainSettings(std::size_t devices) {
  Command command;
  command.connection = Command::Connection::hdu;
  command.cableType = Command::CableType::podusb;
  command.port = "USB21";
  command.frequency = 6000000;
  for (std::size_t index = 0; index < devices; ++index)
    command.chain.push_back(chainDevice(index));
  command.debugDevice = 1;
  command.cpuNumber = 1;
  command.romStart = 0;
  command.romSize = 65536;
  return command;
}

/// "connect lc hdu", a cable, a chain of `devices`, and a debug device. With 2
/// devices it has 278 characters, with more some 72 more for each.
inline std::string chainCommand(std::size_t devices) {
  std::string text = "connect lc hdu -cable type quorla_podusb port USB21 "
                     "frequency 6000000";
  for (std::size_t index = 0; index < devices; ++index) {
    const Device device = chainDevice(index);
    text += " -configdevice devicenr " + std::to_string(device.number);
    text += " partname " + device.partName;
    text += " irlength " + std::to_string(device.irLength);
    text += device.idCode == 0x1234093 ? " idcode 0x1234093" //
                                       : " idcode 0x5678093";
  }
  text += " -debugdevice deviceNr 1 cpunr 1 romemStartAdr 0x0 romemSize 65536";
  return text;
}

} // namespace bench

#endif

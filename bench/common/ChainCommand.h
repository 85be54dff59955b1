// The connect command that everything here is measured with, for a chain of any
// number of devices.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace bench {

struct Device {
  int number;
  std::string partName;
  int irLength;
  std::uint32_t idCode;
};

inline bool operator==(const Device &left, const Device &right) {
  return left.number == right.number && left.partName == right.partName &&
         left.irLength == right.irLength && left.idCode == right.idCode;
}

/// Device `index` of the chain. Numbers stay in what the record's field holds.
inline Device chainDevice(std::size_t index) {
  const int number = static_cast<int>(index % 100) + 1;
  if (index % 2 == 0)
    return {number, "pk9ab100", 6, 0x1234093};
  return {number, "pk9cd200", 10, 0x5678093};
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

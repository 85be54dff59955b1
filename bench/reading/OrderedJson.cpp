#include "OrderedJson.h"

#include <cstdint>
#include <limits>

#include <simdjson.h>

#include "Peers.h"
#include "common/Words.h"

namespace bench {

namespace {

namespace ondemand = simdjson::ondemand;

static_assert(Input::jsonPadding >= simdjson::SIMDJSON_PADDING);

template <class Object, class Number>
bool takeNumber(Object &object, std::string_view key, Number &number) {
  std::uint64_t value = 0;
  if (object.find_field(key).get(value) != simdjson::SUCCESS ||
      value > std::uint64_t{std::numeric_limits<Number>::max()})
    return false;
  number = static_cast<Number>(value);
  return true;
}

template <class Object, class Text>
bool takeText(Object &object, std::string_view key, Text &text) {
  std::string_view value;
  if (object.find_field(key).get(value) != simdjson::SUCCESS)
    return false;
  text = value;
  return true;
}

/// A value that is exactly one of `keywords`.
template <class Object, class Keywords, class Value>
bool takeNamed(Object &object, std::string_view key, const Keywords &keywords,
               Value &value) {
  std::string_view name;
  if (!takeText(object, key, name))
    return false;
  for (const auto &keyword : keywords)
    if (keyword.word == name) {
      value = keyword.value;
      return true;
    }
  return false;
}

auto &addDevice(ViewedCommand &command) { return command.chain.emplace_back(); }
Device &addDevice(KeptCommand &command) {
  return *command.chain.emplace_back(std::make_unique<Device>());
}

template <class Filled>
bool takeDevices(ondemand::object &root, Filled &command) {
  ondemand::array devices;
  if (root.find_field("configdevice").get(devices) != simdjson::SUCCESS)
    return false;
  for (auto element : devices) {
    ondemand::object object;
    if (element.get(object) != simdjson::SUCCESS)
      return false;
    auto &device = addDevice(command);
    if (!takeNumber(object, "devicenr", device.number) ||
        !takeText(object, "partname", device.partName) ||
        !takeNumber(object, "irlength", device.irLength) ||
        !takeNumber(object, "idcode", device.idCode))
      return false;
  }
  return true;
}

template <class Filled>
bool readInOrder(const std::string &text, Filled &command) {
  static ondemand::parser parser; // meant to be kept
  const simdjson::padded_string_view json(text.data(), text.size(),
                                          text.capacity());
  ondemand::document document;
  ondemand::object root;
  ondemand::object cable;
  ondemand::object debugDevice;
  std::string_view target;
  return parser.iterate(json).get(document) == simdjson::SUCCESS &&
         document.get_object().get(root) == simdjson::SUCCESS &&
         takeText(root, "target", target) && target == "lc" &&
         takeNamed(root, "connection", connections, command.connection) &&
         root.find_field("cable").get(cable) == simdjson::SUCCESS &&
         takeNamed(cable, "type", cableTypes, command.cableType) &&
         takeText(cable, "port", command.port) &&
         takeNumber(cable, "frequency", command.frequency) &&
         takeDevices(root, command) &&
         root.find_field("debugdevice").get(debugDevice) == simdjson::SUCCESS &&
         takeNumber(debugDevice, "deviceNr", command.debugDevice) &&
         takeNumber(debugDevice, "cpunr", command.cpuNumber) &&
         takeNumber(debugDevice, "romemStartAdr", command.romStart) &&
         takeNumber(debugDevice, "romemSize", command.romSize);
}

/// All but the chain.
template <class Read> Command withoutChain(const Read &read) {
  Command command;
  command.connection = read.connection;
  command.cableType = read.cableType;
  command.port = read.port;
  command.frequency = read.frequency;
  command.debugDevice = read.debugDevice;
  command.cpuNumber = read.cpuNumber;
  command.romStart = read.romStart;
  command.romSize = read.romSize;
  return command;
}

} // namespace

bool readBySimdjsonInOrder(const Input &input, ViewedCommand &command) {
  return readInOrder(input.json, command);
}

bool readBySimdjsonKept(const Input &input, KeptCommand &command) {
  command.text.reserve(input.json.size() + Input::jsonPadding);
  command.text = input.json;
  return readInOrder(command.text, command);
}

Command toCommand(const ViewedCommand &read) {
  Command command = withoutChain(read);
  for (const auto &device : read.chain)
    command.chain.push_back({device.number, std::string(device.partName),
                             device.irLength, device.idCode});
  return command;
}

Command toCommand(const KeptCommand &read) {
  Command command = withoutChain(read);
  for (const std::unique_ptr<Device> &device : read.chain)
    command.chain.push_back(*device);
  return command;
}

} // namespace bench

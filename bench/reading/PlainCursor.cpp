// The plainest way: a cursor that gives words as views, and a switch over the
// first letter of each.
#include <string_view>

#include "Peers.h"
#include "common/Words.h"

namespace bench {

namespace {

char lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32)
                                        : letter;
}

/// `keyword` is in small letters.
bool isWord(std::string_view word, std::string_view keyword) {
  if (word.size() != keyword.size())
    return false;
  for (std::size_t index = 0; index < word.size(); ++index)
    if (lower(word[index]) != keyword[index])
      return false;
  return true;
}

template <class Value> bool assign(bool isKnown, Value value, Value &assigned) {
  if (isKnown)
    assigned = value;
  return isKnown;
}

/// Reads the whole command; each function says whether it could.
class PlainCursor {
public:
  PlainCursor(std::string_view text, Command &filled)
      : at(text.data()), end(text.data() + text.size()), command(filled) {}

  bool read() {
    if (!isWord(take(), "connect") || !isWord(take(), "lc") ||
        !readConnection(take()))
      return false;
    word = take();
    while (!word.empty())
      if (!readClause())
        return false;
    return true;
  }

private:
  /// The next word, empty at the end.
  std::string_view take() {
    while (at != end && isBlank(*at))
      ++at;
    const char *const first = at;
    while (at != end && !isBlank(*at))
      ++at;
    return {first, static_cast<std::size_t>(at - first)};
  }
  static bool isBlank(char character) {
    return character == ' ' || character == '\t';
  }

  bool readConnection(std::string_view name) {
    using Connection = Command::Connection;
    Connection &connection = command.connection;
    return assign(isWord(name, "hdu"), Connection::hdu, connection) ||
           assign(isWord(name, "stub"), Connection::stub, connection) ||
           assign(isWord(name, "sim"), Connection::sim, connection);
  }

  bool readClause() {
    if (word.size() < 2)
      return false;
    switch (lower(word[1])) {
    case 'c':
      if (isWord(word, "-cable"))
        return readPairs(&PlainCursor::readCable);
      command.chain.emplace_back();
      return isWord(word, "-configdevice") &&
             readPairs(&PlainCursor::readDevice);
    case 'd':
      return isWord(word, "-debugdevice") &&
             readPairs(&PlainCursor::readDebugDevice);
    default:
      return false;
    }
  }

  /// Names with their values, up to the next option word.
  bool readPairs(bool (PlainCursor::*readPair)(std::string_view,
                                               std::string_view)) {
    for (word = take(); !word.empty() && word.front() != '-'; word = take()) {
      const std::string_view value = take();
      if (value.empty() || !(this->*readPair)(word, value))
        return false;
    }
    return true;
  }

  bool readCable(std::string_view name, std::string_view value) {
    switch (lower(name.front())) {
    case 't':
      return isWord(name, "type") && readCableType(value);
    case 'p':
      return isWord(name, "port") && toText(value, command.port);
    case 'f':
      return isWord(name, "frequency") && toNumber(value, command.frequency);
    default:
      return false;
    }
  }

  bool readCableType(std::string_view name) {
    using Type = Command::CableType;
    Type &type = command.cableType;
    return assign(isWord(name, "quorla_podusb"), Type::podusb, type) ||
           assign(isWord(name, "quorla_parallel"), Type::parallel, type) ||
           assign(isWord(name, "quorla_parallel4"), Type::parallel, type) ||
           assign(isWord(name, "quorla_parallel3"), Type::parallel3, type) ||
           assign(isWord(name, "quorla_plugin"), Type::plugin, type);
  }

  bool readDevice(std::string_view name, std::string_view value) {
    Device &device = command.chain.back();
    switch (lower(name.front())) {
    case 'd':
      return isWord(name, "devicenr") && toNumber(value, device.number);
    case 'p':
      return isWord(name, "partname") && toText(value, device.partName);
    case 'i':
      if (isWord(name, "idcode"))
        return toNumber(value, device.idCode);
      return isWord(name, "irlength") && toNumber(value, device.irLength);
    default:
      return false;
    }
  }

  bool readDebugDevice(std::string_view name, std::string_view value) {
    switch (lower(name.front())) {
    case 'd':
      return isWord(name, "devicenr") && toNumber(value, command.debugDevice);
    case 'c':
      return isWord(name, "cpunr") && toNumber(value, command.cpuNumber);
    case 'r':
      if (isWord(name, "romemsize"))
        return toNumber(value, command.romSize);
      return isWord(name, "romemstartadr") && toNumber(value, command.romStart);
    default:
      return false;
    }
  }

  const char *at;
  const char *const end;
  Command &command;
  std::string_view word; ///< taken last, a name or an option word
};

} // namespace

bool readByPlainCursor(const Input &input, Command &command) {
  return PlainCursor(input.text, command).read();
}

} // namespace bench

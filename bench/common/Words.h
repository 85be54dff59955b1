// What every peer that only splits a text needs beside it: keywords without
// regard to letter case, numbers, and the walk over the words.
#ifndef ZELDEBUGDIALOG_BENCH_COMMON_WORDS_H
#define ZELDEBUGDIALOG_BENCH_COMMON_WORDS_H

#include <strings.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

#include "ChainCommand.h"

namespace bench {

inline bool sameWord(std::string_view left, std::string_view right) {
  return left.size() == right.size() &&
         strncasecmp(left.data(), right.data(), left.size()) == 0;
}

/// A whole word, decimal or with "0x".
template <class Number> bool toNumber(std::string_view word, Number &number) {
  int base = 10;
  if (word.size() > 2 && word[0] == '0' && (word[1] == 'x' || word[1] == 'X')) {
    word.remove_prefix(2);
    base = 16;
  }
  const char *const last = word.data() + word.size();
  const auto read = std::from_chars(word.data(), last, number, base);
  return read.ec == std::errc() && read.ptr == last;
}

inline bool toText(std::string_view word, std::string &text) {
  text = word;
  return true;
}

template <class Value> struct Keyword {
  std::string_view word;
  Value value;
};

template <class Value, std::size_t size>
bool toNamed(const std::array<Keyword<Value>, size> &keywords,
             std::string_view word, Value &value) {
  for (const auto &keyword : keywords)
    if (sameWord(keyword.word, word)) {
      value = keyword.value;
      return true;
    }
  return false;
}

constexpr std::array<Keyword<Command::CableType>, 5> cableTypes{{
    {"quorla_parallel", Command::CableType::parallel},
    {"quorla_parallel4", Command::CableType::parallel},
    {"quorla_parallel3", Command::CableType::parallel3},
    {"quorla_podusb", Command::CableType::podusb},
    {"quorla_plugin", Command::CableType::plugin},
}};

constexpr std::array<Keyword<Command::Connection>, 3> connections{{
    {"sim", Command::Connection::sim},
    {"stub", Command::Connection::stub},
    {"hdu", Command::Connection::hdu},
}};

enum class Clause { cable, configDevice, debugDevice };

constexpr std::array<Keyword<Clause>, 3> clauses{{
    {"-debugdevice", Clause::debugDevice},
    {"-cable", Clause::cable},
    {"-configdevice", Clause::configDevice},
}};

enum class Parameter {
  type,
  port,
  frequency,
  deviceNumber,
  partName,
  irLength,
  idCode,
  cpuNumber,
  romStart,
  romSize
};

constexpr std::array<Keyword<Parameter>, 3> cableParameters{{
    {"type", Parameter::type},
    {"port", Parameter::port},
    {"frequency", Parameter::frequency},
}};
constexpr std::array<Keyword<Parameter>, 4> deviceParameters{{
    {"devicenr", Parameter::deviceNumber},
    {"idcode", Parameter::idCode},
    {"irlength", Parameter::irLength},
    {"partname", Parameter::partName},
}};
constexpr std::array<Keyword<Parameter>, 4> debugParameters{{
    {"devicenr", Parameter::deviceNumber},
    {"cpunr", Parameter::cpuNumber},
    {"romemStartAdr", Parameter::romStart},
    {"romemSize", Parameter::romSize},
}};

/// Which parameter of a clause a name is.
inline bool toParameter(Clause clause, std::string_view name,
                        Parameter &parameter) {
  switch (clause) {
  case Clause::cable:
    return toNamed(cableParameters, name, parameter);
  case Clause::configDevice:
    return toNamed(deviceParameters, name, parameter);
  case Clause::debugDevice:
    return toNamed(debugParameters, name, parameter);
  }
  return false;
}

/// Stores the value of a parameter, given as a word.
inline bool store(Clause clause, Parameter parameter, std::string_view value,
                  Command &command) {
  switch (parameter) {
  case Parameter::type:
    return toNamed(cableTypes, value, command.cableType);
  case Parameter::port:
    return toText(value, command.port);
  case Parameter::frequency:
    return toNumber(value, command.frequency);
  case Parameter::deviceNumber:
    return toNumber(value, clause == Clause::debugDevice
                               ? command.debugDevice
                               : command.chain.back().number);
  case Parameter::partName:
    return toText(value, command.chain.back().partName);
  case Parameter::irLength:
    return toNumber(value, command.chain.back().irLength);
  case Parameter::idCode:
    return toNumber(value, command.chain.back().idCode);
  case Parameter::cpuNumber:
    return toNumber(value, command.cpuNumber);
  case Parameter::romStart:
    return toNumber(value, command.romStart);
  case Parameter::romSize:
    return toNumber(value, command.romSize);
  }
  return false;
}

/// Fills a command from words that are given one at a time.
class WordReader {
public:
  explicit WordReader(Command &filled) : command(filled) {}

  /// Whether the word may stand where it does.
  bool take(std::string_view word) {
    switch (next) {
    case Next::head:
      next = Next::target;
      return sameWord(word, "connect");
    case Next::target:
      next = Next::connection;
      return sameWord(word, "lc");
    case Next::connection:
      next = Next::option;
      return toNamed(connections, word, command.connection);
    case Next::option:
      return takeOption(word);
    case Next::name:
      if (word.front() == '-')
        return takeOption(word);
      next = Next::value;
      return toParameter(clause, word, parameter);
    case Next::value:
      next = Next::name;
      return store(clause, parameter, word, command);
    }
    return false;
  }

  bool isComplete() const { return next == Next::name; }

private:
  enum class Next { head, target, connection, option, name, value };

  bool takeOption(std::string_view word) {
    next = Next::name;
    if (!toNamed(clauses, word, clause))
      return false;
    if (clause == Clause::configDevice)
      command.chain.emplace_back();
    return true;
  }

  Command &command;
  Next next = Next::head;
  Clause clause = Clause::cable;
  Parameter parameter = Parameter::type;
};

} // namespace bench

#endif

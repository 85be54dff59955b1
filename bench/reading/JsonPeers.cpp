#include <cstdint>
#include <string>
#include <string_view>

#define RAPIDJSON_HAS_STDSTRING 1
#include <nlohmann/json.hpp>
#include <rapidjson/document.h>
#include <simdjson.h>

#include "Peers.h"
#include "common/Words.h"

namespace bench {

namespace {

enum class Member { target, connection, cable, chain, debugDevice };

constexpr std::array<Keyword<Member>, 5> members{{
    {"target", Member::target},
    {"connection", Member::connection},
    {"cable", Member::cable},
    {"configdevice", Member::chain},
    {"debugdevice", Member::debugDevice},
}};

/// Stores a value that is a number already.
bool store(Clause clause, Parameter parameter, std::uint64_t value,
           Command &command) {
  switch (parameter) {
  case Parameter::frequency:
    command.frequency = static_cast<std::uint32_t>(value);
    return true;
  case Parameter::deviceNumber:
    (clause == Clause::debugDevice ? command.debugDevice
                                   : command.chain.back().number) =
        static_cast<int>(value);
    return true;
  case Parameter::irLength:
    command.chain.back().irLength = static_cast<int>(value);
    return true;
  case Parameter::idCode:
    command.chain.back().idCode = static_cast<std::uint32_t>(value);
    return true;
  case Parameter::cpuNumber:
    command.cpuNumber = static_cast<int>(value);
    return true;
  case Parameter::romStart:
    command.romStart = static_cast<std::uint32_t>(value);
    return true;
  case Parameter::romSize:
    command.romSize = static_cast<std::uint32_t>(value);
    return true;
  default:
    return false;
  }
}

// Each library says in its own words how a document is walked; `Document` is
// that. An object calls its visitor with each name and value.
template <class Document, class Object>
bool readParameters(Object &&object, Clause clause, Command &command) {
  return Document::eachMember(object, [&](std::string_view name, auto &&value) {
    Parameter parameter = Parameter::type;
    if (!toParameter(clause, name, parameter))
      return false;
    std::string_view text;
    if (Document::toText(value, text))
      return bench::store(clause, parameter, text, command);
    std::uint64_t number = 0;
    return Document::toNumber(value, number) &&
           store(clause, parameter, number, command);
  });
}

template <class Document, class Value>
bool readMember(Member member, Value &&value, Command &command) {
  std::string_view text;
  switch (member) {
  case Member::target:
    return Document::toText(value, text) && sameWord(text, "lc");
  case Member::connection:
    return Document::toText(value, text) &&
           toNamed(connections, text, command.connection);
  case Member::cable:
    return readParameters<Document>(value, Clause::cable, command);
  case Member::debugDevice:
    return readParameters<Document>(value, Clause::debugDevice, command);
  case Member::chain:
    return Document::eachElement(value, [&command](auto &&element) {
      command.chain.emplace_back();
      return readParameters<Document>(element, Clause::configDevice, command);
    });
  }
  return false;
}

template <class Document, class Root>
bool readRoot(Root &&root, Command &command) {
  return Document::eachMember(root, [&](std::string_view name, auto &&value) {
    Member member = Member::target;
    return toNamed(members, name, member) &&
           readMember<Document>(member, value, command);
  });
}

struct Simdjson {
  template <class Object, class Visit>
  static bool eachMember(Object &&value, const Visit &visit) {
    simdjson::ondemand::object object;
    if (value.get_object().get(object) != simdjson::SUCCESS)
      return false;
    for (auto field : object) {
      std::string_view name;
      if (field.unescaped_key().get(name) != simdjson::SUCCESS ||
          !visit(name, field.value().value_unsafe()))
        return false;
    }
    return true;
  }
  template <class Array, class Visit>
  static bool eachElement(Array &&value, const Visit &visit) {
    simdjson::ondemand::array array;
    if (value.get_array().get(array) != simdjson::SUCCESS)
      return false;
    for (auto element : array)
      if (!visit(element.value_unsafe()))
        return false;
    return true;
  }
  template <class Value>
  static bool toText(Value &value, std::string_view &text) {
    simdjson::ondemand::json_type type{};
    return value.type().get(type) == simdjson::SUCCESS &&
           type == simdjson::ondemand::json_type::string &&
           value.get_string().get(text) == simdjson::SUCCESS;
  }
  template <class Value>
  static bool toNumber(Value &value, std::uint64_t &number) {
    return value.get_uint64().get(number) == simdjson::SUCCESS;
  }
};

struct RapidJson {
  template <class Object, class Visit>
  static bool eachMember(Object &&object, const Visit &visit) {
    if (!object.IsObject())
      return false;
    for (auto &member : object.GetObject())
      if (!visit(std::string_view(member.name.GetString(),
                                  member.name.GetStringLength()),
                 member.value))
        return false;
    return true;
  }
  template <class Array, class Visit>
  static bool eachElement(Array &&array, const Visit &visit) {
    if (!array.IsArray())
      return false;
    for (auto &element : array.GetArray())
      if (!visit(element))
        return false;
    return true;
  }
  template <class Value>
  static bool toText(Value &value, std::string_view &text) {
    if (!value.IsString())
      return false;
    text = {value.GetString(), value.GetStringLength()};
    return true;
  }
  template <class Value>
  static bool toNumber(Value &value, std::uint64_t &number) {
    if (!value.IsUint64())
      return false;
    number = value.GetUint64();
    return true;
  }
};

struct Nlohmann {
  template <class Object, class Visit>
  static bool eachMember(Object &&object, const Visit &visit) {
    if (!object.is_object())
      return false;
    for (auto &member : object.items())
      if (!visit(std::string_view(member.key()), member.value()))
        return false;
    return true;
  }
  template <class Array, class Visit>
  static bool eachElement(Array &&array, const Visit &visit) {
    if (!array.is_array())
      return false;
    for (auto &element : array)
      if (!visit(element))
        return false;
    return true;
  }
  template <class Value>
  static bool toText(Value &value, std::string_view &text) {
    if (!value.is_string())
      return false;
    text = value.template get_ref<const std::string &>();
    return true;
  }
  template <class Value>
  static bool toNumber(Value &value, std::uint64_t &number) {
    if (!value.is_number_unsigned())
      return false;
    number = value.template get<std::uint64_t>();
    return true;
  }
};

} // namespace

bool readBySimdjson(const Input &input, Command &command) {
  // A parser is meant to be kept; the text is copied behind its padding, as a
  // caller would have to do with a string of its own.
  static simdjson::ondemand::parser parser;
  const simdjson::padded_string padded(input.json);
  simdjson::ondemand::document document;
  if (parser.iterate(padded).get(document) != simdjson::SUCCESS)
    return false;
  return readRoot<Simdjson>(document, command);
}

bool readByRapidJson(const Input &input, Command &command) {
  std::string text = input.json;
  rapidjson::Document document;
  document.ParseInsitu(text.data());
  return !document.HasParseError() && readRoot<RapidJson>(document, command);
}

bool readByNlohmann(const Input &input, Command &command) {
  const auto document = nlohmann::json::parse(input.json, nullptr, false);
  return !document.is_discarded() && readRoot<Nlohmann>(document, command);
}

} // namespace bench

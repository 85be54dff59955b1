// Every byte in every value of a command: what the engine's own tables say of
// the value is what becomes of it.
#include <cstdlib>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ZelDebugDialog/CommandTables.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "common/Session.h"
#include "support/StateText.h"

namespace robustness {
namespace {

using namespace ZelDebugDialog;
using State = std::map<std::string, std::string>;

struct Place {
  std::string lead; ///< The command up to the value.
  CommandValue value;
};

#ifdef LESS_OF_ALL
constexpr int step = 5; // meets every class of characters
#else
constexpr int step = 1;
#endif

/// What has to stand before the options of a set.
const std::map<std::string, std::string> leads = {
    {"processor", "connect lc hdu"},
    {"Lumacore simulator", "connect lc sim"},
    {"PowerPC simulator", "connect ppc sim"},
    {"virtual platform", "vpconnect lc"},
    {"ModelSim", "connect lc hdu -sim"},
    {"hdu", "connect hdu"},
    {"dcc", "connect dcc"},
    {"kmtc", "connect kmtc"},
};

std::vector<Place> places() {
  std::vector<Place> all;
  for (const CommandOptionSet &set : GetCommandTables().optionSets) {
    const auto lead = leads.find(set.name);
    EXPECT_NE(lead, leads.end()) << set.name;
    if (lead == leads.end())
      continue;
    for (const CommandOption &option : set.options) {
      const std::string word = lead->second + " " + option.keyword + " ";
      if (option.takesValue)
        all.push_back({word, option.value});
      for (const CommandParameter &parameter : option.parameters)
        all.push_back({word + parameter.keyword + " ", parameter.value});
    }
  }
  return all;
}

State read(const std::string &command, int &result) {
  bench::Session session;
  result = KvoOption_Parser::ReadKvoCommand(command, session.imp);
  return test::settingsOf(session.imp);
}

bool separates(char byte) { return byte == ' ' || byte == '\t'; }

/// The name that the tables have for a setting, as the state has it.
std::string settingOf(std::string field) {
  const std::size_t device = field.find("[n]");
  return device == std::string::npos ? field : field.replace(device, 3, "[0]");
}

void expectStored(const Place &place, const State &state,
                  const std::string &value) {
  ASSERT_FALSE(place.value.fields.empty());
  const std::string name = settingOf(place.value.fields.front());
  const auto found = state.find(name);
  ASSERT_NE(found, state.end()) << name;
  EXPECT_EQ(found->second, value) << name;
}

/// A number begins with its digits; what follows is ignored.
std::string numberOf(const std::string &word) {
  return std::to_string(std::atoi(word.c_str()));
}

void expectByte(const Place &place, char byte) {
  const bool isNumber =
      place.value.conversion == ValueConversion::number ||
      place.value.conversion == ValueConversion::signedNumber ||
      place.value.conversion == ValueConversion::lowByte;
  const std::string word =
      (isNumber ? "1" : "v") + std::string(1, byte) + (isNumber ? "" : "w");
  int result = -1;
  const State state = read(place.lead + word, result);
  SCOPED_TRACE(place.lead + word + " gives " + std::to_string(result));
  EXPECT_TRUE(result == 0 || result == 3);
  const std::string first = separates(byte) ? word.substr(0, 1) : word;
  switch (place.value.conversion) {
  case ValueConversion::text:
    return expectStored(place, state, "\"" + first + "\"");
  case ValueConversion::number:
  case ValueConversion::signedNumber:
  case ValueConversion::lowByte:
    // Addresses have to be aligned: they are stored all the same.
    return expectStored(place, state, numberOf(first));
  case ValueConversion::hostAndPort:
    if (byte == ':')
      expectStored(place, state, "\"v\"");
    return;
  case ValueConversion::namedValue:
  case ValueConversion::none:
    return;
  }
}

TEST(ByteValue, StandsInEachValue) {
  const std::vector<Place> all = places();
  EXPECT_GT(all.size(), 60U);
  for (const Place &place : all)
    for (int byte = 0; byte < 256; byte += step)
      expectByte(place, static_cast<char>(byte));
}

/// White space at the ends of a word is dropped, whatever byte it is.
TEST(ByteValue, StandsAlone) {
  for (const Place &place : places()) {
    if (place.value.conversion != ValueConversion::text)
      continue;
    for (int number = 0; number < 256; number += step) {
      const std::string byte(1, static_cast<char>(number));
      const bool isSpace =
          std::string(" \t\n\v\f\r").find(byte) != std::string::npos &&
          number != 0;
      if (isSpace || byte == "-")
        continue;
      SCOPED_TRACE(place.lead + " byte " + std::to_string(number));
      int result = -1;
      expectStored(place, read(place.lead + byte, result), "\"" + byte + "\"");
    }
  }
}

TEST(ByteValue, ThatIsNoSeparatorBelongsToItsWord) {
  for (int number = 0; number < 256; ++number) {
    const char byte = static_cast<char>(number);
    std::string text = std::string("a") + byte + "b rest";
    std::string word;
    EXPECT_EQ(KvoOption_Parser::get_token(text, word), 0);
    EXPECT_EQ(word, separates(byte) ? "a" : std::string("a") + byte + "b");
  }
}

} // namespace
} // namespace robustness

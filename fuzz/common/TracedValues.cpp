#include "common/TracedValues.h"

#include <cstdint>
#include <cstdlib>
#include <map>

#include "ZelDebugDialog/CableCatalogue.h"
#include "common/Require.h"
#include "support/StateText.h"

namespace fuzz {
namespace {

using ZelDebugDialog::CommandTrace;
using ZelDebugDialog::CommandWord;
using ZelDebugDialog::ValueConversion;

using Settings = std::map<std::string, std::string>;

std::string quoted(const std::string &text) { return "\"" + text + "\""; }

bool endsWith(const std::string &text, const std::string &end) {
  return text.size() >= end.size() &&
         text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::uint32_t asNumber(const std::string &setting) {
  return static_cast<std::uint32_t>(std::strtoll(setting.c_str(), nullptr, 10));
}

/// Arguments are joined with those before, and a file is marked; every other
/// text stands alone.
bool holdsText(const std::string &field, const std::string &setting,
               const std::string &word) {
  if (field == "svfFileFlag")
    return setting == "1";
  return field == "cable.moduleArgs" ? endsWith(setting, word + "\"")
                                     : setting == quoted(word);
}

/// Without a colon only the port changes, to one that depends on the reader.
bool holdsHostAndPort(const std::string &field, const std::string &setting,
                      const std::string &word) {
  const std::size_t colon = word.find(':');
  if (colon == std::string::npos)
    return true;
  if (endsWith(field, "Host"))
    return setting == quoted(colon == 0 ? "localhost" : word.substr(0, colon));
  const std::string port = word.substr(colon + 1);
  return asNumber(setting) ==
         static_cast<std::uint32_t>(std::strtol(port.c_str(), nullptr, 10));
}

bool holds(const std::string &field, const std::string &setting,
           const std::string &word, ValueConversion conversion) {
  const auto number =
      static_cast<std::uint32_t>(std::strtoul(word.c_str(), nullptr, 0));
  switch (conversion) {
  case ValueConversion::text:
    return holdsText(field, setting, word);
  case ValueConversion::number:
    return asNumber(setting) == number;
  case ValueConversion::signedNumber:
    return asNumber(setting) ==
           static_cast<std::uint32_t>(std::strtol(word.c_str(), nullptr, 0));
  case ValueConversion::lowByte:
    return (asNumber(setting) & 0xFFU) == (number & 0xFFU);
  case ValueConversion::hostAndPort:
    return holdsHostAndPort(field, setting, word);
  default:
    return true;
  }
}

/// A second cable clause without a frequency gives the cable its default.
bool hasDefaultFrequency(const ZelDebugDialog::EngineImp &imp) {
  const ZelDebugDialog::CableOption &cable = *imp.cableOption;
  return cable.frequency ==
         ZelDebugDialog::setcable_default_frequency(cable.cableType);
}

} // namespace

void checkWords(const std::string &text, const CommandTrace &trace) {
  std::size_t end = 0;
  for (const CommandWord &word : trace.words) {
    require(word.offset >= end && word.length > 0, "words stand in order");
    end = word.offset + word.length;
    require(end <= text.size(), "words stand in the text");
  }
  for (const auto &fault : trace.faults)
    require(fault.word <= trace.words.size(), "a fault is one of a word");
}

void checkStoredValues(const std::string &text, const CommandTrace &trace,
                       const ZelDebugDialog::EngineImp &imp) {
  std::map<std::string, const CommandWord *> last;
  for (const CommandWord &word : trace.words)
    for (const std::string &field : word.fields)
      last[field] = &word;
  const Settings settings = ZelDebugDialog::test::settingsOf(imp);
  for (const auto &[field, word] : last) {
    const auto setting = settings.find(field);
    require(setting != settings.end(), "a trace names settings: " + field);
    require((field == "cable.frequency" && hasDefaultFrequency(imp)) ||
                holds(field, setting->second,
                      text.substr(word->offset, word->length),
                      word->conversion),
            "a word is stored: " + field + " is " + setting->second);
  }
}

} // namespace fuzz

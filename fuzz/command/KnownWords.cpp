#include "command/KnownWords.h"

#include <algorithm>
#include <cctype>

#include "ZelDebugDialog/CommandTables.h"

namespace fuzz {
namespace {

using namespace ZelDebugDialog;

using Words = std::set<std::string>;

void add(Words &words, const CommandValue &value) {
  words.insert(value.words.begin(), value.words.end());
}

void add(Words &words, const CommandOption &option) {
  words.insert(option.keyword);
  add(words, option.value);
  for (const CommandParameter &parameter : option.parameters) {
    words.insert(parameter.keyword);
    add(words, parameter.value);
  }
}

void add(Words &words, const CommandHead &head) {
  words.insert(head.keyword);
  for (const CommandTarget &target : head.targets) {
    words.insert(target.keyword);
    for (const CommandConnection &connection : target.connections)
      words.insert(connection.keyword);
  }
}

void add(Words &words, const CommandCable &cable) {
  words.insert(cable.keywords.begin(), cable.keywords.end());
  words.insert(cable.defaultPort);
  for (const auto &frequencies :
       {cable.offeredFrequencies, cable.acceptedFrequencies})
    for (const std::uint32_t frequency : frequencies)
      words.insert(std::to_string(frequency));
}

std::string lowered(std::string word) {
  std::transform(word.begin(), word.end(), word.begin(), [](unsigned char c) {
    return static_cast<char>(std::tolower(c));
  });
  return word;
}

} // namespace

std::set<std::string> wordsOfTables() {
  const CommandTables tables = GetCommandTables();
  Words words;
  for (const CommandHead &head : tables.heads)
    add(words, head);
  for (const CommandOptionSet &set : tables.optionSets)
    for (const CommandOption &option : set.options)
      add(words, option);
  for (const CommandCable &cable : tables.cables)
    add(words, cable);
  words.erase("");
  return words;
}

bool isInTables(const std::string &word) {
  static const Words known = [] {
    Words words;
    for (const std::string &one : wordsOfTables())
      words.insert(lowered(one));
    return words;
  }();
  return known.count(lowered(word)) != 0;
}

} // namespace fuzz

// Prints a table of what the engine knows, in Markdown, from its own tables:
//
//   command_tables heads|targets|options|cables
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "ZelDebugDialog/CommandTables.h"

using namespace ZelDebugDialog;

namespace {

std::string code(const std::string &text) { return '`' + text + '`'; }

std::string list(const std::vector<std::string> &words) {
  std::string joined;
  for (const std::string &word : words)
    joined += (joined.empty() ? "" : ", ") + code(word);
  return joined;
}

std::string list(const std::vector<std::uint32_t> &numbers) {
  std::string joined;
  for (const std::uint32_t number : numbers)
    joined += (joined.empty() ? "" : ", ") + std::to_string(number);
  return joined;
}

void row(const std::vector<std::string> &cells) {
  for (const std::string &cell : cells)
    std::printf("| %s ", cell.c_str());
  std::puts("|");
}

void head(const std::vector<std::string> &cells) {
  row(cells);
  row(std::vector<std::string>(cells.size(), "---"));
}

std::string yesNo(bool answer) { return answer ? "yes" : "no"; }

const char *conversionText(ValueConversion conversion) {
  switch (conversion) {
  case ValueConversion::none:
    return "checked, not kept";
  case ValueConversion::text:
    return "text";
  case ValueConversion::number:
    return "number";
  case ValueConversion::signedNumber:
    return "number with a sign";
  case ValueConversion::lowByte:
    return "number, low 8 bits";
  case ValueConversion::namedValue:
    return "a word";
  case ValueConversion::hostAndPort:
    return "host:port";
  }
  return "";
}

std::string valueText(const CommandValue &value) {
  const std::string text = conversionText(value.conversion);
  return value.words.empty() ? text : text + ": " + list(value.words);
}

void printHeads(const CommandTables &tables) {
  head({"first word", "in option files", "words behind it"});
  for (const CommandHead &entry : tables.heads) {
    std::vector<std::string> targets;
    for (const CommandTarget &target : entry.targets)
      targets.push_back(target.keyword);
    row({code(entry.keyword), yesNo(entry.inOptionFile), list(targets)});
  }
}

void printTargets(const CommandTables &tables) {
  head({"target", "in option files", "connection", "options"});
  for (const CommandTarget &target : tables.heads.front().targets) {
    if (target.connections.empty())
      row({code(target.keyword), yesNo(target.inOptionFile), "",
           target.optionSet});
    for (const CommandConnection &connection : target.connections)
      row({code(target.keyword), yesNo(target.inOptionFile),
           code(connection.keyword), connection.optionSet});
  }
}

void printOption(const CommandOption &option) {
  const std::string keyword = code(option.keyword);
  if (!option.optionSet.empty())
    return row(
        {keyword, "", "options: " + option.optionSet, list(option.changes)});
  if (option.takesValue)
    return row(
        {keyword, "", valueText(option.value), list(option.value.fields)});
  if (option.parameters.empty())
    return row({keyword, "", "", list(option.changes)});
  std::string first = keyword;
  for (const CommandParameter &parameter : option.parameters) {
    row({first, code(parameter.keyword), valueText(parameter.value),
         list(parameter.value.fields)});
    first.clear();
  }
}

void printOptions(const CommandTables &tables) {
  for (const CommandOptionSet &set : tables.optionSets) {
    std::printf("### Options: %s\n\n", set.name.c_str());
    head({"option", "name", "value", "settings"});
    for (const CommandOption &option : set.options)
      printOption(option);
    std::puts("");
  }
}

void printCables(const CommandTables &tables) {
  head({"type", "read as", "written as", "starts with", "port", "offered (Hz)",
        "accepted (Hz)"});
  for (const CommandCable &cable : tables.cables)
    row({std::to_string(cable.type), list(cable.keywords),
         cable.written.empty() ? "" : code(cable.written),
         cable.defaultFrequency == 0
             ? ""
             : std::to_string(cable.defaultFrequency) + " Hz",
         cable.defaultPort, list(cable.offeredFrequencies),
         list(cable.acceptedFrequencies)});
}

struct Table {
  const char *name;
  void (*print)(const CommandTables &tables);
};

constexpr Table known[] = {{"heads", printHeads},
                           {"targets", printTargets},
                           {"options", printOptions},
                           {"cables", printCables}};

} // namespace

int main(int count, char **arguments) {
  const std::string name = count == 2 ? arguments[1] : "";
  for (const Table &table : known) {
    if (name != table.name)
      continue;
    table.print(GetCommandTables());
    return 0;
  }
  std::fputs("command_tables heads|targets|options|cables\n", stderr);
  return 2;
}

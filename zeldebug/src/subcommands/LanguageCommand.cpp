// language: the connect language, whole or by one of its words.
#include <algorithm>
#include <memory>
#include <optional>

#include <ZelDebugDialog/ConfigurationModel/Language.h>
#include <fmt/format.h>
#include <strings.h>

#include "line/CommandLine.h"
#include "line/Options.h"
#include "output/CableText.h"
#include "output/Json.h"
#include "output/Suggestion.h"
#include "output/Table.h"
#include "subcommands/LanguageWords.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::CableInfo;
using ZelDebugDialog::GetCables;
using ZelDebugDialog::GetLanguage;
using ZelDebugDialog::LanguageConnection;
using ZelDebugDialog::LanguageHead;
using ZelDebugDialog::LanguageOption;
using ZelDebugDialog::LanguageOptionSet;
using ZelDebugDialog::LanguageParameter;
using ZelDebugDialog::LanguageTarget;
using ZelDebugDialog::LanguageValue;

bool same(const std::string &a, const std::string &b) {
  return strcasecmp(a.c_str(), b.c_str()) == 0;
}

/// What of the language is shown: all of it, or what one word stands for.
class Chosen {
public:
  explicit Chosen(std::optional<std::string> chosen) : word(chosen) {}

  bool holds(const LanguageTarget &target) const {
    return !word || same(*word, target.keyword);
  }
  /// An option may be named without its '-'.
  bool holds(const LanguageOption &option) const {
    return !word || same(*word, option.keyword) ||
           same("-" + *word, option.keyword);
  }
  bool holds(const CableInfo &cable) const {
    return !word || std::any_of(cable.keywords.begin(), cable.keywords.end(),
                                [this](const std::string &keyword) {
                                  return same(*word, keyword);
                                });
  }
  bool isAll() const { return !word; }

private:
  std::optional<std::string> word;
};

void addOnce(std::vector<std::string> &words, const std::string &word) {
  if (std::find(words.begin(), words.end(), word) == words.end())
    words.push_back(word);
}

std::vector<std::string> knownWords() {
  std::vector<std::string> words;
  for (const LanguageHead &head : GetLanguage().heads)
    for (const LanguageTarget &target : head.targets)
      addOnce(words, target.keyword);
  for (const LanguageOptionSet &set : GetLanguage().optionSets)
    for (const LanguageOption &option : set.options)
      addOnce(words, option.keyword);
  for (const CableInfo &cable : GetCables())
    for (const std::string &keyword : cable.keywords)
      addOnce(words, keyword);
  return words;
}

// --- Documents --------------------------------------------------------------

Json valueJson(const LanguageValue &value) {
  return {{"kind", value.kind},
          {"settings", value.settings},
          {"words", value.words}};
}

Json optionJson(const LanguageOption &option) {
  Json parameters = Json::array();
  for (const LanguageParameter &parameter : option.parameters)
    parameters.push_back({{"keyword", parameter.keyword},
                          {"value", valueJson(parameter.value)}});
  return {{"keyword", option.keyword},
          {"parameters", parameters},
          {"value", option.value ? valueJson(*option.value) : Json()},
          {"optionSet", orNull(option.optionSet)},
          {"settings", option.settings}};
}

Json targetJson(const LanguageTarget &target) {
  Json connections = Json::array();
  for (const LanguageConnection &connection : target.connections)
    connections.push_back({{"keyword", connection.keyword},
                           {"connectionType", connection.type},
                           {"optionSet", orNull(connection.optionSet)}});
  return {{"keyword", target.keyword},
          {"inOptionFile", target.inOptionFile},
          {"connections", connections},
          {"optionSet", orNull(target.optionSet)}};
}

Json documentOf(const Chosen &chosen) {
  Json heads = Json::array();
  for (const LanguageHead &head : GetLanguage().heads) {
    Json targets = Json::array();
    for (const LanguageTarget &target : head.targets)
      if (chosen.holds(target))
        targets.push_back(targetJson(target));
    if (!targets.empty())
      heads.push_back({{"keyword", head.keyword},
                       {"inOptionFile", head.inOptionFile},
                       {"targets", targets}});
  }
  Json sets = Json::array();
  for (const LanguageOptionSet &set : GetLanguage().optionSets) {
    Json options = Json::array();
    for (const LanguageOption &option : set.options)
      if (chosen.holds(option))
        options.push_back(optionJson(option));
    if (!options.empty())
      sets.push_back({{"name", set.name}, {"options", options}});
  }
  Json cables = Json::array();
  for (const CableInfo &cable : GetCables())
    if (chosen.holds(cable))
      cables.push_back(cableJson(cable));
  return {{"heads", heads}, {"optionSets", sets}, {"cables", cables}};
}

// --- Tables -----------------------------------------------------------------

std::string yesNo(bool answer) { return answer ? "yes" : "no"; }

std::string shownValue(const LanguageValue &value) {
  return value.words.empty() ? value.kind : joined(value.words);
}

using Rows = std::vector<std::vector<std::string>>;

void addOption(Rows &rows, const LanguageOption &option) {
  if (!option.optionSet.empty())
    return rows.push_back({option.keyword, "", "options: " + option.optionSet,
                           joined(option.settings)});
  if (option.value)
    return rows.push_back({option.keyword, "", shownValue(*option.value),
                           joined(option.value->settings)});
  if (option.parameters.empty())
    return rows.push_back({option.keyword, "", "", joined(option.settings)});
  std::string first = option.keyword;
  for (const LanguageParameter &parameter : option.parameters) {
    rows.push_back({first, parameter.keyword, shownValue(parameter.value),
                    joined(parameter.value.settings)});
    first.clear();
  }
}

/// Prints tables with an empty line between them.
class Pages {
public:
  explicit Pages(Output &to) : output(to) {}

  void print(const Table &table, const std::string &heading = "") {
    if (table.empty())
      return;
    if (!isFirst)
      output.printLine("");
    isFirst = false;
    if (!heading.empty())
      output.printLine(heading);
    table.print(output);
  }

private:
  Output &output;
  bool isFirst = true;
};

void printTargets(const Chosen &chosen, Pages &pages) {
  Table table({"HEAD", "TARGET", "IN FILES", "CONNECTION", "OPTIONS"});
  for (const LanguageHead &head : GetLanguage().heads)
    for (const LanguageTarget &target : head.targets) {
      const bool inFiles = head.inOptionFile && target.inOptionFile;
      if (!chosen.holds(target))
        continue;
      if (target.connections.empty())
        table.addRow({head.keyword, target.keyword, yesNo(inFiles), "-",
                      target.optionSet});
      for (const LanguageConnection &connection : target.connections)
        table.addRow({head.keyword, target.keyword, yesNo(inFiles),
                      connection.keyword, connection.optionSet});
    }
  pages.print(table);
}

/// Sets with the same options share a table.
void printOptions(const Chosen &chosen, Pages &pages) {
  std::vector<std::pair<std::string, Rows>> shown;
  for (const LanguageOptionSet &set : GetLanguage().optionSets) {
    Rows rows;
    for (const LanguageOption &option : set.options)
      if (chosen.holds(option))
        addOption(rows, option);
    const auto same =
        std::find_if(shown.begin(), shown.end(), [&rows](const auto &other) {
          return other.second == rows;
        });
    if (same == shown.end())
      shown.emplace_back(set.name, rows);
    else
      same->first += ", " + set.name;
  }
  for (const auto &[names, rows] : shown) {
    Table table({"OPTION", "NAME", "VALUE", "SETTINGS"});
    for (const std::vector<std::string> &row : rows)
      table.addRow(row);
    pages.print(table, "Options: " + names);
  }
}

void printCables(const Chosen &chosen, Pages &pages) {
  Table table(cableHeadings());
  for (const CableInfo &cable : GetCables())
    if (chosen.holds(cable))
      table.addRow(cableCells(cable));
  pages.print(table);
}

ExitStatus run(const std::vector<std::string> &words, Output &output) {
  if (words.size() > 1)
    throw Failure(ExitStatus::wrongUse,
                  fmt::format("'language' takes no more arguments, but '{}' is "
                              "left",
                              printable(words[1])),
                  {"", "", words[1]});
  const Chosen chosen(
      words.empty() ? std::nullopt : std::optional<std::string>(words.front()));
  const Json document = documentOf(chosen);
  if (document["heads"].empty() && document["optionSets"].empty() &&
      document["cables"].empty())
    throw Failure(
        ExitStatus::wrongUse,
        fmt::format("language: '{}' is no option, target or cable; there are "
                    "{}{}",
                    printable(words.front()), quotedList(knownWords()),
                    didYouMean(words.front(), knownWords())),
        {"bad-value", "WORD", words.front(), knownWords(),
         nearestMatch(words.front(), knownWords())});
  if (output.json()) {
    output.document(document);
    return ExitStatus::done;
  }
  Pages pages(output);
  printTargets(chosen, pages);
  printOptions(chosen, pages);
  printCables(chosen, pages);
  return ExitStatus::done;
}

CommandLine::Runner languageOptions(Options &app) {
  const auto words = std::make_shared<std::vector<std::string>>();
  app.addArguments("WORD", *words,
                   "an option, a target or a cable; all "
                   "without it",
                   ValueKind::languageWord);
  return [words, &line = app.line()](Output &output) {
    std::vector<std::string> all = *words;
    all.insert(all.end(), line.dashedWords().begin(), line.dashedWords().end());
    return run(all, output);
  };
}

} // namespace

std::vector<std::string> languageWords() { return knownWords(); }

void addLanguageCommand(CommandLine &line) {
  line.addSubcommand("language", "Show the connect language, or one word of it",
                     "zeldebug language -cable", languageOptions)
      .takeDashedWords();
}

} // namespace zeldebug

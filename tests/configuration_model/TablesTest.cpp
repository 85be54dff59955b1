// What the tables say, word for word: people read it, and programs rely on
// some of it. The texts lie in the folder "expected".
#include <algorithm>
#include <fstream>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "ZelDebugDialog/ConfigurationModel/Codes.h"
#include "ZelDebugDialog/ConfigurationModel/Language.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "codes/CodeRows.h"
#include "commands/TracedCommand.h"
#include "losses/Reasons.h"
#include "settings/SettingTable.h"
#include "support/Cables.h"

namespace {

using namespace ZelDebugDialog;
using Lines = std::vector<std::string>;

Lines expected(const char *file) {
  std::ifstream stream(std::string(EXPECTED_TABLES) + "/" + file);
  EXPECT_TRUE(stream) << file;
  Lines lines;
  for (std::string line; std::getline(stream, line);)
    lines.push_back(line);
  return lines;
}

void expectTable(const char *file, const Lines &table) {
  const Lines lines = expected(file);
  for (std::size_t at = 0; at < std::min(lines.size(), table.size()); ++at)
    EXPECT_EQ(table[at], lines[at]) << file << ":" << at + 1;
  EXPECT_EQ(table.size(), lines.size()) << file;
}

/// A line "  name: text"; none for what does not apply.
void append(Lines &lines, const char *name, const std::string &text) {
  if (!text.empty())
    lines.push_back("  " + std::string(name) + ": " + text);
}

std::string joined(const std::vector<std::string> &words) {
  std::string text;
  for (const std::string &word : words)
    text += (text.empty() ? "" : ", ") + word;
  return text;
}

std::string stored(const SettingInfo &setting, const Value &value) {
  return value.IsText() ? value.Text() : ShowStored(setting, value);
}

std::string takenBy(model::TextRule rule) {
  switch (rule) {
  case model::TextRule::word:
    break;
  case model::TextRule::anyWord:
    return "any word";
  case model::TextRule::words:
    return "words";
  }
  return "";
}

// Its choices are the cables, which have a table of their own.
constexpr const char *cable = "cable.cableType";

TEST(Tables, OfSettings) {
  Lines lines;
  for (const model::SettingRow &row : model::settingRows()) {
    const SettingInfo &setting = row.info;
    lines.push_back(setting.id);
    append(lines, "label", setting.group + ", " + setting.label);
    append(lines, "help", setting.help);
    append(lines, "kind", ShowKind(setting.kind));
    if (setting.minimum && setting.maximum)
      append(lines, "range",
             std::to_string(*setting.minimum) + " to " +
                 std::to_string(*setting.maximum) +
                 (setting.unit.empty() ? "" : " ") + setting.unit);
    if (row.step != 1)
      append(lines, "multiple of", std::to_string(row.step));
    append(lines, "hexadecimal", row.isHexadecimal ? "yes" : "");
    append(lines, "taken", takenBy(row.textRule));
    append(lines, "settable", setting.settable ? "" : "no");
    append(lines, "identity", row.isIdentity ? "yes" : "");
    append(lines, "together", joined(setting.together));
    if (setting.id != cable) {
      for (const Choice &choice : setting.choices)
        append(lines, "choice",
               stored(setting, choice.value) + ", " + choice.text + ", " +
                   choice.label);
      for (const Choice &word : row.synonyms)
        append(lines, "word", stored(setting, word.value) + ", " + word.text);
    }
    append(lines, "brings", joined(row.brought));
    append(lines, "why", row.effect);
    append(lines, "option", setting.option);
  }
  expectTable("settings.txt", lines);
}

TEST(Tables, OfCables) {
  Lines choices{"0, none, No cable"};
  Lines words;
  for (const support::Cable &known : support::cables()) {
    const std::string number = std::to_string(known.number);
    choices.push_back(
        number + ", " +
        (known.words.empty()
             ? number + ", Cable " + number + ", which no command names"
             : known.words[0] + ", " + known.words[0]));
    for (const std::string &word : known.words)
      words.push_back(number + ", " + word);
  }
  const model::SettingRow &row = *model::findRow(cable);
  const auto shown = [](const Choice &choice) {
    return std::to_string(choice.value.Number()) + ", " + choice.text;
  };
  Lines found;
  for (const Choice &choice : row.info.choices)
    found.push_back(shown(choice) + ", " + choice.label);
  EXPECT_EQ(found, choices);
  found.clear();
  for (const Choice &word : row.synonyms)
    found.push_back(shown(word));
  EXPECT_EQ(found, words);
}

/// The example of a line that is too long ends with as many digits as are read.
std::string withoutTheLongWord(const std::string &example) {
  const std::string longWord(1023, '1');
  const std::size_t at = example.find(longWord);
  return at == std::string::npos ? example
                                 : example.substr(0, at) + "(1,023 of '1')" +
                                       example.substr(at + longWord.size());
}

TEST(Tables, OfCodes) {
  Lines lines;
  for (const Code &row : GetCodes()) {
    lines.push_back(row.code);
    append(lines, "severity", ShowSeverity(row.severity));
    append(lines, "summary", row.summary);
    append(lines, "meaning", row.meaning);
    append(lines, "example", "\"" + withoutTheLongWord(row.example) + "\"");
    append(lines, "where", row.where);
    append(lines, "advice", row.advice);
  }
  expectTable("codes.txt", lines);
}

TEST(Tables, OfReasons) {
  Lines lines;
  for (int number = 0; number <= static_cast<int>(OmissionReason::colonInHost);
       ++number) {
    const model::Reason &row =
        model::reasonRow(static_cast<OmissionReason>(number));
    lines.emplace_back(row.why.code);
    append(lines, "text", row.why.text());
    if (row.whyNotApplicable != nullptr)
      append(lines, "not applicable", row.whyNotApplicable);
  }
  expectTable("reasons.txt", lines);
}

TEST(Tables, OfTheWordsForAFault) {
  const Lines words = {"missing-head",           "unknown-head",
                       "missing-target",         "unknown-target",
                       "missing-connection",     "unknown-connection",
                       "connection-not-allowed", "unknown-option",
                       "not-an-option",          "unknown-parameter",
                       "missing-value",          "refused-value",
                       "missing-svf-file",       "missing-module",
                       "refused-frequency",      "lone-dash"};
  for (std::size_t at = 0; at < words.size(); ++at)
    EXPECT_EQ(model::codeOf(static_cast<CommandFaultKind>(at)).code, words[at]);
  EXPECT_THROW(model::expectCode("lone-das"), std::logic_error);
  try {
    model::expectCode("lone-das");
  } catch (const std::logic_error &error) {
    EXPECT_STREQ(error.what(), "no such code: lone-das");
  }
}

TEST(Tables, OfTheWordsForARefusal) {
  const Lines words = {
      "unknown-processor", "not-debuggable",  "unknown-setting",
      "not-settable",      "bad-value",       "not-allowed",
      "excluded",          "bad-command",     "nothing-to-undo",
      "nothing-to-redo",   "unreadable",      "would-be-lost",
      "changed-on-disk",   "read-only",       "draft",
      "no-command",        "no-regular-file", "no-folder",
      "file-system",       "file-exists"};
  for (std::size_t at = 0; at < words.size(); ++at)
    EXPECT_EQ(ShowKind(static_cast<RefusalKind>(at)), words[at]);
}

TEST(Tables, OfTheRefusalsThatForcePassesOver) {
  Lines forced;
  for (int kind = 0; kind <= static_cast<int>(RefusalKind::fileExists); ++kind)
    if (CanBeForced(static_cast<RefusalKind>(kind)))
      forced.emplace_back(ShowKind(static_cast<RefusalKind>(kind)));
  const Lines all = {"unreadable", "would-be-lost", "changed-on-disk",
                     "read-only"};
  EXPECT_EQ(forced, all);
  EXPECT_FALSE(CanBeForced(static_cast<RefusalKind>(99)));
}

TEST(Tables, OfTheWordsForAKindOfSetting) {
  const Lines words = {"flag", "number", "address", "frequency", "text",
                       "file", "word",   "chain",   ""};
  for (std::size_t at = 0; at < words.size(); ++at)
    EXPECT_EQ(ShowKind(static_cast<SettingKind>(at)), words[at]);
}

TEST(Tables, OfTheWordsForTheRoleOfAWord) {
  const Lines words = {"head",  "target",  "connection", "option", "name",
                       "value", "ignored", "lost",       ""};
  for (std::size_t at = 0; at < words.size(); ++at)
    EXPECT_EQ(model::shownRole(static_cast<WordRole>(at)), words[at]);
}

/// The kind of value that a parameter of an option takes.
std::string kindOf(const char *option, const char *parameter) {
  for (const LanguageOptionSet &set : GetLanguage().optionSets)
    for (const LanguageOption &known : set.options) {
      if (known.keyword != option)
        continue;
      if (*parameter == '\0')
        return known.value ? known.value->kind : "none";
      for (const LanguageParameter &one : known.parameters)
        if (one.keyword == parameter)
          return one.value.kind;
    }
  return "no such option";
}

TEST(Tables, OfTheKindsOfAValue) {
  EXPECT_EQ(kindOf("-cable", "type"), "word");
  EXPECT_EQ(kindOf("-cable", "port"), "text");
  EXPECT_EQ(kindOf("-cable", "frequency"), "number");
  EXPECT_EQ(kindOf("-debugdevice", "devicenr"), "byte");
  EXPECT_EQ(kindOf("-ipcport", ""), "host-and-port");
  EXPECT_EQ(kindOf("-debugdevice", "nCpu"), "signed-number");
  EXPECT_EQ(kindOf("-quiet", ""), "none");
  std::set<std::string> kinds;
  for (const LanguageOptionSet &set : GetLanguage().optionSets)
    for (const LanguageOption &option : set.options) {
      if (option.value)
        kinds.insert(option.value->kind);
      for (const LanguageParameter &parameter : option.parameters)
        kinds.insert(parameter.value.kind);
    }
  EXPECT_THAT(kinds,
              testing::ElementsAre("byte", "host-and-port", "number",
                                   "signed-number", "text", "unused", "word"));
}

} // namespace

// Where a command may go on: walks the words in front of the cursor over the
// tables of the language, as the readers would.
#include <algorithm>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "ZelDebugDialog/ConfigurationModel/Language.h"
#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "commands/Keywords.h"
#include "settings/ConnectionKinds.h"

namespace ZelDebugDialog {

namespace {

using Words = std::vector<CompletionWord>;

constexpr std::string_view blanks = " \t";

/// "Frequency, Port": what a word is for, by the labels of its settings.
std::string labelsOf(const std::vector<std::string> &settings,
                     const std::string &otherwise) {
  std::string labels;
  for (const std::string &id : settings)
    if (const SettingInfo *const setting = FindSetting(id))
      labels += (labels.empty() ? "" : ", ") + setting->label;
  return labels.empty() ? otherwise : labels;
}

std::string labelOf(const LanguageConnection &connection) {
  for (const ConnectionKind &kind : connectionKinds)
    if (kind.connectionType == connection.type)
      return model::labelOf(kind);
  return "connection";
}

std::string labelOf(const LanguageOption &option) {
  std::vector<std::string> settings = option.settings;
  if (option.value)
    settings.insert(settings.end(), option.value->settings.begin(),
                    option.value->settings.end());
  for (const LanguageParameter &parameter : option.parameters)
    settings.insert(settings.end(), parameter.value.settings.begin(),
                    parameter.value.settings.end());
  std::vector<std::string> once;
  for (const std::string &setting : settings)
    if (std::find(once.begin(), once.end(), setting) == once.end())
      once.push_back(setting);
  return labelsOf(once, "option");
}

/// Where the words so far lead to.
class Walk {
public:
  void take(const std::string &word);
  Words candidates() const;

private:
  enum class Place { head, target, connection, option, clause, value, nowhere };

  void enterOptions(const std::string &set);
  void takeTarget(const std::string &word);
  void takeOption(const std::string &word);
  void takeName(const std::string &word);
  void takeValue(const std::string &word);
  Words optionWords() const;
  Words valueWords() const;

  Place place = Place::head;
  const LanguageHead *head = nullptr;
  const LanguageTarget *target = nullptr;
  const LanguageOptionSet *options = nullptr;
  const LanguageOption *option = nullptr; ///< at a clause: whose it is
  const LanguageValue *value = nullptr;   ///< at a value: which one it is
  std::string cable;                      ///< the type that was named last
};

void Walk::enterOptions(const std::string &set) {
  options = FindOptionSet(set);
  place = options == nullptr ? Place::nowhere : Place::option;
}

void Walk::take(const std::string &word) {
  switch (place) {
  case Place::head:
    head = model::findKeyword(GetLanguage().heads, word);
    place = head == nullptr ? Place::nowhere : Place::target;
    break;
  case Place::target:
    takeTarget(word);
    break;
  case Place::connection: {
    const auto *const found = model::findKeyword(target->connections, word);
    place = Place::nowhere;
    if (found != nullptr)
      enterOptions(found->optionSet);
    break;
  }
  case Place::option:
    takeOption(word);
    break;
  case Place::clause:
    takeName(word);
    break;
  case Place::value:
    takeValue(word);
    break;
  case Place::nowhere:
    break;
  }
}

void Walk::takeTarget(const std::string &word) {
  target = model::findKeyword(head->targets, word);
  place = Place::nowhere;
  if (target == nullptr)
    return;
  if (target->connections.empty())
    enterOptions(target->optionSet);
  else
    place = Place::connection;
}

/// A word that is no option of the set is passed over, as a check goes on at
/// the next option.
void Walk::takeOption(const std::string &word) {
  option = model::findKeyword(options->options, word);
  place = Place::option;
  if (option == nullptr)
    return;
  if (!option->optionSet.empty()) {
    enterOptions(option->optionSet);
  } else if (option->value) {
    value = &*option->value;
    place = Place::value;
  } else if (!option->parameters.empty()) {
    place = Place::clause;
  }
}

void Walk::takeName(const std::string &word) {
  if (IsOptionWord(word))
    return takeOption(word);
  const auto *const parameter = model::findKeyword(option->parameters, word);
  place = parameter == nullptr ? Place::option : Place::value;
  if (parameter != nullptr)
    value = &parameter->value;
}

/// An option word in place of a value begins the next clause.
void Walk::takeValue(const std::string &word) {
  if (IsOptionWord(word))
    return takeOption(word);
  const std::vector<std::string> &stored = value->settings;
  if (std::find(stored.begin(), stored.end(), "cable.cableType") !=
      stored.end())
    cable = word;
  place = option->parameters.empty() ? Place::option : Place::clause;
}

Words Walk::optionWords() const {
  Words words;
  for (const LanguageOption &row : options->options)
    words.push_back({row.keyword, labelOf(row)});
  return words;
}

Words Walk::valueWords() const {
  Words words;
  const std::string label = labelsOf(value->settings, "value");
  for (const std::string &word : value->words)
    words.push_back({word, label});
  const bool isFrequency =
      !value->settings.empty() && value->settings.front() == "cable.frequency";
  if (!isFrequency)
    return words;
  for (const CableInfo &row : GetCables())
    for (const std::string &keyword : row.keywords)
      if (model::sameKeyword(keyword, cable))
        for (const std::uint32_t frequency : row.acceptedFrequencies)
          words.push_back(
              {fmt::format("{}", frequency),
               ShowValue(*FindSetting("cable.frequency"), Value(frequency))});
  return words;
}

Words Walk::candidates() const {
  Words words;
  switch (place) {
  case Place::head:
    for (const LanguageHead &row : GetLanguage().heads)
      words.push_back({row.keyword, "head"});
    break;
  case Place::target:
    for (const LanguageTarget &row : head->targets)
      words.push_back({row.keyword, "target"});
    break;
  case Place::connection:
    for (const LanguageConnection &row : target->connections)
      words.push_back({row.keyword, labelOf(row)});
    break;
  case Place::option:
    return optionWords();
  case Place::clause:
    for (const LanguageParameter &row : option->parameters)
      words.push_back({row.keyword, labelsOf(row.value.settings, "parameter")});
    for (CompletionWord &row : optionWords())
      words.push_back(std::move(row));
    break;
  case Place::value:
    return valueWords();
  case Place::nowhere:
    break;
  }
  return words;
}

} // namespace

CommandCompletion CompleteCommand(const std::string &text, std::size_t offset) {
  offset = std::min(offset, text.size());
  CommandCompletion completion;
  completion.to = std::min(text.find_first_of(blanks, offset), text.size());
  Walk walk;
  std::size_t start = 0;
  for (;;) {
    start = std::min(text.find_first_not_of(blanks, start), offset);
    const std::size_t end = text.find_first_of(blanks, start);
    if (end >= offset)
      break;
    walk.take(text.substr(start, end - start));
    start = end;
  }
  completion.from = start;
  const std::string typed = text.substr(start, offset - start);
  for (CompletionWord &word : walk.candidates())
    if (model::beginsWith(word.text, typed))
      completion.words.push_back(std::move(word));
  return completion;
}

} // namespace ZelDebugDialog

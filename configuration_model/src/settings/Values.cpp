#include "settings/Values.h"

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_set>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "settings/Cables.h"
#include "settings/ConnectionKinds.h"
#include "text/NearestMatch.h"
#include "text/Numbers.h"
#include "text/Printable.h"
#include "text/Words.h"

namespace ZelDebugDialog::model {

namespace {

using Words = std::array<const char *, 4>;
constexpr Words yesWords{"yes", "on", "true", "1"};
constexpr Words noWords{"no", "off", "false", "0"};
constexpr std::array<const char *, 2> unsetWords{"not set", "unset"};

std::string lower(std::string_view text) {
  std::string result(text);
  for (char &c : result)
    if (c >= 'A' && c <= 'Z')
      c = static_cast<char>(c - 'A' + 'a');
  return result;
}

std::string shownNumber(const SettingRow &row, std::int64_t number) {
  const bool isHexadecimal =
      row.isHexadecimal || row.info.kind == SettingKind::address;
  return isHexadecimal ? fmt::format("{:#x}", number)
                       : fmt::format("{}", number);
}

std::string shownAsked(const Value &asked) {
  if (asked.IsText())
    return printable(asked.Text());
  if (asked.IsNumber())
    return fmt::format("{}", asked.Number());
  if (asked.IsFlag())
    return asked.Flag() ? "true" : "false";
  return asked.IsChain() ? "a chain" : "nothing";
}

[[noreturn]] void refuse(const std::string &setting, const Value &asked,
                         const std::string &what,
                         std::vector<std::string> accepted = {}) {
  const std::string value = shownAsked(asked);
  const std::string suggestion =
      asked.IsText() ? nearestMatch(asked.Text(), accepted) : std::string();
  Refusal refusal(
      RefusalKind::badValue, setting,
      fmt::format("'{}' {}{}", value, what,
                  suggestion.empty()
                      ? ""
                      : fmt::format("; did you mean '{}'?", suggestion)));
  refusal.setting = setting;
  refusal.value = value;
  refusal.accepted = std::move(accepted);
  refusal.suggestion = suggestion;
  throw refusal;
}

std::string shownRange(const SettingRow &row) {
  std::string text = fmt::format("is no number from {} to {}",
                                 shownNumber(row, row.info.minimum.value()),
                                 shownNumber(row, row.info.maximum.value()));
  if (row.step != 1)
    text += fmt::format(" that is a multiple of {:#x}", row.step);
  return text + " (decimal or 0x)";
}

bool isInRange(const SettingRow &row, std::int64_t number) {
  if (row.info.kind == SettingKind::address && number == unsetAddress)
    return true;
  return number >= row.info.minimum.value() &&
         number <= row.info.maximum.value() && number % row.step == 0;
}

// --- Texts as people type them -----------------------------------------------

std::optional<std::int64_t> readNumberText(const SettingRow &row,
                                           const std::string &text) {
  if (row.info.kind == SettingKind::frequency) {
    const auto frequency = readFrequency(text);
    return frequency ? std::optional<std::int64_t>(*frequency) : std::nullopt;
  }
  if (row.info.kind == SettingKind::address)
    for (const char *word : unsetWords)
      if (lower(text) == word)
        return unsetAddress;
  const auto number = readNumber(text);
  if (!number || *number > static_cast<std::uint64_t>(INT64_MAX))
    return std::nullopt;
  return static_cast<std::int64_t>(*number);
}

std::optional<Value> readChoice(const std::vector<Choice> &choices,
                                const std::string &text) {
  for (const Choice &choice : choices)
    if (lower(choice.text) == lower(text))
      return choice.value;
  return std::nullopt;
}

/// Whether a command can be written with a cable; true for any other choice.
bool isWritable(const SettingRow &row, const Choice &choice) {
  if (!row.isOfCable() || !choice.value.IsNumber())
    return true;
  const CommandCable *const cable =
      findCable(static_cast<std::uint32_t>(choice.value.Number()));
  return cable == nullptr || canBeWritten(*cable);
}

/// The words to offer: of each choice all that stand for it.
std::vector<std::string> wordsOf(const SettingRow &row) {
  std::vector<std::string> words;
  const auto add = [&words](const std::string &word) {
    if (std::find(words.begin(), words.end(), word) == words.end())
      words.push_back(word);
  };
  for (const Choice &choice : row.info.choices) {
    if (!isWritable(row, choice))
      continue;
    add(choice.text);
    for (const Choice &synonym : row.synonyms)
      if (synonym.value == choice.value)
        add(synonym.text);
  }
  return words;
}

// --- A value of each kind ----------------------------------------------------

Value expectFlag(const SettingRow &row, const Value &asked,
                 const Value &current) {
  const std::string word = lower(shownAsked(asked));
  const auto isOneOf = [&word](const Words &words) {
    return std::find(words.begin(), words.end(), word) != words.end();
  };
  const bool flag = isOneOf(yesWords);
  if (!flag && !isOneOf(noWords))
    refuse(row.info.id, asked, "is neither yes nor no", {"yes", "no"});
  if (current.IsFlag())
    return flag;
  return flag ? 1 : 0;
}

Value expectNumberValue(const SettingRow &row, const Value &asked) {
  std::optional<std::int64_t> number;
  if (asked.IsNumber())
    number = asked.Number();
  else if (asked.IsText())
    number = readNumberText(row, asked.Text());
  if (number && isInRange(row, *number))
    return *number;
  if (row.info.kind == SettingKind::frequency)
    refuse(row.info.id, asked,
           fmt::format("is no whole number of hertz (decimal or 0x, with Hz, "
                       "kHz, MHz or nothing behind it), up to {} Hz",
                       row.info.maximum.value()));
  refuse(row.info.id, asked, shownRange(row));
}

Value expectWordValue(const SettingRow &row, const Value &asked) {
  if (asked.IsText()) {
    for (const auto *choices : {&row.info.choices, &row.synonyms})
      if (auto value = readChoice(*choices, asked.Text()))
        return *value;
  } else {
    for (const Choice &choice : row.info.choices)
      if (choice.value == asked)
        return asked;
  }
  const std::vector<std::string> words = wordsOf(row);
  refuse(row.info.id, asked,
         fmt::format("is unknown; accepted are {}", quotedList(words)), words);
}

std::optional<Why> problemOfText(const SettingRow &row,
                                 const std::string &text) {
  switch (row.textRule) {
  case TextRule::words:
    return whyNoWords(text);
  case TextRule::anyWord:
    return whyNoOpaqueWord(text);
  case TextRule::word:
    break;
  }
  return whyNoWord(text);
}

Value expectTextValue(const SettingRow &row, const Value &asked) {
  if (!asked.IsText())
    refuse(row.info.id, asked, "is no text");
  if (const auto problem = problemOfText(row, asked.Text()))
    refuse(row.info.id, asked, fmt::format("is refused: {}", problem->text()));
  return asked;
}

/// A field that is as it is in the device of the same place stays whatever it
/// is.
ChainDevice expectDevice(const ChainDevice &asked, std::size_t position,
                         const Snapshot &current) {
  const ChainDevice fresh = deviceValue(JtagOption());
  ChainDevice device = fresh;
  std::vector<std::string> names;
  for (const auto &[name, value] : fresh)
    names.push_back(name);
  std::vector<bool> seen(fresh.size(), false);
  Snapshot byDefault;
  byDefault.chain.emplace_back();
  Snapshot present = byDefault;
  if (position < current.chain.size())
    present.chain.front() = current.chain[position];
  for (const auto &[name, value] : asked) {
    const std::string setting = deviceName(position) + "." + name;
    const auto found = std::find(names.begin(), names.end(), name);
    if (found == names.end())
      refuse(deviceName(position), name,
             fmt::format("is unknown; accepted are {}", quotedList(names)),
             names);
    const auto field = static_cast<std::size_t>(found - names.begin());
    if (seen[field])
      refuse(setting, value, "is given twice");
    seen[field] = true;
    SettingRow row = *findRow(setting);
    row.info.id = setting;
    device[field].second = expectValue(row, value, present, byDefault);
  }
  return device;
}

/// The devices that a chain has already, which are taken as they are.
class PresentDevices {
public:
  explicit PresentDevices(const Value &chain) {
    for (const ChainDevice &device : chain.Devices())
      keys.insert(keyOf(device));
  }
  bool contains(const ChainDevice &device) const {
    return keys.count(keyOf(device)) != 0;
  }

private:
  static std::string keyOf(const ChainDevice &device) {
    std::string key;
    for (const auto &[name, value] : device) {
      const std::string text = value.IsText() ? '"' + value.Text()
                               : value.IsNumber()
                                   ? std::to_string(value.Number())
                                   : std::string();
      key += fmt::format("{} {} {} ", name, text.size(), text);
    }
    return key;
  }

  std::unordered_set<std::string> keys;
};

Value expectChain(const SettingRow &row, const Value &asked,
                  const Snapshot &current) {
  if (!asked.IsChain())
    refuse(row.info.id, asked, "is no list of devices");
  const PresentDevices present(valueIn(current, row));
  Value::Chain chain;
  for (const ChainDevice &device : asked.Devices())
    chain.push_back(present.contains(device)
                        ? device
                        : expectDevice(device, chain.size(), current));
  return chain;
}

/// A value of the setting's kind, whatever it has now or by default.
Value expectValueOfKind(const SettingRow &row, const Value &asked,
                        const Value &defaultValue, const Snapshot &current) {
  switch (row.info.kind) {
  case SettingKind::flag:
    return expectFlag(row, asked, defaultValue);
  case SettingKind::number:
  case SettingKind::address:
  case SettingKind::frequency:
    return expectNumberValue(row, asked);
  case SettingKind::text:
  case SettingKind::file:
    return expectTextValue(row, asked);
  case SettingKind::chain:
    return expectChain(row, asked, current);
  case SettingKind::word:
    break;
  }
  return expectWordValue(row, asked);
}

/// A number as it is shown: it may be none that could be asked for, and stays.
bool isShownAs(const SettingRow &row, const Value &value, const Value &asked) {
  return value.IsNumber() && asked.IsText() &&
         asked.Text() == ShowValue(row.info, value);
}

} // namespace

const SettingRow &expectRow(std::string_view id) {
  const SettingRow *const row = findRow(id);
  if (row != nullptr)
    return *row;
  std::vector<std::string> names;
  for (const SettingRow &known : settingRows())
    names.push_back(known.info.id);
  const std::string name = printable(id);
  Refusal refusal(
      RefusalKind::unknownSetting, "",
      fmt::format("'{}' is no setting{}", name, didYouMean(id, names)));
  refusal.setting = name;
  refusal.suggestion = nearestMatch(id, names);
  refusal.accepted = std::move(names);
  throw refusal;
}

const SettingRow &expectSettable(std::string_view id) {
  const SettingRow &row = expectRow(id);
  if (row.info.settable && !row.isOfDevice())
    return row;
  Refusal refusal(
      RefusalKind::notSettable, std::string(id),
      row.isOfDevice() ? "the chain is changed as a whole, by 'chain'"
      : row.isIdentity ? "it says which processor it is, and cannot be set"
                       : "it follows from other settings, and cannot be set");
  refusal.setting = id;
  if (row.isOfDevice())
    refusal.suggestion = chainSetting;
  throw refusal;
}

Value expectValue(const SettingRow &row, const Value &asked,
                  const Snapshot &current, const Snapshot &defaults) {
  Value defaultValue = valueIn(defaults, row);
  Value present = valueIn(current, row);
  const bool isThere = asked == present && !asked.IsNothing();
  const bool isOpenToAll = row.info.kind != SettingKind::word;
  if (isThere || (isOpenToAll && asked == defaultValue))
    return asked;
  if (isShownAs(row, present, asked))
    return present;
  if (isOpenToAll && isShownAs(row, defaultValue, asked))
    return defaultValue;
  if (row.info.kind != SettingKind::word)
    return expectValueOfKind(row, asked, defaultValue, current);
  Value value = expectWordValue(row, asked);
  for (const Choice &choice : row.info.choices) {
    if (choice.value != value)
      continue;
    const std::string problem = whyNotAllowed(row, choice, defaults.record);
    if (problem.empty() || value == present)
      continue;
    Refusal refusal(RefusalKind::notAllowed, row.info.id,
                    fmt::format("'{}': {}", choice.text, problem));
    refusal.setting = row.info.id;
    refusal.value = choice.text;
    for (const Choice &other : row.info.choices)
      if (whyNotAllowed(row, other, defaults.record).empty())
        refusal.accepted.push_back(other.text);
    throw refusal;
  }
  return value;
}

Value readValue(const SettingRow &row, const std::string &text) {
  Snapshot fresh;
  fresh.chain.emplace_back();
  return expectValueOfKind(row, text, valueIn(fresh, row), fresh);
}

Value takenValue(const SettingRow &row, const Value &asked) {
  Snapshot fresh;
  fresh.chain.emplace_back();
  const Value defaultValue = valueIn(fresh, row);
  if (row.info.kind != SettingKind::word && asked == defaultValue)
    return asked;
  return expectValueOfKind(row, asked, defaultValue, fresh);
}

std::string whyNotAllowed(const SettingRow &row, const Choice &choice,
                          const ProcessorInfoImp &processor) {
  if (row.set == nullptr || !choice.value.IsText())
    return "";
  const ConnectionKind *const kind = findConnectionKind(choice.value.Text());
  const std::uint32_t mask = processor.connectionMask;
  if (kind == nullptr || (kind->connectionType & mask) != 0)
    return "";
  const std::vector<std::string> allowed = allowedKinds(mask);
  return fmt::format("{} does not allow it; it allows {}",
                     processor.instanceName.empty()
                         ? "the processor"
                         : "'" + processor.instanceName + "'",
                     allowed.empty() ? "none" : quotedList(allowed));
}

std::vector<Value> sampleValues(const SettingRow &row, const Snapshot &current,
                                const Snapshot &defaults) {
  const Value defaultValue = valueIn(defaults, row);
  std::vector<Value> samples{valueIn(current, row)};
  const auto add = [&samples](Value value) {
    if (std::find(samples.begin(), samples.end(), value) == samples.end())
      samples.push_back(std::move(value));
  };
  if (row.info.kind != SettingKind::word)
    add(defaultValue);
  switch (row.info.kind) {
  case SettingKind::flag:
    for (const bool flag : {false, true})
      add(expectFlag(row, flag, defaultValue));
    break;
  case SettingKind::number:
  case SettingKind::frequency:
    for (const int number : {0, 1, 2})
      add(number);
    break;
  case SettingKind::address:
    for (const std::int64_t address :
         {std::int64_t{0}, row.step, std::int64_t{unsetAddress}})
      add(address);
    break;
  case SettingKind::word:
    for (const Choice &choice : row.info.choices)
      if (whyNotAllowed(row, choice, defaults.record).empty())
        add(choice.value);
    break;
  case SettingKind::text:
  case SettingKind::file:
    for (const char *text : {"a", "b"})
      add(text);
    break;
  case SettingKind::chain:
    add(Value::Chain{});
    add(Value::Chain{deviceValue(JtagOption())});
    break;
  }
  return samples;
}

} // namespace ZelDebugDialog::model

#include "commands/Replay.h"

#include <algorithm>
#include <stdexcept>

#include "ZelDebugDialog/ConfigurationModel/Language.h"
#include "ZelDebugDialog/SettingFields.h"
#include "commands/EngineLock.h"
#include "commands/Keywords.h"

namespace ZelDebugDialog::model {

namespace {

/// Whether an option leads to options of another set, up to the end.
bool opensOptionSet(const std::string &word) {
  const auto opens = [&word](const LanguageOption &option) {
    return !option.optionSet.empty() && sameKeyword(option.keyword, word);
  };
  const auto &sets = GetLanguage().optionSets;
  return std::any_of(
      sets.begin(), sets.end(), [&](const LanguageOptionSet &set) {
        return std::any_of(set.options.begin(), set.options.end(), opens);
      });
}

/// Gives a field any value but the one that it has. A clause of the chain makes
/// its devices anew.
void makeOther(EngineImp &state, const std::string &name) {
  const std::size_t field = FindField(name);
  const SettingFields fields = GetSettingFields();
  if (field == fields.size() || fields[field].owner == FieldOwner::device)
    return;
  FieldValue value = GetField(state, field);
  if (auto *const text = std::get_if<std::string>(&value))
    *text += '?';
  else
    value = std::int64_t{std::get<std::int64_t>(value) == 0 ? 1 : 0};
  SetField(state, field, value);
}

} // namespace

std::vector<NamedValue> Replay::take(const CommandWord &word,
                                     const std::string &text,
                                     const std::string &behind) {
  std::string piece = pieceWith(word, text);
  // A target is not taken without a connection.
  if (word.role == WordRole::target)
    piece += behind;
  return word.fields.empty() ? std::vector<NamedValue>()
                             : read(piece, word.fields);
}

std::vector<std::string> Replay::changedBy(const CommandWord &word,
                                           const std::string &text,
                                           bool isAtFault) {
  const std::string piece = pieceWith(word, text);
  const bool mayLeave = word.fields.size() > 1 || isAtFault;
  if (word.role != WordRole::value || word.fields.empty() || !mayLeave)
    return word.fields;
  const std::vector<NamedValue> once = read(piece, word.fields);
  for (const std::string &field : word.fields)
    makeOther(desk.state(), field);
  const std::vector<NamedValue> again = read(piece, word.fields);
  std::vector<std::string> changed;
  for (std::size_t i = 0; i < word.fields.size(); ++i)
    if (once[i].value == again[i].value)
      changed.push_back(word.fields[i]);
  return changed;
}

/// Puts the word in its place, and what is needed of the command around it.
std::string Replay::pieceWith(const CommandWord &word,
                              const std::string &text) {
  switch (word.role) {
  case WordRole::head:
  case WordRole::target:
  case WordRole::connection:
    front += text + ' ';
    return front;
  case WordRole::option:
    option = text + ' ';
    name.clear();
    if (isSetOpen || !opensOptionSet(text))
      return front + option;
    isSetOpen = true;
    front += option;
    option.clear();
    return front;
  case WordRole::name:
    name = text + ' ';
    break;
  default:
    break;
  }
  return front + option + name + text;
}

std::vector<NamedValue> Replay::read(const std::string &piece,
                                     const std::vector<std::string> &fields) {
  const auto lock = lockEngine();
  EngineImp &state = desk.state();
  CommandTrace ignored;
  try {
    // At the end of a command a clause would be finished: not here.
    TraceKvoCommand(piece + " -next", state, ignored, AfterFault::goOn);
  } catch (const std::out_of_range &) {
    // A lone dash is nothing that changes a setting.
  }
  const Snapshot now = snapshotOf(state);
  ReleaseChainRecords(state.jtagChain);
  std::vector<NamedValue> values;
  for (const std::string &field : fields) {
    // Each device is the first one here.
    const bool ofChain = field.compare(0, 6, "chain[") == 0;
    const std::string here =
        ofChain ? "chain[0]" + field.substr(field.find('.')) : field;
    values.push_back({field, fieldNamed(now, here)});
  }
  return values;
}

} // namespace ZelDebugDialog::model

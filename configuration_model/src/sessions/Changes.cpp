#include "sessions/Changes.h"

#include <algorithm>

#include <fmt/format.h>

#include "settings/Values.h"

namespace ZelDebugDialog::model {

namespace {

/// A setting that is asked for: a value, or its default.
struct Asked {
  const SettingRow *row;
  const Value *value; ///< null: its default
};

/// Those that bring others along come first, so that what is asked for of the
/// others stands over it.
bool comesFirst(const SettingRow &row) { return !row.effect.empty(); }

[[noreturn]] void refuseBoth(const SettingRow &one, const SettingRow &other) {
  Refusal refusal(
      RefusalKind::excluded, one.info.id,
      one.info.id == other.info.id
          ? std::string("it is asked for twice, with different values")
          : fmt::format("it and '{}' exclude each other", other.info.id));
  refusal.setting = one.info.id;
  refusal.other = other.info.id;
  throw refusal;
}

/// Who took its value away: another one, or the same that is asked for twice.
const SettingRow &causeOf(const std::vector<Asked> &list,
                          const SettingRow &row) {
  for (const Asked &other : list)
    if (other.row != &row && other.row->brings(row))
      return *other.row;
  return row;
}

std::vector<Asked> listOf(const SettingValues &values,
                          const std::vector<std::string> &reset) {
  std::vector<Asked> list;
  const auto find = [&list](const SettingRow &row) {
    return std::find_if(list.begin(), list.end(), [&row](const Asked &asked) {
      return asked.row == &row;
    });
  };
  for (const auto &[id, value] : values)
    list.push_back({&expectSettable(id), &value});
  for (const std::string &id : reset) {
    const SettingRow &row = expectSettable(id);
    if (find(row) == list.end())
      list.push_back({&row, nullptr});
  }
  return list;
}

} // namespace

std::set<std::string> applyValues(Snapshot &snapshot,
                                  const ProcessorInfoImp &identity,
                                  const SettingValues &values,
                                  const std::vector<std::string> &reset) {
  const std::vector<Asked> list = listOf(values, reset);
  std::vector<Value> given(list.size());
  for (const bool first : {true, false})
    for (std::size_t i = 0; i < list.size(); ++i) {
      const SettingRow &row = *list[i].row;
      if (comesFirst(row) != first)
        continue;
      const Snapshot defaults = defaultsBeside(snapshot, identity);
      given[i] = list[i].value == nullptr
                     ? valueIn(defaults, row)
                     : expectValue(row, *list[i].value, snapshot, defaults);
      storeIn(snapshot, row, given[i]);
    }
  std::set<std::string> asked;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (valueIn(snapshot, *list[i].row) != given[i])
      refuseBoth(*list[i].row, causeOf(list, *list[i].row));
    asked.insert(list[i].row->info.id);
  }
  return asked;
}

std::vector<std::string> copySettings(Snapshot &snapshot,
                                      const ProcessorInfoImp &identity,
                                      const Snapshot &from) {
  std::vector<std::string> left;
  Snapshot copied = from;
  copied.record.connectCommand = snapshot.record.connectCommand;
  for (const SettingRow &row : settingRows())
    if (row.isIdentity)
      storeIn(copied, row, valueIn(snapshot, row));
  for (const SettingRow &row : settingRows()) {
    if (row.info.kind != SettingKind::word)
      continue;
    for (const Choice &choice : row.info.choices) {
      const bool isRefused = choice.value == valueIn(copied, row) &&
                             choice.value != valueIn(snapshot, row) &&
                             !whyNotAllowed(row, choice, identity).empty();
      if (!isRefused)
        continue;
      left.push_back(row.info.id);
      storeIn(copied, row, valueIn(snapshot, row));
    }
  }
  snapshot = std::move(copied);
  return left;
}

std::vector<Effect> effectsBetween(const Snapshot &before,
                                   const Snapshot &after,
                                   const std::set<std::string> &asked,
                                   const std::string &why) {
  std::vector<Effect> effects;
  const auto reasonFor = [&](const SettingRow &row) {
    for (const std::string &id : asked) {
      const SettingRow &cause = *findRow(id);
      if (cause.brings(row))
        return cause.effect;
    }
    return why;
  };
  const auto add = [&](const std::string &id, Value left, Value right) {
    if (asked.count(id) == 0)
      effects.push_back(
          {id, std::move(left), std::move(right), reasonFor(*findRow(id))});
  };
  if (before.record.connectCommand != after.record.connectCommand)
    add("connectCommand", before.record.connectCommand,
        after.record.connectCommand);
  for (FieldDifference &difference : settingsThatDiffer(before, after))
    add(difference.name, std::move(difference.before),
        std::move(difference.after));
  return effects;
}

} // namespace ZelDebugDialog::model

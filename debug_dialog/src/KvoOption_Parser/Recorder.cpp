#include "KvoOption_Parser/Recorder.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "KvoOption_Parser/Message.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/SettingFields.h"

namespace ZelDebugDialog::kvo {

namespace {

/// Where the fields of a state lie.
struct Places {
  const EngineImp &imp;
  const JtagOption *device;

  template <class Value>
  const void *operator()(Value ProcessorInfoImp::*member) const {
    return &(imp.currentProcessor->*member);
  }
  template <class Value>
  const void *operator()(Value CableOption::*member) const {
    return &((*imp.cableOption).*member);
  }
  template <class Value>
  const void *operator()(Value EngineImp::*member) const {
    return &(imp.*member);
  }
  template <class Value>
  const void *operator()(Value JtagOption::*member) const {
    return device == nullptr ? nullptr : &(device->*member);
  }
};

/// Far more than modules have.
constexpr std::size_t mostJoined = 1000000;

bool names(const CommandWord &word, const std::string &field) {
  return std::find(word.fields.begin(), word.fields.end(), field) !=
         word.fields.end();
}

} // namespace

void Recorder::took(std::size_t offset, std::string_view word, WordRole role) {
  trace.words.push_back({offset, word.size(), role, {}, {}, {}});
  endsWithLostOption = false;
}

std::uint8_t Recorder::rowOf(const void *field) const {
  const Places places{imp, newDevice};
  std::uint8_t row = 0;
  while (std::visit(places, fieldRows.at(row).member) != field)
    ++row;
  return row;
}

FieldValue Recorder::valueOf(std::uint8_t field) const {
  const bool isOfDevice = GetSettingFields()[field].owner == FieldOwner::device;
  return isOfDevice ? GetField(*newDevice, field) : GetField(imp, field);
}

std::string Recorder::nameOf(std::uint8_t field) const {
  // The device that a clause is filling stands behind those of the chain.
  return GetFieldName(field, imp.jtagChain.size());
}

void Recorder::keepValue(const void *field) { before = valueOf(rowOf(field)); }

void Recorder::keepJoined(const std::string &text) {
  joined += text.size();
  before = joined > mostJoined ? std::string() : text;
}

void Recorder::storedJoined(const std::string &text,
                            std::string_view argument) {
  const std::uint8_t row = rowOf(&text);
  addChange(lastWord(), row,
            joined > mostJoined ? std::string(argument) : text);
  decides(row);
}

void Recorder::addChange(std::size_t word, std::uint8_t field,
                         FieldValue after) {
  std::vector<FieldChange> &changes = trace.words[word].changes;
  std::string name = nameOf(field);
  const auto known = std::find_if(
      changes.begin(), changes.end(),
      [&name](const FieldChange &change) { return change.field == name; });
  if (known != changes.end())
    known->after = std::move(after);
  else
    changes.push_back({std::move(name), std::move(before), std::move(after)});
}

void Recorder::forget(std::uint8_t field) {
  const std::string name = nameOf(field);
  for (CommandWord &word : trace.words)
    word.fields.erase(std::remove(word.fields.begin(), word.fields.end(), name),
                      word.fields.end());
}

void Recorder::stored(const void *field) {
  const std::uint8_t row = rowOf(field);
  addChange(lastWord(), row, valueOf(row));
  decides(row);
}

void Recorder::decides(std::uint8_t field) {
  std::string name = nameOf(field);
  if (!names(trace.words.back(), name))
    trace.words.back().fields.push_back(std::move(name));
}

void Recorder::storedFor(std::size_t word, const void *field) {
  const std::uint8_t row = rowOf(field);
  addChange(word, row, valueOf(row));
  forget(row);
  trace.words[word].fields.push_back(nameOf(row));
}

void Recorder::replaced(std::size_t word, const void *field) {
  const std::uint8_t row = rowOf(field);
  addChange(word, row, valueOf(row));
  forget(row);
}

std::size_t Recorder::wordThatChanged(std::uint8_t field,
                                      std::size_t otherwise) const {
  const std::string name = nameOf(field);
  for (std::size_t word = trace.words.size(); word-- > 0;)
    for (const FieldChange &change : trace.words[word].changes)
      if (change.field == name)
        return word;
  return otherwise;
}

bool Recorder::takesUpLostOption() {
  if (!std::exchange(endsWithLostOption, false))
    return false;
  isNow(WordRole::option);
  return true;
}

void Recorder::accepts(const NamedValues &accepted) {
  for (const NamedValue &row : accepted)
    trace.faults.back().accepted.emplace_back(row.keyword);
}

void Recorder::faultAt(std::uint8_t field, CommandFaultKind kind,
                       const std::vector<std::uint32_t> &accepted) {
  const std::size_t word = wordThatChanged(field, lastWord());
  record(kind, word, NamedValues());
  for (const std::uint32_t frequency : accepted)
    trace.faults.back().accepted.push_back(std::to_string(frequency));
}

std::string Recorder::takeMessage() const {
  std::string message;
  if (imp.engine != nullptr)
    imp.engine->GetErrorStr(message);
  setMessage(imp, {});
  return message;
}

} // namespace ZelDebugDialog::kvo

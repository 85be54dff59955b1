#include "KvoOption_Parser/WriteRecorder.h"

#include <algorithm>
#include <optional>

#include "ZelDebugDialog/EngineFacts.h"
#include "ZelDebugDialog/SettingFields.h"

namespace ZelDebugDialog::kvo {

namespace {

WordRole roleOf(std::string_view keyword) {
  return keyword.front() == '-' ? WordRole::option : WordRole::name;
}

/// What keeps a text from being read as one word.
std::optional<OmissionReason> frailtyOf(std::string_view text,
                                        const Characters &characters) {
  if (text.empty())
    return OmissionReason::emptyText;
  if (text.find_first_of(" \t") != std::string_view::npos ||
      characters.isSpace(text.front()) || characters.isSpace(text.back()))
    return OmissionReason::whiteSpace;
  if (text == "-")
    return OmissionReason::leadingMinus;
  return std::nullopt;
}

} // namespace

std::string WriteRecorder::nameOf(std::uint8_t field) const {
  return GetFieldName(field, device);
}

void WriteRecorder::addWord(std::size_t offset, std::size_t length,
                            WordRole role, const Fields &carried) {
  WrittenWord word{offset, length, role, {}};
  for (const std::uint8_t field : carried)
    word.fields.push_back(nameOf(field));
  writing.words.push_back(std::move(word));
  told = offset + length;
}

void WriteRecorder::began(const std::string &text, const Fields &carried) {
  writing.words.clear();
  addWord(0, text.size(), WordRole::head, carried);
}

void WriteRecorder::wroteWord(const std::string &text, std::string_view word,
                              WordRole role, const Fields &carried) {
  addWord(text.size() - word.size(), word.size(), role, carried);
}

void WriteRecorder::wroteValue(const std::string &text,
                               std::string_view keywords,
                               const Fields &carried) {
  const std::string_view written(text);
  const std::size_t end = told + keywords.size();
  for (;;) {
    const std::size_t first = written.find_first_not_of(' ', told);
    if (first >= end)
      break;
    const std::size_t last = written.find(' ', first);
    const std::string_view keyword = written.substr(first, last - first);
    addWord(first, keyword.size(), roleOf(keyword), {});
  }
  addWord(end, text.size() - end, WordRole::value, carried);
}

void WriteRecorder::takesBack(const std::string &text) {
  writing.words.pop_back();
  told = text.size();
}

std::string_view WriteRecorder::wroteRest(const std::string &text,
                                          WordRole role,
                                          const Fields &carried) {
  const std::size_t first = told + 1;
  addWord(first, text.size() - first, role, carried);
  return std::string_view(text).substr(first);
}

void WriteRecorder::expectValue(std::string_view value, const Fields &carried) {
  expectAnyWord(value, carried);
  if (IsOptionWord(value))
    cannotBeRead(carried, OmissionReason::leadingMinus);
}

void WriteRecorder::expectAnyWord(std::string_view value,
                                  const Fields &carried) {
  if (const auto reason = frailtyOf(value, characters))
    cannotBeRead(carried, *reason);
}

void WriteRecorder::implies(const Fields &left) {
  for (const std::uint8_t field : left)
    writing.implied.push_back(nameOf(field));
}

void WriteRecorder::leavesOut(const Fields &left, OmissionReason reason,
                              const Fields &displacedBy) {
  const std::string other =
      displacedBy.empty() ? std::string() : nameOf(*displacedBy.begin());
  for (const std::uint8_t field : left)
    writing.omissions.push_back({nameOf(field), reason, other});
}

void WriteRecorder::cannotBeRead(const Fields &written, OmissionReason reason) {
  for (const std::uint8_t field : written) {
    const std::string name = nameOf(field);
    const bool isKnown = std::any_of(
        writing.unreadable.begin(), writing.unreadable.end(),
        [&name](const Omission &known) { return known.field == name; });
    if (!isKnown)
      writing.unreadable.push_back({name, reason, {}});
  }
}

void WriteRecorder::gaveUp(const Fields &because, OmissionReason reason) {
  writing = CommandWriting();
  leavesOut(because, reason);
}

} // namespace ZelDebugDialog::kvo

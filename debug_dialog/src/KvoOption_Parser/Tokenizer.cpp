#include <stdexcept>
#include <utility>

#include "KvoOption_Parser/WordCursor.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "ZelDebugDialog/KvoOption_Parser.h"

namespace ZelDebugDialog {

std::string KvoOption_Parser::current_option;

namespace kvo {

WordCursor::WordCursor(std::string &origin, Recorder *listener)
    : recorder(listener), source(origin), text(std::move(origin)) {
  source.clear();
  position = text.data();
  end = position + text.size();
  while (end != position && characters.isSpace(end[-1]))
    --end;
}

WordCursor::~WordCursor() {
  text.resize(static_cast<std::size_t>(end - text.data()));
  text.erase(0, static_cast<std::size_t>(position - text.data()));
  source = std::move(text);
}

int WordCursor::acceptMinus(std::string_view word) {
  // A lone "-": fetching the character behind it with a bounds check raises the
  // standard out-of-range error, for the caller of the public operation to see.
  if (word.size() == 1)
    return std::string(word).at(1);
  if (!IsOptionWord(word))
    return code::value;
  KvoOption_Parser::current_option = word;
  return code::option;
}

int WordCursor::acceptTraced(std::string_view word, WordRole role) {
  recorder->took(offsetOf(word), word, role);
  try {
    return accept(word);
  } catch (const std::out_of_range &) {
    recorder->fault(CommandFaultKind::loneDash);
    if (!recorder->goesOn())
      throw;
    return code::refused;
  }
}

int WordCursor::goOnTraced(int next) {
  if (!recorder->goesOn())
    return next;
  while (next != code::option && next != code::end) {
    if (recorder->takesUpLostOption())
      return code::option;
    std::string_view word;
    next = this->next(word, WordRole::option);
    // Under a locale to which a blank is no white space a word may be empty,
    // and be read again and again.
    if (next == code::value && word.empty())
      return next;
    if (next == code::value)
      recorder->isNow(WordRole::ignored);
  }
  return next;
}

void WordCursor::ignoreRest() {
  std::string_view word;
  while (peek(word) && !word.empty()) {
    if (recorder != nullptr)
      recorder->took(offsetOf(word), word, WordRole::ignored);
    position += word.size();
  }
}

} // namespace kvo

int KvoOption_Parser::get_token(std::string &input, std::string &token) {
  kvo::WordCursor cursor(input);
  return cursor.next(token, WordRole::ignored);
}

int KvoOption_Parser::get_tokenpair(std::string &input, std::string &first,
                                    std::string &second) {
  if (const int result = get_token(input, first); result != kvo::code::value)
    return result;
  return get_token(input, second) == kvo::code::value ? kvo::code::value
                                                      : kvo::code::refused;
}

} // namespace ZelDebugDialog

// Walks a text word by word.
//
// Words end at a blank or a tab; the locale's white space around them is
// dropped. The cursor holds the text while it walks and gives back what is left
// when it ends, so that a text is cut once, however many words are read. Words
// are views into the text and live as long as the cursor.
//
// A cursor may have a recorder, which is told what each word is, what it
// changes and what is wrong with it. Mostly it has none: a reader then pays for
// a look at a null pointer.
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_WORDCURSOR_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_WORDCURSOR_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "KvoOption_Parser/Characters.h"
#include "KvoOption_Parser/Codes.h"
#include "KvoOption_Parser/Recorder.h"
#include "KvoOption_Parser/ValueForm.h"
#include "KvoOption_Parser/WordEnd.h"
#include "ZelDebugDialog/KvoOption_Parser.h"

namespace ZelDebugDialog::kvo {

class WordCursor {
public:
  /// Takes the text out of `origin`, which is empty until the end.
  explicit WordCursor(std::string &origin, Recorder *listener = nullptr);
  ~WordCursor();
  WordCursor(const WordCursor &) = delete;
  WordCursor &operator=(const WordCursor &) = delete;

  // --- Reading ---------------------------------------------------------------

  /// Reads the next word: `code::value`, or `code::option`, which is also
  /// copied to `current_option`, or `code::end` with `word` as it was. A lone
  /// "-" is refused by std::out_of_range, after it was read into `word`.
  template <class Word> int next(Word &word, WordRole role) {
    std::string_view found;
    if (!peek(found))
      return code::end;
    word = found;
    return recorder == nullptr ? accept(found) : acceptTraced(found, role);
  }

  /// Reads the next word where an option belongs.
  template <class Word> int nextOption(Word &word) {
    const int result = next(word, WordRole::option);
    if (result == code::value && recorder != nullptr) {
      recorder->isNow(WordRole::value);
      recorder->fault(CommandFaultKind::notAnOption);
    }
    return result;
  }
  int nextOption() {
    std::string_view word;
    return nextOption(word);
  }

  /// The same, into `current_option`: there a plain value ends up as well.
  int nextIntoCurrentOption() {
    return nextOption(KvoOption_Parser::current_option);
  }

  /// Reads the value of the option or name before it. An option word in its
  /// place is lost.
  template <class Word, class Keywords = NamedValues>
  int nextValue(Word &value, const Keywords &accepted = {}) {
    const int result = next(value, WordRole::value);
    if (result != code::value && recorder != nullptr)
      recorder->lacksValue(result, accepted);
    return result;
  }

  /// Reads a name and its value: `code::value` for both; `code::option` or
  /// `code::end` in place of a name; `code::refused` for a name without a
  /// value.
  int nextPair(std::string_view &name, std::string_view &value) {
    if (const int result = next(name, WordRole::name); result != code::value) {
      if (result == code::option && recorder != nullptr)
        recorder->isNow(WordRole::option);
      return result;
    }
    return nextValue(value) == code::value ? code::value : code::refused;
  }

  /// What a walk over options goes on with. A recorder may have it go on at the
  /// next option where it would be refused.
  int goOn(int next) { return recorder == nullptr ? next : goOnTraced(next); }

  /// Passes what is left of the text.
  void ignoreRest();

  // --- Storing ---------------------------------------------------------------

  /// Gives a field of the state the value that the last word says.
  template <class Field, class Value>
  void store(Field &field, const Value &value) {
    if (recorder == nullptr) {
      field = value;
      return;
    }
    recorder->keepValue(&field);
    field = value;
    recorder->stored(&field);
  }
  /// The same for an earlier word: what the last words gave to the field is
  /// replaced.
  template <class Field, class Value>
  void storeFor(std::size_t word, Field &field, const Value &value) {
    if (recorder == nullptr) {
      field = value;
      return;
    }
    recorder->keepValue(&field);
    field = value;
    recorder->storedFor(word, &field);
  }

  // --- Telling ---------------------------------------------------------------

  /// Whether somebody listens who goes on behind a fault.
  bool goesOn() const { return recorder != nullptr && recorder->goesOn(); }
  /// How the last word is read.
  void reads(const ValueForm &form) const {
    if (recorder != nullptr)
      recorder->reads(form);
  }
  /// The last word has another role than it was read for.
  void isNow(WordRole role) const {
    if (recorder != nullptr)
      recorder->isNow(role);
  }
  /// The index of the last word.
  std::size_t lastWord() const {
    return recorder == nullptr ? 0 : recorder->lastWord();
  }
  /// The word `back` words before the last is at fault (0: the last).
  template <class Keywords = NamedValues>
  void fault(CommandFaultKind kind, const Keywords &accepted = {},
             std::size_t back = 0) const {
    if (recorder != nullptr)
      recorder->fault(kind, accepted, back);
  }
  /// The text ended where a word belongs.
  template <class Keywords = NamedValues>
  void missing(CommandFaultKind kind, const Keywords &accepted = {}) const {
    if (recorder != nullptr)
      recorder->missing(kind, accepted);
  }

  Characters characters;
  Recorder *const recorder; ///< null where nobody listens

private:
  std::size_t offsetOf(std::string_view word) const {
    return static_cast<std::size_t>(word.data() - text.data());
  }
  /// Finds the next word, and drops the white space in front of it; false at
  /// the end.
  bool peek(std::string_view &word);
  /// Goes behind the word that was found and classifies it.
  int accept(std::string_view word);
  int acceptMinus(std::string_view word);
  [[gnu::cold]] int acceptTraced(std::string_view word, WordRole role);
  [[gnu::cold]] int goOnTraced(int next);

  std::string &source;
  std::string text;
  const char *position; // into `text`, as is `end`
  const char *end;
};

inline bool WordCursor::peek(std::string_view &word) {
  const char *const last = end;
  const char *first = position;
  while (first != last && characters.isSpace(*first))
    ++first;
  const char *stop = endOfWord(first, last);
  while (stop != first && characters.isSpace(stop[-1]))
    --stop;
  position = first;
  word = {first, static_cast<std::size_t>(stop - first)};
  return first != last;
}

inline int WordCursor::accept(std::string_view word) {
  position += word.size();
  // Under a locale to which a blank is no white space a word may be empty.
  if (word.empty() || word.front() != '-')
    return code::value;
  return acceptMinus(word);
}

} // namespace ZelDebugDialog::kvo

#endif

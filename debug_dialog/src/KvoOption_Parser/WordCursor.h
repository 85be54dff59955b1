// Walks a text word by word.
//
// Words end at a blank or a tab; the locale's white space around them is
// dropped. The cursor holds the text while it walks and gives back what is left
// when it ends, so that a text is cut once, however many words are read. Words
// are views into the text and live as long as the cursor.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "KvoOption_Parser/Characters.h"
#include "KvoOption_Parser/Codes.h"
#include "KvoOption_Parser/Observer.h"
#include "ZelDebugDialog/KvoOption_Parser.h"

namespace ZelDebugDialog::kvo {

/// The text of a cursor and its place in it.
class Words {
public:
  Words(const Words &) = delete;
  Words &operator=(const Words &) = delete;

  Characters characters;

protected:
  /// Takes the text out of `origin`, which is empty until the end.
  explicit Words(std::string &origin);
  ~Words();

  /// Finds the next word, and drops the white space in front of it.
  std::string_view peek();
  bool atEnd() const { return position == end; }
  void advance(std::string_view word) { position += word.size(); }
  /// Goes behind the word that was found and classifies it.
  int accept(std::string_view word);
  std::size_t offset() const {
    return static_cast<std::size_t>(position - text.data());
  }

private:
  std::string &source;
  std::string text;
  const char *position; // into `text`, as is `end`
  const char *end;
};

template <class Observer> class WordCursor : public Words {
public:
  explicit WordCursor(std::string &origin, Observer watcher = {})
      : Words(origin), observer(watcher) {}

  /// Reads the next word: `code::value`, or `code::option`, which is also
  /// copied to `current_option`, or `code::end` with `word` as it was. A lone
  /// "-" is refused by std::out_of_range, after it was read into `word`.
  template <class Word> int next(Word &word, WordRole role) {
    const std::string_view found = peek();
    if (atEnd())
      return code::end;
    word = found;
    observer.took(offset(), found, role);
    return classify(found);
  }

  /// Reads the next word where an option belongs.
  template <class Word> int nextOption(Word &word) {
    const int result = next(word, WordRole::option);
    if (result == code::value) {
      observer.isNow(WordRole::value);
      observer.fault(CommandFaultKind::notAnOption);
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
    if (result == code::end)
      observer.missing(CommandFaultKind::missingValue, accepted);
    if (result == code::option) {
      observer.isNow(WordRole::lost);
      observer.fault(CommandFaultKind::missingValue, accepted);
    }
    return result;
  }

  /// Reads a name and its value: `code::value` for both; `code::option` or
  /// `code::end` in place of a name; `code::refused` for a name without a
  /// value.
  int nextPair(std::string_view &name, std::string_view &value) {
    if (const int result = next(name, WordRole::name); result != code::value) {
      if (result == code::option)
        observer.isNow(WordRole::option);
      return result;
    }
    return nextValue(value) == code::value ? code::value : code::refused;
  }

  /// What a walk over options goes on with. An observer may have it go on at
  /// the next option where it would be refused.
  int goOn(int next) {
    if constexpr (Observer::isOn)
      if (observer.goesOn())
        while (next != code::option && next != code::end) {
          std::string_view word;
          next = this->next(word, WordRole::option);
          if (next == code::value)
            observer.isNow(WordRole::ignored);
        }
    return next;
  }

  /// Passes what is left of the text.
  void ignoreRest() {
    for (;;) {
      const std::string_view word = peek();
      if (word.empty())
        return;
      observer.took(offset(), word, WordRole::ignored);
      advance(word);
    }
  }

  Observer observer;

private:
  int classify(std::string_view word) {
    if constexpr (Observer::isOn)
      return observer.classify([&] { return accept(word); });
    else
      return accept(word);
  }
};

} // namespace ZelDebugDialog::kvo

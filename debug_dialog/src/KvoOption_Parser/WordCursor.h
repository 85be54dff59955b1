// Walks a text word by word.
//
// Words end at a blank or a tab; the locale's white space around them is
// dropped. The cursor holds the text while it walks and gives back what is left
// when it ends, so that a text is cut once, however many words are read. Words
// are views into the text and live as long as the cursor.
#pragma once

#include <string>
#include <string_view>

#include "KvoOption_Parser/Characters.h"
#include "KvoOption_Parser/Codes.h"

namespace ZelDebugDialog::kvo {

class WordCursor {
public:
  /// Takes the text out of `source`, which is empty until the cursor ends.
  explicit WordCursor(std::string &source);
  ~WordCursor();
  WordCursor(const WordCursor &) = delete;
  WordCursor &operator=(const WordCursor &) = delete;

  /// Reads the next word: `code::value`, or `code::option`, which is also
  /// copied to `current_option`, or `code::end` with `word` as it was. A lone
  /// "-" is refused by std::out_of_range, after it was read into `word`.
  int next(std::string_view &word);
  int next(std::string &word);

  /// Reads the next word where only its code matters.
  int skip() {
    std::string_view word;
    return next(word);
  }

  /// Reads a name and its value: `code::value` for both; `code::option` or
  /// `code::end` in place of a name; `code::refused` for a name without a
  /// value.
  int nextPair(std::string_view &name, std::string_view &value);

  /// Reads the next word into `current_option`, a plain value as well.
  int nextIntoCurrentOption();

  bool sameWord(std::string_view left, std::string_view right) {
    return characters.sameWord(left, right);
  }

private:
  std::string_view peek();
  int accept(std::string_view word);

  Characters characters;
  std::string &source;
  std::string text;
  const char *position; // into `text`, as is `end`
  const char *end;
};

} // namespace ZelDebugDialog::kvo

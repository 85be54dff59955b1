// What writers tell of a command while they write it, and the text that they
// write to.
//
// Mostly nobody listens: a writer then pays for a look at a null pointer.
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_WRITERECORDER_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_WRITERECORDER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "KvoOption_Parser/Characters.h"
#include "KvoOption_Parser/Numbers.h"
#include "KvoOption_Parser/Words.h"
#include "ZelDebugDialog/CommandWriting.h"
#include "facts/FieldRows.h"

namespace ZelDebugDialog::kvo {

/// Fills the record of a writing.
class WriteRecorder {
public:
  explicit WriteRecorder(CommandWriting &filled) : writing(filled) {}

  /// The text now begins with this command word.
  void began(const std::string &text, const Fields &carried);
  /// A word was written behind a blank.
  void wroteWord(const std::string &text, std::string_view word, WordRole role,
                 const Fields &carried);
  /// `keywords`, with their blanks, and a value were written.
  void wroteValue(const std::string &text, std::string_view keywords,
                  const Fields &carried);
  /// The last word was taken off the text again.
  void takesBack(const std::string &text);
  /// What is behind the words that are known, and behind a blank, is one word.
  /// @return the word.
  std::string_view wroteRest(const std::string &text, WordRole role,
                             const Fields &carried);
  /// A reader takes a value for what it is if it is a whole word, and none that
  /// begins an option.
  void expectValue(std::string_view value, const Fields &carried);
  /// The same where readers take option words for values.
  void expectAnyWord(std::string_view value, const Fields &carried);

  /// The fields are not written: that says their values.
  void implies(const Fields &left);
  /// The fields are not written, whatever their values are.
  void leavesOut(const Fields &left, OmissionReason reason,
                 const Fields &displacedBy = {});
  /// The fields are written, but readers refuse them.
  void cannotBeRead(const Fields &written, OmissionReason reason);
  /// There is no command.
  void gaveUp(const Fields &because, OmissionReason reason);

  /// Device fields belong to this device of the chain from now on.
  void beginsDevice(std::size_t position) { device = position; }

private:
  void addWord(std::size_t offset, std::size_t length, WordRole role,
               const Fields &carried);
  std::string nameOf(std::uint8_t field) const;

  CommandWriting &writing;
  Characters characters;
  std::size_t told = 0; ///< up to where the words of the text are known
  std::size_t device = 0;
};

/// The command that is being written, and who listens.
class CommandText {
public:
  explicit CommandText(std::string &written, WriteRecorder *listener = nullptr)
      : text(written), recorder(listener) {}

  /// Starts anew with the first word of a command.
  void begin(std::string_view word, const Fields &carried = {}) const {
    text = word;
    if (recorder != nullptr)
      recorder->began(text, carried);
  }
  /// A word of the language.
  template <const std::string_view &word>
  void addKeyword(WordRole role, const Fields &carried = {}) const {
    text += behindBlank<word>;
    if (recorder != nullptr)
      recorder->wroteWord(text, word, role, carried);
  }
  void addWord(std::string_view word, WordRole role,
               const Fields &carried = {}) const {
    appendWord(text, word);
    if (recorder != nullptr)
      recorder->wroteWord(text, word, role, carried);
  }

  // Each takes the words in front of its value with their blanks.
  void addText(std::string_view keywords, std::string_view value,
               const Fields &carried) const {
    text += keywords;
    text += value;
    if (recorder != nullptr) {
      recorder->wroteValue(text, keywords, carried);
      recorder->expectValue(value, carried);
    }
  }
  void addName(std::string_view keywords, std::string_view name,
               const Fields &carried) const {
    text += keywords;
    text += name;
    if (recorder != nullptr)
      recorder->wroteValue(text, keywords, carried);
  }
  void addDecimal(std::string_view keywords, std::int64_t number,
                  const Fields &carried) const {
    text += keywords;
    appendDecimal(text, number);
    if (recorder != nullptr)
      recorder->wroteValue(text, keywords, carried);
  }
  void addHexadecimal(std::string_view keywords, std::uint32_t number,
                      const Fields &carried) const {
    text += keywords;
    appendHexadecimal(text, number);
    if (recorder != nullptr)
      recorder->wroteValue(text, keywords, carried);
  }

  std::string &text;
  WriteRecorder *recorder; ///< null where nobody listens
};

} // namespace ZelDebugDialog::kvo

#endif

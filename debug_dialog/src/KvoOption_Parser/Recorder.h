// Fills a trace while a command is read.
//
// Nearly always nobody traces: what is told is cold, so that compilers keep it
// out of the way of the readers.
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_RECORDER_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_RECORDER_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "KvoOption_Parser/Codes.h"
#include "KvoOption_Parser/ValueForm.h"
#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/EngineImp.h"
#include "facts/FieldRows.h"

namespace ZelDebugDialog::kvo {

class Recorder {
public:
  Recorder(CommandTrace &filled, const EngineImp &state, AfterFault after)
      : trace(filled), imp(state), afterFault(after) {}

  bool goesOn() const { return afterFault == AfterFault::goOn; }

  // --- Words -----------------------------------------------------------------

  /// A word was read; `offset` is its place in the text.
  void took(std::size_t offset, std::string_view word, WordRole role);
  /// The last word has another role than it was read for.
  [[gnu::cold]] void isNow(WordRole role) { trace.words.back().role = role; }
  /// How the last word is read.
  [[gnu::cold]] void reads(const ValueForm &form) {
    trace.words.back().conversion = form.conversion;
  }
  /// The index of the last word.
  std::size_t lastWord() const { return trace.words.size() - 1; }
  /// The last word that has a change of the field; `otherwise` for none.
  std::size_t wordThatChanged(std::uint8_t field, std::size_t otherwise) const;

  // --- Changes ---------------------------------------------------------------

  /// The fields of a device are those of this one, which is not in the chain
  /// yet.
  void beginsDevice(const JtagOption &device) { newDevice = &device; }
  void endsDevice() { newDevice = nullptr; }

  /// A field is about to change.
  [[gnu::cold]] void keepValue(const void *field);
  /// The last word has changed it.
  [[gnu::cold]] void stored(const void *field);
  /// The same of the joined arguments of a module, which `argument` has joined.
  /// So that a command with very many does not take the square of its length,
  /// past a sum of lengths only the argument is kept.
  void keepJoined(const std::string &text);
  void storedJoined(const std::string &text, std::string_view argument);
  /// An earlier word has; what words gave to it is replaced.
  [[gnu::cold]] void storedFor(std::size_t word, const void *field);
  /// The end of a clause has, because of an earlier word; what words gave to it
  /// is replaced by no word.
  void replaced(std::size_t word, const void *field);

  // --- Faults ----------------------------------------------------------------

  /// The word `back` words before the last is at fault.
  template <class Keywords = NamedValues>
  [[gnu::cold, gnu::noinline]] void fault(CommandFaultKind kind,
                                          const Keywords &accepted = {},
                                          std::size_t back = 0) {
    record(kind, trace.words.size() - 1 - back, accepted);
  }
  /// The text ended where a word belongs.
  template <class Keywords = NamedValues>
  [[gnu::cold, gnu::noinline]] void missing(CommandFaultKind kind,
                                            const Keywords &accepted = {}) {
    record(kind, trace.words.size(), accepted);
  }
  /// A value is missing: the text ended, or the last word is an option that
  /// stands in its place, where the reading may go on.
  template <class Keywords>
  [[gnu::cold, gnu::noinline]] void lacksValue(int code,
                                               const Keywords &accepted) {
    if (code == code::end)
      return missing(CommandFaultKind::missingValue, accepted);
    if (code != code::option)
      return; // a lone "-", which is a fault already
    isNow(WordRole::lost);
    fault(CommandFaultKind::missingValue, accepted);
    endsWithLostOption = true;
  }
  /// Whether the last word is an option that was lost in a value's place. It
  /// begins a clause from now on.
  bool takesUpLostOption();
  /// What would have been accepted at the last fault.
  void accepts(const NamedValues &accepted);
  /// The last word that changed the field is at fault.
  void faultAt(std::uint8_t field, CommandFaultKind kind,
               const std::vector<std::uint32_t> &accepted);

private:
  template <class Keywords>
  void record(CommandFaultKind kind, std::size_t word,
              const Keywords &accepted) {
    CommandFault found{kind, word, takeMessage(), {}};
    for (const auto &row : accepted)
      found.accepted.emplace_back(row.keyword);
    trace.faults.push_back(std::move(found));
  }
  std::string takeMessage() const;

  std::uint8_t rowOf(const void *field) const;
  FieldValue valueOf(std::uint8_t field) const;
  void addChange(std::size_t word, std::uint8_t field, FieldValue after);
  void decides(std::uint8_t field);
  void forget(std::uint8_t field);
  std::string nameOf(std::uint8_t field) const;

  CommandTrace &trace;
  const EngineImp &imp;
  AfterFault afterFault;
  const JtagOption *newDevice = nullptr;
  FieldValue before;               ///< of the field that is about to change
  std::size_t joined = 0;          ///< sum of the lengths of joined arguments
  bool endsWithLostOption = false; ///< the last word is one
};

} // namespace ZelDebugDialog::kvo

#endif

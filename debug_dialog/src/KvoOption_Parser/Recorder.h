// The observer that fills a trace.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "KvoOption_Parser/Codes.h"
#include "KvoOption_Parser/Observer.h"
#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/EngineImp.h"

namespace ZelDebugDialog::kvo {

class Recorder {
public:
  static constexpr bool isOn = true;

  Recorder(CommandTrace &filled, const EngineImp &state, AfterFault after)
      : trace(&filled), imp(&state), afterFault(after) {}

  bool goesOn() const { return afterFault == AfterFault::goOn; }

  void took(std::size_t offset, std::string_view word, WordRole role) const {
    trace->words.push_back({offset, word.size(), role, {}, {}});
  }
  void isNow(WordRole role) const { trace->words.back().role = role; }
  void sets(const ValueForm &form) const;
  std::size_t lastWord() const { return trace->words.size() - 1; }
  void setsNow(std::size_t word, const ValueForm &form) const;
  void replaces(std::string_view field) const;

  template <class Keywords = NamedValues>
  void fault(CommandFaultKind kind, const Keywords &accepted = {},
             std::size_t back = 0) const {
    record(kind, trace->words.size() - 1 - back, accepted);
  }
  template <class Keywords = NamedValues>
  void missing(CommandFaultKind kind, const Keywords &accepted = {}) const {
    record(kind, trace->words.size(), accepted);
  }
  void accepts(const NamedValues &accepted) const;
  void faultAt(std::string_view field, CommandFaultKind kind,
               const Frequencies &accepted) const;

  /// Classifies a word; a lone "-" is a fault.
  template <class Accept> int classify(const Accept &accept) const {
    try {
      return accept();
    } catch (const std::out_of_range &) {
      fault(CommandFaultKind::loneDash);
      if (!goesOn())
        throw;
      return code::refused;
    }
  }

private:
  template <class Keywords>
  void record(CommandFaultKind kind, std::size_t word,
              const Keywords &accepted) const {
    CommandFault fault{kind, word, takeMessage(), {}};
    for (const auto &row : accepted)
      fault.accepted.emplace_back(row.keyword);
    trace->faults.push_back(std::move(fault));
  }
  std::string takeMessage() const;

  CommandTrace *trace;
  const EngineImp *imp;
  AfterFault afterFault;
};

} // namespace ZelDebugDialog::kvo

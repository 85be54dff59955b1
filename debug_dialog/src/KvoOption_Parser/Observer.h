// What a cursor reports to while words are read.
//
// Readers are templates over the observer. With `NoObserver` nothing of the
// reports is left in them; with `Recorder` they fill a trace.
#pragma once

#include <cstddef>
#include <string_view>

#include "KvoOption_Parser/ValueForm.h"
#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog_Engine/CableCatalogue.h"

namespace ZelDebugDialog::kvo {

/// Sees nothing.
struct NoObserver {
  static constexpr bool isOn = false;

  /// A word was read; `offset` is its place in the text.
  void took(std::size_t /*offset*/, std::string_view /*word*/,
            WordRole /*role*/) const {}
  /// The last word has another role than it was read for.
  void isNow(WordRole /*role*/) const {}
  /// The last word changes settings.
  void sets(const ValueForm & /*form*/) const {}
  /// The index of the last word.
  std::size_t lastWord() const { return 0; }
  /// An earlier word changes settings now; what words gave to them is replaced.
  void setsNow(std::size_t /*word*/, const ValueForm & /*form*/) const {}
  /// What words gave to the field is replaced, by no word.
  void replaces(std::string_view /*field*/) const {}
  /// The word `back` words before the last is at fault (0: the last).
  template <class Keywords = NamedValues>
  void fault(CommandFaultKind /*kind*/, const Keywords & /*accepted*/ = {},
             std::size_t /*back*/ = 0) const {}
  /// What would have been accepted at the last fault.
  void accepts(const NamedValues & /*accepted*/) const {}
  /// The word that set `field` is at fault.
  void faultAt(std::string_view /*field*/, CommandFaultKind /*kind*/,
               const Frequencies & /*accepted*/) const {}
  /// The text ended where a word belongs.
  template <class Keywords = NamedValues>
  void missing(CommandFaultKind /*kind*/,
               const Keywords & /*accepted*/ = {}) const {}
};

} // namespace ZelDebugDialog::kvo

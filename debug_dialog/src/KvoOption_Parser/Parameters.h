// Clauses made of names and values: a table of parameters, and the one walk
// over it that all of them share.
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_PARAMETERS_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_PARAMETERS_H

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "KvoOption_Parser/Message.h"
#include "KvoOption_Parser/Numbers.h"
#include "KvoOption_Parser/Readers.h"
#include "KvoOption_Parser/WordCursor.h"
#include "facts/CurrentRecord.h"

namespace ZelDebugDialog::kvo {

/// A parameter as it was typed.
struct Argument {
  std::string_view name;
  std::string_view value;
  WordCursor &cursor;
};

/// One parameter of a clause that fills a `Target`. `apply` returns
/// `code::done` to go on, or `code::refused`.
template <class Target> struct Parameter {
  std::string_view keyword;
  int (*apply)(const Argument &argument, Target &target);
  ValueForm form;
};

/// How a walk over parameters ended.
struct ClauseEnd {
  int code;
  bool byParameter; ///< One was unknown, or refused its value.
};

/// Reads names and values up to what ends the clause. The name of an unknown
/// parameter is filled into `unknownParameter`.
template <class Target, std::size_t size>
ClauseEnd readParameters(WordCursor &cursor, const EngineImp &imp,
                         const std::array<Parameter<Target>, size> &parameters,
                         std::string_view unknownParameter, Target &target) {
  std::string_view name;
  std::string_view value;
  for (;;) {
    if (const int end = cursor.nextPair(name, value); end != code::value) {
      if (cursor.recorder != nullptr && end == code::refused)
        if (const auto *const row =
                findRow(parameters, name, cursor.characters))
          cursor.recorder->accepts(row->form.names);
      return {end, false};
    }
    const auto *const parameter = findRow(parameters, name, cursor.characters);
    if (parameter == nullptr) {
      const int result = refuse(imp, unknownParameter, {name});
      cursor.fault(CommandFaultKind::unknownParameter, parameters, 1);
      return {result, true};
    }
    cursor.reads(parameter->form);
    if (parameter->apply({name, value, cursor}, target) != code::done) {
      cursor.fault(CommandFaultKind::refusedValue, parameter->form.names);
      return {code::refused, true};
    }
  }
}

/// Stores a number, cut to the low bits of its field.
template <class Field>
void storeNumber(const Argument &argument, Field &field) {
  argument.cursor.store(field, lowBits<Field>(toUnsigned(argument.value)));
}

/// The row whose keyword is the value; null if there is none.
template <class Rows>
auto findNamed(const Argument &argument, const Rows &rows)
    -> decltype(&*rows.begin()) {
  return findRow(rows, argument.value, argument.cursor.characters);
}

} // namespace ZelDebugDialog::kvo

#endif

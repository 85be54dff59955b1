// The readers of clauses and targets, each defined in the file of its clause.
// Every one takes the text behind its own keyword from the cursor and returns a
// code (Codes.h).
#ifndef ZELDEBUGDIALOG_KVOOPTION_PARSER_READERS_H
#define ZELDEBUGDIALOG_KVOOPTION_PARSER_READERS_H

#include <string>
#include <string_view>

#include "KvoOption_Parser/WordCursor.h"

namespace ZelDebugDialog {
class EngineImp;
}

namespace ZelDebugDialog::kvo {

using Reader = int (*)(WordCursor &cursor, EngineImp &imp);

int readBoundaryScan(WordCursor &cursor, EngineImp &imp);
int readCable(WordCursor &cursor, EngineImp &imp);
int readConfigDevice(WordCursor &cursor, EngineImp &imp);
int readDebugDevice(WordCursor &cursor, EngineImp &imp);
int readFsl(WordCursor &cursor, EngineImp &imp);
int readModelSim(WordCursor &cursor, EngineImp &imp);
int readOptions(WordCursor &cursor, EngineImp &imp);
int readPpcSimulator(WordCursor &cursor, EngineImp &imp);
/// The value of the stub option `option`.
int readStubLine(WordCursor &cursor, std::string_view option, EngineImp &imp);

int readLumacore(WordCursor &cursor, EngineImp &imp);
int readPpc(WordCursor &cursor, EngineImp &imp);
int readArm(WordCursor &cursor, EngineImp &imp);
int readArmR5(WordCursor &cursor, EngineImp &imp);
int readDap(WordCursor &cursor, EngineImp &imp);
int readHdu(WordCursor &cursor, EngineImp &imp);
int readDcc(WordCursor &cursor, EngineImp &imp);
int readKmtc(WordCursor &cursor, EngineImp &imp);
int readVirtualPlatform(WordCursor &cursor, EngineImp &imp);

/// A reader's public form: takes what it reads off the front of a string.
inline int consume(std::string &text, EngineImp &imp, Reader reader) {
  WordCursor cursor(text);
  return reader(cursor, imp);
}

/// The first of the rows from `row` on whose `keyword` is the word; null if
/// there is none.
template <class Row>
[[gnu::noinline]] const Row *findRowFrom(const Row *row, const Row *end,
                                         std::string_view word,
                                         Characters &characters) {
  for (; row != end; ++row)
    if (characters.sameWord(row->keyword, word))
      return row;
  return nullptr;
}

/// The first row whose `keyword` is the word; null if there is none. A glance
/// tells nearly always; with nothing to call for it, nothing has to be saved.
template <class Rows>
[[gnu::noinline]] auto findRow(const Rows &rows, std::string_view word,
                               Characters &characters)
    -> decltype(&*rows.begin()) {
  for (const auto &row : rows) {
    const Likeness likeness = characters.glance(row.keyword, word);
    if (likeness == Likeness::same)
      return &row;
    if (likeness == Likeness::unclear)
      return findRowFrom(&row, rows.data() + rows.size(), word, characters);
  }
  return nullptr;
}

} // namespace ZelDebugDialog::kvo

#endif

// The readers of clauses and targets, each defined in the file of its clause.
// Every one takes the text behind its own keyword from the cursor and returns a
// code (Codes.h). All are instantiated for both observers.
#pragma once

#include <string>
#include <string_view>

#include "KvoOption_Parser/Recorder.h"
#include "KvoOption_Parser/WordCursor.h"

namespace ZelDebugDialog {
class EngineImp;
}

namespace ZelDebugDialog::kvo {

template <class Observer>
using Reader = int (*)(WordCursor<Observer> &cursor, EngineImp &imp);

template <class Observer>
int readBoundaryScan(WordCursor<Observer> &cursor, EngineImp &imp);
template <class Observer>
int readCable(WordCursor<Observer> &cursor, EngineImp &imp);
template <class Observer>
int readConfigDevice(WordCursor<Observer> &cursor, EngineImp &imp);
template <class Observer>
int readDebugDevice(WordCursor<Observer> &cursor, EngineImp &imp);
template <class Observer>
int readFsl(WordCursor<Observer> &cursor, EngineImp &imp);
template <class Observer>
int readModelSim(WordCursor<Observer> &cursor, EngineImp &imp);
template <class Observer>
int readOptions(WordCursor<Observer> &cursor, EngineImp &imp);
template <class Observer>
int readPpcSimulator(WordCursor<Observer> &cursor, EngineImp &imp);
/// The value of the stub option `option`.
template <class Observer>
int readStubLine(WordCursor<Observer> &cursor, std::string_view option,
                 EngineImp &imp);

template <class Observer>
int readLumacore(WordCursor<Observer> &cursor, EngineImp &imp);
template <class Observer>
int readPpc(WordCursor<Observer> &cursor, EngineImp &imp);
template <class Observer>
int readArm(WordCursor<Observer> &cursor, EngineImp &imp);
template <class Observer>
int readArmR5(WordCursor<Observer> &cursor, EngineImp &imp);
template <class Observer>
int readDap(WordCursor<Observer> &cursor, EngineImp &imp);
template <class Observer>
int readHdu(WordCursor<Observer> &cursor, EngineImp &imp);
template <class Observer>
int readDcc(WordCursor<Observer> &cursor, EngineImp &imp);
template <class Observer>
int readKmtc(WordCursor<Observer> &cursor, EngineImp &imp);
template <class Observer>
int readVirtualPlatform(WordCursor<Observer> &cursor, EngineImp &imp);

/// A reader's public form: takes what it reads off the front of a string.
inline int consume(std::string &text, EngineImp &imp,
                   Reader<NoObserver> reader) {
  WordCursor<NoObserver> cursor(text);
  return reader(cursor, imp);
}

/// The first row whose `keyword` is the word; null if there is none.
template <class Rows>
auto findRow(const Rows &rows, std::string_view word, Characters &characters)
    -> decltype(&*rows.begin()) {
  for (const auto &row : rows)
    if (characters.sameWord(row.keyword, word))
      return &row;
  return nullptr;
}

} // namespace ZelDebugDialog::kvo

// Reads the words of a command again, one after the other, into one state: each
// with no more of the command than it takes to know what the word is for, so
// that a long command takes no longer than its words.
#pragma once

#include <string>
#include <vector>

#include "ZelDebugDialog/CommandTrace.h"
#include "commands/Desk.h"

namespace ZelDebugDialog::model {

class Replay {
public:
  /// The settings of a word, with the values that it gives them.
  /// @param behind  the word behind it
  std::vector<NamedValue> take(const CommandWord &word, const std::string &text,
                               const std::string &behind);
  /// Those of the settings of a word that its value does not leave as they are.
  std::vector<std::string> changedBy(const CommandWord &word,
                                     const std::string &text, bool isAtFault);

private:
  std::string pieceWith(const CommandWord &word, const std::string &text);
  std::vector<NamedValue> read(const std::string &piece,
                               const std::vector<std::string> &fields);

  Desk desk;
  std::string front;      ///< up to the option set
  bool isSetOpen = false; ///< the last one, which goes on to the end
  std::string option;     ///< of the clause
  std::string name;       ///< in front of the value
};

} // namespace ZelDebugDialog::model

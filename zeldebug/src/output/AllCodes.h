// Every word that is printed in brackets: of commands, and of the files of a
// project.
#ifndef ZELDEBUG_ALLCODES_H
#define ZELDEBUG_ALLCODES_H

#include <string>
#include <vector>

namespace zeldebug {

struct CodeRow {
  std::string code;
  std::string severity; ///< "error", "warning", "loss", "note"
  std::string meaning;
  std::string example; ///< may be empty
  std::string where;   ///< where the example has it; may be empty
  std::string advice;
};

const std::vector<CodeRow> &allCodes();

std::vector<std::string> codeNames();

} // namespace zeldebug

#endif

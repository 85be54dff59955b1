// Everything that is wrong, or surely not meant, in one command.
#ifndef ZELDEBUG_DIAGNOSE_H
#define ZELDEBUG_DIAGNOSE_H

#include <string>
#include <vector>

#include "DiagnosticCode.h"
#include "Session.h"

namespace zeldebug {

struct Diagnostic {
  std::size_t offset; ///< in bytes; the end of the text for what is missing
  std::size_t length; ///< 0 for what is missing
  const DiagnosticCode *code;
  Severity severity;   ///< of the code; a warning for what is read all the same
  std::string summary; ///< a sentence about the word
  std::string engineMessage; ///< as the engine words it; may be empty
  std::vector<std::string> accepted;
  std::string suggestion; ///< the nearest of them; may be empty
};

struct Diagnosis {
  std::string text;
  Reading reading;
  std::vector<Diagnostic> diagnostics; ///< in the order of the text

  bool hasError() const;
};

/// @param ofFile  the command stands in a line of a file, where its length
/// counts
Diagnosis diagnose(const std::string &command, bool ofFile);

} // namespace zeldebug

#endif

// What a run says: results to standard output, everything about them to
// standard error.
//
// Results are collected and leave in one piece at the end, so that a failure
// half way leaves no half document. A reader that closes the pipe early has
// seen enough: that is no error.
#ifndef ZELDEBUG_OUTPUT_H
#define ZELDEBUG_OUTPUT_H

#include <string>
#include <string_view>

#include "output/Failure.h"
#include "output/Json.h"

namespace zeldebug {

class Output {
public:
  Output();

  /// From now on the result is one JSON document.
  void useJson() { jsonWanted = true; }
  bool json() const { return jsonWanted; }

  /// Text of the result, for people.
  void print(std::string_view text) { result += text; }
  void printLine(std::string_view text);
  /// Which subcommand the result is of; "" before it is known.
  void setSubcommand(const std::string &name) { subcommand = name; }
  /// The result as a document; "version" and "command" are put in front.
  void document(const Json &members);

  /// The document of a run that failed, in place of its result.
  void failureDocument(ExitStatus status, const std::string &text);

  void note(std::string_view text) const;
  void warn(std::string_view text) const;
  void error(std::string_view text) const;

  /// Emphasis for a table's head, if standard output is a terminal that wants
  /// it.
  std::string heading(std::string_view text) const;

  /// Writes the result out; a text, where JSON is wanted, as a document.
  /// @return `status`, or `refused` when the result could not be written.
  ExitStatus finish(ExitStatus status);

private:
  bool jsonWanted = false;
  bool isDocument = false;
  bool colourOut;
  bool colourErr;
  std::string subcommand;
  std::string result;
};

/// `text` with what is no printable UTF-8 written as \xNN: neither a terminal
/// nor a table is upset by the bytes of a damaged file.
std::string printable(std::string_view text);

/// "1 command", "2 commands".
std::string counted(std::size_t number, const std::string &thing);

} // namespace zeldebug

#endif

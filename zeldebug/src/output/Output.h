// What a run says: results to standard output, everything about them to
// standard error.
//
// Results are collected and leave in one piece at the end, so that a failure
// half way leaves no half document. A document holds everything that was said
// beside it. A reader that closes the pipe early has seen enough: that is no
// error.
#ifndef ZELDEBUG_OUTPUT_H
#define ZELDEBUG_OUTPUT_H

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "output/Failure.h"
#include "output/JsonForward.h"
#include "output/Wrap.h"

namespace zeldebug {

/// Whether to use colour.
enum class Colour {
  automatic, ///< on a terminal that knows it, unless the surroundings refuse
  always,
  never,
};

/// What something that is said is about, as far as it applies.
struct About {
  std::string code = {};    ///< known to `explain-code`
  std::string setting = {}; ///< its name
  std::string file = {};    ///< a file of the project
  int line = 0;             ///< in it, from 1
  int column = 0;           ///< from 1, in bytes
};

/// Something that a design file is told of.
struct DesignRemark {
  std::string file;
  int line = 0; ///< from 1; 0 for the file as a whole
  std::string severity;
  std::string message;
};

/// "file:line: message"
std::string shownRemark(const DesignRemark &remark);

class Output {
public:
  Output();
  ~Output();
  Output(const Output &) = delete;
  Output &operator=(const Output &) = delete;

  /// One that says things in the same way, and has said nothing yet.
  std::unique_ptr<Output> another() const;

  /// From now on the result is one JSON document.
  void useJson() { jsonWanted = true; }
  bool json() const { return jsonWanted; }
  void useColour(Colour choice);
  /// Leaves out notes.
  void beQuiet() { isQuiet = true; }
  /// Makes warnings failures.
  void beStrict() { isStrict = true; }
  bool strict() const { return isStrict; }
  /// The result itself may be a warning.
  void countWarnings(bool hasAny) { hasWarned = hasWarned || hasAny; }
  /// Whether the run fails because of what it has warned of so far.
  bool failsBecauseOfWarnings() const { return isStrict && hasWarned; }
  /// For who is about to write.
  /// @throws Failure where the run fails because of its warnings
  void expectNoWarnings() const;

  /// Text of the result, for people.
  void print(std::string_view text) { result += text; }
  void printLine(std::string_view text);
  /// The same, in lines that are no longer than the terminal; what is broken
  /// off is indented by `hanging` more.
  void printSentence(std::string_view text, std::size_t hanging = usualHanging);
  /// Which subcommand the result is of; "" before it is known.
  void setSubcommand(const std::string &name) { subcommand = name; }
  /// The result as a document; "version" and "command" are put in front, what
  /// was said behind.
  void document(const Json &members);

  /// A run that failed has no result.
  void dropResult();

  void note(std::string_view text, const About &about = {});
  void warn(std::string_view text, const About &about = {});
  void error(std::string_view text, const About &about = {});
  /// The error that a run ends with, which its document holds by itself.
  void fail(const Failure &failure);
  /// The same for the document alone.
  void keepFailure(const Failure &failure);

  /// The files of a project are read: documents tell of each warning where it
  /// stands in them.
  void usePlaces() { hasPlaces = true; }
  /// One of several errors for which a run ends; `told` is it in the document.
  void fault(std::string_view text, const Json &told);

  /// A design is read: documents tell what there is to say of its files.
  void useRemarks();
  void remark(const DesignRemark &remark);
  /// The same for the document alone.
  void keepRemark(const DesignRemark &remark);

  /// Emphasis for a table's head, if standard output is a terminal that wants
  /// it.
  std::string heading(std::string_view text) const;
  /// Columns of standard output; 0 for as many as it takes.
  std::size_t width() const { return columns; }

  /// A line of a log, on standard error; in no document.
  static void log(std::string_view text);
  /// Standard output is the subcommand's own: neither a result nor a document
  /// goes there.
  void leaveStandardOutput() { isLeft = true; }

  /// Writes the result out; a text, where JSON is wanted, as a document.
  /// @return `status`, or `refused` when the result could not be written or
  ///   warnings are failures.
  ExitStatus finish(ExitStatus status);

private:
  struct Severity;
  struct Kept;
  static const Severity noteSeverity;
  static const Severity warningSeverity;
  static const Severity errorSeverity;

  void say(const Severity &severity, std::string_view text) const;
  void keep(const Severity &severity, std::string_view text,
            const About &about);
  std::string wholeDocument() const;

  bool jsonWanted = false;
  bool isDocument = false;
  bool isLeft = false;
  bool isQuiet = false;
  bool isStrict = false;
  bool hasWarned = false;
  bool hasPlaces = false;
  bool colourOut = false;
  bool colourErr = false;
  std::size_t columns = 0;
  std::string subcommand;
  std::string result;
  std::unique_ptr<Kept> kept;
};

/// {"status", "code", "message"}, and the details as far as they apply.
Json failureJson(const Failure &failure);

/// `text` with what is no printable UTF-8 written as \xNN: neither a terminal
/// nor a table is upset by the bytes of a damaged file.
std::string printable(std::string_view text);

/// A name of the line as messages have it: an empty one is seen.
std::string shownName(const std::string &name);

/// "1 command", "2 commands".
std::string counted(std::size_t number, const std::string &thing);

} // namespace zeldebug

#endif

#include "kinds/KindTable.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <utility>

#include "kinds/KnownTypes.h"
#include "messages/Quote.h"
#include "names/Utf8.h"
#include "names/WildcardMatch.h"

namespace ZelDebugDialog {
namespace {

using Severity = DesignDiagnostic::Severity;

struct Word {
  std::string_view text;
  DesignRole role;
};

constexpr std::string_view connectWord = "connect";

constexpr std::array<Word, 3> kindWords = {{
    {"processor", DesignRole::processor},
    {"debug-module", DesignRole::debugModule},
    {"other", DesignRole::other},
}};

const Word *findWord(std::string_view text) {
  for (const Word &word : kindWords)
    if (word.text == text)
      return &word;
  return nullptr;
}

/// False unless the text has four parts.
bool splitPattern(const std::string &text, Identity &pattern) {
  std::istringstream parts(text);
  parts.exceptions(std::ios::badbit); // memory that runs out is not the end
  for (std::string *part : {&pattern.vendor, &pattern.library, &pattern.name})
    if (!std::getline(parts, *part, ':') || parts.eof())
      return false;
  std::getline(parts, pattern.version);
  return pattern.isComplete() && pattern.version.find(':') == std::string::npos;
}

/// Why the words are no row; empty when they are one.
std::string readRow(const std::vector<std::string> &row, Identity &pattern,
                    Kind &kind) {
  if (row.size() != 3)
    return "a row has three words: vendor:library:name:version, kind and type "
           "name; this one has " +
           std::to_string(row.size());
  if (!splitPattern(row[0], pattern))
    return quote(row[0]) + " is no vendor:library:name:version";
  const Word *const word = findWord(row[1]);
  if (word == nullptr)
    return quote(row[1]) +
           " is no kind; the kinds are processor, debug-module and other";
  kind = {word->role, row[2]};
  return "";
}

/// The same for a row that states a connection.
std::string readConnectRow(const std::vector<std::string> &row,
                           ConnectRow &connect) {
  if (row.size() != 3)
    return "a row 'connect' has three words: connect, processor and debug "
           "module; this one has " +
           std::to_string(row.size());
  connect.processor = row[1];
  connect.debugModule = row[2];
  return "";
}

std::vector<std::string> splitRow(const std::string &line) {
  std::istringstream text(line.substr(0, line.find('#')));
  text.exceptions(std::ios::badbit);
  std::vector<std::string> row;
  for (std::string word; text >> word;)
    row.push_back(word);
  return row;
}

bool fits(const Identity &pattern, const Identity &identity) {
  return matchesWildcard(pattern.vendor, identity.vendor) &&
         matchesWildcard(pattern.library, identity.library) &&
         matchesWildcard(pattern.name, identity.name) &&
         matchesWildcard(pattern.version, identity.version);
}

/// A table with many patterns for a library with many components is a mistake;
/// without a limit it takes its time.
constexpr std::size_t mostComparisons = 20000000;

} // namespace

bool KindTable::read(const DocumentSource &source, const std::string &file,
                     DiagnosticList &diagnostics) {
  std::string text;
  const std::string fault = source.read(file, DocumentSource::whole, text);
  if (!fault.empty()) {
    diagnostics.add({Severity::error, file, 0, fault});
    return false;
  }
  std::istringstream lines(text);
  lines.exceptions(std::ios::badbit);
  tableFile = file;
  bool isGood = true;
  int number = 0;
  for (std::string line; std::getline(lines, line);)
    isGood = readLine(file, ++number, line, diagnostics) && isGood;
  return isGood;
}

/// False: there is a row in it that is none, and an error says so.
bool KindTable::readLine(const std::string &file, int number,
                         const std::string &line, DiagnosticList &diagnostics) {
  const std::vector<std::string> words = splitRow(line);
  if (words.empty())
    return true;
  const bool isConnect = words.front() == connectWord;
  Row row;
  ConnectRow connect;
  connect.line = number;
  std::string fault = isConnect ? readConnectRow(words, connect)
                                : readRow(words, row.pattern, row.kind);
  if (fault.empty() && findNonUtf8(line) != std::string::npos)
    fault = "it is not text in UTF-8";
  if (!fault.empty()) {
    diagnostics.add({Severity::error, file, number, std::move(fault)});
    return false;
  }
  if (isConnect) {
    connects.push_back(std::move(connect));
    return true;
  }
  row.line = number;
  std::string doubt = findTypeFault(row.kind.role, row.kind.typeName);
  if (!doubt.empty())
    diagnostics.add({Severity::warning, file, number, std::move(doubt)});
  rows.push_back(std::move(row));
  return true;
}

const Kind *KindTable::find(const Identity &identity) const {
  for (const Row &row : rows)
    if (fits(row.pattern, identity))
      return &row.kind;
  return nullptr;
}

void KindTable::reportUnused(const std::vector<Identity> &components,
                             DiagnosticList &diagnostics) const {
  std::size_t left = mostComparisons;
  for (const Row &row : rows) {
    if (components.size() > left)
      return;
    left -= components.size();
    const bool isUsed = std::any_of(components.begin(), components.end(),
                                    [&row](const Identity &identity) {
                                      return fits(row.pattern, identity);
                                    });
    if (!isUsed)
      diagnostics.add({Severity::warning, tableFile, row.line,
                       "no component of the design or its libraries fits " +
                           quote(toText(row.pattern))});
  }
}

} // namespace ZelDebugDialog

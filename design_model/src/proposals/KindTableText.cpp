#include "proposals/KindTableText.h"

#include <array>
#include <string_view>

#include "messages/Quote.h"

namespace ZelDebugDialog {
namespace {

struct PartWords {
  KindPart part;
  const char *title;
  const char *kind; ///< The second word of a row.
};

constexpr std::array<PartWords, 4> parts{{
    {KindPart::processor, "processor", "processor"},
    {KindPart::debugModule, "debug module", "debug-module"},
    {KindPart::uart, "serial port", "other"},
    {KindPart::memory, "memory", "other"},
}};

const PartWords &wordsOf(KindPart part) {
  for (const PartWords &known : parts)
    if (known.part == part)
      return known;
  return parts[0];
}

/// On one line, and text.
std::string onOneLine(std::string_view text) {
  const std::string quoted = quote(text);
  return quoted.substr(1, quoted.size() - 2);
}

std::string joined(const std::vector<std::string> &words, std::size_t more) {
  std::string text;
  for (const std::string &word : words)
    text += (text.empty() ? "" : ", ") + onOneLine(word);
  return more == 0 ? text : text + " and " + std::to_string(more) + " more";
}

/// Instances by their names; what can't be a word is any character.
std::string asWord(std::string_view name) {
  std::string word;
  for (const char c : name)
    word += static_cast<unsigned char>(c) <= ' ' || c == '#' || c == '\x7f'
                ? '?'
                : c;
  return word;
}

void append(const KindCandidate &candidate, std::string &text) {
  const PartWords &words = wordsOf(candidate.part);
  text += "\n# " + std::string(words.title) + ": " +
          joined(candidate.instances, candidate.otherInstances) + "\n";
  for (const std::string &evidence : candidate.evidence)
    text += "#   " + onOneLine(evidence) + "\n";
  for (const std::string &wire : candidate.wiredTo)
    text += "#   wired: " + onOneLine(wire) + "\n";
  const std::string pattern = rowPattern(candidate.identity);
  switch (candidate.verdict) {
  case KindVerdict::known:
    return;
  case KindVerdict::rejected:
    text += "#   not taken: " + onOneLine(candidate.question) + "\n";
    return;
  case KindVerdict::undecided:
    text += "#   undecided: " + onOneLine(candidate.question) + "\n";
    for (const std::string &type : candidate.typeNames)
      text.append("#")
          .append(pattern)
          .append("   ")
          .append(words.kind)
          .append("   ")
          .append(type)
          .append("\n");
    return;
  case KindVerdict::proposed:
    text += pattern + "   " + words.kind + "   " + candidate.typeNames.front() +
            "\n";
    return;
  }
}

} // namespace

std::string rowPattern(const std::string &identity) { return asWord(identity); }

std::string kindTableText(const KindProposal &proposal,
                          const DesignSources &sources) {
  std::string text =
      "# What the parts of " + onOneLine(sources.designFile) +
      " could play, with the evidence for it.\n"
      "# Mend it where it is wrong: the first row that fits a component "
      "counts.\n";
  for (const KindCandidate &candidate : proposal.candidates)
    if (candidate.verdict != KindVerdict::known)
      append(candidate, text);
  for (const KindConnection &connection : proposal.connections)
    text += "\n# " + onOneLine(connection.reason) + "\n" +
            (connection.isProposed ? "" : "#") + "connect   " +
            asWord(connection.processor) + "   " +
            asWord(connection.debugModule) + "\n";
  for (const std::string &question : proposal.questions)
    text += "\n# undecided: " + onOneLine(question) + "\n";
  return text;
}

} // namespace ZelDebugDialog

#include "Proposing.h"

#include <utility>

#include <gtest/gtest.h>

#include "MemorySource.h"
#include "proposals/ProposeKindsFrom.h"
#include "proposals/Words.h"

namespace ZelDebugDialog {

std::string port(const std::string &name, const std::string &type,
                 const std::string &mode) {
  return interface(name, "<ipxact:" + mode + "/>",
                   "<ipxact:busType vendor=\"x\" library=\"bus\" name=\"" +
                       type + "\" version=\"1\"/>");
}

std::string bridge(const std::string &name, const std::string &to) {
  return interface(name,
                   "<ipxact:slave><ipxact:transparentBridge masterRef=\"" + to +
                       "\"/></ipxact:slave>");
}

std::string part(const std::string &name, const std::string &interfaces,
                 const std::string &others) {
  return others == cpus ? processor(name, interfaces)
                        : component(name, interfaces, others);
}

Proposing::Proposing(Files files, const std::string &kinds) {
  MemorySource memory;
  keepDocuments(files);
  DesignSources sources;
  sources.designFile = "top.xml";
  if (!kinds.empty()) {
    files["given"] = kinds;
    sources.kindsFile = "given";
  }
  // The table is no document, and need not lie among them.
  for (const auto &[name, text] : files)
    memory.files[name == "given" || name == "top.xml" ? name : "ip/" + name] =
        text;
  sources.libraryFolders = {"ip"};
  isRead = proposeKindsFrom(memory, sources, limitsOf(sources.maxInstances),
                            proposal, result.model);
}

Names Proposing::candidates() const {
  const char *const parts[] = {"processor", "module", "uart", "memory"};
  const char *const verdicts[] = {"known", "proposed", "undecided", "rejected"};
  Names lines;
  for (const KindCandidate &each : proposal.candidates) {
    std::string line = parts[static_cast<int>(each.part)];
    line += std::string(" ") + verdicts[static_cast<int>(each.verdict)] + " " +
            std::string(nameIn(each.identity));
    for (const std::string &type : each.typeNames)
      line += " " + type;
    lines.push_back(line);
  }
  return lines;
}

const KindCandidate &Proposing::named(const std::string &name) const {
  for (const KindCandidate &each : proposal.candidates)
    if (nameIn(each.identity) == name)
      return each;
  ADD_FAILURE() << "no candidate " << name;
  return none;
}

Names Proposing::rows() const {
  Names found;
  std::string line;
  for (const char c : proposal.table) {
    if (c != '\n') {
      line += c;
      continue;
    }
    if (!line.empty() && line[0] != '#')
      found.push_back(line);
    line.clear();
  }
  EXPECT_EQ(line, "") << "the last line ends";
  return found;
}

} // namespace ZelDebugDialog

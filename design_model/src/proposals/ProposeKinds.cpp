#include "proposals/ProposeKindsFrom.h"

#include <algorithm>
#include <utility>

#include "elaboration/ReadDesignFrom.h"
#include "proposals/KindCandidates.h"
#include "proposals/KindTableText.h"

namespace ZelDebugDialog {
namespace {

constexpr const char *proposedName = "the proposed kind table";

/// The documents of another source, with a kind table that is nowhere yet.
class WithTable : public DocumentSource {
public:
  WithTable(const DocumentSource &others, std::string name, std::string text)
      : source(others), table(std::move(name)), content(std::move(text)) {}

  Kind kindOf(const std::string &path) const override {
    return source.kindOf(path);
  }
  std::string read(const std::string &path, std::size_t most,
                   std::string &text) const override {
    if (path != table || most != whole)
      return source.read(path, most, text);
    text = content;
    return "";
  }
  std::vector<FolderFault>
  list(const std::string &folder,
       std::vector<std::string> &files) const override {
    return source.list(folder, files);
  }
  std::string identify(const std::string &path) const override {
    return source.identify(path);
  }

private:
  const DocumentSource &source;
  std::string table;
  std::string content;
};

/// One that has been read before, and is read again.
std::string givenTable(const DocumentSource &documents,
                       const DesignSources &sources) {
  std::string text;
  if (!sources.kindsFile.empty())
    documents.read(sources.kindsFile, DocumentSource::whole, text);
  if (!text.empty() && text.back() != '\n')
    text += '\n';
  return text;
}

bool readWith(const DocumentSource &documents, const DesignSources &sources,
              const ModelLimits &limits, const std::string &table,
              DesignModel &model) {
  DesignSources all = sources;
  if (all.kindsFile.empty())
    all.kindsFile = proposedName;
  return readDesignFrom(WithTable(documents, all.kindsFile, table), all, limits,
                        model);
}

/// A row for a component whose name holds a colon would be none, and a table
/// with it could not be read.
void expectWritable(std::vector<KindCandidate> &candidates) {
  constexpr int partEnds = 3;
  for (KindCandidate &candidate : candidates)
    if (candidate.verdict == KindVerdict::proposed &&
        std::count(candidate.identity.begin(), candidate.identity.end(), ':') !=
            partEnds) {
      candidate.verdict = KindVerdict::undecided;
      candidate.question = "a part of its identity holds a colon: put '?' in "
                           "its place";
    }
}

} // namespace

/// Twice: what is a processor has to be known before it shows what is wired to
/// one and what answers to it. And a third time, for the answers with the whole
/// table.
bool proposeKindsFrom(const DocumentSource &documents,
                      const DesignSources &sources, const ModelLimits &limits,
                      KindProposal &proposal, DesignModel &model) {
  proposal = KindProposal();
  if (!readDesignFrom(documents, sources, limits, model))
    return false;
  const std::string given = givenTable(documents, sources);
  proposal.candidates = findProcessorCandidates(KindFacts(model));
  expectWritable(proposal.candidates);
  const std::string processors = given + kindTableText(proposal, sources);
  if (!readWith(documents, sources, limits, processors, model))
    return false;
  {
    const KindFacts facts(model);
    findDebugModuleCandidates(facts, proposal);
    for (KindCandidate &candidate : findPeripheralCandidates(facts))
      proposal.candidates.push_back(std::move(candidate));
  }
  expectWritable(proposal.candidates);
  proposal.table = given + kindTableText(proposal, sources);
  return readWith(documents, sources, limits, proposal.table, model);
}

bool ProposeKinds(const DesignSources &sources, KindProposal &proposal,
                  DesignModel &model) {
  KindProposal found;
  DesignModel read;
  const bool isRead = proposeKindsFrom(
      FileSystemSource(), sources, limitsOf(sources.maxInstances), found, read);
  if (!isRead)
    found = KindProposal();
  proposal = std::move(found);
  model = std::move(read);
  return isRead;
}

} // namespace ZelDebugDialog

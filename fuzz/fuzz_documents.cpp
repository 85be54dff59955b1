// Whole sets of documents for the design model: whatever they hold, reading
// ends, and what it says holds together.
//
// An input is a list of files, each behind a line "==== path"; the design is
// "top.xml", a kind table "kinds", a view's name the content of "view", and the
// libraries are the lines of "places".
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "design_model/MemorySource.h"
#include "elaboration/ReadDesignFrom.h"
#include "proposals/ProposeKindsFrom.h"

namespace {

using namespace ZelDebugDialog;

/// Enough for every kind of ending, and little enough to go fast.
constexpr ModelLimits limits{2000, std::size_t{1} << 20};

/// How many inputs got past their documents, for who wants to know whether the
/// fuzzer spends its time where it should.
class Share {
public:
  Share() = default;
  Share(const Share &) = delete;
  Share &operator=(const Share &) = delete;
  ~Share() {
    if (inputs > 0)
      std::fprintf(stderr, "elaborated: %llu of %llu inputs (%llu %%)\n",
                   elaborated, inputs, 100 * elaborated / inputs);
  }
  void count(bool isElaborated) {
    ++inputs;
    elaborated += isElaborated ? 1 : 0;
  }

private:
  unsigned long long inputs = 0;
  unsigned long long elaborated = 0;
};

Share share;

MemorySource split(const std::string &input) {
  const std::string mark = "==== ";
  MemorySource source;
  std::size_t at = input.compare(0, mark.size(), mark) == 0 ? 0 : input.size();
  while (at < input.size()) {
    const std::size_t nameStart = at + mark.size();
    const std::size_t nameEnd =
        std::min(input.find('\n', nameStart), input.size());
    const std::size_t textStart = std::min(nameEnd + 1, input.size());
    const std::size_t next = input.find("\n" + mark, nameEnd);
    const std::size_t textEnd =
        next == std::string::npos ? input.size() : next + 1;
    source.files[input.substr(nameStart, nameEnd - nameStart)] =
        textStart < textEnd ? input.substr(textStart, textEnd - textStart) : "";
    at = textEnd;
  }
  return source;
}

void require(bool holds) {
  if (!holds)
    std::abort();
}

void checkOutcome(bool isRead, const DesignModel &model) {
  bool hasError = false;
  for (const DesignDiagnostic &found : model.Diagnostics()) {
    hasError |= found.severity == DesignDiagnostic::Severity::error;
    require(found.line >= 0 && !found.message.empty());
  }
  require(isRead || (hasError && model.Instances().empty()));
}

/// Each name once, and each that of an instance.
void checkNames(const std::vector<std::string> &answered,
                const std::set<std::string> &instances) {
  for (const std::string &name : answered)
    require(instances.count(name) != 0);
}

void ask(DesignModel &model) {
  std::set<std::string> instances;
  constexpr std::size_t mostAsked = 50;
  for (const DesignInstance &instance : model.Instances()) {
    const bool isFirst = instances.insert(instance.name).second;
    require(!isFirst || model.getIpName(instance.name) == instance.typeName);
    if (instances.size() <= mostAsked) {
      std::vector<std::string> alike;
      model.getIpInstances(alike, instance.typeName);
      require(std::count(alike.begin(), alike.end(), instance.name) != 0);
    }
    require(instance.role != DesignRole::byTypeName);
    require(instance.name.find('/') == std::string::npos);
    for (const DesignParameter &parameter : instance.parameters)
      model.getParameterValue(instance.name, parameter.name);
  }
  std::vector<std::string> processors;
  model.getProcessorInstances(processors, false);
  checkNames(processors, instances);
  for (std::size_t at = 0; at < processors.size() && at < mostAsked; ++at) {
    std::vector<std::string> peripherals;
    model.getPeripherals(peripherals, processors[at]);
    checkNames(peripherals, instances);
  }
  const std::vector<std::string> modules = model.DebugModules();
  std::vector<std::string> debug;
  model.getIpInstances(debug, HW_IP_DEBUG);
  require(debug == modules);
  for (std::size_t at = 0; at < modules.size() && at < mostAsked; ++at) {
    std::vector<std::string> attached;
    model.getHduConnectedProcessorList(attached, modules[at]);
    checkNames(attached, instances);
  }
}

/// Both ways to ask for wires agree on which interfaces there are.
void askForWires(const DesignModel &model) {
  constexpr std::size_t mostEnds = 5;
  const auto interfacesOf = [&model](std::size_t instance) {
    return model.Component(model.Instances()[instance].component)
        .interfaces.size();
  };
  for (const DesignWire &wire : model.Connections())
    for (const DesignPort &end : wire.ends) {
      require(end.interface < interfacesOf(end.instance));
      require(wire.within == end.instance ||
              wire.within == model.Instances()[end.instance].parent);
      for (const DesignPort &far : model.WiredTo(end, mostEnds))
        require(far.interface < interfacesOf(far.instance));
    }
}

/// What is proposed can be read, and what is to play a processor does.
void propose(const MemorySource &source, const DesignSources &sources,
             bool isRead) {
  KindProposal proposal;
  DesignModel model;
  require(proposeKindsFrom(source, sources, limits, proposal, model) == isRead);
  std::set<std::string> processors;
  for (const DesignInstance &instance : model.Instances())
    if (instance.role == DesignRole::processor)
      processors.insert(model.Component(instance.component).identity);
  for (const KindCandidate &candidate : proposal.candidates)
    require(candidate.part != KindPart::processor ||
            candidate.verdict != KindVerdict::proposed ||
            processors.count(candidate.identity) != 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data,
                                      std::size_t size) {
  const std::string input(data, data + size);
  const MemorySource source = split(input);
  DesignSources sources;
  sources.designFile = "top.xml";
  if (source.files.count("kinds") != 0)
    sources.kindsFile = "kinds";
  const auto view = source.files.find("view");
  if (view != source.files.end())
    sources.view = view->second;
  const auto places = source.files.find("places");
  if (places != source.files.end()) {
    std::istringstream lines(places->second);
    for (std::string place; std::getline(lines, place);)
      sources.libraryFolders.push_back(place);
  }
  DesignModel model;
  const bool isRead = readDesignFrom(source, sources, limits, model);
  // What can't be read is refused before there is an instance.
  share.count(isRead);
  checkOutcome(isRead, model);
  ask(model);
  askForWires(model);
  propose(source, sources, isRead);
  return 0;
}

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "kinds/BuiltInKinds.h"
#include "proposals/KindCandidates.h"
#include "proposals/Words.h"

namespace ZelDebugDialog {
namespace {

/// Ends of one interface; a clock may have more, and is no debug interface.
constexpr std::size_t mostEnds = 64;

bool attachesModule(InterfaceMode mode) {
  return mode == InterfaceMode::initiator ||
         mode == InterfaceMode::mirroredInitiator ||
         mode == InterfaceMode::mirroredTarget;
}

bool attachesProcessor(InterfaceMode mode) {
  return mode == InterfaceMode::target ||
         mode == InterfaceMode::mirroredInitiator;
}

bool isAuxiliary(const DesignInterface &interface) {
  return namesAuxiliary(interface.name) ||
         namesAuxiliary(nameIn(interface.busType));
}

/// What the bus is counts more than what an interface is called: a reset that
/// comes from a debug module is a reset.
bool isForDebugging(const DesignInterface &a, const DesignInterface &b) {
  if (namesDebugging(nameIn(a.busType)) || namesDebugging(nameIn(b.busType)))
    return true;
  return (namesDebugging(a.name) || namesDebugging(b.name)) &&
         !isAuxiliary(a) && !isAuxiliary(b);
}

/// Of a type that is reached through a debug module.
bool needsModule(std::string_view processorType) {
  return processorType != cortexA9TypeName && processorType != cortexR5TypeName;
}

std::vector<std::string> modulesFor(std::string_view processorType) {
  if (processorType.substr(0, 3) == "ppc")
    return {std::string(ppcControllerType)};
  return {std::string(debugModuleTypes.back())};
}

/// A wire between a processor and what may be its debug module.
struct Link {
  std::size_t processor = 0;
  DesignPort at;   ///< The processor's interface.
  DesignPort from; ///< The other's.
};

using Links = std::vector<Link>;

class Search {
public:
  Search(const KindFacts &known, KindProposal &target)
      : facts(known), proposal(target) {}

  void run() {
    for (const std::size_t processor : facts.processors)
      look(processor);
    for (const std::size_t component : facts.components)
      appendWired(component);
    appendNamed();
    askForTheRest();
  }

private:
  /// What is made of a component, and by which wires.
  struct Finding {
    Links links;
    std::string question;  ///< Empty: it is decided.
    bool isBySide = false; ///< The wire attaches nothing, a row has to.
  };

  void look(std::size_t processor) {
    if (isOnKnownModule(processor))
      return;
    if (!needsModule(facts.instances()[processor].typeName))
      return;
    Links fitting;
    Links byName;
    Links otherSides;
    sort(processor, fitting, byName, otherSides);
    for (const Links *links : {&fitting, &byName})
      if (!links->empty())
        return take(*links, false);
    if (!otherSides.empty())
      return take(otherSides, true);
    open.push_back(processor);
  }

  bool isOnKnownModule(std::size_t processor) {
    if (!onKnown)
      collectKnown();
    return onKnown->count(processor) != 0;
  }

  void collectKnown() {
    onKnown.emplace();
    for (const std::string &module : facts.model.DebugModules()) {
      std::vector<std::string> names;
      facts.model.getHduConnectedProcessorList(names, module);
      for (const std::string &name : names)
        onKnown->insert(facts.find(name));
    }
  }

  /// The wires of a processor that may come from a debug module: by a debug
  /// interface, by any from something that is called so, or by a debug
  /// interface that stands on another side.
  void sort(std::size_t processor, Links &fitting, Links &byName,
            Links &otherSides) const {
    const auto &interfaces = facts.componentOf(processor).interfaces;
    for (std::size_t at = 0; at < interfaces.size(); ++at)
      for (const DesignPort &far :
           facts.model.WiredTo({processor, at}, mostEnds)) {
        const Link link{processor, {processor, at}, far};
        if (!canBeModule(far.instance))
          continue;
        const DesignInterface &other = facts.interfaceOf(far);
        const bool attaches = attachesProcessor(interfaces[at].mode) &&
                              attachesModule(other.mode);
        const bool isDebug = isForDebugging(interfaces[at], other);
        if (attaches && isDebug)
          fitting.push_back(link);
        else if (attaches && !isAuxiliary(interfaces[at]) &&
                 namesDebugging(nameOfComponent(far.instance)))
          byName.push_back(link);
        else if (isDebug)
          otherSides.push_back(link);
      }
  }

  bool canBeModule(std::size_t instance) const {
    const DesignComponent &component = facts.componentOf(instance);
    return component.role == DesignRole::debugModule ||
           (component.role == DesignRole::other &&
            !KindFacts::isSettled(component));
  }

  std::string_view nameOfComponent(std::size_t instance) const {
    return nameIn(facts.componentOf(instance).identity);
  }

  /// One of several instances can't be told from the others.
  void take(const Links &links, bool isBySide) {
    std::vector<std::size_t> modules;
    for (const Link &link : links)
      if (std::find(modules.begin(), modules.end(), link.from.instance) ==
          modules.end())
        modules.push_back(link.from.instance);
    const std::string &processor =
        facts.instances()[links.front().processor].name;
    for (const Link &link : links) {
      Finding &finding =
          findings[facts.instances()[link.from.instance].component];
      finding.links.push_back(link);
      finding.isBySide = finding.isBySide || isBySide;
      if (modules.size() > 1) {
        std::vector<std::string> names;
        names.reserve(modules.size());
        for (const std::size_t module : modules)
          names.push_back(facts.instances()[module].name);
        finding.question = named(processor) + " is on one of " + listed(names) +
                           ", which are all wired to it for debugging";
      }
    }
    for (const std::size_t module : modules)
      connect(links.front().processor, module, modules.size() == 1, isBySide);
  }

  void connect(std::size_t processor, std::size_t module, bool isProposed,
               bool isBySide) {
    if (isBySide)
      proposal.connections.push_back(
          {facts.instances()[processor].name, facts.instances()[module].name,
           isProposed,
           "they are wired for debugging, but not from an initiator of the "
           "module to a target of the processor"});
  }

  void appendWired(std::size_t component) {
    const DesignComponent &data = facts.model.Component(component);
    KindCandidate candidate = facts.start(KindPart::debugModule, component);
    if (data.role == DesignRole::debugModule) {
      candidate.verdict = KindVerdict::known;
      candidate.typeNames = {data.typeName};
      candidate.evidence.push_back(KindFacts::isSettled(data)
                                       ? "a kind table lets it play " +
                                             named(data.typeName)
                                       : "the debugger knows its type name");
      proposal.candidates.push_back(std::move(candidate));
      return;
    }
    const auto found = findings.find(component);
    if (found == findings.end())
      return;
    const Finding &finding = found->second;
    for (std::size_t at = 0; at < finding.links.size() && at < mostEvidence;
         ++at) {
      const Link &link = finding.links[at];
      candidate.evidence.push_back(
          "it is wired by " + named(facts.interfaceOf(link.from).name) +
          " to " + named(facts.interfaceOf(link.at).name) + " of " +
          named(facts.instances()[link.processor].name));
    }
    addNameEvidence(data, candidate);
    std::set<std::string> types;
    for (const Link &link : finding.links)
      for (const std::string &type :
           modulesFor(facts.instances()[link.processor].typeName))
        types.insert(type);
    candidate.typeNames.assign(types.begin(), types.end());
    candidate.verdict = KindVerdict::proposed;
    candidate.question = finding.question;
    if (candidate.question.empty() && types.size() > 1)
      candidate.question = "processors of different families are on it, and it "
                           "can play one of " +
                           listed(candidate.typeNames);
    if (!candidate.question.empty())
      candidate.verdict = KindVerdict::undecided;
    decided.push_back(candidate.instances.front());
    proposal.candidates.push_back(std::move(candidate));
  }

  static void addNameEvidence(const DesignComponent &data,
                              KindCandidate &candidate) {
    if (namesDebugging(nameIn(data.identity)))
      candidate.evidence.emplace_back("its name speaks of debugging");
    for (const DesignInterface &interface : data.interfaces)
      if (!findWord(nameIn(interface.busType), {"jtag"}).empty() ||
          !findWord(interface.name, {"jtag"}).empty()) {
        candidate.evidence.push_back("it has a JTAG interface, " +
                                     named(interface.name));
        return;
      }
  }

  /// What is called so, but is not wired to a processor as a debug module is.
  void appendNamed() {
    std::vector<std::size_t> called;
    std::size_t instances = 0;
    for (const std::size_t component : facts.components) {
      const DesignComponent &data = facts.model.Component(component);
      if (data.role != DesignRole::other || KindFacts::isSettled(data) ||
          facts.isHierarchy(component) || findings.count(component) != 0 ||
          !namesDebugging(nameIn(data.identity)))
        continue;
      called.push_back(component);
      instances += facts.instancesOf(component).size();
    }
    for (const std::size_t component : called) {
      KindCandidate candidate = facts.start(KindPart::debugModule, component);
      addNameEvidence(facts.model.Component(component), candidate);
      judgeNamed(candidate, instances);
      proposal.candidates.push_back(std::move(candidate));
    }
    if (instances == 1)
      for (const std::size_t processor : open)
        proposal.connections.push_back(
            {facts.instances()[processor].name,
             facts.instances()[facts.instancesOf(called.front()).front()].name,
             false, "no wire says so"});
  }

  void judgeNamed(KindCandidate &candidate, std::size_t instances) const {
    if (open.empty() && !facts.processors.empty()) {
      candidate.verdict = KindVerdict::rejected;
      candidate.question =
          "it is not wired to a processor as a debug module is";
      if (!decided.empty())
        candidate.question +=
            "; " + listed(decided) + (decided.size() == 1 ? " is" : " are");
      return;
    }
    candidate.typeNames = {"hdu"};
    if (!open.empty())
      candidate.typeNames =
          modulesFor(facts.instances()[open.front()].typeName);
    if (facts.processors.empty())
      candidate.question = "no processor is known that could be on it";
    else if (instances == 1)
      candidate.question = "no wire puts a processor on it; if one is, a row "
                           "'connect' says so";
    else
      candidate.question = "no wire puts a processor on it, and it is not the "
                           "only one that is called so";
  }

  void askForTheRest() {
    if (facts.processors.empty()) {
      proposal.questions.emplace_back(
          "no component is known, or says of itself, to be a processor");
      return;
    }
    for (std::size_t at = 0; at < open.size() && at < mostEvidence; ++at)
      proposal.questions.push_back("nothing says which debug module " +
                                   named(facts.instances()[open[at]].name) +
                                   " is on" + wiresInto(open[at]));
    if (open.size() > mostEvidence)
      proposal.questions.push_back("the same holds for " +
                                   std::to_string(open.size() - mostEvidence) +
                                   " more processors");
  }

  std::string wiresInto(std::size_t processor) const {
    const auto &interfaces = facts.componentOf(processor).interfaces;
    std::vector<std::string> sources;
    for (std::size_t at = 0; at < interfaces.size(); ++at)
      if (attachesProcessor(interfaces[at].mode) &&
          !isAuxiliary(interfaces[at]))
        for (const DesignPort &far :
             facts.model.WiredTo({processor, at}, mostEnds))
          sources.push_back(facts.nameOf(far));
    return sources.empty() ? ": nothing is wired to a target interface of it"
                           : "; what is wired to its target interfaces, " +
                                 listed(sources) + ", does not look like one";
  }

  static constexpr std::size_t mostEvidence = 8;

  const KindFacts &facts;
  KindProposal &proposal;
  std::map<std::size_t, Finding> findings; ///< By component.
  std::vector<std::size_t> open; ///< Processors without a debug module.
  std::vector<std::string> decided;
  std::optional<std::set<std::size_t>> onKnown;
};

} // namespace

void findDebugModuleCandidates(const KindFacts &facts, KindProposal &proposal) {
  Search(facts, proposal).run();
}

} // namespace ZelDebugDialog

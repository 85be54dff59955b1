#include <array>
#include <string_view>
#include <utility>

#include "kinds/BuiltInKinds.h"
#include "proposals/KindCandidates.h"
#include "proposals/Words.h"

namespace ZelDebugDialog {
namespace {

using namespace std::string_view_literals;

constexpr std::array instructionWords = {
    "instruction"sv, "instructions"sv, "instr"sv,  "insn"sv,  "imem"sv,
    "ibus"sv,        "icache"sv,       "ifetch"sv, "fetch"sv, "iport"sv,
    "iside"sv,       "iaxi"sv,         "iahb"sv,   "iwb"sv,   "ilmb"sv,
    "iplb"sv,        "icode"sv,        "icb"sv};
constexpr std::array dataWords = {
    "data"sv, "dmem"sv, "dbus"sv, "dcache"sv, "dport"sv, "dside"sv, "daxi"sv,
    "dahb"sv, "dwb"sv,  "dlmb"sv, "dplb"sv,   "dcode"sv, "lsu"sv};
constexpr std::array processorWords = {"cpu"sv, "processor"sv, "riscv"sv,
                                       "rv"sv};
/// Means one only beside a debug interface: everything is a core.
constexpr std::array coreWords = {"core"sv, "mcu"sv};

/// The names of two interfaces of a component.
struct Pair {
  std::string instructions;
  std::string data;
};

bool accesses(const DesignInterface &interface) {
  return interface.mode == InterfaceMode::initiator &&
         !namesAuxiliary(interface.name) &&
         !namesAuxiliary(nameIn(interface.busType));
}

/// Two accesses of its own, one for instructions and one for data.
Pair findPair(const DesignComponent &component) {
  Pair pair;
  for (const DesignInterface &interface : component.interfaces) {
    if (!accesses(interface))
      continue;
    const bool isInstructions =
        !findWord(interface.name, instructionWords).empty();
    const bool isData = !findWord(interface.name, dataWords).empty();
    if (isInstructions && !isData && pair.instructions.empty())
      pair.instructions = interface.name;
    if (isData && !isInstructions && pair.data.empty())
      pair.data = interface.name;
  }
  return pair.instructions.empty() || pair.data.empty() ? Pair() : pair;
}

/// A word that holds "debug" or "dbg". JTAG is what debug modules have.
bool isDebugPort(const DesignInterface &interface) {
  if (namesAuxiliary(nameIn(interface.busType)))
    return false;
  for (const std::string_view name :
       {std::string_view(interface.name), nameIn(interface.busType)})
    for (const std::string &word : wordsOf(name))
      if (word.find("debug") != std::string::npos ||
          word.find("dbg") != std::string::npos)
        return true;
  return false;
}

const DesignInterface *findDebugPort(const DesignComponent &component) {
  for (const DesignInterface &interface : component.interfaces)
    if ((interface.mode == InterfaceMode::target ||
         interface.mode == InterfaceMode::mirroredInitiator) &&
        isDebugPort(interface))
      return &interface;
  return nullptr;
}

/// The part that the debugger knows for it, by its name; several where that
/// leaves it open.
std::vector<std::string> typesFor(std::string_view name) {
  if (!findWord(name, {"405"}).empty())
    return {std::string(ppc405TypeName)};
  if (!findWord(name, {"440"}).empty())
    return {std::string(ppc440TypeName)};
  if (!findWord(name, {"ppc", "powerpc"}).empty())
    return {std::string(ppc405TypeName), std::string(ppc440TypeName)};
  std::string whole;
  for (const char c : name)
    if (c != '_' && c != '-' && c != '.')
      whole += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  if (whole.find("cortexa9") != std::string::npos)
    return {std::string(cortexA9TypeName)};
  if (whole.find("cortexr5") != std::string::npos)
    return {std::string(cortexR5TypeName)};
  return {std::string(lumacoreTypeName)};
}

class Search {
public:
  explicit Search(const KindFacts &known)
      : facts(known), holdsProcessor(known.instances().size()) {}

  std::vector<KindCandidate> run() {
    for (const std::size_t component : facts.components)
      if (isOne(facts.model.Component(component)))
        markAround(component);
    std::vector<KindCandidate> candidates;
    for (const std::size_t component : facts.components) {
      KindCandidate candidate = facts.start(KindPart::processor, component);
      if (judge(component, candidate))
        candidates.push_back(std::move(candidate));
    }
    return candidates;
  }

private:
  static bool isKnown(const DesignComponent &component) {
    return component.role == DesignRole::processor &&
           (findBuiltInRole(component.typeName) == DesignRole::processor ||
            KindFacts::isSettled(component));
  }
  /// Whatever its name.
  static bool isOne(const DesignComponent &component) {
    if (component.role == DesignRole::processor)
      return true;
    return !KindFacts::isSettled(component) &&
           !KindFacts::isPassage(component) &&
           !findPair(component).instructions.empty();
  }

  void markAround(std::size_t component) {
    const std::vector<DesignInstance> &instances = facts.instances();
    for (const std::size_t instance : facts.instancesOf(component))
      for (std::size_t around = instances[instance].parent;
           around != DesignModel::top && !holdsProcessor[around];
           around = instances[around].parent)
        holdsProcessor[around] = true;
  }

  /// False: it is no candidate at all.
  bool judge(std::size_t component, KindCandidate &candidate) const {
    const DesignComponent &data = facts.model.Component(component);
    const std::string name(nameIn(data.identity));
    candidate.typeNames = typesFor(name);
    if (isKnown(data)) {
      candidate.verdict = KindVerdict::known;
      candidate.typeNames = {data.typeName};
      candidate.evidence.push_back(KindFacts::isSettled(data)
                                       ? "a kind table lets it play " +
                                             named(data.typeName)
                                       : "the debugger knows its type name");
      return true;
    }
    if (KindFacts::isSettled(data) || data.role == DesignRole::debugModule)
      return false;
    addEvidence(data, name, candidate);
    if (data.role == DesignRole::processor)
      return settle(candidate);
    if (KindFacts::isPassage(data) || candidate.evidence.empty())
      return false;
    if (holdsProcessor[facts.instancesOf(component).front()]) {
      candidate.verdict = KindVerdict::rejected;
      candidate.typeNames.clear();
      candidate.question = "the processor is inside it";
      return !findPair(data).instructions.empty();
    }
    if (!findPair(data).instructions.empty())
      return settle(candidate);
    const bool isForDebugging =
        namesDebugging(name) || !findWord(name, {"dm", "dtm"}).empty();
    if (isForDebugging || !hasWiredAccess(component))
      return false;
    const bool isNamed = !findWord(name, processorWords).empty();
    if (findDebugPort(data) != nullptr &&
        (isNamed || !findWord(name, coreWords).empty()))
      return settle(candidate);
    if (!isNamed || facts.isHierarchy(component))
      return false;
    candidate.question = "only its name speaks for a processor";
    return true;
  }

  /// Of one that is a processor: which, may be open.
  static bool settle(KindCandidate &candidate) {
    const bool isOpen = candidate.typeNames.size() > 1;
    candidate.verdict = isOpen ? KindVerdict::undecided : KindVerdict::proposed;
    if (isOpen)
      candidate.question = "its name does not say which of " +
                           listed(candidate.typeNames) + " it is like";
    else if (candidate.typeNames.front() == "lumacore")
      candidate.evidence.emplace_back(
          "nothing in its name speaks for another kind than a soft core");
    return true;
  }

  static void addEvidence(const DesignComponent &data, const std::string &name,
                          KindCandidate &candidate) {
    if (data.hasCpus)
      candidate.evidence.emplace_back(
          "its component has a 'cpus' element: it says that it is a processor");
    const Pair pair = findPair(data);
    if (!pair.instructions.empty())
      candidate.evidence.push_back("it fetches instructions by " +
                                   named(pair.instructions) +
                                   " and has its data by " + named(pair.data));
    std::string_view word = findWord(name, processorWords);
    if (word.empty())
      word = findWord(name, coreWords);
    if (!word.empty())
      candidate.evidence.push_back("its name holds " + named(word));
    const DesignInterface *const port = findDebugPort(data);
    if (port != nullptr)
      candidate.evidence.push_back("it has a debug interface, " +
                                   named(port->name));
  }

  bool hasWiredAccess(std::size_t component) const {
    const DesignComponent &data = facts.model.Component(component);
    const std::size_t first = facts.instancesOf(component).front();
    for (std::size_t at = 0; at < data.interfaces.size(); ++at)
      if (accesses(data.interfaces[at]) &&
          !facts.model.WiredTo({first, at}, 1).empty())
        return true;
    return false;
  }

  const KindFacts &facts;
  std::vector<bool> holdsProcessor; ///< By instance.
};

} // namespace

std::vector<KindCandidate> findProcessorCandidates(const KindFacts &facts) {
  return Search(facts).run();
}

} // namespace ZelDebugDialog

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "ZelDebugDialog/TypeNames.h"
#include "kinds/KnownTypes.h"
#include "proposals/KindCandidates.h"
#include "proposals/Words.h"

namespace ZelDebugDialog {
namespace {

using namespace std::string_view_literals;

constexpr std::array uartWords = {"uart"sv, "usart"sv};
constexpr std::array serialWords = {"serial"sv};

constexpr const char *onChip = "ocm_ctl_cedar";
constexpr const char *outsideStatic = "emc_ctl_cedar";
constexpr const char *outsideDynamic = "multiport_memctl";

constexpr std::array staticWords = {"flash"sv, "nor"sv, "emc"sv};
constexpr std::array dynamicWords = {"dram"sv, "sdram"sv, "sdr"sv, "ddr"sv};
constexpr std::array insideWords = {
    "ram"sv, "sram"sv, "bram"sv, "spram"sv, "dpram"sv,   "ocram"sv, "ocm"sv,
    "tcm"sv, "rom"sv,  "brom"sv, "prom"sv,  "bootrom"sv, "mem"sv,   "memory"sv};
/// Leave open where the memory is.
constexpr std::array openWords = {"external"sv, "ext"sv, "controller"sv,
                                  "ctrl"sv,     "ctl"sv, "memctl"sv};

class Search {
public:
  explicit Search(const KindFacts &known) : facts(known) {
    for (const std::size_t processor : known.processors) {
      std::vector<std::string> names;
      facts.model.getPeripherals(names, facts.instances()[processor].name);
      for (const std::string &name : names)
        reached.insert(facts.find(name));
    }
  }

  std::vector<KindCandidate> run() {
    std::vector<KindCandidate> candidates;
    for (const KindPart part : {KindPart::uart, KindPart::memory})
      for (const std::size_t component : facts.components) {
        const DesignComponent &data = facts.model.Component(component);
        if (data.role != DesignRole::other || facts.isHierarchy(component))
          continue;
        KindCandidate candidate;
        const bool isOne = part == KindPart::uart
                               ? judgeUart(component, data, candidate)
                               : judgeMemory(component, data, candidate);
        if (isOne)
          candidates.push_back(std::move(candidate));
      }
    return candidates;
  }

private:
  bool isReached(std::size_t component) const {
    const auto &instances = facts.instancesOf(component);
    return std::any_of(
        instances.begin(), instances.end(),
        [this](std::size_t instance) { return reached.count(instance) != 0; });
  }

  /// Of one that may be one: whether a processor has it.
  void judgeReach(std::size_t component, KindCandidate &candidate) const {
    if (facts.processors.empty()) {
      candidate.verdict = KindVerdict::undecided;
      candidate.question = "no processor is known that could reach it";
    } else if (!isReached(component)) {
      candidate.verdict = KindVerdict::rejected;
      candidate.typeNames.clear();
      candidate.question = "no processor reaches it";
    }
  }

  bool judgeUart(std::size_t component, const DesignComponent &data,
                 KindCandidate &candidate) const {
    if (isStubUart(data.typeName)) {
      candidate = facts.start(KindPart::uart, component);
      return know(data, candidate);
    }
    if (KindFacts::isSettled(data) || KindFacts::isPassage(data))
      return false;
    const std::string_view name = nameIn(data.identity);
    const std::string_view word = findWord(name, uartWords);
    const std::string_view serial = findWord(name, serialWords);
    const DesignInterface *const line = findLine(data);
    if (word.empty() && (serial.empty() && line == nullptr))
      return false;
    if (word.empty() && !isReached(component))
      return false;
    candidate = facts.start(KindPart::uart, component);
    candidate.typeNames = {std::string(stubUartTypes.front())};
    if (!word.empty() || !serial.empty())
      candidate.evidence.push_back("its name holds " +
                                   named(word.empty() ? serial : word));
    if (line != nullptr)
      candidate.evidence.push_back("it has a serial line, " +
                                   named(line->name));
    candidate.verdict = KindVerdict::proposed;
    if (word.empty()) {
      candidate.verdict = KindVerdict::undecided;
      candidate.question =
          line == nullptr
              ? "it may be another kind of serial interface than a UART"
              : "its name does not say that it is a UART and nothing else";
    }
    judgeReach(component, candidate);
    return true;
  }

  /// Its own line to the outside.
  static const DesignInterface *findLine(const DesignComponent &data) {
    for (const DesignInterface &interface : data.interfaces)
      if (!findWord(nameIn(interface.busType), uartWords).empty() ||
          !findWord(interface.name, uartWords).empty())
        return &interface;
    return nullptr;
  }

  bool judgeMemory(std::size_t component, const DesignComponent &data,
                   KindCandidate &candidate) const {
    if (isMemoryType(data.typeName)) {
      candidate = facts.start(KindPart::memory, component);
      return know(data, candidate);
    }
    if (KindFacts::isSettled(data) || KindFacts::isPassage(data))
      return false;
    const std::string_view name = nameIn(data.identity);
    const std::string_view word = findMemoryWord(name);
    const DesignInterface *const block = findMemory(data);
    if (word.empty() && block == nullptr)
      return false;
    candidate = facts.start(KindPart::memory, component);
    candidate.verdict = KindVerdict::proposed;
    if (block != nullptr)
      candidate.evidence.push_back("what is behind " + named(block->name) +
                                   " is said to be memory");
    if (!word.empty())
      candidate.evidence.push_back("its name holds " + named(word));
    chooseMemory(name, candidate);
    judgeReach(component, candidate);
    return true;
  }

  static std::string_view findMemoryWord(std::string_view name) {
    std::string_view word = findWord(name, staticWords);
    if (word.empty())
      word = findWord(name, dynamicWords);
    return word.empty() ? findWord(name, insideWords) : word;
  }

  static const DesignInterface *findMemory(const DesignComponent &data) {
    for (const DesignInterface &interface : data.interfaces)
      if (interface.isMemory)
        return &interface;
    return nullptr;
  }

  static void chooseMemory(std::string_view name, KindCandidate &candidate) {
    if (!findWord(name, staticWords).empty()) {
      candidate.typeNames = {outsideStatic};
      return;
    }
    if (!findWord(name, dynamicWords).empty()) {
      candidate.typeNames = {outsideDynamic};
      return;
    }
    candidate.typeNames = {onChip};
    const std::string_view open = findWord(name, openWords);
    if (open.empty())
      return;
    candidate.typeNames = {onChip, outsideStatic, outsideDynamic};
    candidate.verdict = KindVerdict::undecided;
    candidate.question =
        "its name holds " + named(open) +
        ", which leaves open whether the memory is on the chip, static "
        "outside, or dynamic outside";
  }

  static bool know(const DesignComponent &data, KindCandidate &candidate) {
    candidate.verdict = KindVerdict::known;
    candidate.typeNames = {data.typeName};
    candidate.evidence.push_back(KindFacts::isSettled(data)
                                     ? "a kind table lets it play " +
                                           named(data.typeName)
                                     : "the debugger knows its type name");
    return true;
  }

  const KindFacts &facts;
  std::unordered_set<std::size_t> reached;
};

} // namespace

std::vector<KindCandidate> findPeripheralCandidates(const KindFacts &facts) {
  return Search(facts).run();
}

} // namespace ZelDebugDialog

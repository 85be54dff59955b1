#include "subcommands/DesignGraph.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

#include <fmt/format.h>

#include "output/Failure.h"
#include "output/Output.h"
#include "output/Suggestion.h"
#include "subcommands/Wiring.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::DesignInstance;
using ZelDebugDialog::DesignModel;
using ZelDebugDialog::DesignPort;
using ZelDebugDialog::DesignRole;
using ZelDebugDialog::DesignWire;

/// The last part of the name.
std::string localName(const DesignModel &design, std::size_t instance) {
  const DesignInstance &data = design.Instances()[instance];
  return data.parent == DesignModel::top
             ? data.name
             : data.name.substr(design.Instances()[data.parent].name.size() +
                                1);
}

const char *styleOf(DesignRole role) {
  switch (role) {
  case DesignRole::processor:
    return "shape=box3d, style=filled, fillcolor=\"#cfe2ff\"";
  case DesignRole::debugModule:
    return "shape=hexagon, style=filled, fillcolor=\"#ffe4b3\"";
  case DesignRole::byTypeName:
  case DesignRole::other:
    break;
  }
  return "shape=box";
}

class Graph {
public:
  Graph(DesignModel &drawn, std::optional<std::size_t> subtree)
      : design(drawn), wiring(drawn), inner(drawn.Instances().size()),
        isDrawn(drawn.Instances().size()) {
    // An instance comes before all that is inside it.
    const std::vector<DesignInstance> &instances = design.Instances();
    for (std::size_t at = 0; at < instances.size(); ++at) {
      const std::size_t parent = instances[at].parent;
      const bool isRoot = subtree ? at == *subtree : parent == DesignModel::top;
      isDrawn[at] = isRoot || (parent != DesignModel::top && isDrawn[parent]);
      if (isRoot)
        roots.push_back(at);
      else if (isDrawn[at])
        inner[parent].push_back(at);
    }
  }

  std::string write() {
    text = "digraph design {\n  rankdir=LR;\n  node [fontname=sans];\n"
           "  edge [fontname=sans, fontsize=10];\n";
    writeInstances();
    for (std::size_t at = 0; at < wiring.wires().size(); ++at)
      writeWire(at);
    writeDebugModules();
    return text + "}\n";
  }

private:
  /// With a stack of its own: a model built in code may be of any depth.
  void writeInstances() {
    struct Step {
      std::size_t instance;
      bool closes;
    };
    std::vector<Step> pending;
    const auto push = [&pending](const std::vector<std::size_t> &list) {
      for (auto at = list.rbegin(); at != list.rend(); ++at)
        pending.push_back({*at, false});
    };
    push(roots);
    while (!pending.empty()) {
      const Step step = pending.back();
      pending.pop_back();
      if (step.closes) {
        text += "  }\n";
        continue;
      }
      if (inner[step.instance].empty()) {
        writeNode(step.instance);
        continue;
      }
      text += fmt::format("  subgraph cluster_{} {{\n    label={};\n",
                          step.instance,
                          quotedLabel(localName(design, step.instance)));
      writeNode(step.instance);
      pending.push_back({step.instance, true});
      push(inner[step.instance]);
    }
  }

  void writeNode(std::size_t at) {
    const DesignInstance &instance = design.Instances()[at];
    const std::string style =
        inner[at].empty() || instance.role != DesignRole::other
            ? styleOf(instance.role)
            : "shape=folder";
    const std::string name = quotedLabel(localName(design, at));
    const std::string type = quotedLabel(instance.typeName);
    // Two lines: the first without its last mark, the second without its first.
    text += fmt::format("    n{} [label={}\\n{}, {}];\n", at,
                        name.substr(0, name.size() - 1), type.substr(1), style);
  }

  void writeWire(std::size_t number) {
    const DesignWire &wire = wiring.wires()[number];
    std::vector<DesignPort> ends;
    for (const DesignPort &end : wire.ends)
      if (isDrawn[end.instance])
        ends.push_back(end);
    if (ends.size() < 2)
      return;
    if (ends.size() == 2)
      return writeEdge(wire, ends[0], ends[1]);
    text += fmt::format("  w{} [shape=point];\n", number);
    for (const DesignPort &end : ends)
      text += isSource(wire, end)
                  ? fmt::format("  n{} -> w{} [taillabel={}];\n", end.instance,
                                number, label(end))
                  : fmt::format("  w{} -> n{} [headlabel={}];\n", number,
                                end.instance, label(end));
  }

  void writeEdge(const DesignWire &wire, const DesignPort &a,
                 const DesignPort &b) {
    const bool isSourceA = isSource(wire, a);
    const bool isSourceB = isSource(wire, b);
    const DesignPort &from = isSourceB && !isSourceA ? b : a;
    const DesignPort &to = isSourceB && !isSourceA ? a : b;
    text += fmt::format("  n{} -> n{} [taillabel={}, headlabel={}{}];\n",
                        from.instance, to.instance, label(from), label(to),
                        isSourceA == isSourceB ? ", dir=none" : "");
  }

  void writeDebugModules() {
    std::unordered_map<std::string, std::size_t> byName;
    for (std::size_t at = 0; at < design.Instances().size(); ++at)
      byName.emplace(design.Instances()[at].name, at);
    for (const std::string &module : design.DebugModules()) {
      std::vector<std::string> processors;
      design.getHduConnectedProcessorList(processors, module);
      const std::size_t from = byName.at(module);
      for (std::size_t at = 0; at < processors.size(); ++at) {
        const std::size_t to = byName.at(processors[at]);
        if (isDrawn[from] && isDrawn[to])
          text += fmt::format("  n{} -> n{} [label=\"debugs, {}\", "
                              "style=dashed, constraint=false];\n",
                              from, to, at + 1);
      }
    }
  }

  bool isSource(const DesignWire &wire, const DesignPort &end) const {
    return drives(wiring.interfaceOf(end).mode,
                  wire.within == end.instance ? Side::inside : Side::outside);
  }

  std::string label(const DesignPort &end) const {
    return quotedLabel(wiring.interfaceOf(end).name);
  }

  DesignModel &design;
  Wiring wiring;
  std::vector<std::vector<std::size_t>> inner;
  std::vector<bool> isDrawn;
  std::vector<std::size_t> roots;
  std::string text;
};

constexpr std::size_t mostCandidates = 10000;

/// The longest part of the path, up to a dot, that is an instance.
std::string knownPart(const DesignModel &design, const std::string &path) {
  std::unordered_map<std::string, bool> names;
  for (const DesignInstance &instance : design.Instances())
    names.emplace(instance.name, true);
  std::size_t end = path.rfind('.');
  while (end != std::string::npos && end > 0) {
    if (names.count(path.substr(0, end)) != 0)
      return path.substr(0, end);
    end = path.rfind('.', end - 1);
  }
  return "";
}

} // namespace

std::string quotedLabel(const std::string &text) {
  std::string quoted = "\"";
  for (const char c : printable(text)) {
    if (c == '"' || c == '\\')
      quoted += '\\';
    // Graphviz knows the entities of HTML, in labels of every kind.
    if (c == '&')
      quoted += "&amp;";
    else
      quoted += c;
  }
  return quoted + "\"";
}

std::string designGraph(DesignModel &design, std::optional<std::size_t> under) {
  return Graph(design, under).write();
}

std::size_t expectInstance(const DesignModel &design, const std::string &path) {
  const std::vector<DesignInstance> &instances = design.Instances();
  const auto found = std::find_if(
      instances.begin(), instances.end(),
      [&path](const DesignInstance &each) { return each.name == path; });
  if (found != instances.end())
    return static_cast<std::size_t>(found - instances.begin());
  const std::string known = knownPart(design, path);
  std::vector<std::string> inside;
  for (const DesignInstance &instance : instances) {
    const std::string around = instance.parent == DesignModel::top
                                   ? ""
                                   : instances[instance.parent].name;
    if (around == known && inside.size() < mostCandidates)
      inside.push_back(known.empty() ? instance.name
                                     : instance.name.substr(known.size() + 1));
  }
  const std::string rest = known.empty() ? path : path.substr(known.size() + 1);
  const std::string where =
      known.empty() ? "the design has no instance of that name"
                    : fmt::format("there is nothing of that name inside '{}'",
                                  printable(known));
  const std::string nearest = nearestMatch(rest, inside);
  std::string advice = "; 'zeldebug design' lists them all";
  if (!nearest.empty())
    advice =
        fmt::format("; did you mean '{}'?",
                    printable(known.empty() ? nearest : known + "." + nearest));
  throw Failure(
      ExitStatus::wrongUse,
      fmt::format("--under: '{}': {}{}", printable(path), where, advice));
}

} // namespace zeldebug

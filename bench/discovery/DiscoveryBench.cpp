// Discovering the processors of a design, and finding one by its name.
#include <algorithm>
#include <memory>

#include "common/FlatDesign.h"
#include "common/Run.h"
#include "common/Session.h"

namespace {

using ZelDebugDialog::EngineImp;
using ZelDebugDialog::ProcessorInfoImp;

/// The answers alone: what discovery asks of this design, and nothing made of
/// them.
std::size_t askOnly(bench::FlatDesign &design) {
  std::size_t answers = 0;
  std::vector<std::string> names;
  design.getProcessorInstances(names, false);
  std::vector<std::string> modules;
  design.getIpInstances(modules, HW_IP_DEBUG);
  for (const std::string &module : modules) {
    answers += design.getIpName(module).size();
    std::vector<std::string> attached;
    design.getHduConnectedProcessorList(attached, module);
    answers += attached.size();
  }
  std::vector<std::string> lumacores;
  design.getIpInstances(lumacores, "lumacore");
  for (const std::string &name : lumacores) {
    std::vector<std::string> peripherals;
    design.getPeripherals(peripherals, name);
    for (const std::string &peripheral : peripherals)
      answers += design.getIpName(peripheral).size();
  }
  std::vector<std::string> cortexA9s;
  design.getIpInstances(cortexA9s, "soc_cortexa9");
  return answers + cortexA9s.size();
}

void addDiscovery(std::size_t lumacores) {
  bench::add("discover", "engine", lumacores, [lumacores] {
    const auto design = std::make_shared<bench::FlatDesign>(lumacores);
    bench::Session session;
    session.engine.GetProcessorList(design.get());
    bench::require(session.imp.processorList.size() == lumacores &&
                       session.imp.processorList.back()->instanceName ==
                           design->lumacores().back(),
                   "discovery");
    return bench::Prepared{lumacores, [design] {
                             bench::Session fresh;
                             fresh.engine.GetProcessorList(design.get());
                             benchmark::DoNotOptimize(fresh.imp.processorList);
                           }};
  });
  bench::add("discover", "the queries alone", lumacores, [lumacores] {
    const auto design = std::make_shared<bench::FlatDesign>(lumacores);
    bench::require(askOnly(*design) > lumacores, "the queries");
    return bench::Prepared{
        lumacores, [design] { benchmark::DoNotOptimize(askOnly(*design)); }};
  });
}

/// Looks the name up in a copy of the list.
int findInCopy(const EngineImp &imp, const std::string &name) {
  const std::vector<ProcessorInfoImp *> list = imp.processorList;
  const auto found = std::find_if(list.begin(), list.end(),
                                  [&name](const ProcessorInfoImp *record) {
                                    return record->instanceName == name;
                                  });
  return found == list.end() ? -1 : (*found)->cpuNr;
}

/// An engine and the design that its processors come from.
struct Discovered {
  explicit Discovered(std::size_t lumacores) : design(lumacores) {
    session.engine.GetProcessorList(&design);
    bench::require(session.engine.GetProcessorNr(last()) ==
                       findInCopy(session.imp, last()),
                   "the look-up of a name");
  }
  const std::string &last() const { return design.lumacores().back(); }

  bench::FlatDesign design;
  bench::Session session;
};

void addLookUp(std::size_t lumacores) {
  bench::add("look up", "engine", lumacores, [lumacores] {
    const auto found = std::make_shared<Discovered>(lumacores);
    return bench::Prepared{
        lumacores, [found] {
          benchmark::DoNotOptimize(
              found->session.engine.GetProcessorNr(found->last()));
        }};
  });
  bench::add("look up", "in a copy", lumacores, [lumacores] {
    const auto found = std::make_shared<Discovered>(lumacores);
    return bench::Prepared{lumacores, [found] {
                             benchmark::DoNotOptimize(
                                 findInCopy(found->session.imp, found->last()));
                           }};
  });
}

} // namespace

int main(int count, char **arguments) {
  for (const std::size_t lumacores : bench::sizes) {
    addDiscovery(lumacores);
    addLookUp(lumacores);
  }
  return bench::run(count, arguments);
}

// Loading a flat IP-XACT design, ready for every query, beside pugixml's own
// load of the same files. Beside the times stand what was read a second, and
// how many instances and diagnostics it became.
#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "PeakMemory.h"
#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "common/DesignFiles.h"
#include "common/Run.h"

namespace {

using bench::DesignFolder;
using bench::instanceName;
using bench::instancesOfProcessor;
using ZelDebugDialog::DesignModel;

constexpr std::array<std::size_t, 3> instanceCounts{230, 2300, 23000};
/// What the files became.
struct Loaded {
  std::size_t instances = 0;
  std::size_t diagnostics = 0;
};

/// Loads the design and asks it, so that nothing is left for a later query.
Loaded loadModel(const DesignFolder &folder, std::size_t instances) {
  DesignModel model;
  bench::require(ReadDesign({folder.design(), {}, "", ""}, model),
                 "the design model");
  std::vector<std::string> peripherals;
  model.getPeripherals(peripherals, instanceName(0));
  std::vector<std::string> processors;
  model.getProcessorInstances(processors, false);
  bench::require(model.Instances().size() == instances &&
                     peripherals.size() == instancesOfProcessor - 1 &&
                     processors.size() == instances / instancesOfProcessor,
                 "the design model");
  return {model.Instances().size(), model.Diagnostics().size()};
}

Loaded loadXml(const DesignFolder &folder) {
  for (const std::string &file : folder.files()) {
    pugi::xml_document document;
    bench::require(document.load_file(file.c_str()), "pugixml");
  }
  return {};
}

using Load = std::function<Loaded(const DesignFolder &)>;

void measure(benchmark::State &state, std::size_t instances, const Load &load) {
  const DesignFolder folder(bench::flatDesign(instances));
  Loaded loaded;
  const std::size_t peak = bench::peakOf([&] { loaded = load(folder); });
  for ([[maybe_unused]] auto iteration : state)
    load(folder);
  const std::size_t bytes = folder.size();
  state.SetBytesProcessed(state.iterations() *
                          static_cast<std::int64_t>(bytes));
  state.counters["bytes"] = static_cast<double>(bytes);
  state.counters["peak"] = static_cast<double>(peak);
  if (loaded.instances == 0)
    return;
  state.counters["instances"] = static_cast<double>(loaded.instances);
  state.counters["diagnostics"] = static_cast<double>(loaded.diagnostics);
}

void add(const char *who, std::size_t instances, const Load &load) {
  const std::string name =
      "load/" + std::string(who) + '/' + std::to_string(instances);
  benchmark::RegisterBenchmark(name.c_str(),
                               [instances, load](benchmark::State &state) {
                                 measure(state, instances, load);
                               });
}

} // namespace

int main(int count, char **arguments) {
  bench::countPugixml();
  for (const std::size_t instances : instanceCounts) {
    add("design model", instances, [instances](const DesignFolder &folder) {
      return loadModel(folder, instances);
    });
    add("pugixml alone", instances, loadXml);
  }
  return bench::run(count, arguments);
}

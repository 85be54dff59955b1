// Loading a flat IP-XACT design, ready for every query, beside pugixml's own
// load of the same files. Beside the times stand what was read a second, and
// how many instances and diagnostics it became.
#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "PeakMemory.h"
#include "ZelDebugDialog/DesignModel/DesignModel.h"
#include "common/Run.h"

namespace {

namespace fs = std::filesystem;

using ZelDebugDialog::DesignModel;

constexpr std::array<std::size_t, 3> instanceCounts{230, 2300, 23000};
constexpr std::size_t instancesOfProcessor = 10; // itself and its peripherals

constexpr const char *start =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<ipxact:%KIND% xmlns:ipxact="http://www.accellera.org/XMLSchema/IPXACT/1685-2014">
  <ipxact:vendor>example.org</ipxact:vendor>
  <ipxact:library>flat</ipxact:library>
  <ipxact:name>%NAME%</ipxact:name>
  <ipxact:version>1.0</ipxact:version>
)";

std::string startOf(const std::string &kind, const std::string &name) {
  std::string text = start;
  text.replace(text.find("%KIND%"), 6, kind);
  text.replace(text.find("%NAME%"), 6, name);
  return text;
}

std::string componentText(const std::string &name, const std::string &mode) {
  return startOf("component", name) + R"(  <ipxact:busInterfaces>
    <ipxact:busInterface>
      <ipxact:name>bus</ipxact:name>
      <ipxact:busType vendor="example.org" library="bus" name="bus" version="1.0"/>
      <ipxact:)" +
         mode + R"(/>
    </ipxact:busInterface>
  </ipxact:busInterfaces>
</ipxact:component>
)";
}

bool isProcessor(std::size_t index) {
  return index % instancesOfProcessor == 0;
}

std::string instanceName(std::size_t index) {
  return (isProcessor(index) ? "lumacore_" : "uart_") + std::to_string(index);
}

std::string instanceText(std::size_t index) {
  const std::string component =
      isProcessor(index) ? "lumacore" : "uart_mini_cedar";
  return R"(    <ipxact:componentInstance>
      <ipxact:instanceName>)" +
         instanceName(index) + R"(</ipxact:instanceName>
      <ipxact:componentRef vendor="example.org" library="flat" name=")" +
         component + R"(" version="1.0"/>
    </ipxact:componentInstance>
)";
}

/// Connects a peripheral to the processor before it.
std::string connectionText(std::size_t index) {
  const std::size_t processor = index - index % instancesOfProcessor;
  return R"(    <ipxact:interconnection>
      <ipxact:name>wire_)" +
         std::to_string(index) + R"(</ipxact:name>
      <ipxact:activeInterface componentRef=")" +
         instanceName(processor) + R"(" busRef="bus"/>
      <ipxact:activeInterface componentRef=")" +
         instanceName(index) + R"(" busRef="bus"/>
    </ipxact:interconnection>
)";
}

std::string designText(std::size_t instances) {
  std::string text = startOf("design", "flat");
  text += "  <ipxact:componentInstances>\n";
  for (std::size_t index = 0; index < instances; ++index)
    text += instanceText(index);
  text += "  </ipxact:componentInstances>\n  <ipxact:interconnections>\n";
  for (std::size_t index = 0; index < instances; ++index)
    if (!isProcessor(index))
      text += connectionText(index);
  return text + "  </ipxact:interconnections>\n</ipxact:design>\n";
}

/// The files of a design, gone at the end.
class DesignFolder {
public:
  explicit DesignFolder(std::size_t instances) {
    std::string name = (fs::temp_directory_path() / "flat-XXXXXX").string();
    bench::require(mkdtemp(name.data()) != nullptr, "a folder for a design");
    folder = name;
    write("lumacore.xml", componentText("lumacore", "master"));
    write("uart.xml", componentText("uart_mini_cedar", "slave"));
    write("flat.xml", designText(instances));
  }
  ~DesignFolder() {
    std::error_code left;
    fs::remove_all(folder, left);
  }
  DesignFolder(const DesignFolder &) = delete;
  DesignFolder &operator=(const DesignFolder &) = delete;

  std::string design() const { return (folder / "flat.xml").string(); }
  const std::vector<std::string> &files() const { return written; }
  /// Of all files.
  std::size_t size() const { return bytes; }

private:
  void write(const char *name, const std::string &text) {
    written.push_back((folder / name).string());
    std::ofstream(written.back()) << text;
    bytes += text.size();
  }

  fs::path folder;
  std::vector<std::string> written;
  std::size_t bytes = 0;
};

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
  const DesignFolder folder(instances);
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

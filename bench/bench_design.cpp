// Reading a flat design, beside the bare parse of the same bytes by the library
// that the design model parses with. Both count the bytes of the design file.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <pugixml.hpp>

#include "ZelDebugDialog/DesignModel/DesignModel.h"

namespace {

namespace fs = std::filesystem;

const char *const space =
    "xmlns:ipxact=\"http://www.accellera.org/XMLSchema/IPXACT/1685-2014\"";

std::string identity(const std::string &name) {
  return "  <ipxact:vendor>example.org</ipxact:vendor>\n"
         "  <ipxact:library>bench</ipxact:library>\n"
         "  <ipxact:name>" +
         name +
         "</ipxact:name>\n"
         "  <ipxact:version>1.0</ipxact:version>\n";
}

std::string component(const std::string &name, const std::string &interface,
                      const std::string &mode) {
  return "<ipxact:component " + std::string(space) + ">\n" + identity(name) +
         "  <ipxact:busInterfaces>\n    <ipxact:busInterface>\n"
         "      <ipxact:name>" +
         interface + "</ipxact:name>\n      <ipxact:" + mode +
         "/>\n    </ipxact:busInterface>\n  </ipxact:busInterfaces>\n"
         "  <ipxact:parameters>\n"
         "    <ipxact:parameter parameterId=\"base\">\n"
         "      <ipxact:name>C_BASEADDR</ipxact:name>\n"
         "      <ipxact:value>'h0</ipxact:value>\n    </ipxact:parameter>\n"
         "  </ipxact:parameters>\n</ipxact:component>\n";
}

/// Pairs of a processor and a memory, each memory with an address of its own.
std::string design(int pairs) {
  std::string instances;
  std::string connections;
  for (int pair = 0; pair < pairs; ++pair) {
    const std::string number = std::to_string(pair);
    instances +=
        "    <ipxact:componentInstance>\n"
        "      <ipxact:instanceName>core_" +
        number +
        "</ipxact:instanceName>\n"
        "      <ipxact:componentRef vendor=\"example.org\" library=\"bench\" "
        "name=\"lumacore\" version=\"1.0\"/>\n"
        "    </ipxact:componentInstance>\n"
        "    <ipxact:componentInstance>\n"
        "      <ipxact:instanceName>memory_" +
        number +
        "</ipxact:instanceName>\n"
        "      <ipxact:componentRef vendor=\"example.org\" library=\"bench\" "
        "name=\"ocm_ctl_cedar\" version=\"1.0\">\n"
        "        <ipxact:configurableElementValues>\n"
        "          <ipxact:configurableElementValue referenceId=\"base\">" +
        number +
        " * 'h1_0000</ipxact:configurableElementValue>\n"
        "        </ipxact:configurableElementValues>\n"
        "      </ipxact:componentRef>\n"
        "    </ipxact:componentInstance>\n";
    connections += "    <ipxact:interconnection>\n      <ipxact:name>bus_" +
                   number +
                   "</ipxact:name>\n"
                   "      <ipxact:activeInterface componentRef=\"core_" +
                   number +
                   "\" busRef=\"bus\"/>\n"
                   "      <ipxact:activeInterface componentRef=\"memory_" +
                   number +
                   "\" busRef=\"bus\"/>\n"
                   "    </ipxact:interconnection>\n";
  }
  return "<ipxact:design " + std::string(space) + ">\n" + identity("design") +
         "  <ipxact:componentInstances>\n" + instances +
         "  </ipxact:componentInstances>\n  <ipxact:interconnections>\n" +
         connections + "  </ipxact:interconnections>\n</ipxact:design>\n";
}

/// The files of a design in a folder of their own, gone with the object.
class Files {
public:
  explicit Files(int pairs) {
    std::string pattern = (fs::temp_directory_path() / "bench-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
      std::abort();
    folder = pattern;
    write("lumacore.xml", component("lumacore", "bus", "master"));
    write("memory.xml", component("ocm_ctl_cedar", "bus", "slave"));
    text = design(pairs);
    write("design.xml", text);
  }
  ~Files() { fs::remove_all(folder); }
  Files(const Files &) = delete;
  Files &operator=(const Files &) = delete;

  std::string path() const { return (folder / "design.xml").string(); }
  std::int64_t size() const { return static_cast<std::int64_t>(text.size()); }

private:
  void write(const std::string &name, const std::string &content) const {
    std::ofstream(folder / name, std::ios::binary) << content;
  }

  fs::path folder;
  std::string text;
};

void setRate(benchmark::State &state, const Files &files) {
  state.SetBytesProcessed(state.iterations() * files.size());
  state.counters["fileBytes"] = static_cast<double>(files.size());
}

void ReadModel(benchmark::State &state) {
  const Files files(static_cast<int>(state.range(0)) / 2);
  ZelDebugDialog::DesignSources sources;
  sources.designFile = files.path();
  std::size_t instances = 0;
  std::size_t diagnostics = 0;
  for (auto _ : state) {
    ZelDebugDialog::DesignModel model;
    if (!ReadDesign(sources, model))
      state.SkipWithError("the design was not read");
    instances = model.Instances().size();
    diagnostics = model.Diagnostics().size();
  }
  setRate(state, files);
  state.counters["instances"] = static_cast<double>(instances);
  state.counters["diagnostics"] = static_cast<double>(diagnostics);
}

void ParseOnly(benchmark::State &state) {
  const Files files(static_cast<int>(state.range(0)) / 2);
  for (auto _ : state) {
    pugi::xml_document document;
    if (!document.load_file(files.path().c_str()))
      state.SkipWithError("the design was not parsed");
    benchmark::DoNotOptimize(document.first_child());
  }
  setRate(state, files);
}

/// Every question that the engine asks, of all processors of a loaded design.
void AskModel(benchmark::State &state) {
  const Files files(static_cast<int>(state.range(0)) / 2);
  ZelDebugDialog::DesignSources sources;
  sources.designFile = files.path();
  ZelDebugDialog::DesignModel model;
  if (!ReadDesign(sources, model))
    state.SkipWithError("the design was not read");
  for (auto _ : state) {
    std::vector<std::string> processors;
    model.getProcessorInstances(processors, false);
    std::size_t answers = 0;
    for (const std::string &processor : processors) {
      std::vector<std::string> peripherals;
      model.getPeripherals(peripherals, processor);
      for (const std::string &peripheral : peripherals)
        answers += model.getIpName(peripheral).size();
    }
    benchmark::DoNotOptimize(answers);
  }
}

// 10,000 instances, and as many as make a file of 10 MB.
BENCHMARK(ReadModel)->Arg(10000)->Arg(26000)->Unit(benchmark::kMillisecond);
BENCHMARK(ParseOnly)->Arg(10000)->Arg(26000)->Unit(benchmark::kMillisecond);
BENCHMARK(AskModel)->Arg(10000)->Arg(26000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

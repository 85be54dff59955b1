// IP-XACT designs of any size, and a folder with their files.
#ifndef ZELDEBUGDIALOG_TESTS_PERFORMANCE_DESIGNFILES_H
#define ZELDEBUGDIALOG_TESTS_PERFORMANCE_DESIGNFILES_H

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace performance {

/// Texts by the names of their files.
using DesignFiles = std::map<std::string, std::string>;

constexpr std::size_t instancesOfProcessor = 10; // itself and its peripherals

inline std::string startOf(const std::string &kind, const std::string &name) {
  return R"(<?xml version="1.0" encoding="UTF-8"?>
<ipxact:)" +
         kind +
         R"( xmlns:ipxact="http://www.accellera.org/XMLSchema/IPXACT/1685-2014">
  <ipxact:vendor>example.org</ipxact:vendor>
  <ipxact:library>flat</ipxact:library>
  <ipxact:name>)" +
         name + R"(</ipxact:name>
  <ipxact:version>1.0</ipxact:version>
)";
}

/// With one interface, a mode of which is given, and the rest of its elements.
inline std::string componentText(const std::string &name,
                                 const std::string &mode,
                                 const std::string &rest) {
  return startOf("component", name) + R"(  <ipxact:busInterfaces>
    <ipxact:busInterface>
      <ipxact:name>bus</ipxact:name>
      <ipxact:busType vendor="example.org" library="bus" name="bus" version="1.0"/>
      <ipxact:)" +
         mode + R"(/>
    </ipxact:busInterface>
  </ipxact:busInterfaces>
)" + rest +
         "</ipxact:component>\n";
}

inline bool isProcessor(std::size_t index) {
  return index % instancesOfProcessor == 0;
}

inline std::string instanceName(std::size_t index) {
  return (isProcessor(index) ? "lumacore_" : "uart_") + std::to_string(index);
}

inline std::string instanceText(const std::string &name,
                                const std::string &component,
                                const std::string &values) {
  return R"(    <ipxact:componentInstance>
      <ipxact:instanceName>)" +
         name + R"(</ipxact:instanceName>
      <ipxact:componentRef vendor="example.org" library="flat" name=")" +
         component + R"(" version="1.0")" +
         (values.empty() ? "/>"
                         : ">\n" + values + "      </ipxact:componentRef>") +
         R"(
    </ipxact:componentInstance>
)";
}

/// Connects a peripheral to the processor before it.
inline std::string connectionText(std::size_t index) {
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

/// What each instance is given, for two parameters of its component.
inline std::string valuesText(std::size_t index) {
  return R"(        <ipxact:configurableElementValues>
          <ipxact:configurableElementValue referenceId="base">)" +
         std::to_string(4096 * index) +
         R"(</ipxact:configurableElementValue>
          <ipxact:configurableElementValue referenceId="label">"unit )" +
         std::to_string(index) + R"("</ipxact:configurableElementValue>
        </ipxact:configurableElementValues>
)";
}

constexpr const char *parametersText = R"(  <ipxact:parameters>
    <ipxact:parameter parameterId="base">
      <ipxact:name>BASE</ipxact:name>
      <ipxact:value>0</ipxact:value>
    </ipxact:parameter>
    <ipxact:parameter parameterId="label" type="string">
      <ipxact:name>LABEL</ipxact:name>
      <ipxact:value>none</ipxact:value>
    </ipxact:parameter>
    <ipxact:parameter parameterId="last">
      <ipxact:name>LAST</ipxact:name>
      <ipxact:value>base + 4095</ipxact:value>
    </ipxact:parameter>
  </ipxact:parameters>
)";

inline std::string designText(const std::string &name,
                              const std::string &instances,
                              const std::string &connections) {
  return startOf("design", name) + "  <ipxact:componentInstances>\n" +
         instances +
         "  </ipxact:componentInstances>\n  <ipxact:interconnections>\n" +
         connections + "  </ipxact:interconnections>\n</ipxact:design>\n";
}

/// Lumacores with nine peripherals each, in one design, and each instance with
/// values for its parameters if `hasValues`.
inline DesignFiles flatDesign(std::size_t instances, bool hasValues = false) {
  std::string list;
  std::string connections;
  for (std::size_t index = 0; index < instances; ++index) {
    list += instanceText(instanceName(index),
                         isProcessor(index) ? "lumacore" : "uart_mini_cedar",
                         hasValues ? valuesText(index) : "");
    if (!isProcessor(index))
      connections += connectionText(index);
  }
  const std::string rest = hasValues ? parametersText : "";
  return {{"lumacore.xml", componentText("lumacore", "master", rest)},
          {"uart.xml", componentText("uart_mini_cedar", "slave", rest)},
          {"top.xml", designText("flat", list, connections)}};
}

/// The same number of instances, each processor with its peripherals in a
/// component of its own.
inline DesignFiles hierarchicalDesign(std::size_t instances) {
  DesignFiles files = flatDesign(instancesOfProcessor);
  files["inner.xml"] = std::move(files["top.xml"]);
  files["cluster.xml"] = componentText("cluster", "slave", R"(  <ipxact:model>
    <ipxact:views>
      <ipxact:view>
        <ipxact:name>inside</ipxact:name>
        <ipxact:designInstantiationRef>inner</ipxact:designInstantiationRef>
      </ipxact:view>
    </ipxact:views>
    <ipxact:instantiations>
      <ipxact:designInstantiation>
        <ipxact:name>inner</ipxact:name>
        <ipxact:designRef vendor="example.org" library="flat" name="flat" version="1.0"/>
      </ipxact:designInstantiation>
    </ipxact:instantiations>
  </ipxact:model>
)");
  std::string list;
  for (std::size_t at = 0; at < instances / (instancesOfProcessor + 1); ++at)
    list += instanceText("cluster_" + std::to_string(at), "cluster", "");
  files["top.xml"] = designText("top", list, "");
  return files;
}

/// The files of a design, of which "top.xml" is the top; gone at the end.
class DesignFolder {
public:
  explicit DesignFolder(const DesignFiles &files) {
    std::string name =
        (std::filesystem::temp_directory_path() / "design-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
      std::perror(name.c_str());
      std::exit(EXIT_FAILURE);
    }
    folder = name;
    for (const auto &[file, text] : files) {
      written.push_back((folder / file).string());
      std::ofstream(written.back()) << text;
      bytes += text.size();
    }
  }
  ~DesignFolder() {
    std::error_code left;
    std::filesystem::remove_all(folder, left);
  }
  DesignFolder(const DesignFolder &) = delete;
  DesignFolder &operator=(const DesignFolder &) = delete;

  std::string design() const { return (folder / "top.xml").string(); }
  const std::vector<std::string> &files() const { return written; }
  /// Of all files.
  std::size_t size() const { return bytes; }

private:
  std::filesystem::path folder;
  std::vector<std::string> written;
  std::size_t bytes = 0;
};

} // namespace performance

#endif

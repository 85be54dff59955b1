#include "Reading.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "MemorySource.h"
#include "elaboration/ReadDesignFrom.h"

namespace ZelDebugDialog {
namespace {

const char *wordOf(DesignDiagnostic::Severity severity) {
  switch (severity) {
  case DesignDiagnostic::Severity::error:
    return "error ";
  case DesignDiagnostic::Severity::warning:
    return "warning ";
  case DesignDiagnostic::Severity::note:
    return "note ";
  }
  return "";
}

std::string document(const std::string &root, const std::string &name,
                     const std::string &content) {
  return "<ipxact:" + root +
         " xmlns:ipxact=\"http://www.accellera.org/XMLSchema/IPXACT/"
         "1685-2014\">\n"
         "<ipxact:vendor>x</ipxact:vendor>"
         "<ipxact:library>y</ipxact:library>"
         "<ipxact:name>" +
         name +
         "</ipxact:name>"
         "<ipxact:version>1</ipxact:version>\n" +
         content + "</ipxact:" + root + ">\n";
}

std::string element(const std::string &name, const std::string &content) {
  return "<ipxact:" + name + ">" + content + "</ipxact:" + name + ">\n";
}

void replaceAll(std::string &text, const std::string &old,
                const std::string &other) {
  for (std::size_t at = text.find(old); at != std::string::npos;
       at = text.find(old, at + other.size()))
    text.replace(at, old.size(), other);
}

/// A list, which holds something if it is there. Without it there is its line,
/// so that others stay on theirs.
std::string list(const std::string &name, const std::string &content) {
  return content.empty() ? "\n" : element(name, content);
}

std::string reference(const std::string &name) {
  return "vendor=\"x\" library=\"y\" name=\"" + name + "\" version=\"1\"";
}

} // namespace

Names Reading::instances() const {
  Names names;
  for (const DesignInstance &instance : model.Instances())
    names.push_back(instance.name);
  return names;
}

Names Reading::processors() {
  Names names;
  model.getProcessorInstances(names, false);
  return names;
}

Names Reading::attached(const std::string &module) {
  Names names;
  model.getHduConnectedProcessorList(names, module);
  return names;
}

Names Reading::peripherals(const std::string &processor) {
  Names names;
  model.getPeripherals(names, processor);
  return names;
}

Names Reading::diagnostics() const {
  Names lines;
  for (const DesignDiagnostic &found : model.Diagnostics())
    lines.push_back(wordOf(found.severity) + found.file + ":" +
                    std::to_string(found.line) + ": " + found.message);
  return lines;
}

void keepDocuments(const Files &files) {
  // NOLINTNEXTLINE(concurrency-mt-unsafe): nobody changes the environment.
  const char *const folder = std::getenv("ZELDEBUGDIALOG_DOCUMENTS");
  if (folder == nullptr)
    return;
  static int readings = 0;
  const auto *const test =
      testing::UnitTest::GetInstance()->current_test_info();
  const std::filesystem::path own =
      std::filesystem::path(folder) /
      (std::string(test->test_suite_name()) + "." + test->name()) /
      std::to_string(readings++);
  for (const auto &[name, text] : files) {
    const std::filesystem::path path =
        own / std::filesystem::path(name).relative_path();
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
  }
}

Reading readFrom(const Files &files, const DesignSources &sources) {
  keepDocuments(files);
  MemorySource memory;
  memory.files = files;
  Reading reading;
  reading.isRead = readDesignFrom(
      memory, sources, limitsOf(sources.maxInstances), reading.model);
  return reading;
}

Reading readFiles(const Files &files, const std::string &view) {
  DesignSources sources;
  sources.designFile = "top.xml";
  sources.view = view;
  if (files.count("kinds") != 0)
    sources.kindsFile = "kinds";
  return readFrom(files, sources);
}

Reading readBeside(const Files &parts, const std::string &design) {
  Files files = parts;
  files["top.xml"] = design;
  return readFiles(files);
}

std::string component(const std::string &name, const std::string &interfaces,
                      const std::string &others) {
  return document("component", name,
                  list("busInterfaces", interfaces) + others);
}

std::string processor(const std::string &name, const std::string &interfaces,
                      const std::string &model) {
  return component(name, interfaces,
                   "<ipxact:addressSpaces><ipxact:addressSpace><ipxact:name>all"
                   "</ipxact:name><ipxact:range>4096</ipxact:range>"
                   "<ipxact:width>32</ipxact:width></ipxact:addressSpace>"
                   "</ipxact:addressSpaces>" +
                       model +
                       "<ipxact:cpus><ipxact:cpu><ipxact:name>core"
                       "</ipxact:name><ipxact:addressSpaceRef "
                       "addressSpaceRef=\"all\"/></ipxact:cpu></ipxact:cpus>");
}

std::string interface(const std::string &name, const std::string &mode,
                      const std::string &types) {
  return element("busInterface",
                 element("name", name) +
                     (types.empty()
                          ? "<ipxact:busType " + reference("bus") + "/>"
                          : types) +
                     mode);
}

std::string design(const std::string &name, const std::string &instances,
                   const std::string &connections, const std::string &others) {
  return document("design", name,
                  list("componentInstances", instances) +
                      element("interconnections", connections) + others);
}

std::string instance(const std::string &name, const std::string &component,
                     const std::string &overrides) {
  return element("componentInstance",
                 element("instanceName", name) + "<ipxact:componentRef " +
                     reference(component) + ">" +
                     list("configurableElementValues", overrides) +
                     "</ipxact:componentRef>");
}

std::string parameter(const std::string &name, const std::string &value,
                      const std::string &attributes) {
  return "<ipxact:parameter parameterId=\"id_" + name + "\" " + attributes +
         ">" + element("name", name) + element("value", value) +
         "</ipxact:parameter>\n";
}

std::string parameters(const std::string &parameters) {
  return parameters.empty()
             ? ""
             : "<ipxact:parameters>" + parameters + "</ipxact:parameters>";
}

std::string given(const std::string &id, const std::string &value) {
  return "<ipxact:configurableElementValue referenceId=\"" + id + "\">" +
         value + "</ipxact:configurableElementValue>\n";
}

std::string connection(const std::string &name, const Names &ends) {
  std::string text = element("name", name);
  for (const std::string &end : ends) {
    const std::size_t dot = end.find('.');
    if (dot == std::string::npos)
      text += "<ipxact:hierInterface busRef=\"" + end + "\"/>\n";
    else
      text += "<ipxact:activeInterface componentRef=\"" + end.substr(0, dot) +
              "\" busRef=\"" + end.substr(dot + 1) + "\"/>\n";
  }
  return element("interconnection", text);
}

std::string in2022(std::string text) {
  replaceAll(text, "IPXACT/1685-2014", "IPXACT/1685-2022");
  replaceAll(text, "ipxact:master", "ipxact:initiator");
  replaceAll(text, "ipxact:slave", "ipxact:target");
  replaceAll(text, "masterRef=", "initiatorRef=");
  return text;
}

std::string ofNoEdition(std::string text) {
  replaceAll(text,
             " xmlns:ipxact=\"http://www.accellera.org/XMLSchema/IPXACT/"
             "1685-2014\"",
             "");
  replaceAll(text, "ipxact:", "");
  return text;
}

std::string viewOf(const std::string &design, const std::string &values) {
  return element(
      "model",
      element("views",
              element("view", element("name", "inside") +
                                  element("designInstantiationRef", "it"))) +
          element("instantiations",
                  element("designInstantiation",
                          element("name", "it") + "<ipxact:designRef " +
                              reference(design) + ">" +
                              list("configurableElementValues", values) +
                              "</ipxact:designRef>")));
}

} // namespace ZelDebugDialog

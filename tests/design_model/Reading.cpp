#include "Reading.h"

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

Reading readFiles(const Files &files, const std::string &view) {
  MemorySource memory;
  memory.files = files;
  DesignSources sources;
  sources.designFile = "top.xml";
  sources.view = view;
  if (files.count("kinds") != 0)
    sources.kindsFile = "kinds";
  Reading reading;
  reading.isRead = readDesignFrom(memory, sources, largestModel, reading.model);
  return reading;
}

Reading readBeside(const Files &parts, const std::string &design) {
  Files files = parts;
  files["top.xml"] = design;
  return readFiles(files);
}

std::string component(const std::string &name, const std::string &interfaces,
                      const std::string &others) {
  return document("component", name,
                  element("busInterfaces", interfaces) + others);
}

std::string interface(const std::string &name, const std::string &mode) {
  return element("busInterface", element("name", name) + mode);
}

std::string design(const std::string &name, const std::string &instances,
                   const std::string &connections, const std::string &others) {
  return document("design", name,
                  element("componentInstances", instances) +
                      element("interconnections", connections) + others);
}

std::string instance(const std::string &name, const std::string &component,
                     const std::string &overrides) {
  return element("componentInstance",
                 element("instanceName", name) + "<ipxact:componentRef " +
                     reference(component) + ">" +
                     element("configurableElementValues", overrides) +
                     "</ipxact:componentRef>");
}

std::string parameter(const std::string &name, const std::string &value,
                      const std::string &attributes) {
  return "<ipxact:parameter parameterId=\"id_" + name + "\" " + attributes +
         ">" + element("name", name) + element("value", value) +
         "</ipxact:parameter>\n";
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
                              element("configurableElementValues", values) +
                              "</ipxact:designRef>")));
}

} // namespace ZelDebugDialog

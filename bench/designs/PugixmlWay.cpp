#include <pugixml.hpp>

#include "Netlist.h"
#include "Ways.h"
#include "common/Require.h"

namespace bench {

namespace {

void load(const std::string &file, pugi::xml_document &document) {
  require(document.load_file(file.c_str()), "pugixml");
}

void readComponent(const pugi::xml_node &root, Netlist &netlist) {
  Netlist::Component component;
  component.name = root.child_value("ipxact:name");
  for (const pugi::xml_node &interface :
       root.child("ipxact:busInterfaces").children("ipxact:busInterface"))
    component.interfaces.push_back({interface.child_value("ipxact:name"),
                                    bool(interface.child("ipxact:master"))});
  netlist.addComponent(Netlist::identity(root.child_value("ipxact:vendor"),
                                         root.child_value("ipxact:library"),
                                         component.name,
                                         root.child_value("ipxact:version")),
                       component);
}

Netlist::End readEnd(const pugi::xml_node &active) {
  return {active.attribute("componentRef").value(),
          active.attribute("busRef").value()};
}

void readDesign(const pugi::xml_node &root, Netlist &netlist) {
  for (const pugi::xml_node &instance :
       root.child("ipxact:componentInstances")
           .children("ipxact:componentInstance")) {
    const pugi::xml_node reference = instance.child("ipxact:componentRef");
    netlist.addInstance(
        instance.child_value("ipxact:instanceName"),
        Netlist::identity(reference.attribute("vendor").value(),
                          reference.attribute("library").value(),
                          reference.attribute("name").value(),
                          reference.attribute("version").value()));
  }
  for (const pugi::xml_node &connection :
       root.child("ipxact:interconnections")
           .children("ipxact:interconnection")) {
    const pugi::xml_node one = connection.child("ipxact:activeInterface");
    netlist.connect(readEnd(one),
                    readEnd(one.next_sibling("ipxact:activeInterface")));
  }
}

} // namespace

Answer loadByPugixml(const std::string &design) {
  Netlist netlist;
  for (const std::string &file : filesBeside(design)) {
    pugi::xml_document document;
    load(file, document);
    const pugi::xml_node root = document.document_element();
    if (root.name() == std::string_view("ipxact:component"))
      readComponent(root, netlist);
    else if (file == design)
      readDesign(root, netlist);
  }
  return netlist.answer();
}

Answer loadTreesOnly(const std::string &design) {
  for (const std::string &file : filesBeside(design)) {
    pugi::xml_document document;
    load(file, document);
  }
  return {};
}

} // namespace bench

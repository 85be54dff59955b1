// The design of the consumers as a model that is built in code.
#include "OneLumacore.h"
#include "ZelDebugDialog/DesignModel/DesignModel.h"

using namespace ZelDebugDialog;

namespace {

DesignComponent component(const char *typeName, const char *interface,
                          InterfaceMode mode) {
  DesignInterface port;
  port.name = interface;
  port.mode = mode;
  DesignComponent made;
  made.typeName = typeName;
  made.interfaces.push_back(port);
  return made;
}

DesignModel makeDesign() {
  DesignModel design;
  const auto processor = design.AddComponent(
      component("lumacore", "DEBUG", InterfaceMode::target));
  const auto debugModule =
      design.AddComponent(component("hdu", "PORT0", InterfaceMode::initiator));
  DesignConnection wire;
  wire.ends = {{*design.AddInstance("cpu0", processor), "DEBUG"},
               {*design.AddInstance("hdu_0", debugModule), "PORT0"}};
  design.Connect(wire);
  return design;
}

} // namespace

HHSMHwManager &oneLumacore() {
  static DesignModel design = makeDesign();
  return design;
}

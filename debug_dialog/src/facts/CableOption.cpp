#include "ZelDebugDialog/CableOption.h"

#include "ZelDebugDialog/CableCatalogue.h"

namespace ZelDebugDialog {

CableOption::CableOption() { CableOptionInit(Engine::CABLE_NONE); }

void CableOption::CableOptionInit(Engine::CableType type) {
  cableType = type;
  frequency = setcable_default_frequency(type);
  port = setcable_default_port(type);
  esn.clear();
  svfFile.clear();
  moduleName.clear();
  moduleArgs.clear();
  url.clear();
}

void ReleaseChainRecords(std::vector<JtagOption *> &chain) {
  for (const JtagOption *const device : chain)
    delete device;
  chain.clear();
}

} // namespace ZelDebugDialog

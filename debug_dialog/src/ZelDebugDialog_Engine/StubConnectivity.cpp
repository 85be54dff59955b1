#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "HHSMHwManager.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/TypeNames.h"

namespace ZelDebugDialog {

std::uint32_t EngineImp::IsStubSerialConnect(std::string processor) {
  if (hwManager == nullptr)
    return 0;
  std::vector<std::string> peripherals;
  hwManager->getPeripherals(peripherals, processor);
  for (const std::string &peripheral : peripherals) {
    const std::string type = hwManager->getIpName(peripheral);
    if (std::find(stubUartTypes.begin(), stubUartTypes.end(), type) !=
        stubUartTypes.end())
      return Engine::CONNECT_STUB | stubOverUart;
  }
  return 0;
}

std::uint32_t EngineImp::IsStubJtagConnect(std::string /*processor*/) {
  return 0;
}

} // namespace ZelDebugDialog

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "HHSMHwManager.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog_Engine/Families.h"

namespace ZelDebugDialog {

namespace {

constexpr std::array<std::string_view, 2> stubUarts{"uart_mini_cedar",
                                                    "uart_mini_ember"};

} // namespace

std::uint32_t EngineImp::IsStubSerialConnect(std::string processor) {
  if (hwManager == nullptr)
    return 0;
  std::vector<std::string> peripherals;
  hwManager->getPeripherals(peripherals, processor);
  for (const std::string &peripheral : peripherals) {
    const std::string type = hwManager->getIpName(peripheral);
    if (std::find(stubUarts.begin(), stubUarts.end(), type) != stubUarts.end())
      return Engine::CONNECT_STUB | stubOverUart;
  }
  return 0;
}

std::uint32_t EngineImp::IsStubJtagConnect(std::string /*processor*/) {
  return 0;
}

} // namespace ZelDebugDialog

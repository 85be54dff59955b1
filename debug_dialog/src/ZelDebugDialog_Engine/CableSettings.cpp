#include <algorithm>
#include <string>
#include <utility>

#include "KvoOption_Parser/Writers.h"
#include "ZelDebugDialog/CableCatalogue.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "ZelDebugDialog_Engine/ScratchEngine.h"
#include "facts/CableCatalogue.h"
#include "facts/CurrentRecord.h"
#include "facts/Results.h"

namespace ZelDebugDialog {

namespace {

/// The simulator, the virtual platform and a serial stub use no cable.
bool usesCable(EngineImp &imp) {
  const ProcessorInfoImp &record = currentRecord(imp);
  return record.connectionType != Engine::CONNECT_SIM &&
         record.connectionType != Engine::CONNECT_VP &&
         record.stubType != Engine::STUB_SERIAL;
}

/// Copies out also what counts as not set: 0 or an empty text.
template <class Setting>
int getCableSetting(EngineImp &imp, Setting CableOption::*field, Setting &out) {
  if (!usesCable(imp))
    return result::notApplicable;
  out = (*imp.cableOption).*field;
  return out == Setting() ? 1 : 0;
}

std::string pluginClause(const CableOption &cable) {
  std::string text = "-cable type ";
  text += findCable(Engine::QUORLA_PLUGIN).keyword;
  kvo::writePluginCable(kvo::CommandText(text), cable);
  return text;
}

std::int8_t firstFpga(const std::vector<JtagOption *> &chain) {
  const auto fpga =
      std::find_if(chain.begin(), chain.end(), [](const JtagOption *device) {
        return device->isfpga != 0;
      });
  return fpga == chain.end() ? std::int8_t{0} : (*fpga)->devicenr;
}

} // namespace

int Engine::SetCableType(CableType type) {
  imp->cableOption->CableOptionInit(type);
  return 0;
}

int Engine::GetCableType(CableType &type) {
  if (!usesCable(*imp))
    return result::notApplicable;
  type = imp->cableOption->cableType;
  return 0;
}

int Engine::SetCableSpeed(unsigned frequency) {
  imp->cableOption->frequency = frequency;
  return 0;
}

int Engine::GetCableSpeed(unsigned &frequency) {
  return getCableSetting(*imp, &CableOption::frequency, frequency);
}

int Engine::SetCablePort(const std::string &port) {
  imp->cableOption->port = port;
  return 0;
}

int Engine::GetCablePort(std::string &port) {
  return getCableSetting(*imp, &CableOption::port, port);
}

int Engine::SetCableESN(const std::string &esn) {
  imp->cableOption->esn = esn;
  return 0;
}

int Engine::GetCableESN(std::string &esn) {
  return getCableSetting(*imp, &CableOption::esn, esn);
}

int Engine::SetQuorlaCableOptions(CableOption &cable, CableType type,
                                  unsigned frequency, const std::string &port) {
  if (type == QUORLA_PLUGIN)
    return result::notSet;
  cable.port = port;
  cable.cableType = type;
  cable.frequency = frequency;
  return 0;
}

int Engine::SetDigilentCableOptions(CableOption &cable, CableType type,
                                    unsigned /*frequency*/,
                                    const std::string & /*port*/) {
  if (type != DIGILENT_PLUGIN)
    return result::notSet;
  cable.cableType = type;
  return 0;
}

int Engine::SetPluginCableOptions(const std::string &text) {
  if (imp->cableOption->cableType != QUORLA_PLUGIN) {
    SetErrorStr("Internal Error: Other Cable Options applies only for "
                "QUORLA_PLUGIN cable type");
    return result::notSet;
  }
  std::string rest = text;
  return result::isSuccess(KvoOption_Parser::ReadJtagCableOptions(rest, *imp))
             ? 0
             : 1;
}

int Engine::GetPluginCableOptions(std::string &text) {
  const CableOption &cable = *imp->cableOption;
  if (cable.cableType != QUORLA_PLUGIN)
    return result::notApplicable;
  if (cable.moduleName.empty()) {
    text.clear();
    return result::notSet;
  }
  text = pluginClause(cable);
  return 0;
}

int Engine::Set3rdPartyCableOptions(CableOption &cable,
                                    const std::string &text) {
  ScratchReader scratch;
  std::string rest = text;
  if (!result::isSuccess(
          KvoOption_Parser::ReadJtagCableOptions(rest, scratch.imp)))
    return result::notSet;
  cable = std::move(*scratch.imp.cableOption);
  return 0;
}

int Engine::Get3rdPartyCableOptions(std::string &text, CableOption cable) {
  if (cable.cableType != QUORLA_PLUGIN)
    return result::notSet;
  text = pluginClause(cable);
  return 0;
}

std::string Engine::GetSupportedCableSpeed(CableType type) {
  return getcable_supported_frequency(type);
}

std::uint32_t Engine::GetDefaultCableSpeed(CableType type) {
  return setcable_default_frequency(type);
}

std::string Engine::GetDefaultCablePort(CableType type) {
  return setcable_default_port(type);
}

std::string Engine::GetCableName(CableType /*type*/) { return {}; }

int Engine::GetCableType(const std::string & /*name*/) { return 1; }

int Engine::SetJtagChainOptions(const std::vector<JtagOption *> &chain) {
  imp->jtagChain = chain;
  return 0;
}

int Engine::GetJtagChainOptions(std::vector<JtagOption *> &chain) {
  const ProcessorInfoImp &record = currentRecord(*imp);
  if (record.connectionType == CONNECT_SIM || record.stubType == STUB_SERIAL)
    return result::notApplicable;
  if (imp->jtagChain.empty())
    return result::notSet;
  chain = imp->jtagChain;
  return 0;
}

int Engine::GenerateJtagCableCmdString(std::string &out, CableType type,
                                       unsigned frequency, std::string port,
                                       std::vector<JtagOption *> &chain,
                                       char debugDevice) {
  CableOption cable;
  cable.cableType = type;
  cable.frequency = frequency;
  cable.port = std::move(port);
  return GenerateJtagCableCmdString(out, std::move(cable), chain, debugDevice);
}

int Engine::GenerateJtagCableCmdString(std::string &out, CableOption cable,
                                       std::vector<JtagOption *> &chain,
                                       char debugDevice) {
  ScratchEngine scratch;
  *scratch.imp.cableOption = std::move(cable);
  scratch.imp.jtagChain = chain;
  scratch.record.debugDevice = static_cast<std::int8_t>(debugDevice);
  std::string clauses;
  const int result =
      KvoOption_Parser::WriteJtagCableOptionsString(scratch.imp, clauses);
  out += clauses;
  return result;
}

int Engine::ParseJtagCableInfo(std::string text, CableOption &cable,
                               std::vector<JtagOption *> &chain, int &cpuJtag,
                               char &debugDevice) {
  ScratchReader scratch;
  const int result = KvoOption_Parser::ReadJtagCableOptions(text, scratch.imp);
  if (!result::isSuccess(result))
    return result;
  std::int8_t device = scratch.record.debugDevice;
  if (device == 0)
    device = firstFpga(scratch.imp.jtagChain);
  cable = std::move(*scratch.imp.cableOption);
  chain = std::move(scratch.imp.jtagChain);
  scratch.imp.jtagChain.clear();
  cpuJtag = static_cast<int>(scratch.imp.cpuJtag);
  debugDevice = static_cast<char>(device);
  return result;
}

} // namespace ZelDebugDialog

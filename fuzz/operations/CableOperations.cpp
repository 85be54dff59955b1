// Cable and chain, and the operations that read and write them for a caller.
#include <stdexcept>

#include "ZelDebugDialog/CableCatalogue.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "common/Reading.h"
#include "common/Require.h"
#include "operations/Session.h"

namespace fuzz {
namespace {

using ZelDebugDialog::Engine;
using ZelDebugDialog::KvoOption_Parser;

constexpr int untouched = 77;

bool isSame(const CableOption &left, const CableOption &right) {
  return support::isSame({{}, left, {}, 0}, {{}, right, {}, 0});
}

Engine::CableType someType(Session &s) {
  return static_cast<Engine::CableType>(s.bytes.number());
}

bool hasNoCable(Session &s) {
  const ProcessorInfoImp &record = s.model.record();
  return record.connectionType == 1 || record.connectionType == 8 ||
         record.stubType == 1;
}

void setCableType(Session &s) {
  const Engine::CableType type = someType(s);
  require(s.engine.SetCableType(type) == 0, "SetCableType");
  s.model.cable = CableOption();
  s.model.cable.cableType = type;
  s.model.cable.frequency = ZelDebugDialog::setcable_default_frequency(type);
  s.model.cable.port = ZelDebugDialog::setcable_default_port(type);
  require(s.engine.GetDefaultCableSpeed(type) == s.model.cable.frequency &&
              s.engine.GetDefaultCablePort(type) == s.model.cable.port,
          "a type starts with what it offers");
  require(s.engine.GetSupportedCableSpeed(type) ==
              ZelDebugDialog::getcable_supported_frequency(type),
          "GetSupportedCableSpeed");
  require(s.engine.GetCableName(type).empty() &&
              s.engine.GetCableType(std::string("quorla_podusb")) == 1,
          "placeholders");
}

void setCable(Session &s) {
  CableOption &cable = s.model.cable;
  cable.frequency = s.bytes.number();
  cable.port = s.bytes.text();
  cable.esn = s.bytes.text();
  require(s.engine.SetCableSpeed(cable.frequency) == 0 &&
              s.engine.SetCablePort(cable.port) == 0 &&
              s.engine.SetCableESN(cable.esn) == 0,
          "cable settings are not checked");
}

void requireText(int result, bool hasNone, const std::string &got,
                 const std::string &stored, const char *what) {
  require(result == (hasNone ? 2 : (stored.empty() ? 1 : 0)), what);
  require(got == (hasNone ? "before" : stored), what);
}

void getCable(Session &s) {
  const CableOption &cable = s.model.cable;
  const bool hasNone = hasNoCable(s);
  const auto noType = static_cast<Engine::CableType>(untouched);
  Engine::CableType type = noType;
  require(s.engine.GetCableType(type) == (hasNone ? 2 : 0) &&
              type == (hasNone ? noType : cable.cableType),
          "GetCableType");
  unsigned speed = untouched;
  require(s.engine.GetCableSpeed(speed) ==
                  (hasNone ? 2 : (cable.frequency == 0 ? 1 : 0)) &&
              speed == (hasNone ? untouched : cable.frequency),
          "GetCableSpeed");
  std::string port = "before";
  const int portResult = s.engine.GetCablePort(port);
  requireText(portResult, hasNone, port, cable.port, "GetCablePort");
  std::string esn = "before";
  const int esnResult = s.engine.GetCableESN(esn);
  requireText(esnResult, hasNone, esn, cable.esn, "GetCableESN");
}

void setCallersCable(Session &s) {
  const Engine::CableType type = someType(s);
  const std::uint32_t frequency = s.bytes.number();
  const std::string port = s.bytes.text();
  CableOption cable;
  cable.esn = "kept";
  CableOption wanted = cable;
  if (type != Engine::QUORLA_PLUGIN) {
    wanted.cableType = type;
    wanted.frequency = frequency;
    wanted.port = port;
  }
  require(s.engine.SetQuorlaCableOptions(cable, type, frequency, port) ==
                  (type == Engine::QUORLA_PLUGIN ? 1 : 0) &&
              isSame(cable, wanted),
          "SetQuorlaCableOptions");
  const bool isDigilent = type == Engine::DIGILENT_PLUGIN;
  if (isDigilent)
    wanted.cableType = type;
  require(s.engine.SetDigilentCableOptions(cable, type, ~frequency, "x") ==
                  (isDigilent ? 0 : 1) &&
              isSame(cable, wanted),
          "SetDigilentCableOptions");
}

/// What reading the text into a cable of this session gives.
void setPluginOptions(Session &s) {
  const std::string text = s.bytes.text();
  if (s.model.cable.cableType != Engine::QUORLA_PLUGIN) {
    require(s.engine.SetPluginCableOptions(text) == 1, "SetPluginCableOptions");
    s.model.error = "Internal Error: Other Cable Options applies only for "
                    "QUORLA_PLUGIN cable type";
    return;
  }
  support::RoundTripDesk &other = desk();
  other.load({s.model.record(), s.model.cable, s.model.chain, s.model.cpuJtag});
  other.imp.hwManager = s.model.design;
  other.engine.SetErrorStr(s.model.error);
  const auto attempt = [&text](auto read) {
    try {
      return read(text);
    } catch (const std::out_of_range &) {
      return support::kLoneMinus;
    }
  };
  const int wanted = attempt([&other](std::string rest) {
    return KvoOption_Parser::ReadJtagCableOptions(rest, other.imp) == 0 ? 0 : 1;
  });
  const int result = attempt([&s](const std::string &clauses) {
    return s.engine.SetPluginCableOptions(clauses);
  });
  require(result == wanted, "SetPluginCableOptions");
  s.model.record() = other.record;
  s.model.cable = *other.imp.cableOption;
  s.model.chain = other.configuration().chain;
  s.model.cpuJtag = other.imp.cpuJtag;
  s.model.error = other.imp.errorStr;
}

void getPluginOptions(Session &s) {
  const CableOption &cable = s.model.cable;
  const bool isPlugin = cable.cableType == Engine::QUORLA_PLUGIN;
  std::string clause = "-cable type quorla_plugin";
  KvoOption_Parser::write_plugin_cableoptions(clause, cable);

  std::string text = "before";
  const int result = s.engine.GetPluginCableOptions(text);
  const bool hasModule = !cable.moduleName.empty();
  require(result == (!isPlugin ? 2 : (hasModule ? 0 : 1)),
          "GetPluginCableOptions");
  requireSame(text, !isPlugin ? "before" : (hasModule ? clause : ""),
              "GetPluginCableOptions");

  std::string other = "before";
  require(s.engine.Get3rdPartyCableOptions(other, cable) == (isPlugin ? 0 : 1),
          "Get3rdPartyCableOptions");
  requireSame(other, isPlugin ? clause : "before", "Get3rdPartyCableOptions");
}

void setThirdPartyOptions(Session &s) {
  CableOption cable;
  try {
    s.engine.Set3rdPartyCableOptions(cable, s.bytes.text());
  } catch (const std::out_of_range &) {
    require(isSame(cable, CableOption()), "a lone '-' stores nothing");
  }
}

void setChain(Session &s) {
  const std::vector<JtagOption *> chain = s.someDevices();
  s.keepChain();
  require(s.engine.SetJtagChainOptions(chain) == 0, "SetJtagChainOptions");
  s.model.chain.clear();
  for (const JtagOption *device : chain)
    s.model.chain.push_back(*device);
}

void getChain(Session &s) {
  const std::vector<JtagOption *> before = {&s.devices[0]};
  std::vector<JtagOption *> chain = before;
  const int result = s.engine.GetJtagChainOptions(chain);
  const ProcessorInfoImp &record = s.model.record();
  const bool hasNone = record.connectionType == 1 || record.stubType == 1;
  require(result == (hasNone ? 2 : (s.model.chain.empty() ? 1 : 0)),
          "GetJtagChainOptions");
  require(chain == (result == 0 ? s.imp.jtagChain : before),
          "GetJtagChainOptions");
}

/// Both forms write the same, where both can say it.
void generateClauses(Session &s) {
  CableOption cable;
  cable.cableType = someType(s);
  cable.frequency = s.bytes.number();
  cable.port = s.bytes.text();
  std::vector<JtagOption *> chain = s.someDevices();
  const auto device = static_cast<char>(s.bytes.byte());
  std::string first = "before";
  std::string second = "before";
  const int firstResult = s.engine.GenerateJtagCableCmdString(
      first, cable.cableType, cable.frequency, cable.port, chain, device);
  const int secondResult =
      s.engine.GenerateJtagCableCmdString(second, cable, chain, device);
  require(firstResult == secondResult, "GenerateJtagCableCmdString");
  requireSame(first, second, "GenerateJtagCableCmdString");
  require(firstResult == 0 || first == "before -cable",
          "GenerateJtagCableCmdString");
}

void parseClauses(Session &s) {
  CableOption cable;
  std::vector<JtagOption *> chain;
  int cpuJtag = untouched;
  char device = untouched;
  try {
    const int result = s.engine.ParseJtagCableInfo(s.bytes.text(), cable, chain,
                                                   cpuJtag, device);
    require(result == 0 ? cpuJtag == 0 || cpuJtag == 1
                        : result == 3 && cpuJtag == untouched,
            "ParseJtagCableInfo");
  } catch (const std::out_of_range &) {
    require(cpuJtag == untouched && device == untouched && chain.empty(),
            "a lone '-' stores nothing");
  }
  ReleaseChainRecords(chain);
}

} // namespace

const std::vector<Operation> cableOperations = {
    {"SetCableType", false, setCableType},
    {"SetCable...", false, setCable},
    {"GetCable...", true, getCable},
    {"Set...CableOptions", false, setCallersCable},
    {"SetPluginCableOptions", true, setPluginOptions},
    {"GetPluginCableOptions", false, getPluginOptions},
    {"Set3rdPartyCableOptions", false, setThirdPartyOptions},
    {"SetJtagChainOptions", false, setChain},
    {"GetJtagChainOptions", true, getChain},
    {"GenerateJtagCableCmdString", false, generateClauses},
    {"ParseJtagCableInfo", false, parseClauses},
};

} // namespace fuzz

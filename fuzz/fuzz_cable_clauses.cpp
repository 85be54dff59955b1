// A text as the JTAG side of a command: cable, chain, boundary scan and debug
// device, through each operation that reads such a text; written, and read
// again.
//
// An input is the text.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "ZelDebugDialog/CableCatalogue.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "command/KnownWords.h"
#include "command/PublicReaders.h"
#include "common/Reading.h"
#include "common/Require.h"

namespace {

using namespace ZelDebugDialog;
using fuzz::Owner;
using fuzz::Reading;
using fuzz::require;
using support::Configuration;

constexpr int notRead = 3;
const Owner &alone = fuzz::owners[0];

int readClauses(const std::string &text, EngineImp &imp) {
  std::string rest = text;
  return KvoOption_Parser::ReadJtagCableOptions(rest, imp);
}

bool isSame(const CableOption &left, const CableOption &right) {
  return support::isSame({{}, left, {}, 0}, {{}, right, {}, 0});
}

/// What a caller of `ParseJtagCableInfo` has in hand.
struct Hand {
  CableOption cable;
  std::vector<JtagOption *> chain;
  int cpuJtag = 5;
  char debugDevice = 6;
  int code = 0;

  Hand() { cable.port = "before"; }
  ~Hand() { ReleaseChainRecords(chain); }
  Hand(const Hand &) = delete;
  Hand &operator=(const Hand &) = delete;

  void parse(Engine &engine, const std::string &text) {
    chain.push_back(&mine);
    try {
      code =
          engine.ParseJtagCableInfo(text, cable, chain, cpuJtag, debugDevice);
    } catch (const std::out_of_range &) {
      code = support::kLoneMinus;
    }
    isUntouched = chain.size() == 1 && chain[0] == &mine;
    chain.erase(std::remove(chain.begin(), chain.end(), &mine), chain.end());
  }

  Configuration configuration() const {
    Configuration all{{}, cable, {}, static_cast<std::uint32_t>(cpuJtag)};
    for (const JtagOption *device : chain)
      all.chain.push_back(*device);
    return all;
  }

  JtagOption mine;
  bool isUntouched = false;
};

/// Without a debug device the first FPGA lends its number.
int deviceOf(const Configuration &settings) {
  if (settings.record.debugDevice != 0)
    return settings.record.debugDevice;
  for (const JtagOption &device : settings.chain)
    if (device.isfpga != 0)
      return device.devicenr;
  return 0;
}

void checkParsing(const Reading &reading, const Hand &hand) {
  require(hand.code == reading.code, "parsing refuses what reading refuses");
  if (reading.code != 0) {
    require(hand.isUntouched && hand.cpuJtag == 5 && hand.debugDevice == 6 &&
                hand.cable.port == "before",
            "a refusal leaves the arguments as they were");
    return;
  }
  Configuration expected = reading.settings;
  expected.record = ProcessorInfoImp();
  require(support::isSame(hand.configuration(), expected),
          "parsing gives what reading stores");
  require(hand.debugDevice == static_cast<char>(deviceOf(reading.settings)),
          "a debug device, or that of an FPGA");
}

/// `SetPluginCableOptions` reads into the engine's cable, and
/// `Set3rdPartyCableOptions` into one of the caller.
void checkCables(const std::string &text, const Reading &reading) {
  support::RoundTripDesk &desk = fuzz::desk();
  const auto call = [&](auto operation) {
    try {
      return operation();
    } catch (const std::out_of_range &) {
      return support::kLoneMinus;
    }
  };
  const int expected = reading.code == notRead ? 1 : reading.code;
  desk.clear();
  CableOption cable;
  cable.port = "before";
  require(call([&] {
            return desk.engine.Set3rdPartyCableOptions(cable, text);
          }) == expected,
          "a caller's cable is read or refused");
  require(expected == 0 ? isSame(cable, reading.settings.cable)
                        : cable.port == "before",
          "a caller's cable is read, or as it was");
  require(desk.imp.errorStr.empty() && desk.imp.jtagChain.empty(),
          "the engine is left alone");

  require(desk.engine.SetPluginCableOptions(text) == 1,
          "only a plug-in cable takes these options");
  desk.engine.SetCableType(Engine::QUORLA_PLUGIN);
  const int code =
      call([&] { return desk.engine.SetPluginCableOptions(text); });
  const bool needsModule =
      desk.imp.errorStr ==
      "Plug-in Module NOT specified for Cable Type quorla_plugin";
  require(code == expected || (code == 1 && needsModule),
          "a plug-in cable is read or refused as others are");
}

/// What these clauses do, they do one after another, and in a whole command.
void checkCommand(const std::string &text, const Reading &reading) {
  if (reading.code != 0)
    return;
  fuzz::requireSame(
      fuzz::readFor(alone, text, fuzz::readByClauses, fuzz::desk()), reading,
      "the readers of single clauses store what that of all does");
  require(text.find('-') == std::string::npos ||
              fuzz::isInTables(reading.option),
          "the tables know each option that is read");
  const Reading whole =
      fuzz::readFor(alone, "connect lc stub " + text,
                    KvoOption_Parser::ReadKvoCommand, fuzz::desk());
  Configuration expected = reading.settings;
  expected.record.connectionType = Engine::CONNECT_STUB;
  expected.record.connectionMask |= Engine::CONNECT_STUB;
  expected.record.procType = whole.settings.record.procType;
  require(whole.code == 0, "a command takes the clauses");
  require(support::isSame(whole.settings, expected),
          "a command stores what the clauses say");
}

/// A cable's own writer gives what stands behind its type in the clause.
void checkCableWriters(const CableOption &cable, const std::string &clauses) {
  std::string parameters;
  if (cable.cableType == Engine::QUORLA_PLUGIN)
    KvoOption_Parser::write_plugin_cableoptions(parameters, cable);
  else if (cable.cableType == Engine::DIGILENT_PLUGIN)
    KvoOption_Parser::write_digilent_cableoptions(parameters, cable);
  else if (cable.cableType != Engine::CABLE_NONE)
    KvoOption_Parser::write_quorla_cableoptions(parameters, cable);
  require(clauses.find(parameters) != std::string::npos,
          "a cable's parameters are written");
  const std::string preset =
      std::to_string(setcable_default_frequency(cable.cableType));
  require(getcable_supported_frequency(cable.cableType).find(preset) !=
              std::string::npos,
          "what a cable starts with is offered");
}

/// The generator writes what the writer of a stub's command writes, and that is
/// read again.
void checkWriting(const Reading &reading) {
  Configuration stub = reading.settings;
  stub.record = ProcessorInfoImp();
  stub.record.connectionType = Engine::CONNECT_STUB;
  stub.record.debugDevice = reading.settings.record.debugDevice;
  stub.cpuJtag = 0;
  support::RoundTripDesk &desk = fuzz::desk();
  desk.load(stub);
  std::string command;
  const bool hasCommand = desk.engine.GenerateCmdString(command) == 0;
  std::string out = "connect lc stub -comm jtag";
  const int code = desk.engine.GenerateJtagCableCmdString(
      out, *desk.imp.cableOption, desk.imp.jtagChain,
      static_cast<char>(stub.record.debugDevice));
  require(code == (hasCommand ? 0 : 1), "both writers write, or none");
  fuzz::requireSame(out,
                    hasCommand ? command : "connect lc stub -comm jtag -cable",
                    "both writers write the same");
  require(support::isSame(desk.configuration(), stub),
          "writing changes nothing");
  if (code == 0)
    checkCableWriters(stub.cable, out);
  support::Losses losses;
  for (const std::string &fault :
       support::goAround(desk, {stub, false, stub.record.debugDevice}, losses)
           .faults)
    require(false, fault);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data,
                                      std::size_t size) {
  const std::string text(data, data + size);
  const Reading reading = fuzz::readFor(alone, text, readClauses, fuzz::desk());
  require(reading.code == 0 || reading.code == notRead ||
              fuzz::hasLoneMinus(text),
          "clauses are read, refused, or have a lone '-'");
  Engine engine;
  Hand hand;
  hand.parse(engine, text);
  checkParsing(reading, hand);
  checkCables(text, reading);
  checkCommand(text, reading);
  checkWriting(reading);
  return 0;
}

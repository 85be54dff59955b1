#include "line/SettingOptions.h"

#include <array>
#include <map>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "CableKeyword.h"
#include "ConnectionKind.h"
#include "line/ChainDevice.h"
#include "line/CommandLine.h"
#include "line/Number.h"
#include "output/Output.h"
#include "output/SettingText.h"
#include "output/Suggestion.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::Engine;
using ZelDebugDialog::JtagOption;
using ZelDebugDialog::ProcessorInfoImp;

constexpr std::uint64_t regionStep = 0x10000;

/// One option: how its text becomes an action.
struct SettingRow {
  const char *option;
  const char *metavar; ///< null for a flag
  ValueKind values;    ///< what completion offers
  const char *help;
  SettingAction (*read)(const std::string &option, const std::string &text);
};

[[noreturn]] void refuse(const std::string &option, SettingTarget &target) {
  throw Failure(
      ExitStatus::refused,
      fmt::format("{}: {}", option, reasonOf({1, target.session.message()})));
}

using TextSetter = int (Engine::*)(const std::string &);
using AddressSetter = int (Engine::*)(unsigned);

/// A text that the engine stores as it is.
template <TextSetter setter>
SettingAction readText(const std::string &option, const std::string &text,
                       const char *field) {
  expectWord(option, text);
  return [text, field](SettingTarget &target) {
    (target.session.engine.*setter)(text);
    target.given.insert(field);
  };
}

/// One region of the PowerPC debug address map.
template <AddressSetter setter>
SettingAction readRegion(const std::string &option, const std::string &text,
                         const char *field) {
  const auto address =
      static_cast<unsigned>(expectNumber(option, text, any32Bits));
  return [option, address, field](SettingTarget &target) {
    if ((target.session.engine.*setter)(address) != 0)
      refuse(option, target);
    target.given.insert(field);
  };
}

SettingAction readConnection(const std::string &option,
                             const std::string &text) {
  const ConnectionKind *kind = findConnectionKind(text);
  if (kind == nullptr) {
    std::vector<std::string> words;
    for (const ConnectionKind &known : connectionKinds())
      words.emplace_back(known.word);
    throw Failure(ExitStatus::wrongUse,
                  fmt::format("{}: '{}' is unknown; accepted are {}{}", option,
                              printable(text), quotedList(words),
                              didYouMean(text, words)));
  }
  return [option, kind](SettingTarget &target) {
    const ProcessorInfoImp &record = *target.session.state->currentProcessor;
    if ((record.connectionMask & kind->connectionType) == 0)
      throw Failure(
          ExitStatus::refused,
          fmt::format("{} {}: '{}' does not allow it; it allows {}", option,
                      kind->word, printable(record.instanceName),
                      quotedList(allowedKinds(record.connectionMask))));
    if (applyConnectionKind(target.session.engine, *kind) != 0)
      refuse(option, target);
    target.given.insert({"connectionType", "stubType"});
  };
}

SettingAction readCable(const std::string &option, const std::string &text) {
  const auto type = findCableType(text);
  if (!type) {
    const std::vector<std::string> words = cableKeywords();
    throw Failure(ExitStatus::wrongUse,
                  fmt::format("{}: '{}' is unknown; accepted are {}{}", option,
                              printable(text), quotedList(words),
                              didYouMean(text, words)));
  }
  return [type](SettingTarget &target) {
    target.session.engine.SetCableType(*type);
    target.given.insert("cable.cableType");
  };
}

SettingAction readFrequency(const std::string &option,
                            const std::string &text) {
  const std::uint32_t frequency = expectFrequency(option, text);
  return [frequency](SettingTarget &target) {
    target.session.engine.SetCableSpeed(frequency);
    target.given.insert("cable.frequency");
  };
}

/// The plug-in's module and its arguments have no setter of their own: they go
/// in as clauses, as a dialog would pass them.
void setPluginOption(const std::string &option, const std::string &clause,
                     SettingTarget &target) {
  if (target.session.engine.SetPluginCableOptions(clause) != 0)
    refuse(option, target);
}

SettingAction readModule(const std::string &option, const std::string &text) {
  expectWord(option, text);
  return [option, text](SettingTarget &target) {
    setPluginOption(option, "-cable modulename " + text, target);
    target.given.insert("cable.moduleName");
  };
}

SettingAction readModuleArgument(const std::string &option,
                                 const std::string &text) {
  expectWord(option, text);
  return [option, text](SettingTarget &target) {
    // The first one of a line replaces those that were saved.
    if (target.given.insert("cable.moduleArgs").second)
      target.session.state->cableOption->moduleArgs.clear();
    setPluginOption(option, "-cable modulearg " + text, target);
  };
}

SettingAction readDebugDevice(const std::string &option,
                              const std::string &text) {
  const auto device =
      static_cast<int>(expectNumber(option, text, {0, 127, false}));
  return [device](SettingTarget &target) {
    target.session.engine.SetDebugDevice(device);
    target.given.insert("debugDevice");
  };
}

SettingAction readCpuJtag(const std::string & /*option*/,
                          const std::string & /*text*/) {
  return [](SettingTarget &target) {
    target.session.engine.SetCpuJtag();
    target.given.insert("cpuJtag");
  };
}

void clearChain(SettingTarget &target) {
  ReleaseChainRecords(target.session.state->jtagChain);
}

SettingAction readDevice(const std::string & /*option*/,
                         const std::string &text) {
  const JtagOption device = expectChainDevice(text);
  return [device](SettingTarget &target) {
    if (target.given.insert("chain").second)
      clearChain(target);
    std::vector<JtagOption *> chain = target.session.state->jtagChain;
    chain.push_back(new JtagOption(device));
    target.session.engine.SetJtagChainOptions(chain);
  };
}

SettingAction readClearChain(const std::string & /*option*/,
                             const std::string & /*text*/) {
  return [](SettingTarget &target) {
    target.given.insert("chain");
    clearChain(target);
  };
}

SettingAction readStubBaud(const std::string &option, const std::string &text) {
  const auto rate =
      static_cast<int>(expectNumber(option, text, {0, 0x7FFFFFFF, false}));
  return [rate](SettingTarget &target) {
    target.session.engine.SetStubBaudrate(rate);
    target.given.insert("stubBaudRate");
  };
}

SettingAction readAddressMap(const std::string &option,
                             const std::string &text) {
  struct Region {
    AddressSetter set;
    const char *field;
  };
  static constexpr std::array<Region, 6> regions{{
      {&Engine::SetIcacheBaseAddr, "icacheStartAdr"},
      {&Engine::SetITagBaseAddr, "itagStartAdr"},
      {&Engine::SetDcacheBaseAddr, "dcacheStartAdr"},
      {&Engine::SetDTagBaseAddr, "dtagStartAdr"},
      {&Engine::SetDcrBaseAddr, "dcrStartAdr"},
      {&Engine::SetTlbBaseAddr, "tlbStartAdr"},
  }};
  constexpr std::uint64_t lastStep = 5 * regionStep;
  const std::uint64_t base =
      expectNumber(option, text, {0, any32Bits.most - lastStep - 0xFFFF, true});
  return [option, base](SettingTarget &target) {
    std::uint64_t address = base;
    for (const Region &region : regions) {
      if ((target.session.engine.*region.set)(static_cast<unsigned>(address)) !=
          0)
        refuse(option, target);
      target.given.insert(region.field);
      address += regionStep;
    }
  };
}

SettingAction readUnsetAddressMap(const std::string & /*option*/,
                                  const std::string & /*text*/) {
  return [](SettingTarget &target) {
    target.session.engine.UnSetDebugAddressMap();
  };
}

SettingAction readRom(const std::string &option, const std::string &text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string::npos)
    throw Failure(ExitStatus::wrongUse, fmt::format("{}: '{}' is no START:SIZE",
                                                    option, printable(text)));
  const auto start = static_cast<unsigned>(
      expectNumber(option + " START", text.substr(0, colon), any32Bits));
  const auto size = static_cast<unsigned>(
      expectNumber(option + " SIZE", text.substr(colon + 1), any32Bits));
  return [start, size](SettingTarget &target) {
    target.session.engine.SetROMem(start, size);
    target.given.insert({"romemStartAdr", "romemSize"});
  };
}

// clang-format off
constexpr std::array<SettingRow, 22> settingRows{{
    {"--connection", "KIND", ValueKind::connection,
     "how to connect: sim, hw, stub-serial, stub-jtag or vp; a kind that the processor does not allow is refused",
     readConnection},
    {"--cable", "KEYWORD", ValueKind::cable,
     "start this cable anew, with its default frequency and port; 'none' for no cable", readCable},
    {"--frequency", "N[Hz|kHz|MHz]", ValueKind::frequency, "clock of the cable", readFrequency},
    {"--port", "TEXT", ValueKind::text, "port of the cable",
     [](const std::string &o, const std::string &t) { return readText<&Engine::SetCablePort>(o, t, "cable.port"); }},
    {"--esn", "TEXT", ValueKind::text,
     "serial number of the cable, kept letter by letter; it takes the place of port and frequency",
     [](const std::string &o, const std::string &t) { return readText<&Engine::SetCableESN>(o, t, "cable.esn"); }},
    {"--module", "NAME", ValueKind::text, "module of a plug-in cable", readModule},
    {"--module-arg", "TEXT", ValueKind::text,
     "argument of the module; all that are given replace those that were saved", readModuleArgument},
    {"--debug-device", "N", ValueKind::text, "number of the debug device, 0 for none", readDebugDevice},
    {"--cpu-jtag", nullptr, ValueKind::text,
     "the processor's own JTAG pins are the debug path; no command with this mark can be read back", readCpuJtag},
    {"--device", "KEY=VALUE,...", ValueKind::device,
     "device of the JTAG chain: devicenr=N,partname=T,irlength=N,idcode=N[,isfpga=N,hardppc=N,nppc=N]; "
     "all that are given are the whole chain", readDevice},
    {"--clear-chain", nullptr, ValueKind::text, "no devices in the JTAG chain", readClearChain},
    {"--stub-port", "TEXT", ValueKind::file, "serial device of the stub",
     [](const std::string &o, const std::string &t) { return readText<&Engine::SetStubSerialPort>(o, t, "stubSerialPort"); }},
    {"--stub-baud", "N", ValueKind::text, "bits per second of the stub's line", readStubBaud},
    {"--icache", "N", ValueKind::text, "start of the instruction cache region, and base of the address map",
     [](const std::string &o, const std::string &t) { return readRegion<&Engine::SetIcacheBaseAddr>(o, t, "icacheStartAdr"); }},
    {"--dcache", "N", ValueKind::text, "start of the data cache region",
     [](const std::string &o, const std::string &t) { return readRegion<&Engine::SetDcacheBaseAddr>(o, t, "dcacheStartAdr"); }},
    {"--itag", "N", ValueKind::text, "start of the instruction tag region",
     [](const std::string &o, const std::string &t) { return readRegion<&Engine::SetITagBaseAddr>(o, t, "itagStartAdr"); }},
    {"--dtag", "N", ValueKind::text, "start of the data tag region",
     [](const std::string &o, const std::string &t) { return readRegion<&Engine::SetDTagBaseAddr>(o, t, "dtagStartAdr"); }},
    {"--tlb", "N", ValueKind::text, "start of the TLB region",
     [](const std::string &o, const std::string &t) { return readRegion<&Engine::SetTlbBaseAddr>(o, t, "tlbStartAdr"); }},
    {"--dcr", "N", ValueKind::text, "start of the DCR region",
     [](const std::string &o, const std::string &t) { return readRegion<&Engine::SetDcrBaseAddr>(o, t, "dcrStartAdr"); }},
    {"--address-map", "BASE", ValueKind::text,
     "all six regions, each 0x10000 after the one before: icache, itag, dcache, dtag, dcr, tlb", readAddressMap},
    {"--unset-address-map", nullptr, ValueKind::text, "no debug address map", readUnsetAddressMap},
    {"--rom", "START:SIZE", ValueKind::text, "range of the read-only memory, in bytes", readRom},
}};
// clang-format on

} // namespace

void SettingOptions::addTo(CommandLine &line, CLI::App &app) {
  subcommand = &app;
  const std::string group = "Settings, applied in the order given";
  CLI::Option *whole =
      app.add_option("--from", fromCommand,
                     "start from the settings of a whole connect command, in "
                     "place of what is saved")
          ->type_name("COMMAND")
          ->group(group);
  line.completeWith(whole, ValueKind::text);
  fromOption = whole;
  for (const SettingRow &row : settingRows) {
    CLI::Option *option =
        row.metavar == nullptr
            ? app.add_flag(row.option, row.help)
            : app.add_option(row.option, row.help)
                  ->type_name(row.metavar)
                  ->type_size(1)
                  ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
                  ->allow_extra_args(false);
    option->group(group);
    line.completeWith(option, row.values);
  }
}

const std::string *SettingOptions::from() const {
  return fromOption->count() == 0 ? nullptr : &fromCommand;
}

std::vector<SettingAction> SettingOptions::actions() const {
  std::vector<SettingAction> list;
  std::map<const CLI::Option *, std::size_t> used;
  for (const CLI::Option *option : subcommand->parse_order()) {
    const std::string name = option->get_name();
    for (const SettingRow &row : settingRows)
      if (name == row.option)
        list.push_back(row.read(name, option->results().at(used[option]++)));
  }
  return list;
}

} // namespace zeldebug

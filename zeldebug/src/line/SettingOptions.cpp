#include "line/SettingOptions.h"

#include <algorithm>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <ZelDebugDialog/ConfigurationModel/Language.h>

#include "line/AddressMap.h"
#include "line/ChainDevice.h"
#include "line/InputFile.h"
#include "line/Options.h"
#include "line/Refused.h"
#include "output/Suggestion.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::CableInfo;
using ZelDebugDialog::FindSetting;
using ZelDebugDialog::GetSettings;
using ZelDebugDialog::ReadSetting;
using ZelDebugDialog::Refusal;
using ZelDebugDialog::SettingInfo;
using ZelDebugDialog::SettingKind;
using ZelDebugDialog::SettingValues;
using ZelDebugDialog::Value;

constexpr const char *connectionSetting = "connection";
constexpr const char *cableType = "cable.cableType";
constexpr const char *shownCable = "cable"; // the row that `show` has for it
constexpr const char *moduleArgs = "cable.moduleArgs";
constexpr const char *chain = "chain";
constexpr const char *settingsGroup = "Settings, in any order";
constexpr const char *mapGroup = "Settings, all at once";
constexpr std::size_t fewWords = 5;

/// A sentence as help has it: without the capital and the full stop.
std::string shownHelp(const std::string &sentence) {
  std::string text = sentence;
  if (!text.empty() && text.back() == '.')
    text.pop_back();
  const bool isName = text.size() > 1 && text[1] >= 'A' && text[1] <= 'Z';
  if (!text.empty() && text[0] >= 'A' && text[0] <= 'Z' && !isName)
    text[0] = static_cast<char>(text[0] - 'A' + 'a');
  return text;
}

std::string shownChoices(const SettingInfo &setting) {
  std::string words;
  for (const ZelDebugDialog::Choice &choice : setting.choices)
    words += (words.empty() ? "" : "|") + choice.text;
  return setting.choices.size() <= fewWords ? words : "KEYWORD";
}

std::string metavarOf(const SettingInfo &setting) {
  switch (setting.kind) {
  case SettingKind::number:
  case SettingKind::address:
    return "N";
  case SettingKind::frequency:
    return "N[Hz|kHz|MHz]";
  case SettingKind::word:
    return shownChoices(setting);
  case SettingKind::text:
    return setting.id == "cable.moduleName" ? "NAME" : "TEXT";
  default:
    return "TEXT";
  }
}

ValueKind completionOf(const SettingInfo &setting) {
  if (setting.id == connectionSetting)
    return ValueKind::connection;
  if (setting.id == cableType)
    return ValueKind::cable;
  if (setting.kind == SettingKind::frequency)
    return ValueKind::frequency;
  return setting.kind == SettingKind::file ? ValueKind::file : ValueKind::text;
}

/// An option with one value each time it is given.
CLI::Option *addRepeatable(CLI::App &app, const std::string &name,
                           const std::string &metavar,
                           const std::string &help) {
  return app.add_option(name, help)
      ->type_name(metavar)
      ->type_size(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->allow_extra_args(false)
      ->group(settingsGroup);
}

Failure excluded(const std::string &one, const std::string &other) {
  return {ExitStatus::refused,
          fmt::format("{} and {} exclude each other", one, other),
          {"excluded", one}};
}

Value expectValue(const std::string &setting, const std::string &text,
                  const std::string &subject) {
  try {
    return ReadSetting(setting, text);
  } catch (const Refusal &refusal) {
    throw failureOf(refusal, subject);
  }
}

/// A cable that no command can be written with is known, and of no use here.
void expectOffered(const std::string &option, const std::string &text,
                   const Value &type) {
  for (const CableInfo &cable : ZelDebugDialog::GetCables())
    if (Value(cable.type) == type && !cable.offered) {
      const std::vector<std::string> words = offeredCables();
      throw Failure(
          ExitStatus::refused,
          fmt::format("{}: no command can be written with '{}'; accepted are "
                      "{}",
                      option, printable(text), quotedList(words)),
          {"no-command", option, text, words});
    }
}

void add(AskedSettings &asked, const std::string &setting, const Value &value,
         const std::string &option) {
  asked.values.emplace_back(setting, value);
  asked.options.emplace(setting, option);
}

} // namespace

std::vector<std::string> wordsOf(const CableInfo &cable) {
  return cable.keywords.empty()
             ? std::vector{ShowValue(*FindSetting(cableType), cable.type)}
             : cable.keywords;
}

std::vector<std::string> offeredCables() {
  std::vector<std::string> offered;
  for (const CableInfo &cable : ZelDebugDialog::GetCables())
    if (cable.offered)
      for (std::string &word : wordsOf(cable))
        offered.push_back(std::move(word));
  return offered;
}

void SettingOptions::addRow(CommandLine &line, CLI::App &app,
                            const SettingInfo &setting) {
  for (Row &row : rows)
    if (row.option->check_name(setting.option)) {
      row.settings.push_back(&setting);
      return;
    }
  const std::string help = shownHelp(setting.help);
  if (setting.id == moduleArgs) {
    moduleArgument = addRepeatable(
        app, setting.option, "TEXT",
        "argument of the plug-in's module, once for each; all that are given "
        "replace those that were saved");
    return;
  }
  if (setting.id == chain) {
    device = addRepeatable(app, setting.option, "KEY=VALUE,...",
                           "device of the JTAG chain, once for each: "
                           "devicenr=N,partname=T,irlength=N,idcode=N[,isfpga="
                           "N,hardppc=N,nppc=N]; "
                           "all that are given are the whole chain");
    line.completeWith(device, ValueKind::device);
    clearChain = app.add_flag("--clear-chain")
                     ->description("no devices in the JTAG chain")
                     ->group(settingsGroup);
    return;
  }
  const bool isRange = setting.id == "romemStartAdr";
  CLI::Option *option =
      setting.kind == SettingKind::flag
          ? app.add_flag(setting.option, help)->group(settingsGroup)
      : isRange ? addRepeatable(app, setting.option, "START:SIZE",
                                "range of the read-only memory, in bytes")
                : addRepeatable(app, setting.option, metavarOf(setting), help);
  line.completeWith(option, completionOf(setting));
  rows.push_back({option, {&setting}});
}

void SettingOptions::addTo(Options &options) {
  CommandLine &line = options.line();
  CLI::App &app = options.app();
  const auto addWayIn = [&](const char *name, const char *metavar,
                            ValueKind kind, const std::string &help) {
    CLI::Option *option =
        addRepeatable(app, name, metavar, help)->group(mapGroup);
    line.completeWith(option, kind);
    return option;
  };
  from = addWayIn("--from", "COMMAND", ValueKind::text,
                  "start from the settings of a whole connect command, in "
                  "place of what is saved");
  settings = addWayIn("--settings", "FILE", ValueKind::file,
                      "take the settings of a document as 'show --json' prints "
                      "it; '-' for standard input");
  copyFrom = addWayIn("--copy-from", "PROCESSOR", ValueKind::processor,
                      "start from what is saved for another processor");
  for (const SettingInfo &setting : GetSettings())
    if (!setting.option.empty())
      addRow(line, app, setting);
  addressMap = addRepeatable(
      app, "--address-map", "BASE",
      "all six regions, each 0x10000 after the one before: icache, itag, "
      "dcache, dtag, dcr, tlb; one that is given by itself stands over it");
  unsetAddressMap = app.add_flag("--unset-address-map")
                        ->description("no debug address map")
                        ->group(settingsGroup);
  unset = addRepeatable(app, "--unset", "SETTING",
                        "back to its default, once for each; by the name that "
                        "'show' has for it");
  line.completeWith(unset, ValueKind::setting);
}

void SettingOptions::readRow(const Row &row, AskedSettings &asked) const {
  const std::string option = row.option->get_name();
  const SettingInfo &setting = *row.settings.front();
  if (setting.kind == SettingKind::flag) {
    if (row.option->count() != 0)
      add(asked, setting.id, ReadSetting(setting.id, "yes"), option);
    return;
  }
  for (const std::string &text : row.option->results()) {
    if (row.settings.size() == 1) {
      const Value value = expectValue(setting.id, text, option);
      if (setting.id == cableType)
        expectOffered(option, text, value);
      add(asked, setting.id, value, option);
      continue;
    }
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos)
      throw Failure(
          ExitStatus::wrongUse,
          fmt::format("{}: '{}' is no START:SIZE", option, printable(text)),
          {"bad-value", option, text});
    add(asked, setting.id,
        expectValue(setting.id, text.substr(0, colon), option + " START"),
        option);
    const std::string &size = row.settings[1]->id;
    add(asked, size,
        expectValue(size, text.substr(colon + 1), option + " SIZE"), option);
  }
}

void SettingOptions::readModuleArguments(AskedSettings &asked) const {
  std::string all;
  for (const std::string &text : moduleArgument->results())
    all += (all.empty() ? "" : ";") +
           expectValue(moduleArgs, text, moduleArgument->get_name()).Text();
  if (moduleArgument->count() != 0)
    add(asked, moduleArgs, all, moduleArgument->get_name());
}

void SettingOptions::readChain(AskedSettings &asked) const {
  if (device->count() != 0 && clearChain->count() != 0)
    throw excluded(device->get_name(), clearChain->get_name());
  Value::Chain devices;
  for (const std::string &text : device->results())
    devices.push_back(expectChainDevice(text));
  if (device->count() != 0)
    add(asked, chain, devices, device->get_name());
  else if (clearChain->count() != 0)
    add(asked, chain, devices, clearChain->get_name());
}

/// What is given by itself stands over the map as a whole.
void SettingOptions::readAddressMap(AskedSettings &asked) const {
  const bool isUnset = unsetAddressMap->count() != 0;
  if (addressMap->count() != 0 && isUnset)
    throw excluded(addressMap->get_name(), unsetAddressMap->get_name());
  const std::string option =
      isUnset ? unsetAddressMap->get_name() : addressMap->get_name();
  std::vector<SettingValues> maps;
  for (const std::string &text : addressMap->results())
    maps.push_back(expectAddressMap(option, text));
  if (isUnset)
    maps.push_back(noAddressMap());
  const std::map<std::string, std::string> single = asked.options;
  for (const SettingValues &map : maps)
    for (const auto &[setting, value] : map) {
      // The base follows the first region.
      const ZelDebugDialog::AddressMapInfo &info =
          ZelDebugDialog::GetAddressMap();
      const bool follows =
          setting == info.base && single.count(info.regions.front()) != 0;
      if (single.count(setting) == 0 && !follows)
        add(asked, setting, value, option);
    }
}

Failure SettingOptions::noneToUnset(const std::string &subject,
                                    const std::string &name) {
  std::vector<std::string> names;
  for (const SettingInfo &known : GetSettings())
    if (known.settable && known.id.compare(0, 6, "chain[") != 0)
      names.push_back(known.id);
  return {ExitStatus::wrongUse,
          fmt::format("{}: '{}' is no setting; there are {}{}", subject,
                      printable(name), quotedList(names),
                      didYouMean(name, names)),
          {"unknown-setting", subject, name, names, nearestMatch(name, names)}};
}

void SettingOptions::readUnset(AskedSettings &asked) const {
  for (const std::string &shown : unset->results()) {
    const std::string name = shown == shownCable ? cableType : shown;
    const SettingInfo *const setting = FindSetting(name);
    const std::string subject = unset->get_name();
    if (name.compare(0, 6, "chain[") == 0)
      throw Failure(ExitStatus::wrongUse,
                    fmt::format("{}: the chain goes back as a whole, by '{}'",
                                subject, chain),
                    {"not-settable", subject, name, {chain}, chain});
    if (setting == nullptr)
      throw noneToUnset(subject, name);
    // What is only shown is refused before its value would be.
    if (!setting->settable)
      expectValue(name, "", subject + " " + name);
    const auto option = asked.options.find(name);
    if (option != asked.options.end())
      throw excluded(fmt::format("{} {}", subject, name), option->second);
    asked.unset.push_back(name);
  }
}

void SettingOptions::readWaysIn(AskedSettings &asked) const {
  const CLI::Option *first = nullptr;
  for (const CLI::Option *option : {from, settings, copyFrom}) {
    if (option->count() == 0)
      continue;
    if (first != nullptr)
      throw excluded(first->get_name(), option->get_name());
    if (option->count() > 1 &&
        option->results().front() != option->results().back())
      throw Failure(ExitStatus::refused,
                    fmt::format("{}: it is given twice, with different values",
                                option->get_name()),
                    {"excluded", option->get_name()});
    first = option;
  }
  const auto textOf = [](const CLI::Option &option) {
    return option.results().empty() ? std::string() : option.results().back();
  };
  if (from->count() != 0)
    asked.command = textOf(*from);
  if (copyFrom->count() != 0)
    asked.copyFrom = textOf(*copyFrom);
  if (settings->count() == 0)
    return;
  asked.file = textOf(*settings);
  asked.document = readSettingsDocument(expectText(*asked.file), *asked.file);
}

AskedSettings SettingOptions::read() const {
  AskedSettings asked;
  for (const Row &row : rows)
    readRow(row, asked);
  readModuleArguments(asked);
  readChain(asked);
  readAddressMap(asked);
  readUnset(asked);
  readWaysIn(asked);
  return asked;
}

} // namespace zeldebug

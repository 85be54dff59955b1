#include "configuration_model/walk/Samples.h"

#include <algorithm>
#include <string_view>

namespace walk {

using namespace ZelDebugDialog;

namespace {

constexpr std::int64_t unset = 0xFFFFFFFF;

bool isOneOf(const std::string &id, std::initializer_list<const char *> ids) {
  return std::find(ids.begin(), ids.end(), id) != ids.end();
}

/// The regions begin at multiples of 64 KiB.
bool isRegion(const std::string &id) {
  return isOneOf(id, {"debugAddressMap", "icacheStartAdr", "dcacheStartAdr",
                      "itagStartAdr", "dtagStartAdr", "tlbStartAdr",
                      "dcrStartAdr"});
}

void appendNumbers(std::vector<Sample> &samples, const SettingInfo &info) {
  for (const std::int64_t number :
       {*info.minimum, *info.minimum + 1, *info.maximum / 2, *info.maximum - 1,
        *info.maximum}) {
    samples.push_back({number, number});
    samples.push_back({number, std::to_string(number)});
  }
}

void appendAddresses(std::vector<Sample> &samples, const SettingInfo &info) {
  samples.push_back({unset, unset});
  samples.push_back({unset, "not set"});
  samples.push_back({0, 0});
  samples.push_back({0x40000000, "0x40000000"});
  samples.push_back({0xFFFF0000, 0xFFFF0000});
  if (!isRegion(info.id))
    samples.push_back({0x12345679, 0x12345679});
}

void appendTexts(std::vector<Sample> &samples, const SettingInfo &info) {
  for (const char *text : {"LPT1", "USB21", "localhost", "/dev/ttyS7", "-5",
                           "a:b", "\xC3\x28", "hdu", "frequency"})
    samples.push_back({text, text});
  samples.push_back({std::string(400, 'x'), std::string(400, 'x')});
  if (isOneOf(info.id, {"simIpcHost", "modelSimHost", "ppcSimConfigFile"}))
    samples.push_back({"-cable", "-cable"});
  if (info.id == "cable.moduleArgs")
    samples.push_back({"a;b;c", "a;b;c"});
}

Value deviceValue(const char *part, std::int64_t code, std::int64_t fpga) {
  return Value::Chain{{{"partname", part},
                       {"idcode", code},
                       {"irlength", 6},
                       {"devicenr", 127},
                       {"isfpga", fpga},
                       {"hardppc", fpga * 2},
                       {"nppc", fpga * 255}}};
}

void appendChains(std::vector<Sample> &samples) {
  const Value one = deviceValue("p", 0xFFFFFFFF, 0);
  const Value other = deviceValue("UNKNOWN", 0, 1);
  samples.push_back({Value::Chain{}, Value::Chain{}});
  samples.push_back({one, one});
  samples.push_back({other, other});
  const Value both = Value::Chain{one.Devices()[0], other.Devices()[0]};
  samples.push_back({both, both});
}

} // namespace

std::vector<Sample> goodSamples(const SettingState &setting) {
  const SettingInfo &info = *FindSetting(setting.id);
  std::vector<Sample> samples;
  // An empty port is the default without a cable only.
  if (setting.id != "cable.port" || setting.defaultValue != Value(""))
    samples.push_back({setting.defaultValue, setting.defaultValue});
  switch (info.kind) {
  case SettingKind::flag: {
    const bool isNumber = setting.defaultValue.IsNumber();
    const Value yes = isNumber ? Value(1) : Value(true);
    const Value no = isNumber ? Value(0) : Value(false);
    samples = {{yes, yes}, {no, no}, {yes, "yes"}, {no, "off"}};
    break;
  }
  case SettingKind::number:
  case SettingKind::frequency:
    appendNumbers(samples, info);
    break;
  case SettingKind::address:
    appendAddresses(samples, info);
    break;
  case SettingKind::word:
    samples.clear();
    for (const ChoiceState &choice : setting.choices)
      if (choice.reason.empty()) {
        samples.push_back({choice.choice.value, choice.choice.value});
        samples.push_back({choice.choice.value, choice.choice.text});
      }
    break;
  case SettingKind::text:
  case SettingKind::file:
    appendTexts(samples, info);
    break;
  case SettingKind::chain:
    appendChains(samples);
    break;
  }
  return samples;
}

std::vector<Value> badSamples(const SettingState &setting) {
  const SettingInfo &info = *FindSetting(setting.id);
  std::vector<Value> samples{Value()};
  switch (info.kind) {
  case SettingKind::flag:
    samples.insert(samples.end(), {2, -1, "", "maybe"});
    break;
  case SettingKind::number:
  case SettingKind::frequency:
    samples.insert(samples.end(), {*info.minimum - 1, *info.maximum + 1, "",
                                   "x", "-1", "1 1", Value::Chain{}});
    break;
  case SettingKind::address:
    samples.insert(samples.end(), {-1, unset + 1, "", "0x", "nowhere"});
    if (isRegion(info.id))
      samples.insert(samples.end(), {1, 0xFFFF, unset - 1});
    break;
  case SettingKind::word:
    samples.insert(samples.end(), {"", "nothing", 12345});
    for (const ChoiceState &choice : setting.choices)
      if (!choice.reason.empty())
        samples.push_back(choice.choice.value);
    break;
  case SettingKind::text:
  case SettingKind::file:
    samples.insert(samples.end(), {5, "a b", "\ta", "a\n"});
    break;
  case SettingKind::chain:
    samples.insert(samples.end(),
                   {"p", Value::Chain{{{"partname", "a b"}}},
                    Value::Chain{{{"nothing", 1}}},
                    Value::Chain{{{"irlength", 1}, {"irlength", 2}}}});
    break;
  }
  return samples;
}

namespace {

const std::vector<std::string> &specialCommands() {
  static const std::vector<std::string> commands{
      "connect lc hdu",
      "connect lc sim -memsize 64",
      "connect lc stub -comm serial -port /dev/ttyS1 -baud 9600 -timeout 5",
      "connect lc stub -comm jtag -cable type quorla_podusb frequency 3000000",
      "connect lc hdu -cable type quorla_tcf frequency 125000",
      "connect lc hdu -cable type quorla_plugin modulename m modulearg a "
      "modulearg b -configdevice jtagport cpu",
      "connect lc hdu -sim -ipcport h:5",
      "connect lc hdu -bscan USER4 -debugdevice nCpu 2 cpu_version 1 "
      "hdu_version 2 devicenr 200",
      "connect ppc hw -debugdevice icacheStartAdr 0x10000 isocmStartAdr 1 "
      "isocmSize 4294967295 isocmDcrStartAdr 3 fpuType dp",
      "connect ppc hw -debugdevice proctype ppc405",
      "connect ppc sim -icf file -ipcport h:1 -debugdevice devicenr 3",
      "connect ppc sim -ipcport host",
      "connect arm hw",
      "connect r5 hw -cable type digilent_plugin",
      "connect dap hw",
      "connect hdu -uart -cable fname f url u",
      "connect kmtc -configdevice partname k",
      "connect dcc",
      "vpconnect lc -config cycle_approximate",
      "vpconnect lc -ipcport localhost:2340",
      "vpconnect lc",
      "connect lc hdu -cable type quorla_podusb port a\nb -debugdevice "
      "devicenr "
      "1",
      "connect lc hdu -",
      "connect",
      "",
      std::string("connect lc\0 hdu", 15),
  };
  return commands;
}

constexpr std::string_view words[] = {"connect",
                                      "lc",
                                      "ppc",
                                      "hdu",
                                      "hw",
                                      "sim",
                                      "stub",
                                      "-cable",
                                      "type",
                                      "frequency",
                                      "port",
                                      "esn",
                                      "-bscan",
                                      "USER1",
                                      "0",
                                      "-1",
                                      "4294967295",
                                      "300",
                                      "-comm",
                                      "serial",
                                      "jtag",
                                      "-configdevice",
                                      "partname",
                                      "x",
                                      "-debugdevice",
                                      "devicenr",
                                      "proctype",
                                      "ppc440",
                                      "-",
                                      "-quiet",
                                      "romemStartAdr",
                                      "romemSize",
                                      "icacheStartAdr",
                                      "0x10000",
                                      "0x1"};

std::string mutated(Random &random, std::string text) {
  const std::size_t place = random.below(text.size() + 1);
  switch (random.below(5)) {
  case 0:
    return text.substr(0, place);
  case 1:
    return text.insert(place, 1, static_cast<char>(random.bits()));
  case 2:
    if (place < text.size())
      text[place] = static_cast<char>(random.bits());
    return text;
  case 3: {
    const std::size_t blank = std::min(text.find(' ', place), text.size());
    const auto word = words[random.below(std::size(words))];
    return text.substr(0, blank) + " " + std::string(word) + text.substr(blank);
  }
  default: {
    const std::size_t start = std::min(text.find(' ', place), text.size());
    const std::size_t end = std::min(text.find(' ', start + 1), text.size());
    return text.substr(0, start) + text.substr(std::max(start, end));
  }
  }
}

} // namespace

std::string randomCommand(Random &random,
                          const std::vector<std::string> &written) {
  const bool isWritten = !written.empty() && random.oneIn(2);
  std::string command = random.of(isWritten ? written : specialCommands());
  while (random.oneIn(3))
    command = mutated(random, std::move(command));
  return command;
}

} // namespace walk

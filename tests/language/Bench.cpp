#include "language/Bench.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

#include "HHSMHwManager.h"

namespace LanguageTest {
namespace {

using ZelDebugDialog::CableOption;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::JtagOption;
using ZelDebugDialog::KvoOption_Parser;
using ZelDebugDialog::ProcessorInfoImp;

class SilentDesign : public HHSMHwManager {
  void getProcessorInstances(std::vector<std::string> & /*names*/,
                             bool /*flag*/) override {
    ADD_FAILURE() << "asked for the processors";
  }
  void getIpInstances(std::vector<std::string> & /*names*/,
                      HwIpType /*kind*/) override {
    ADD_FAILURE() << "asked for the instances of a kind";
  }
  void getIpInstances(std::vector<std::string> & /*names*/,
                      const std::string & /*typeName*/) override {
    ADD_FAILURE() << "asked for the instances of a type";
  }
  std::string getIpName(const std::string & /*instance*/) override {
    ADD_FAILURE() << "asked for a type name";
    return "";
  }
  void getHduConnectedProcessorList(std::vector<std::string> & /*names*/,
                                    const std::string & /*instance*/) override {
    ADD_FAILURE() << "asked for the processors of a debug module";
  }
  void getPeripherals(std::vector<std::string> & /*names*/,
                      const std::string & /*processor*/) override {
    ADD_FAILURE() << "asked for the peripherals";
  }
  std::string getParameterValue(const std::string & /*instance*/,
                                const std::string & /*parameter*/) override {
    ADD_FAILURE() << "asked for a parameter";
    return "";
  }
};

void fillOddly(ProcessorInfoImp &record) {
  record.instanceName = "was";
  record.procFamily = 77;
  record.procType = 78;
  record.connectionMask = 0x1000;
  record.cpuNr = 79;
  record.connectionType = 0x700;
  record.simMemSize = 80;
  record.ppcSimConfigFile = "was.icf";
  record.simIpcHost = "was";
  record.simIpcPort = 81;
  record.vpConfigMode = 82;
  record.cycleApproximate = 83;
  record.stubType = 84;
  record.stubSerialPort = "was";
  record.stubBaudRate = 85;
  record.stubTimeout = 86;
  record.debugDevice = 87;
  record.debugAddressMap = 88;
  record.isocmStartAdr = 89;
  record.isocmSize = 90;
  record.isocmDcrStartAdr = 91;
  record.icacheStartAdr = 92;
  record.dcacheStartAdr = 93;
  record.itagStartAdr = 94;
  record.dtagStartAdr = 95;
  record.tlbStartAdr = 96;
  record.dcrStartAdr = 97;
  record.fpuType = 98;
  record.cpu_version = "was";
  record.hdu_version = "was";
  record.nCpu = 99;
  record.romemStartAdr = 100;
  record.romemSize = 101;
  record.modelSimHost = "was";
  record.modelSimPort = 102;
  record.bscanUserReg = 103;
  record.connectCommand = "was";
}

void fillOddly(CableOption &cable) {
  cable.frequency = 77;
  cable.port = "was";
  cable.esn = "was";
  cable.url = "was";
}

std::string deviceText(const JtagOption &device) {
  std::ostringstream text;
  text << printable(device.partname) << ',' << device.idcode << ','
       << int(device.irlength) << ',' << int(device.devicenr) << ','
       << unsigned(device.isfpga) << ',' << unsigned(device.hardppc) << ','
       << unsigned(device.nppc);
  return text.str();
}

void addRecord(Settings &settings, const ProcessorInfoImp &record) {
  const auto number = [&settings](const char *name, auto value) {
    settings[name] = std::to_string(value);
  };
  const auto text = [&settings](const char *name, const std::string &value) {
    settings[name] = printable(value);
  };
  text("instanceName", record.instanceName);
  number("procFamily", record.procFamily);
  number("procType", record.procType);
  number("connectionMask", record.connectionMask);
  number("cpuNr", record.cpuNr);
  number("connectionType", record.connectionType);
  number("simMemSize", record.simMemSize);
  text("ppcSimConfigFile", record.ppcSimConfigFile);
  text("simIpcHost", record.simIpcHost);
  number("simIpcPort", record.simIpcPort);
  number("vpConfigMode", record.vpConfigMode);
  number("cycleApproximate", record.cycleApproximate);
  number("stubType", record.stubType);
  text("stubSerialPort", record.stubSerialPort);
  number("stubBaudRate", record.stubBaudRate);
  number("stubTimeout", record.stubTimeout);
  number("debugDevice", record.debugDevice);
  number("debugAddressMap", record.debugAddressMap);
  number("isocmStartAdr", record.isocmStartAdr);
  number("isocmSize", record.isocmSize);
  number("isocmDcrStartAdr", record.isocmDcrStartAdr);
  number("icacheStartAdr", record.icacheStartAdr);
  number("dcacheStartAdr", record.dcacheStartAdr);
  number("itagStartAdr", record.itagStartAdr);
  number("dtagStartAdr", record.dtagStartAdr);
  number("tlbStartAdr", record.tlbStartAdr);
  number("dcrStartAdr", record.dcrStartAdr);
  number("fpuType", record.fpuType);
  text("cpu_version", record.cpu_version);
  text("hdu_version", record.hdu_version);
  number("nCpu", record.nCpu);
  number("romemStartAdr", record.romemStartAdr);
  number("romemSize", record.romemSize);
  number("svfFileFlag", int(record.svfFileFlag));
  number("modelSimMode", int(record.modelSimMode));
  text("modelSimHost", record.modelSimHost);
  number("modelSimPort", record.modelSimPort);
  number("uartOverHdu", int(record.uartOverHdu));
  number("bscanUserReg", record.bscanUserReg);
}

void addCable(Settings &settings, const CableOption &cable) {
  settings["cable.cableType"] = std::to_string(unsigned(cable.cableType));
  settings["cable.frequency"] = std::to_string(cable.frequency);
  settings["cable.port"] = printable(cable.port);
  settings["cable.esn"] = printable(cable.esn);
  settings["cable.svfFile"] = printable(cable.svfFile);
  settings["cable.moduleName"] = printable(cable.moduleName);
  settings["cable.moduleArgs"] = printable(cable.moduleArgs);
  settings["cable.url"] = printable(cable.url);
}

std::string sorted(const std::string &changes) {
  std::istringstream words(changes);
  std::vector<std::string> all;
  for (std::string word; words >> word;)
    all.push_back(word);
  std::sort(all.begin(), all.end());
  std::string text;
  for (const std::string &word : all)
    text += (text.empty() ? "" : " ") + word;
  return text;
}

void expectRow(const Reader &reader, const Row &row, const Prepare &setup) {
  Bench bench;
  if (setup)
    setup(bench.imp);
  bench.engine.SetErrorStr(kQuiet);
  KvoOption_Parser::current_option = kUntouched;
  const Settings before = settingsOf(bench.imp);
  std::string text = row.text;

  int code = kThrows;
  try {
    code = reader(text, bench.imp);
  } catch (const std::out_of_range &error) {
    EXPECT_EQ(error.what(), kLoneMinus);
  }

  EXPECT_EQ(code, row.code);
  EXPECT_EQ(printable(bench.error()), printable(row.message));
  EXPECT_EQ(changesBetween(before, settingsOf(bench.imp)), sorted(row.changes));
  EXPECT_EQ(printable(text), printable(row.rest)) << "(what is left)";
  EXPECT_EQ(printable(KvoOption_Parser::current_option), printable(row.option))
      << "(current_option)";
}

} // namespace

std::string printable(const std::string &text) {
  std::string out;
  for (const char character : text) {
    if (character >= ' ' && character <= '~') {
      out += character;
      continue;
    }
    std::array<char, 5> code{};
    std::snprintf(code.data(), code.size(), "\\x%02x",
                  static_cast<unsigned char>(character));
    out += code.data();
  }
  return out;
}

std::string upper(std::string text) {
  for (char &character : text)
    character =
        static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
  return text;
}

Settings settingsOf(const EngineImp &imp) {
  Settings settings;
  if (imp.currentProcessor != nullptr)
    addRecord(settings, *imp.currentProcessor);
  addCable(settings, *imp.cableOption);
  settings["cpuJtag"] = std::to_string(imp.cpuJtag);
  for (std::size_t i = 0; i < imp.jtagChain.size(); ++i)
    settings["chain[" + std::to_string(i) + "]"] =
        deviceText(*imp.jtagChain[i]);
  return settings;
}

std::string changesBetween(const Settings &before, const Settings &after) {
  std::string text;
  const auto add = [&text](const std::string &item) {
    text += (text.empty() ? "" : " ") + item;
  };
  for (const auto &[name, value] : after) {
    const auto old = before.find(name);
    if (old == before.end() || old->second != value)
      add(name + "=" + value);
  }
  for (const auto &[name, value] : before)
    if (after.count(name) == 0)
      add(name + " gone");
  return text;
}

Bench::Bench() : imp(*engine.GetProcessorList(nullptr)) {
  imp.currentProcessor = &record;
  fillOddly(record);
  fillOddly(*imp.cableOption);
  imp.cpuJtag = 5;
}

Bench::~Bench() { ZelDebugDialog::ReleaseChainRecords(imp.jtagChain); }

std::string Bench::error() {
  std::string text;
  engine.GetErrorStr(text);
  return text;
}

HHSMHwManager *silentDesign() {
  static SilentDesign design;
  return &design;
}

void expectRows(const Reader &reader, const std::vector<Row> &rows,
                const Prepare &setup) {
  for (const Row &row : rows) {
    SCOPED_TRACE("text: \"" + printable(row.text) + "\"");
    expectRow(reader, row, setup);
  }
}

std::vector<std::string> nearMisses(const std::string &word,
                                    const std::vector<std::string> &valid) {
  const std::string lead = word[0] == '-' ? "-" : "";
  const std::string body = word.substr(lead.size());
  const std::size_t middle = body.size() / 2;
  std::string other = body;
  other[middle] = other[middle] == 'x' ? 'y' : 'x';
  std::vector<std::string> misses;
  for (const std::string &miss :
       {body.substr(0, body.size() - 1), body.substr(1), body + body.back(),
        "x" + body, body + "=", other}) {
    const std::string text = lead + miss;
    const auto same = [&text](const std::string &known) {
      return upper(known) == upper(text);
    };
    if (!miss.empty() && std::none_of(valid.begin(), valid.end(), same))
      misses.push_back(text);
  }
  return misses;
}

} // namespace LanguageTest

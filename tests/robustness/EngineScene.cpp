#include "EngineScene.h"

#include <algorithm>

#include "ZelDebugDialog/KvoOption_Parser.h"
#include "support/RecordText.h"

namespace robustness {

using namespace ZelDebugDialog;

namespace {

void forgetOption() { std::string().swap(KvoOption_Parser::current_option); }

void fill(support::FakeDesign &design) {
  design.processors = {lumacore, ppc405, cortexA9};
  design.addDebugModule("module", "hdu_cedar", {lumacore});
  design.addDebugModule("controller", "ppc_jtag_link", {ppc405});
  design.addPeripheral(lumacore, longText("uart"), "uart_mini_ember");
  design.addPeripheral(ppc405, longText("memory"), longText("memory-type"));
  design.addPeripheral(ppc405, longText("fpu"), "aux_fpu_gen5");
  design.parameterOf[{longText("fpu"), "C_DOUBLE_PRECISION"}] =
      "0x000000000000000000000000000001";
  design.typeOf[ppc405] = longText("ppc405");
  design.instancesOfType["lumacore"] = {longText("unattached")};
  design.instancesOfType["soc_cortexa9"] = {cortexA9};
}

/// Gives the record everything but its identity.
void fill(ProcessorInfoImp &record) {
  ProcessorInfoImp settings = support::unusualRecord();
  settings.instanceName = record.instanceName;
  settings.procFamily = record.procFamily;
  settings.procType = record.procType;
  settings.connectionMask = 0xF;
  settings.cpuNr = record.cpuNr;
  settings.connectionType = Engine::CONNECT_HW;
  settings.ppcSimConfigFile = longText("file");
  settings.simIpcHost = longText("host");
  settings.stubSerialPort = longText("serial");
  settings.stubType = Engine::STUB_JTAG;
  settings.modelSimHost = longText("modelsim");
  settings.cpu_version = longText("cpu-version");
  settings.hdu_version = longText("hdu-version");
  settings.connectCommand = longText("command");
  settings.icacheStartAdr = 0x50000;
  settings.svfFileFlag = false;
  record = settings;
}

} // namespace

EngineScene::EngineScene() : state(*engine.GetProcessorList(nullptr)) {
  forgetOption();
  fill(design);
  engine.GetProcessorList(&design, names);
  names = {longText("earlier")};
  select(ppc405, Engine::CONNECT_HW);
  cable = support::unusualCable();
  cable.port = longText("port");
  cable.esn = longText("esn");
  cable.moduleName = longText("module");
  cable.moduleArgs = longText("one") + ";" + longText("two");
  *state.cableOption = cable;
  state.cableOption->svfFile.clear();
  first.partname = longText("first");
  second.partname = longText("second");
  second.isfpga = 1;
  devices = {&first, &second};
  state.jtagChain = devices;
  chain = {&second};
  engine.SetErrorStr(longText("message"));
  text = longText("text");
  design.log = {};
}

EngineScene::~EngineScene() {
  release(state.jtagChain);
  release(chain);
  ReleaseProcessorRecords(state);
  forgetOption();
}

void EngineScene::release(std::vector<JtagOption *> &list) const {
  const auto own = [this](const JtagOption *device) {
    return device == &first || device == &second;
  };
  list.erase(std::remove_if(list.begin(), list.end(), own), list.end());
  ReleaseChainRecords(list);
}

void EngineScene::select(const std::string &name, Engine::ConnectionType type) {
  for (ProcessorInfoImp *const record : state.processorList)
    if (record->instanceName == name)
      state.currentProcessor = record;
  fill(*state.currentProcessor);
  state.currentProcessor->connectionType = type;
}

LanguageTest::Settings EngineScene::everything() const {
  LanguageTest::Settings all = LanguageTest::settingsOf(state);
  const ProcessorInfoImp *const current = state.currentProcessor;
  all["connectCommand"] = current == nullptr ? "-" : current->connectCommand;
  all["hwManager"] = state.hwManager == &design   ? "the design"
                     : state.hwManager == nullptr ? "none"
                                                  : "another";
  all["errorStr"] = state.errorStr;
  std::string list;
  std::string marked = current == nullptr ? "none" : "none of the list";
  for (const ProcessorInfoImp *const record : state.processorList) {
    list += record->instanceName + ' ' + std::to_string(record->connectionMask);
    list += ' ' + std::to_string(record->cpuNr) + '\n';
    if (record == current)
      marked = "of the list";
  }
  all["processorList"] = list;
  all["currentProcessor"] = marked;
  all["text"] = text;
  for (const std::string &name : names)
    all["names"] += name + '\n';
  all["chainOut"] = std::to_string(chain.size());
  for (const JtagOption *const device : chain)
    all["chainOut"] += '\n' + support::textOf(*device);
  all["cableOut"] = support::textOf(cable);
  all["info"] = support::textOf(info);
  all["numbers"] =
      std::to_string(number) + ' ' + std::to_string(address) + ' ' + byte;
  return all;
}

} // namespace robustness

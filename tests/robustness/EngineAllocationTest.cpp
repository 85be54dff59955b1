// Every operation of the engine with each of its allocations failing: nothing
// is lost, nothing is half done, and it can be asked again.
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ComMsgMgr.h"
#include "EngineScene.h"
#include "FailEach.h"
#include "ZelDebugDialog/CableCatalogue.h"
#include "ZelDebugDialog/CommandTables.h"
#include "ZelDebugDialog/CommandWriting.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "ZelDebugDialog/SettingFields.h"
#include "ZelDebugDialog/Version.h"
#include "support/TemporaryDirectory.h"

// Takes no memory and says nothing.
void ComMsgMgr::sendMsg::eval(int /*kind*/, const char * /*sourcePath*/,
                              int /*line*/, const char * /*tool*/,
                              unsigned /*mask*/, const char * /*format*/, ...) {
}

namespace robustness {
namespace {

using namespace ZelDebugDialog;
using LanguageTest::changesBetween;
using LanguageTest::Settings;
using Parser = KvoOption_Parser;

using Step = std::function<void(EngineScene &)>;

/// Names of what the library exports that a test has gone through.
std::set<std::string> &covered() {
  static std::set<std::string> names;
  return names;
}

/// Whether a scene is as it was, but for `ignored`.
void expectUnchanged(const EngineScene &scene, const Settings &before,
                     const std::set<std::string> &ignored) {
  Settings now = scene.everything();
  Settings then = before;
  for (const std::string &name : ignored) {
    now.erase(name);
    then.erase(name);
  }
  EXPECT_EQ(changesBetween(then, now), "");
}

struct Row {
  std::string name; ///< As the library exports it, without its arguments.
  Step run;
  /// What makes the scene right for it.
  Step prepare = [](EngineScene &) {};
  /// What changes before memory can run out.
  std::set<std::string> stored = {};
};

class Prepared : public EngineScene {
public:
  Prepared() { prepare()(*this); }
  static Step &prepare() {
    static Step step;
    return step;
  }
};

/// What fails leaves everything as it was; asked again it does all it should.
void expectAllOrNothing(const Row &row) {
  covered().insert(row.name);
  Prepared::prepare() = row.prepare;
  Settings before;
  Settings after;
  {
    Prepared scene;
    before = scene.everything();
    row.run(scene);
    after = scene.everything();
  }
  failEach<Prepared>(row.name, row.run, [&](EngineScene &scene) {
    expectUnchanged(scene, before, row.stored);
    row.run(scene);
    EXPECT_EQ(changesBetween(after, scene.everything()), "") << "asked again";
  });
  Prepared::prepare() = nullptr;
}

void expectAllOrNothing(const std::vector<Row> &rows) {
  for (const Row &row : rows)
    expectAllOrNothing(row);
}

// --- The engine's own operations ---------------------------------------------

/// A call that hands something in.
template <class Call> Step call(const Call &made) {
  return [made](EngineScene &scene) { made(scene.engine, scene); };
}

TEST(EngineAllocation, OfConstruction) {
  expectAllOrNothing({
      {"Engine::Engine", [](EngineScene &) { const Engine made; }},
      {"EngineImp::EngineImp", [](EngineScene &) { const EngineImp made; }},
      {"CableOption::CableOption",
       [](EngineScene &) { const CableOption made; }},
      {"CableOption::CableOptionInit",
       [](EngineScene &scene) {
         scene.cable.CableOptionInit(Engine::QUORLA_PODUSB);
       }},
      {"EngineImp::EngineImpInit",
       [](EngineScene &scene) { scene.state.EngineImpInit(); }},
      {"ProcessorInfoImp::ProcessorInfoImpInit",
       [](EngineScene &scene) {
         scene.state.currentProcessor->ProcessorInfoImpInit();
       }},
      {"ReleaseProcessorRecords",
       [](EngineScene &scene) { ReleaseProcessorRecords(scene.state); }},
      {"ReleaseChainRecords",
       [](EngineScene &scene) { ReleaseChainRecords(scene.chain); },
       [](EngineScene &scene) { scene.chain = {new JtagOption}; }},
  });
}

TEST(EngineAllocation, OfTheErrorString) {
  const std::string other = longText("another");
  expectAllOrNothing({
      {"Engine::GetErrorStr", call([](Engine &engine, EngineScene &scene) {
         engine.GetErrorStr(scene.text);
       }),
       [](EngineScene &scene) { std::string().swap(scene.text); }},
      {"Engine::SetErrorStr", call([other](Engine &engine, EngineScene &) {
         engine.SetErrorStr(other + other);
       })},
      {"Engine::SetErrorStr", call([other](Engine &engine, EngineScene &) {
         engine.SetErrorStr((other + other).c_str());
       })},
  });
}

TEST(EngineAllocation, OfTheTargetSettings) {
  const std::string other = longText(longText("another"));
  const Step noMessage = [](EngineScene &scene) {
    std::string().swap(scene.state.errorStr);
    std::string().swap(scene.text);
  };
  const auto number = [](int (Engine::*get)(int &)) {
    return call([get](Engine &engine, EngineScene &scene) {
      (engine.*get)(scene.number);
    });
  };
  const auto address = [](int (Engine::*get)(unsigned &)) {
    return call([get](Engine &engine, EngineScene &scene) {
      (engine.*get)(scene.address);
    });
  };
  const auto misaligned = [](int (Engine::*set)(unsigned)) {
    return call([set](Engine &engine, EngineScene &scene) {
      scene.number = (engine.*set)(0x18000);
    });
  };
  expectAllOrNothing({
      {"Engine::SetConnectionType", call([](Engine &engine, EngineScene &) {
         engine.SetConnectionType(Engine::CONNECT_SIM);
       })},
      {"Engine::GetConnectionType",
       call([](Engine &engine, EngineScene &scene) {
         Engine::ConnectionType type{};
         scene.number = engine.GetConnectionType(type);
       })},
      {"Engine::SetStubType", call([](Engine &engine, EngineScene &scene) {
         scene.number = engine.SetStubType(Engine::STUB_SERIAL);
       }),
       noMessage},
      {"Engine::GetStubType", call([](Engine &engine, EngineScene &scene) {
         Engine::StubType type{};
         scene.number = engine.GetStubType(type);
       })},
      {"Engine::SetStubSerialPort",
       call([other](Engine &engine, EngineScene &) {
         engine.SetStubSerialPort(other);
       })},
      {"Engine::GetStubSerialPort",
       call([](Engine &engine, EngineScene &scene) {
         engine.GetStubSerialPort(scene.text);
       }),
       noMessage},
      {"Engine::SetStubBaudrate", call([](Engine &engine, EngineScene &) {
         engine.SetStubBaudrate(9600);
       })},
      {"Engine::GetStubBaudRate", number(&Engine::GetStubBaudRate)},
      {"Engine::SetDebugDevice",
       call([](Engine &engine, EngineScene &) { engine.SetDebugDevice(7); })},
      {"Engine::GetDebugDevice", number(&Engine::GetDebugDevice)},
      {"Engine::SetCpuJtag",
       call([](Engine &engine, EngineScene &) { engine.SetCpuJtag(); })},
      {"Engine::SetPPCSimConfigFile",
       call([other](Engine &engine, EngineScene &) {
         engine.SetPPCSimConfigFile(other);
       })},
      {"Engine::GetPPCSimConfigFile",
       call([](Engine &engine, EngineScene &scene) {
         engine.GetPPCSimConfigFile(scene.text);
       }),
       [](EngineScene &scene) {
         scene.select(ppc405, Engine::CONNECT_SIM);
         std::string().swap(scene.text);
       }},
      {"Engine::GetDebugAddressMap", address(&Engine::GetDebugAddressMap)},
      {"Engine::GetIcacheBaseAddr", address(&Engine::GetIcacheBaseAddr)},
      {"Engine::GetDcacheBaseAddr", address(&Engine::GetDcacheBaseAddr)},
      {"Engine::GetITagBaseAddr", address(&Engine::GetITagBaseAddr)},
      {"Engine::GetDTagBaseAddr", address(&Engine::GetDTagBaseAddr)},
      {"Engine::GetTlbBaseAddr", address(&Engine::GetTlbBaseAddr)},
      {"Engine::GetDcrBaseAddr", address(&Engine::GetDcrBaseAddr)},
      {"Engine::GetISOCMBaseAddr", address(&Engine::GetISOCMBaseAddr)},
      {"Engine::SetIcacheBaseAddr", misaligned(&Engine::SetIcacheBaseAddr),
       noMessage},
      {"Engine::SetDcacheBaseAddr", misaligned(&Engine::SetDcacheBaseAddr),
       noMessage},
      {"Engine::SetITagBaseAddr", misaligned(&Engine::SetITagBaseAddr),
       noMessage},
      {"Engine::SetDTagBaseAddr", misaligned(&Engine::SetDTagBaseAddr),
       noMessage},
      {"Engine::SetTlbBaseAddr", misaligned(&Engine::SetTlbBaseAddr),
       noMessage},
      {"Engine::SetDcrBaseAddr", misaligned(&Engine::SetDcrBaseAddr),
       noMessage},
      {"Engine::UnSetDebugAddressMap", call([](Engine &engine, EngineScene &) {
         engine.UnSetDebugAddressMap();
       })},
      {"EngineImp::InitPPCDebugAddressMap",
       [](EngineScene &scene) { scene.state.InitPPCDebugAddressMap(); }},
      {"EngineImp::AssignAddressMap",
       [](EngineScene &scene) { scene.state.AssignAddressMap(0x10000); }},
      {"Engine::SetROMem",
       call([](Engine &engine, EngineScene &) { engine.SetROMem(1, 2); })},
      {"Engine::GetROMem", call([](Engine &engine, EngineScene &scene) {
         unsigned size = 0;
         engine.GetROMem(scene.address, size);
       })},
  });
}

TEST(EngineAllocation, OfTheCable) {
  const std::string other = longText(longText("another"));
  const Step noText = [](EngineScene &scene) {
    std::string().swap(scene.text);
  };
  const Step plugin = [](EngineScene &scene) {
    scene.state.cableOption->cableType = Engine::QUORLA_PLUGIN;
    scene.cable.cableType = Engine::QUORLA_PLUGIN;
  };
  expectAllOrNothing({
      {"getcable_supported_frequency",
       [](EngineScene &scene) {
         std::string offered =
             getcable_supported_frequency(Engine::QUORLA_PODUSB);
         scene.text.swap(offered);
       }},
      {"setcable_default_frequency",
       [](EngineScene &scene) {
         scene.address = setcable_default_frequency(Engine::QUORLA_PODUSB);
       }},
      {"setcable_default_port",
       [](EngineScene &scene) {
         std::string port = setcable_default_port(Engine::QUORLA_PODUSB);
         scene.text.swap(port);
       }},
      {"Engine::GetSupportedCableSpeed",
       call([](Engine &engine, EngineScene &scene) {
         std::string offered =
             engine.GetSupportedCableSpeed(Engine::QUORLA_PODUSB);
         scene.text.swap(offered);
       })},
      {"Engine::GetDefaultCableSpeed",
       call([](Engine &engine, EngineScene &scene) {
         scene.address = engine.GetDefaultCableSpeed(Engine::QUORLA_PODUSB);
       })},
      {"Engine::GetDefaultCablePort",
       call([](Engine &engine, EngineScene &scene) {
         std::string port = engine.GetDefaultCablePort(Engine::QUORLA_PODUSB);
         scene.text.swap(port);
       })},
      {"Engine::GetCableName", call([](Engine &engine, EngineScene &scene) {
         std::string name = engine.GetCableName(Engine::QUORLA_PODUSB);
         scene.text.swap(name);
       })},
      {"Engine::GetCableType", call([other](Engine &engine, EngineScene &) {
         engine.GetCableType(other);
       })},
      {"Engine::GetCableType", call([](Engine &engine, EngineScene &scene) {
         Engine::CableType type{};
         scene.number = engine.GetCableType(type);
       })},
      {"Engine::SetCableType", call([](Engine &engine, EngineScene &) {
         engine.SetCableType(Engine::QUORLA_PARALLEL4);
       })},
      {"Engine::SetCableSpeed",
       call([](Engine &engine, EngineScene &) { engine.SetCableSpeed(5); })},
      {"Engine::GetCableSpeed", call([](Engine &engine, EngineScene &scene) {
         engine.GetCableSpeed(scene.address);
       })},
      {"Engine::SetCablePort", call([other](Engine &engine, EngineScene &) {
         engine.SetCablePort(other);
       })},
      {"Engine::GetCablePort", call([](Engine &engine, EngineScene &scene) {
         engine.GetCablePort(scene.text);
       }),
       noText},
      {"Engine::SetCableESN", call([other](Engine &engine, EngineScene &) {
         engine.SetCableESN(other);
       })},
      {"Engine::GetCableESN", call([](Engine &engine, EngineScene &scene) {
         engine.GetCableESN(scene.text);
       }),
       noText},
      {"Engine::SetQuorlaCableOptions",
       call([other](Engine &engine, EngineScene &scene) {
         engine.SetQuorlaCableOptions(scene.cable, Engine::QUORLA_PARALLEL3, 5,
                                      other);
       })},
      {"Engine::SetDigilentCableOptions",
       call([other](Engine &engine, EngineScene &scene) {
         engine.SetDigilentCableOptions(scene.cable, Engine::DIGILENT_PLUGIN, 5,
                                        other);
       })},
      {"Engine::SetPluginCableOptions",
       call([](Engine &engine, EngineScene &scene) {
         scene.number = engine.SetPluginCableOptions("");
       })},
      {"Engine::SetPluginCableOptions",
       call([other](Engine &engine, EngineScene &) {
         engine.SetPluginCableOptions("-cable modulename " + other);
       }),
       plugin},
      {"Engine::GetPluginCableOptions",
       call([](Engine &engine, EngineScene &scene) {
         engine.GetPluginCableOptions(scene.text);
       }),
       plugin},
      {"Engine::Set3rdPartyCableOptions",
       call([other](Engine &engine, EngineScene &scene) {
         engine.Set3rdPartyCableOptions(
             scene.cable, "-cable type quorla_podusb port " + other + " esn " +
                              other + " -configdevice partname " + other);
       })},
      {"Engine::Set3rdPartyCableOptions",
       call([other](Engine &engine, EngineScene &scene) {
         scene.number = engine.Set3rdPartyCableOptions(
             scene.cable, "-cable port " + other + " " + other + " 1");
       })},
      {"Engine::Get3rdPartyCableOptions",
       call([](Engine &engine, EngineScene &scene) {
         engine.Get3rdPartyCableOptions(scene.text, scene.cable);
       }),
       plugin},
      {"KvoOption_Parser::setcable_frequency",
       [](EngineScene &scene) {
         scene.number = Parser::setcable_frequency(scene.state, 0);
       },
       [](EngineScene &scene) { std::string().swap(scene.state.errorStr); }},
  });
}

/// Makes its result anew and needs nothing else.
TEST(EngineAllocation, OfTheTables) {
  struct Nothing {};
  covered().insert("GetCommandTables");
  failEach<Nothing>(
      "GetCommandTables", [](Nothing &) { GetCommandTables(); },
      [](Nothing &) { EXPECT_EQ(GetCommandTables().heads.size(), 4U); });
  covered().insert("GetOfferedFrequencies");
  failEach<Nothing>(
      "GetOfferedFrequencies",
      [](Nothing &) { GetOfferedFrequencies(Engine::QUORLA_PODUSB); },
      [](Nothing &) {
        EXPECT_EQ(GetOfferedFrequencies(Engine::QUORLA_PODUSB).size(), 6U);
      });
  covered().insert("GetAcceptedFrequencies");
  failEach<Nothing>(
      "GetAcceptedFrequencies",
      [](Nothing &) { GetAcceptedFrequencies(Engine::QUORLA_TCF); },
      [](Nothing &) {
        EXPECT_EQ(GetAcceptedFrequencies(Engine::QUORLA_TCF).size(), 17U);
      });
}

TEST(EngineAllocation, OfFieldsByTheirNames) {
  const std::size_t host = FindField("modelSimHost");
  const std::size_t port = FindField("cable.port");
  const std::size_t part = FindField("chain[].partname");
  const std::string other = longText(longText("another"));
  const auto shown = [](EngineScene &scene, const FieldValue &value) {
    scene.text = std::get<std::string>(value);
  };
  expectAllOrNothing({
      {"GetLibraryVersion",
       [](EngineScene &scene) { scene.number = *GetLibraryVersion(); }},
      {"GetSettingFields",
       [](EngineScene &scene) {
         scene.number = static_cast<int>(GetSettingFields().size());
       }},
      {"FindField",
       [](EngineScene &scene) {
         scene.number = static_cast<int>(FindField("chain[].hardppc"));
       }},
      {"GetFieldName",
       [part](EngineScene &scene) {
         std::string name = GetFieldName(part, 1234567);
         scene.text.swap(name);
       }},
      {"GetField",
       [=](EngineScene &scene) { shown(scene, GetField(scene.state, host)); }},
      {"GetField",
       [=](EngineScene &scene) {
         shown(scene, GetField(*scene.state.currentProcessor, host));
       }},
      {"GetField",
       [=](EngineScene &scene) { shown(scene, GetField(scene.cable, port)); }},
      {"GetField",
       [=](EngineScene &scene) {
         shown(scene, GetField(*scene.devices[0], part));
       }},
      {"SetField",
       [=](EngineScene &scene) { SetField(scene.state, host, other); }},
      {"SetField",
       [=](EngineScene &scene) {
         SetField(*scene.state.currentProcessor, host, other);
       }},
      {"SetField",
       [=](EngineScene &scene) { SetField(scene.cable, port, other); }},
      {"SetField",
       [=](EngineScene &scene) { SetField(*scene.devices[0], part, other); }},
  });
}

TEST(EngineAllocation, OfTheChain) {
  const std::string other = longText(longText("another"));
  expectAllOrNothing({
      {"Engine::SetJtagChainOptions",
       call([](Engine &engine, EngineScene &scene) {
         engine.SetJtagChainOptions(
             {scene.devices[1], scene.devices[0], scene.devices[1]});
       })},
      {"Engine::GetJtagChainOptions",
       call([](Engine &engine, EngineScene &scene) {
         engine.GetJtagChainOptions(scene.chain);
       })},
      {"Engine::GenerateJtagCableCmdString",
       call([other](Engine &engine, EngineScene &scene) {
         engine.GenerateJtagCableCmdString(scene.text, Engine::QUORLA_PODUSB, 5,
                                           other, scene.devices, 3);
       })},
      {"Engine::GenerateJtagCableCmdString",
       call([](Engine &engine, EngineScene &scene) {
         engine.GenerateJtagCableCmdString(scene.text, scene.cable,
                                           scene.devices, 3);
       })},
      {"Engine::GenerateJtagCableCmdString",
       call([](Engine &engine, EngineScene &scene) {
         scene.number = engine.GenerateJtagCableCmdString(
             scene.text, Engine::QUORLA_TCF, 5, "", scene.devices, 3);
       })},
      {"Engine::ParseJtagCableInfo",
       call([other](Engine &engine, EngineScene &scene) {
         engine.ParseJtagCableInfo(
             "-cable type quorla_podusb esn " + other +
                 " -configdevice partname " + other +
                 " isfpga 1 devicenr 2 -configdevice jtagport cpu partname " +
                 other,
             scene.cable, scene.chain, scene.number, scene.byte);
       }),
       [](EngineScene &scene) { scene.chain.clear(); }},
      {"Engine::ParseJtagCableInfo",
       call([other](Engine &engine, EngineScene &scene) {
         scene.address = static_cast<unsigned>(engine.ParseJtagCableInfo(
             "-configdevice partname " + other + " -cable " + other + " 1",
             scene.cable, scene.chain, scene.number, scene.byte));
       })},
  });
}

TEST(EngineAllocation, OfTheDesign) {
  expectAllOrNothing({
      {"Engine::GetProcessorList", call([](Engine &engine, EngineScene &scene) {
         engine.GetProcessorList(&scene.design, scene.names);
       })},
      {"Engine::GetProcessorList", call([](Engine &engine, EngineScene &scene) {
         engine.GetProcessorList(&scene.design);
       }),
       [](EngineScene &scene) { scene.state.hwManager = nullptr; }},
      {"Engine::GetProcessorNr", call([](Engine &engine, EngineScene &scene) {
         scene.number = engine.GetProcessorNr(ppc405);
       })},
      {"Engine::GetProcessorNr", call([](Engine &engine, EngineScene &scene) {
         scene.number = engine.GetProcessorNr(longText("unknown"));
       })},
      {"EngineImp::GetFPUType",
       [](EngineScene &scene) { scene.number = scene.state.GetFPUType(); },
       [](EngineScene &scene) { scene.state.currentProcessor->fpuType = 0; }},
      {"EngineImp::ClassifyMemory",
       [](EngineScene &scene) {
         std::string label = scene.state.ClassifyMemory(longText("ddr-memory"));
         scene.text.swap(label);
       }},
      {"EngineImp::IsStubSerialConnect",
       [](EngineScene &scene) {
         scene.address = scene.state.IsStubSerialConnect(lumacore);
       }},
      {"EngineImp::IsStubJtagConnect",
       [](EngineScene &scene) {
         scene.address = scene.state.IsStubJtagConnect(lumacore);
       }},
      // The new record is gone, and no record is current: the rest is reset.
      {"Engine::ParseProcessorInfo",
       call([](Engine &engine, EngineScene &scene) {
         scene.number = engine.ParseProcessorInfo(longText("unknown"),
                                                  scene.info, "connect");
       })},
      {"Engine::SetProcessor", call([](Engine &engine, EngineScene &scene) {
         scene.number = engine.SetProcessor(longText("unknown"), scene.info);
       })},
      {"Engine::SetProcessorFrom", call([](Engine &engine, EngineScene &scene) {
         scene.number = engine.SetProcessorFrom(longText("unknown"), scene.info,
                                                longText("file"));
       })},
  });
}

// --- Writers -----------------------------------------------------------------

TEST(EngineAllocation, OfCommandsAndFiles) {
  const support::TemporaryDirectory folder;
  folder.write("etc/earlier", "");
  const Step stub = [](EngineScene &scene) {
    scene.select(lumacore, Engine::CONNECT_STUB);
    scene.state.currentProcessor->stubType = Engine::STUB_SERIAL;
  };
  const Step refused = [](EngineScene &scene) {
    scene.select(ppc405, Engine::CONNECT_STUB);
    std::string().swap(scene.state.errorStr);
  };
  const Step noFile = [](EngineScene &scene) {
    scene.state.currentProcessor->instanceName += "/none";
    std::string().swap(scene.state.errorStr);
  };
  const Step generate = call([](Engine &engine, EngineScene &scene) {
    scene.number = engine.Generate();
  });
  const Step command = call([](Engine &engine, EngineScene &scene) {
    scene.number = engine.GenerateCmdString(scene.text);
  });
  const Step traced = [](EngineScene &scene) {
    CommandWriting writing;
    scene.number = TraceKvoWriting(scene.state, scene.text, writing);
  };
  const std::string path = "etc/" + longText("by its path");
  expectAllOrNothing({
      {"Engine::GenerateCmdString", command},
      {"Engine::GenerateCmdString", command, stub},
      {"Engine::GenerateCmdString", command, refused},
      {"Engine::Generate", generate, [](EngineScene &) {}, {"connectCommand"}},
      {"Engine::Generate", generate, stub, {"connectCommand"}},
      {"Engine::Generate", generate, refused},
      {"Engine::Generate", generate, noFile, {"connectCommand"}},
      {"KvoOption_Parser::WriteKvoOptFile",
       [](EngineScene &scene) { Parser::WriteKvoOptFile(scene.state); },
       [](EngineScene &) {},
       {"connectCommand"}},
      {"KvoOption_Parser::WriteKvoOptFileTo",
       [path](EngineScene &scene) {
         Parser::WriteKvoOptFileTo(path, scene.state);
       },
       [](EngineScene &) {},
       {"connectCommand"}},
      {"KvoOption_Parser::WriteKvoCmdString",
       [](EngineScene &scene) {
         Parser::WriteKvoCmdString(scene.state, scene.text);
       }},
      {"TraceKvoWriting", traced},
      {"TraceKvoWriting", traced, stub},
      {"TraceKvoWriting", traced, refused},
      {"KvoOption_Parser::ReadKvoOptFileFrom",
       [](EngineScene &scene) {
         scene.number =
             Parser::ReadKvoOptFileFrom(longText("none"), scene.state);
       }},
      {"KvoOption_Parser::ReadKvoOptFile",
       [](EngineScene &scene) {
         scene.number = Parser::ReadKvoOptFile(longText("none"), scene.state);
       }},
  });
}

/// A writer appends to the text; memory that runs out leaves a part of what it
/// appends, and the engine as it was.
void expectWritten(
    const std::string &name, int (*write)(std::string &, EngineImp &),
    const Step &prepare = [](EngineScene &) {}) {
  covered().insert("KvoOption_Parser::" + name);
  Prepared::prepare() = prepare;
  Settings before;
  std::string written;
  {
    Prepared scene;
    before = scene.everything();
    write(scene.text, scene.state);
    written = scene.text;
  }
  failEach<Prepared>(
      "KvoOption_Parser::" + name,
      [write](EngineScene &scene) { write(scene.text, scene.state); },
      [&](EngineScene &scene) {
        expectUnchanged(scene, before, {"text"});
        EXPECT_EQ(written.compare(0, scene.text.size(), scene.text), 0)
            << scene.text;
      });
  Prepared::prepare() = nullptr;
}

TEST(EngineAllocation, OfWriters) {
  const Step onLumacore = [](EngineScene &scene) {
    scene.select(lumacore, Engine::CONNECT_HW);
  };
  const Step plugin = [](EngineScene &scene) {
    scene.state.cableOption->cableType = Engine::QUORLA_PLUGIN;
  };
  const Step emptyText = [](EngineScene &scene) {
    scene.select(lumacore, Engine::CONNECT_VP);
    scene.state.currentProcessor->vpConfigMode = 0;
    std::string().swap(scene.text);
  };
  const Step onSimulator = [](EngineScene &scene) {
    scene.state.currentProcessor->ppcSimConfigFile.clear();
  };
  expectWritten("write_lcoptions", Parser::write_lcoptions, onLumacore);
  expectWritten("write_ppcoptions", Parser::write_ppcoptions);
  expectWritten("write_vpoptions", Parser::write_vpoptions, emptyText);
  expectWritten("write_commoptions", Parser::write_commoptions);
  expectWritten("write_debugdeviceoptions", Parser::write_debugdeviceoptions);
  expectWritten("write_lcfsloptions", Parser::write_lcfsloptions);
  expectWritten("write_ppcsim_options", Parser::write_ppcsim_options);
  expectWritten("write_ppcsim_options", Parser::write_ppcsim_options,
                onSimulator);
  expectWritten("write_jtagoptions", Parser::write_jtagoptions);
  expectWritten("write_jtagoptions", Parser::write_jtagoptions, plugin);
  expectWritten("WriteJtagCableOptionsString",
                [](std::string &out, EngineImp &imp) {
                  return Parser::WriteJtagCableOptionsString(imp, out);
                });
  expectWritten(
      "write_quorla_cableoptions", [](std::string &out, EngineImp &imp) {
        return Parser::write_quorla_cableoptions(out, *imp.cableOption);
      });
  expectWritten(
      "write_plugin_cableoptions", [](std::string &out, EngineImp &imp) {
        return Parser::write_plugin_cableoptions(out, *imp.cableOption);
      });
  expectWritten(
      "write_digilent_cableoptions", [](std::string &out, EngineImp &imp) {
        return Parser::write_digilent_cableoptions(out, *imp.cableOption);
      });
}

// --- Readers -----------------------------------------------------------------

using Read = std::function<int(std::string &text, EngineScene &scene)>;

Read reader(int (*read)(std::string &, EngineImp &)) {
  return [read](std::string &text, EngineScene &scene) {
    return read(text, scene.state);
  };
}
Read reader(unsigned (*read)(std::string &, EngineImp &)) {
  return [read](std::string &text, EngineScene &scene) {
    return static_cast<int>(read(text, scene.state));
  };
}

std::vector<std::string> prefixes(const std::string &text) {
  std::vector<std::string> all;
  for (std::size_t end = text.find(' '); end != std::string::npos;
       end = text.find(' ', end + 1))
    all.push_back(text.substr(0, end));
  all.push_back(text);
  return all;
}

struct ReaderRow {
  std::string name;
  Read read;
  std::string text;
  Step prepare = [](EngineScene &) {};
  /// Puts a text where it is read, if that is not `input`.
  std::function<void(const std::string &text)> place = [](auto &) {};
};

/// What a setting may hold after reading has been stopped: what it held, and
/// what it holds when the text ends sooner.
using Allowed = std::map<std::string, std::set<std::string>>;

Allowed allowedBy(const ReaderRow &row) {
  Allowed allowed;
  // A refused selection forgets the command again.
  allowed["connectCommand"].insert(row.text);
  const auto add = [&allowed](const EngineScene &scene) {
    for (const auto &[name, value] : scene.everything())
      allowed[name].insert(value);
  };
  for (const std::string &text : prefixes(row.text)) {
    Prepared scene;
    add(scene);
    scene.input = text;
    row.place(text);
    row.read(scene.input, scene);
    add(scene);
  }
  return allowed;
}

void expectOldOrRead(const ReaderRow &row) {
  covered().insert(row.name);
  Prepared::prepare() = [&row](EngineScene &scene) {
    row.prepare(scene);
    scene.input = row.text;
  };
  const Allowed allowed = allowedBy(row);
  int result = 0;
  {
    Prepared scene;
    result = row.read(scene.input, scene);
  }
  failEach<Prepared>(
      row.name, [&row](EngineScene &scene) { row.read(scene.input, scene); },
      [&](EngineScene &scene) {
        for (const auto &[name, value] : scene.everything()) {
          const auto found = allowed.find(name);
          if (found == allowed.end() || found->second.count(value) == 0)
            ADD_FAILURE() << name << " holds " << value;
        }
        // What is left of the text is its end.
        const std::string &rest = scene.input;
        ASSERT_LE(rest.size(), row.text.size());
        EXPECT_EQ(row.text.substr(row.text.size() - rest.size()), rest);
        row.prepare(scene);
        scene.input = row.text;
        EXPECT_EQ(row.read(scene.input, scene), result) << "asked again";
      });
  Prepared::prepare() = nullptr;
}

const std::string value = longText(longText(longText("value")));
// No word of theirs is a number that needs no memory of its own.
const std::string number = "000000000000000000000000000000000000000010x";

const std::string clauses =
    "-debugdevice devicenr " + number + " cpu_version " + value +
    " hdu_version " + value + " nCpu " + number + " -pfsl port " + value +
    " type ms -quiet -cable frequency 3000000 type quorla_podusb port " +
    value + " esn " + value + " url " + value + " fname " + value +
    " modulename " + value + " modulearg " + value + " modulearg " + value +
    value + " -comm jtag -port " + value + " -baud " + number +
    " -configdevice partname " + value + " idcode " + number +
    " -configdevice partname " + value + " -bscan USER1";
const std::string jtagClauses = "-cable type quorla_podusb port " + value +
                                " -configdevice partname " + value +
                                " -bscan USER1 -configdevice partname " +
                                value + " -debugdevice cpu_version " + value;

TEST(EngineAllocation, OfReaders) {
  const Step noDesign = [](EngineScene &scene) {
    scene.state.hwManager = nullptr;
    scene.state.currentProcessor->cpuNr = 1;
  };
  const std::string unknown = " -unknown-" + value;
  const auto row = [&noDesign](const std::string &name, auto read,
                               const std::string &text) {
    expectOldOrRead(
        {"KvoOption_Parser::" + name, reader(read), text, noDesign});
  };
  row("parse_options", Parser::parse_options, clauses);
  row("parse_options", Parser::parse_options, "-quiet" + unknown);
  row("parse_lcoptions", Parser::parse_lcoptions, "hdu " + clauses);
  row("parse_lcoptions", Parser::parse_lcoptions, "sim -memsize " + number);
  row("parse_ppcoptions", Parser::parse_ppcoptions, "hw " + clauses);
  row("parse_armoptions", Parser::parse_armoptions, "hw " + clauses);
  row("parse_armr5options", Parser::parse_armr5options, "hw " + clauses);
  row("parse_dapoptions", Parser::parse_dapoptions, "hw " + clauses);
  row("parse_hduoptions", Parser::parse_hduoptions, "-uart " + jtagClauses);
  row("parse_hduoptions", Parser::parse_hduoptions, "-uart" + unknown);
  row("parse_dccoptions", Parser::parse_dccoptions,
      "-uart -debugdevice cpu_version " + value + " -cable port " + value);
  row("parse_kmtcoptions", Parser::parse_kmtcoptions,
      "-configdevice partname " + value + " -debugdevice cpu_version " + value);
  row("parse_vpoptions", Parser::parse_vpoptions,
      "lc -config cycle_approximate -ipcport " + value + ":" + number);
  row("parse_vpoptions", Parser::parse_vpoptions, "lc" + unknown);
  row("parse_ppcsim_options", Parser::parse_ppcsim_options,
      "-icf " + value + " -ipcport " + value + ":" + number +
          " -debugdevice cpu_version " + value);
  row("parse_modelsim_options", Parser::parse_modelsim_options,
      "-ipcport " + value + ":" + number + " -configdevice partname " + value);
  row("parse_debugdevice", Parser::parse_debugdevice,
      "cpu_version " + value + " hdu_version " + value + " fpuType " + value);
  row("parse_lcfsloptions", Parser::parse_lcfsloptions,
      "port " + value + " type " + value);
  row("parse_hdubscan", Parser::parse_hdubscan, "USER1");
  row("parse_cable", Parser::parse_cable,
      "type quorla_podusb modulearg " + value + " modulearg " + value + " " +
          value + " 1");
  row("parse_configdevice", Parser::parse_configdevice,
      "partname " + value + " idcode " + number + " " + value + " 1");
  row("ReadJtagCableOptions", Parser::ReadJtagCableOptions, jtagClauses);
  row("ReadJtagCableOptions", Parser::ReadJtagCableOptions,
      "-bscan USER1" + unknown);
  for (const char *option : {"-port", "-baud", "-unknown"}) {
    std::string word = option;
    expectOldOrRead({"KvoOption_Parser::parse_commoptions",
                     [word](std::string &text, EngineScene &scene) {
                       std::string given = word;
                       return Parser::parse_commoptions(text, given,
                                                        scene.state);
                     },
                     number + value, noDesign});
  }
}

TEST(EngineAllocation, OfWords) {
  expectOldOrRead({"KvoOption_Parser::get_token",
                   [](std::string &text, EngineScene &scene) {
                     return Parser::get_token(text, scene.text);
                   },
                   "-" + value + " " + value});
  expectOldOrRead({"KvoOption_Parser::get_tokenpair",
                   [](std::string &text, EngineScene &scene) {
                     std::string second;
                     return Parser::get_tokenpair(text, scene.text, second);
                   },
                   value + " " + value});
}

/// A pair of settings is changed together or not at all.
TEST(EngineAllocation, OfPairsOfSettings) {
  const auto row = [](const std::string &name, auto read,
                      const std::string &text) {
    const Read parse = reader(read);
    expectAllOrNothing({"KvoOption_Parser::" + name,
                        [parse, text](EngineScene &scene) {
                          std::string rest = text;
                          parse(rest, scene);
                        },
                        [](EngineScene &scene) {
                          scene.state.cableOption->frequency = 6000000;
                        }});
  };
  row("parse_cable", Parser::parse_cable, "fname " + value);
  row("parse_cable", Parser::parse_cable, "modulearg " + value);
  row("parse_ppcsim_options", Parser::parse_ppcsim_options,
      "-ipcport " + value + ":" + number);
  row("parse_modelsim_options", Parser::parse_modelsim_options,
      "-ipcport " + value + ":" + number);
  row("parse_debugdevice", Parser::parse_debugdevice, "cpu_version " + value);
}

// --- Whole commands ----------------------------------------------------------

TEST(EngineAllocation, OfWholeCommands) {
  const std::vector<std::string> commands = {
      "connect ppc hw " + clauses,
      "connect ppc hw -unknown-" + value,
      "connect ppc sim -icf " + value + " -ipcport " + value + ":" + number,
      "connect hdu -uart " + jtagClauses,
      "reconnect " + value,
  };
  const Read readCommand = [](std::string &text, EngineScene &scene) {
    return Parser::ReadKvoCommand(text, scene.state);
  };
  const Read parse = [](std::string &text, EngineScene &scene) {
    return scene.engine.ParseProcessorInfo(ppc405, scene.info, text);
  };
  const Read trace = [](std::string &text, EngineScene &scene) {
    return TraceKvoCommand(text, scene.state, scene.trace, AfterFault::stop);
  };
  const Read traceAll = [](std::string &text, EngineScene &scene) {
    return TraceKvoCommand(text, scene.state, scene.trace, AfterFault::goOn);
  };
  // A selection forgets the chain that an earlier one has read.
  const Step release = [](EngineScene &scene) { scene.releaseChain(); };
  for (const std::string &command : commands) {
    expectOldOrRead({"KvoOption_Parser::ReadKvoCommand", readCommand, command});
    expectOldOrRead({"Engine::ParseProcessorInfo", parse, command, release});
    expectOldOrRead({"TraceKvoCommand", trace, command});
    expectOldOrRead({"TraceKvoCommand", traceAll, command});
  }
}

TEST(EngineAllocation, OfOptionFiles) {
  const support::TemporaryDirectory folder;
  const std::string saved = "connect ppc hw -cable port " + value +
                            " -configdevice partname " + value +
                            " -debugdevice cpu_version " + value;
  const auto place = [&folder](const std::string &text) {
    folder.write("etc/kvo_" + ppc405 + ".opt", text);
  };
  expectOldOrRead({"KvoOption_Parser::ReadKvoOptFile",
                   [](std::string & /*text*/, EngineScene &scene) {
                     return Parser::ReadKvoOptFile(ppc405, scene.state);
                   },
                   saved, [](EngineScene &) {}, place});
  expectOldOrRead({"Engine::SetProcessor",
                   [](std::string & /*text*/, EngineScene &scene) {
                     return scene.engine.SetProcessor(ppc405, scene.info);
                   },
                   saved, [](EngineScene &scene) { scene.releaseChain(); },
                   place});
  const std::string path = "etc/kvo_" + ppc405 + ".opt";
  expectOldOrRead({"KvoOption_Parser::ReadKvoOptFileFrom",
                   [path](std::string & /*text*/, EngineScene &scene) {
                     return Parser::ReadKvoOptFileFrom(path, scene.state);
                   },
                   saved, [](EngineScene &) {}, place});
  expectOldOrRead(
      {"Engine::SetProcessorFrom",
       [path](std::string & /*text*/, EngineScene &scene) {
         return scene.engine.SetProcessorFrom(ppc405, scene.info, path);
       },
       saved, [](EngineScene &scene) { scene.releaseChain(); }, place});
}

/// The record that it makes is gone, and with it what it was filled with; when
/// even that could not be made, nothing has changed.
TEST(EngineAllocation, OfARecordOfItsOwn) {
  covered().insert("EngineImp::GetProcessorInfo");
  Prepared::prepare() = nullptr;
  Settings before;
  {
    EngineScene scene;
    before = scene.everything();
  }
  for (const std::string &command :
       {"connect ppc hw -debugdevice cpunr 1 " + clauses,
        "connect ppc hw -unknown-" + value, std::string("connect hdu -uart")})
    failEach<EngineScene>(
        "EngineImp::GetProcessorInfo",
        [&command](EngineScene &scene) {
          scene.state.GetProcessorInfo(command);
        },
        [&](EngineScene &scene) {
          EXPECT_EQ(scene.state.hwManager, &scene.design);
          if (scene.state.currentProcessor != nullptr) {
            EXPECT_EQ(changesBetween(before, scene.everything()), "");
            return;
          }
          EXPECT_TRUE(scene.state.jtagChain.empty());
          EXPECT_EQ(scene.state.cableOption->cableType, Engine::CABLE_NONE);
          EXPECT_EQ(scene.state.errorStr, "");
          EXPECT_EQ(scene.state.processorList.size(), 4U);
        });
}

// --- Nothing is left out -----------------------------------------------------

/// Comes last: the others say what they have gone through.
TEST(EngineAllocation, WasTriedOfEachExportedOperation) {
  std::ifstream list(EXPORTS);
  ASSERT_TRUE(list) << EXPORTS;
  const std::string space = "ZelDebugDialog::";
  std::size_t operations = 0;
  for (std::string line; std::getline(list, line);) {
    const std::size_t end = line.find('(');
    if (end == std::string::npos || line.find('~') != std::string::npos)
      continue;
    ++operations;
    const std::string name = line.substr(space.size(), end - space.size());
    EXPECT_EQ(covered().count(name), 1U) << name;
  }
  EXPECT_GT(operations, 100U);
}

} // namespace
} // namespace robustness

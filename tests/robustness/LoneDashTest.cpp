// A word that is a lone "-" in each place that the engine's own tables have for
// a word, through each operation that reads: the error reaches the caller, the
// design is in its place again, nothing is lost, and the engine goes on as one
// that never saw it.
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "EngineScene.h"
#include "Heap.h"
#include "ZelDebugDialog/CommandTables.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "support/TemporaryDirectory.h"

namespace robustness {
namespace {

using namespace ZelDebugDialog;

/// What has to stand before the options of a set, with a design whose
/// processor allows all connections.
std::string leadOf(const CommandOptionSet &set) {
  if (set.name == "processor")
    return "connect ppc hw";
  if (set.name == "Lumacore simulator")
    return "connect lc sim";
  if (set.name == "PowerPC simulator")
    return "connect ppc sim";
  if (set.name == "virtual platform")
    return "vpconnect lc";
  if (set.name == "ModelSim")
    return "connect ppc hw -sim";
  return "connect " + set.name; // a debug module
}

/// A value that is taken for a parameter or an option.
std::string accepted(const CommandValue &value) {
  if (!value.words.empty())
    return value.words.front();
  if (value.fields == std::vector<std::string>{"cpuNr"})
    return "1"; // the design's own
  return value.conversion == ValueConversion::hostAndPort ? "h:1" : "0";
}

/// The begins of commands up to each place of a word, and how the command goes
/// on without the dash.
std::vector<std::string> places() {
  std::vector<std::string> all{"",
                               "connect ",
                               "vpconnect ",
                               "connect lc ",
                               "connect ppc ",
                               "connect arm ",
                               "connect r5 ",
                               "connect dap "};
  for (const CommandOptionSet &set : GetCommandTables().optionSets) {
    const std::string lead = leadOf(set) + " ";
    all.push_back(lead); // in place of an option
    for (const CommandOption &option : set.options) {
      const std::string word = lead + option.keyword + " ";
      all.push_back(word); // in place of a name, a value or the next option
      if (option.takesValue)
        all.push_back(word + accepted(option.value) + " ");
      for (const CommandParameter &parameter : option.parameters) {
        const std::string name = word + parameter.keyword + " ";
        all.push_back(name);
        all.push_back(name + accepted(parameter.value) + " ");
      }
    }
  }
  return all;
}

/// The memory size ends what is read of a command.
bool isRead(const std::string &place) {
  return place != "connect lc sim -memsize 0 ";
}

using Operation =
    std::function<void(EngineScene &scene, const std::string &text)>;

/// Discovers and selects as a dialog does that is opened again.
void selectAnew(EngineScene &scene) {
  scene.releaseChain();
  ReleaseProcessorRecords(scene.state);
  scene.engine.GetProcessorList(&scene.design);
  ProcessorInfo info;
  EXPECT_EQ(scene.engine.ParseProcessorInfo(
                ppc405, info,
                "connect ppc hw -cable type quorla_podusb -configdevice "
                "partname p"),
            0);
}

void expectSurvived(const Operation &operation, const std::string &text,
                    const std::function<void(EngineScene &scene)> &check) {
  SCOPED_TRACE(text);
  const HeapUse before = heapInUse();
  {
    EngineScene scene;
    EXPECT_THROW(operation(scene, text), std::out_of_range);
    EXPECT_EQ(scene.state.hwManager, &scene.design);
    EXPECT_EQ(scene.state.processorList.size(), 4U);
    check(scene);
    EngineScene fresh;
    selectAnew(scene);
    selectAnew(fresh);
    EXPECT_EQ(
        LanguageTest::changesBetween(LanguageTest::settingsOf(fresh.state),
                                     LanguageTest::settingsOf(scene.state)),
        "")
        << "the next selection";
  }
  EXPECT_EQ(heapInUse(), before) << "something was lost";
}

TEST(LoneDash, InAParsedCommandLeavesTheProcessorCurrent) {
  for (const std::string &place : places())
    if (isRead(place))
      expectSurvived(
          [](EngineScene &scene, const std::string &text) {
            scene.engine.ParseProcessorInfo(ppc405, scene.info, text);
          },
          place + "- -quiet",
          [&place](EngineScene &scene) {
            EXPECT_EQ(scene.state.currentProcessor->instanceName, ppc405);
            EXPECT_EQ(scene.state.currentProcessor->connectCommand,
                      place + "- -quiet");
            EXPECT_EQ(scene.info.connectionMask, 0U) << "the summary";
          });
}

TEST(LoneDash, InACommandOfItsOwnLeavesNoProcessorCurrent) {
  for (const std::string &place : places())
    if (isRead(place))
      expectSurvived(
          [](EngineScene &scene, const std::string &text) {
            scene.state.GetProcessorInfo(text);
          },
          place + "- -quiet",
          [](EngineScene &scene) {
            EXPECT_EQ(scene.state.currentProcessor, nullptr);
            EXPECT_TRUE(scene.state.jtagChain.empty());
            EXPECT_EQ(scene.state.errorStr, "");
          });
}

TEST(LoneDash, InATracedCommandIsTheLastWordOfTheTrace) {
  for (const std::string &place : places())
    if (isRead(place))
      expectSurvived(
          [](EngineScene &scene, const std::string &text) {
            TraceKvoCommand(text, scene.state, scene.trace, AfterFault::stop);
          },
          place + "-",
          [&place](EngineScene &scene) {
            ASSERT_FALSE(scene.trace.words.empty());
            EXPECT_EQ(scene.trace.words.back().offset, place.size());
            EXPECT_EQ(scene.trace.faults.back().kind,
                      CommandFaultKind::loneDash);
          });
}

TEST(LoneDash, InAnOptionFileLeavesTheProcessorCurrent) {
  const support::TemporaryDirectory folder;
  for (const std::string &place : places()) {
    const bool isKnown = place.find("connect hdu") == std::string::npos &&
                         place.find("connect dap") == std::string::npos &&
                         place.find("connect dcc") == std::string::npos &&
                         place.find("connect kmtc") == std::string::npos;
    if (!isRead(place) || !isKnown)
      continue;
    folder.write("etc/kvo_" + ppc405 + ".opt", place + "- -quiet");
    expectSurvived(
        [](EngineScene &scene, const std::string &) {
          scene.engine.SetProcessor(ppc405, scene.info);
        },
        place,
        [](EngineScene &scene) {
          EXPECT_EQ(scene.state.currentProcessor->instanceName, ppc405);
          EXPECT_EQ(scene.info.connectionMask, 0U) << "the summary";
        });
  }
}

/// Cable, chain, boundary scan and debug device clauses on their own.
std::vector<std::string> jtagPlaces() {
  const std::string lead = "connect kmtc ";
  std::vector<std::string> all{"", "-bscan ", "-bscan USER1 "};
  for (const std::string &place : places())
    if (place.compare(0, lead.size(), lead) == 0)
      all.push_back(place.substr(lead.size()));
  return all;
}

TEST(LoneDash, InCableTextsLeavesAllAsItWas) {
  const std::vector<std::string> all = jtagPlaces();
  EXPECT_GT(all.size(), 60U);
  LanguageTest::Settings before;
  {
    const EngineScene scene;
    before = scene.everything();
  }
  const std::vector<Operation> operations = {
      [](EngineScene &scene, const std::string &text) {
        scene.engine.Set3rdPartyCableOptions(scene.cable, text);
      },
      [](EngineScene &scene, const std::string &text) {
        scene.engine.ParseJtagCableInfo(text, scene.cable, scene.chain,
                                        scene.number, scene.byte);
      }};
  for (const Operation &operation : operations)
    for (const std::string &place : all)
      expectSurvived(operation, place + "- -bscan", [&](EngineScene &scene) {
        EXPECT_EQ(LanguageTest::changesBetween(before, scene.everything()), "");
      });
}

TEST(LoneDash, InPluginTextsKeepsWhatWasRead) {
  for (const std::string &place : jtagPlaces())
    expectSurvived(
        [](EngineScene &scene, const std::string &text) {
          scene.state.cableOption->cableType = Engine::QUORLA_PLUGIN;
          scene.engine.SetPluginCableOptions(text);
        },
        place + "-",
        [](EngineScene &scene) {
          EXPECT_EQ(scene.state.errorStr, longText("message"));
        });
}

} // namespace
} // namespace robustness

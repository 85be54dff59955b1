// A design that fails: each of its answers in turn is an exception. It reaches
// the caller, and the engine is as it was, or as the operation's own rules say.
#include <functional>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "EngineScene.h"
#include "Heap.h"

namespace robustness {
namespace {

using namespace ZelDebugDialog;

/// The scene's design, which fails at one question.
class FailingDesign : public support::FakeDesign {
public:
  FailingDesign(const FakeDesign &like, int question)
      : FakeDesign(like), remaining(question) {}

  void getProcessorInstances(Names &names, bool flag) override {
    ask();
    FakeDesign::getProcessorInstances(names, flag);
  }
  void getIpInstances(Names &names, HwIpType kind) override {
    ask();
    FakeDesign::getIpInstances(names, kind);
  }
  void getIpInstances(Names &names, const std::string &typeName) override {
    ask();
    FakeDesign::getIpInstances(names, typeName);
  }
  std::string getIpName(const std::string &instance) override {
    ask();
    return FakeDesign::getIpName(instance);
  }
  void getHduConnectedProcessorList(Names &names,
                                    const std::string &instance) override {
    ask();
    FakeDesign::getHduConnectedProcessorList(names, instance);
  }
  void getPeripherals(Names &names, const std::string &processor) override {
    ask();
    FakeDesign::getPeripherals(names, processor);
  }
  std::string getParameterValue(const std::string &instance,
                                const std::string &parameter) override {
    ask();
    return FakeDesign::getParameterValue(instance, parameter);
  }

private:
  void ask() {
    if (--remaining == 0)
      throw std::runtime_error("the design is gone");
  }

  int remaining;
};

using Operation =
    std::function<void(EngineScene &scene, HHSMHwManager &failing)>;
using Check = std::function<void(EngineScene &scene, HHSMHwManager &failing)>;

/// Has the first, the second, ... question of the operation fail until none
/// does. @return how many there are.
int failEachQuestion(const Operation &operation, const Check &check) {
  for (int question = 1;; ++question) {
    SCOPED_TRACE("question " + std::to_string(question));
    const HeapUse before = heapInUse();
    bool threw = false;
    {
      EngineScene scene;
      FailingDesign failing(scene.design, question);
      try {
        operation(scene, failing);
      } catch (const std::runtime_error &) {
        threw = true;
        check(scene, failing);
      }
    }
    EXPECT_EQ(heapInUse(), before) << "something was lost";
    if (!threw || testing::Test::HasFailure())
      return question - 1;
  }
}

TEST(DesignFault, OfADiscoveryTakesItBack) {
  LanguageTest::Settings before;
  {
    const EngineScene scene;
    before = scene.everything();
  }
  const int questions = failEachQuestion(
      [](EngineScene &scene, HHSMHwManager &failing) {
        scene.engine.GetProcessorList(&failing, scene.names);
      },
      [&before](EngineScene &scene, HHSMHwManager &) {
        EXPECT_EQ(LanguageTest::changesBetween(before, scene.everything()), "");
      });
  // All processors; the modules, and for each its type and what is on it; the
  // type and the UART of what is there; two more lists.
  EXPECT_GE(questions, 10);
}

TEST(DesignFault, OfASelectionLeavesTheProcessorCurrent) {
  const int questions = failEachQuestion(
      [](EngineScene &scene, HHSMHwManager &failing) {
        scene.state.hwManager = &failing;
        scene.engine.ParseProcessorInfo(ppc405, scene.info,
                                        "connect ppc hw -cable port p");
      },
      [](EngineScene &scene, HHSMHwManager &failing) {
        EXPECT_EQ(scene.state.hwManager, &failing);
        EXPECT_EQ(scene.state.currentProcessor->instanceName, ppc405);
        EXPECT_EQ(scene.state.cableOption->port, "p") << "what was read";
        EXPECT_EQ(scene.info.connectionMask, 0U) << "the summary";
      });
  // The peripherals, the type of both, and the parameter of the second.
  EXPECT_EQ(questions, 4);
}

TEST(DesignFault, OfACommandOfItsOwnLeavesNoProcessorCurrent) {
  const int questions = failEachQuestion(
      [](EngineScene &scene, HHSMHwManager &failing) {
        scene.state.hwManager = &failing;
        delete scene.state.GetProcessorInfo(
            "connect ppc hw -debugdevice cpunr 1");
        scene.state.currentProcessor = nullptr;
      },
      [](EngineScene &scene, HHSMHwManager &failing) {
        EXPECT_EQ(scene.state.hwManager, &failing);
        EXPECT_EQ(scene.state.currentProcessor, nullptr);
        EXPECT_TRUE(scene.state.jtagChain.empty());
      });
  EXPECT_EQ(questions, 4);
}

TEST(DesignFault, OfAQueryChangesNothing) {
  EngineScene scene;
  FailingDesign failing(scene.design, 1);
  scene.state.hwManager = &failing;
  EXPECT_THROW(scene.state.IsStubSerialConnect(lumacore), std::runtime_error);
  EXPECT_EQ(scene.state.IsStubSerialConnect(lumacore), 0x84U);
}

} // namespace
} // namespace robustness

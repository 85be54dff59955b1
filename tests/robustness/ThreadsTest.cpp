// Two engines in two threads: what their programs have to do is take one lock
// around every call.
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineImp.h"
#include "support/FakeDesign.h"

namespace robustness {
namespace {

using namespace ZelDebugDialog;

/// One for all engines of the process.
std::mutex engines;

/// A dialog for one processor: reads a command, changes it, writes it. Every
/// option of the command goes through the string that all readers share.
class Dialog {
public:
  explicit Dialog(std::string deviceName) : device(std::move(deviceName)) {
    const std::lock_guard<std::mutex> lock(engines);
    design.addDebugModule("module", "hdu", {"cpu"});
    state = engine.GetProcessorList(&design);
  }
  ~Dialog() {
    const std::lock_guard<std::mutex> lock(engines);
    ReleaseChainRecords(state->jtagChain);
    ReleaseProcessorRecords(*state);
  }
  Dialog(const Dialog &) = delete;
  Dialog &operator=(const Dialog &) = delete;

  std::string command() const {
    return "connect lc hdu -cable type quorla_podusb port USB21 frequency "
           "6000000 -configdevice devicenr 1 partname " +
           device + " irlength 6 idcode 0x1 -debugdevice deviceNr 1 cpunr 1";
  }

  /// Whether the command came through as it is.
  bool readAndWrite() {
    const std::lock_guard<std::mutex> lock(engines);
    ReleaseChainRecords(state->jtagChain);
    ProcessorInfo info;
    std::string written;
    return engine.ParseProcessorInfo("cpu", info, command()) == 0 &&
           engine.GenerateCmdString(written) == 0 && written == command();
  }

private:
  std::string device;
  support::FakeDesign design;
  Engine engine;
  EngineImp *state = nullptr;
};

TEST(Threads, ShareOneLockAroundTheirEngines) {
  constexpr int times = 200;
  const std::vector<std::string> names{
      "first", "second-and-longer-than-a-string-keeps-inside"};
  std::vector<int> succeeded(names.size());
  std::vector<std::thread> threads;
  for (std::size_t number = 0; number < names.size(); ++number)
    threads.emplace_back([&succeeded, &names, number] {
      Dialog dialog(names[number]);
      for (int time = 0; time < times; ++time)
        succeeded[number] += dialog.readAndWrite() ? 1 : 0;
    });
  for (std::thread &thread : threads)
    thread.join();
  for (const int count : succeeded)
    EXPECT_EQ(count, times);
}

} // namespace
} // namespace robustness

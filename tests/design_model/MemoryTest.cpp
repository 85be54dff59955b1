// What designs take in memory: as much as their instances, whatever their text
// is.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "MemorySource.h"
#include "PeakMemory.h"
#include "Reading.h"
#include "elaboration/ReadDesignFrom.h"

namespace ZelDebugDialog {
namespace {

// What the header of the model and docs/design-files.md say.
constexpr std::size_t bytesOfInstance = 400;
constexpr std::size_t bytesOfInterface = 50;

struct Cost {
  std::size_t instances = 0;
  std::size_t names = 0; ///< Bytes of all full names.
  std::size_t held = 0;  ///< By the model that was read.
  std::size_t peak = 0;  ///< While it was read.
};

Cost costOf(const Files &files, std::size_t most) {
  support::countPugixml();
  MemorySource memory;
  memory.files = files;
  DesignSources sources;
  sources.designFile = "top.xml";
  DesignModel model;
  const std::size_t before = support::bytesHeld();
  support::restartPeak();
  EXPECT_TRUE(readDesignFrom(memory, sources, limitsOf(most), model));
  Cost cost;
  cost.held = support::bytesHeld() - before;
  cost.peak = support::peakBytesHeld() - before;
  cost.instances = model.Instances().size();
  for (const DesignInstance &instance : model.Instances())
    cost.names += instance.name.size();
  return cost;
}

/// Forty components, each of which holds two of the next.
Files doubled() {
  Files files = {{"top.xml", design("top", instance("i", "c0"))}};
  for (int level = 0; level < 40; ++level) {
    const std::string number = std::to_string(level);
    const std::string next = "c" + std::to_string(level + 1);
    files["c" + number + ".xml"] =
        component("c" + number, "", viewOf("d" + number));
    files["d" + number + ".xml"] =
        design("d" + number, instance("a", next) + instance("b", next));
  }
  return files;
}

/// Lists grow by doubling: a number just above a power of two takes most.
TEST(Memory, OfAnInstanceIsWhatIsSaid) {
  const Files files = doubled();
  for (const std::size_t most : {10000u, 65536u, 65600u, 131080u}) {
    const Cost cost = costOf(files, most);
    EXPECT_EQ(cost.instances, most);
    EXPECT_LT(cost.held, bytesOfInstance * most + cost.names) << most;
    EXPECT_LT(cost.peak, (bytesOfInstance + 100) * most + cost.names) << most;
    // A figure that nothing comes near would say nothing.
    EXPECT_GT(2 * cost.held, bytesOfInstance * most) << most;
  }
}

/// A design of this many boxes, each with a leaf in it that has two interfaces
/// and a text of about this length.
Files boxes(int count, std::size_t length) {
  const std::string text = "<ipxact:vendorExtensions><x:x xmlns:x=\"urn:x\">" +
                           std::string(length, 'x') +
                           "</x:x></ipxact:vendorExtensions>";
  std::string list;
  for (int i = 0; i < count; ++i)
    list += instance("i" + std::to_string(i), "box");
  return {{"box.xml", component("box", interface("port", "<ipxact:slave/>"),
                                viewOf("inner") + text)},
          {"inner.xml", design("inner", instance("leaf", "leaf"),
                               connection("in", {"leaf.a", "port"}), text)},
          {"leaf.xml", component("leaf",
                                 interface("a", "<ipxact:slave/>") +
                                     interface("b", "<ipxact:master/>"),
                                 text)},
          {"top.xml", design("top", list)}};
}

TEST(Memory, OfAComponentIsTakenOnce) {
  constexpr std::size_t many = 100000;
  const Cost few = costOf(boxes(1000, 10), many);
  const Cost large = costOf(boxes(1000, 1000000), many);
  EXPECT_EQ(large.instances, 2000u);
  EXPECT_NEAR(static_cast<double>(large.held), static_cast<double>(few.held),
              1000.0);
  // What is parsed is given back before the next is.
  EXPECT_LT(large.peak, few.peak + 5 * 1000000);
  const Cost more = costOf(boxes(4000, 1000000), many);
  // Three interfaces and two ends of a connection in two instances.
  EXPECT_LT(more.held, more.instances * bytesOfInstance + more.names +
                           4000 * (3 + 2) * bytesOfInterface);
  EXPECT_LT(more.peak - large.peak, 3 * 2 * 3000 * (bytesOfInstance + 200));
}

} // namespace
} // namespace ZelDebugDialog

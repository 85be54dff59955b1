// Loads a design once, in a process that has done nothing before, and prints
// what that took:
//
//   bench_load WAY [DESIGN [ANSWER]]
//
// ANSWER is a file for the answer, by which the ways are compared. Without a
// design nothing is loaded: what is counted of such a run belongs to the start
// of the program.
#include <array>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>

#include "Ways.h"
#include "common/Require.h"

namespace bench {

std::vector<std::string> filesBeside(const std::string &design) {
  std::vector<std::string> files;
  for (const auto &entry : std::filesystem::directory_iterator(
           std::filesystem::path(design).parent_path()))
    if (entry.path().extension() == ".xml")
      files.push_back(entry.path().string());
  return files;
}

} // namespace bench

namespace {

struct Way {
  std::string_view name;
  bench::Answer (*load)(const std::string &design);
};

constexpr std::array<Way, 4> ways{{
    {"design-model", bench::loadByDesignModel},
    {"pugixml", bench::loadByPugixml},
    {"trees-only", bench::loadTreesOnly},
    {"sax", bench::loadBySax},
}};

const Way &findWay(std::string_view name) {
  for (const Way &way : ways)
    if (way.name == name)
      return way;
  bench::require(false, "no such way");
  return ways.front();
}

double processorNanoseconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e9 +
         static_cast<double>(time.tv_nsec);
}

/// A figure of the kernel about this process, in bytes: "VmRSS:", what it has
/// in memory; "VmHWM:", the most that it ever had.
long memory(std::string_view figure) {
  std::ifstream status("/proc/self/status");
  std::string word;
  while (status >> word)
    if (word == figure) {
      long kilobytes = 0;
      status >> kilobytes;
      return kilobytes * 1024;
    }
  bench::require(false, "the kernel's figures of memory");
  return 0;
}

void write(const bench::Answer &answer, const char *name) {
  std::ofstream file(name);
  for (const bench::Processor &processor : answer) {
    file << processor.name << ':';
    for (const std::string &peripheral : processor.peripherals)
      file << ' ' << peripheral;
    file << '\n';
  }
}

} // namespace

int main(int count, char **arguments) {
  bench::require(count >= 2 && count <= 4, "WAY [DESIGN [ANSWER]]");
  const Way &way = findWay(arguments[1]);
  if (count == 2)
    return 0;
  const std::string design = arguments[2];

  const long heldBefore = memory("VmRSS:");
  const auto began = std::chrono::steady_clock::now();
  const double usedBefore = processorNanoseconds();
  const bench::Answer answer = way.load(design);
  const double used = processorNanoseconds() - usedBefore;
  const std::chrono::duration<double, std::nano> taken =
      std::chrono::steady_clock::now() - began;
  const long held = memory("VmHWM:") - heldBefore;

  std::cout << "{\"cpu_time\": " << used << ", \"real_time\": " << taken.count()
            << ", \"peak\": " << held << "}\n";
  if (count == 4)
    write(answer, arguments[3]);
  return 0;
}

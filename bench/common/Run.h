// How each program of this folder runs: at every size, after its checks.
#ifndef ZELDEBUGDIALOG_BENCH_COMMON_RUN_H
#define ZELDEBUGDIALOG_BENCH_COMMON_RUN_H

#include <array>
#include <cstddef>
#include <cstdlib>
#include <functional>
#include <string>

#include <benchmark/benchmark.h>

#include "Require.h"

namespace bench {

constexpr std::array<std::size_t, 6> sizes{2, 10, 100, 1000, 10000, 100000};

/// What is timed, how many bytes it goes through, and what it leaves out of
/// what the others of its group do.
struct Prepared {
  std::size_t bytes;
  std::function<void()> work;
  std::string leavesOut = {};
};

/// Registers "group/who/size". `prepare` returns what is timed, after it has
/// checked the result; it is called when the turn comes, so that a run of a few
/// benchmarks prepares those only.
template <class Prepare>
void add(const std::string &group, const std::string &who, std::size_t size,
         const Prepare &prepare) {
  const std::string name = group + '/' + who + '/' + std::to_string(size);
  benchmark::RegisterBenchmark(
      name.c_str(), [prepare](benchmark::State &state) {
        const Prepared prepared = prepare();
        for ([[maybe_unused]] auto iteration : state)
          prepared.work();
        state.counters["bytes"] = static_cast<double>(prepared.bytes);
        state.SetLabel(prepared.leavesOut);
      });
}

inline int run(int count, char **arguments) {
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments))
    return EXIT_FAILURE;
  benchmark::RunSpecifiedBenchmarks();
  return EXIT_SUCCESS;
}

} // namespace bench

#endif

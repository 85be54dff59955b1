// How each program of this folder runs: at every size, after its checks.
#pragma once

#include <array>
#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <string>

#include <benchmark/benchmark.h>

namespace bench {

constexpr std::array<std::size_t, 6> sizes{2, 10, 100, 1000, 10000, 100000};

/// Ends the program: what gives a wrong result is not timed.
inline void require(bool holds, const std::string &what) {
  if (holds)
    return;
  std::cerr << "wrong result: " << what << '\n';
  std::exit(EXIT_FAILURE);
}

/// Registers "group/who/size"; `work` is done once for each iteration. What
/// `bytes` it goes through is reported beside its time.
template <class Work>
void add(const std::string &group, const std::string &who, std::size_t size,
         std::size_t bytes, const Work &work) {
  const std::string name = group + '/' + who + '/' + std::to_string(size);
  benchmark::RegisterBenchmark(
      name.c_str(), [work, bytes](benchmark::State &state) {
        for ([[maybe_unused]] auto iteration : state)
          work();
        state.counters["bytes"] = static_cast<double>(bytes);
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

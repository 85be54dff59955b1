// Discovers the processors of a design, as a program does that was just
// started, and prints how many nanoseconds that took.
//
//   discover_once 10000
#include <chrono>
#include <cstdlib>
#include <iostream>

#include "common/FlatDesign.h"
#include "common/Session.h"

int main(int count, char **arguments) {
  using Clock = std::chrono::steady_clock;
  if (count != 2) {
    std::cerr << "usage: discover_once PROCESSORS\n";
    return EXIT_FAILURE;
  }
  bench::FlatDesign design(std::strtoul(arguments[1], nullptr, 10));
  bench::Session session;
  const auto start = Clock::now();
  session.engine.GetProcessorList(&design);
  const std::chrono::nanoseconds taken = Clock::now() - start;
  if (session.imp.processorList.size() != design.lumacores().size()) {
    std::cerr << "discover_once: processors are missing\n";
    return EXIT_FAILURE;
  }
  std::cout << taken.count() << '\n';
}

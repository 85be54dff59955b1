#include "FailEach.h"

#include <iostream>
#include <map>
#include <ostream>

namespace robustness {

namespace {

std::map<std::string, std::size_t> &failures() {
  static std::map<std::string, std::size_t> counted;
  return counted;
}

class Report : public testing::Environment {
public:
  void TearDown() override {
    std::size_t all = 0;
    for (const auto &[operation, count] : failures()) {
      std::cout << operation << ' ' << count << '\n';
      all += count;
    }
    std::cout << "allocations that were made to fail, of " << failures().size()
              << " operations: " << all << '\n';
  }
};

[[maybe_unused]] const testing::Environment *const report =
    testing::AddGlobalTestEnvironment(new Report);

} // namespace

void noteFailures(const std::string &operation, std::size_t count) {
  failures()[operation] += count;
}

} // namespace robustness

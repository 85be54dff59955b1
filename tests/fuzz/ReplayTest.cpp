// Calls a fuzzer with the inputs that are kept for it, the seeds and whatever
// it has found, and then with small changes of them, always the same.
//
// An input that does not hold ends the program. The name of its test says which
// it was; a changed one is left in the file that the last line of output names.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/Mutator.h"
#include "fuzz/Replayed.h"
#include "support/ManyOrFew.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data,
                                      std::size_t size);

namespace {

namespace fs = std::filesystem;

/// A corpus that shrinks to less has lost its files on the way.
constexpr std::size_t fewestInputs = 8;
constexpr std::size_t mostInputs = 200;
constexpr unsigned seed = 20261121;

std::vector<fs::path> inputs() {
  std::vector<fs::path> files;
  std::error_code error;
  for (const auto &entry : fs::directory_iterator(fuzz::replayed.corpus, error))
    files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

TEST(Corpus, IsThere) {
  EXPECT_GE(inputs().size(), fewestInputs) << fuzz::replayed.corpus;
  EXPECT_LE(inputs().size(), mostInputs) << fuzz::replayed.corpus;
}

class Replay : public testing::TestWithParam<fs::path> {};

std::string contentOf(const fs::path &path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

void call(const std::string &input) {
  const std::vector<std::uint8_t> bytes(input.begin(), input.end());
  EXPECT_EQ(LLVMFuzzerTestOneInput(bytes.data(), bytes.size()), 0);
}

TEST_P(Replay, Holds) { call(contentOf(GetParam())); }

INSTANTIATE_TEST_SUITE_P(Corpus, Replay, testing::ValuesIn(inputs()),
                         [](const auto &tested) {
                           std::string name = tested.param.filename().string();
                           for (char &letter : name)
                             if (std::isalnum(
                                     static_cast<unsigned char>(letter)) == 0)
                               letter = '_';
                           return name;
                         });

TEST(Changed, Holds) {
  const int usual = fuzz::replayed.changedRuns;
  const int runs = support::manyOrFew(usual, usual / 20);
  std::vector<std::string> all;
  for (const fs::path &path : inputs())
    all.push_back(contentOf(path));
  ASSERT_FALSE(all.empty());
  const fs::path kept = fs::path(testing::TempDir()) /
                        (fuzz::replayed.fuzzer + std::string("-changed"));
  std::cout << "each input: " << kept << std::endl;
  fuzz::Mutator mutator(all, seed);
  for (int run = 0; run < runs; ++run) {
    const std::string input = mutator.next();
    std::ofstream(kept, std::ios::binary) << input;
    call(input);
  }
  fs::remove(kept);
}

} // namespace

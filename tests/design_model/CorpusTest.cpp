// Replays the fuzzer's inputs without a fuzzer: the seeds, and what it found.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data,
                                      std::size_t size);

namespace {

TEST(DocumentCorpus, HoldsTogether) {
  std::size_t replayed = 0;
  for (const auto &entry : std::filesystem::directory_iterator(CORPUS)) {
    SCOPED_TRACE(entry.path());
    std::ifstream file(entry.path(), std::ios::binary);
    ASSERT_TRUE(file);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const std::vector<std::uint8_t> bytes(text.begin(), text.end());
    EXPECT_EQ(LLVMFuzzerTestOneInput(bytes.data(), bytes.size()), 0);
    ++replayed;
  }
  EXPECT_GE(replayed, 8u);
}

} // namespace

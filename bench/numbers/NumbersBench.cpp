// Reading numbers of the command language, a thousand words at a time.
#include <array>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "KvoOption_Parser/Numbers.h"
#include "common/NumberWords.h"
#include "common/Run.h"

namespace {

constexpr std::size_t count = 1000;
constexpr std::array<const char *, 3> groups{
    "read decimals", "read hexadecimals", "read octals"};

using Words = std::vector<std::string>;

Words words(const bench::Base &base) {
  std::mt19937 random(1);
  bench::NumberWord word;
  Words all;
  for (std::size_t index = 0; index < count; ++index) {
    word.assign(static_cast<std::uint32_t>(random()) >> (index % 32), base);
    all.emplace_back(word.view());
  }
  return all;
}

struct Reader {
  const char *name;
  std::uint64_t (*read)(std::string_view word);
};

std::uint64_t readByStrtoull(std::string_view word) {
  return std::strtoull(std::string(word).c_str(), nullptr, 0);
}
std::uint64_t readByStoull(std::string_view word) {
  return std::stoull(std::string(word), nullptr, 0);
}

constexpr std::array<Reader, 3> readers{{
    {"engine", ZelDebugDialog::kvo::toUnsigned},
    {"strtoull", readByStrtoull},
    {"stoull", readByStoull},
}};

void addReader(const char *group, const Reader &reader,
               const bench::Base &base) {
  bench::add(group, reader.name, count, [&reader, &base] {
    const auto all = std::make_shared<const Words>(words(base));
    std::size_t bytes = 0;
    for (const std::string &word : *all) {
      bench::require(
          reader.read(word) == std::strtoull(word.c_str(), nullptr, 0), word);
      bytes += word.size();
    }
    return bench::Prepared{bytes, [&reader, all] {
                             for (const std::string &word : *all)
                               benchmark::DoNotOptimize(reader.read(word));
                           }};
  });
}

} // namespace

int main(int argumentCount, char **arguments) {
  for (std::size_t index = 0; index < groups.size(); ++index)
    for (const Reader &reader : readers)
      addReader(groups[index], reader, bench::bases[index]);
  return bench::run(argumentCount, arguments);
}

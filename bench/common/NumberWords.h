// Numbers as words of the command language.
#ifndef ZELDEBUGDIALOG_BENCH_COMMON_NUMBERWORDS_H
#define ZELDEBUGDIALOG_BENCH_COMMON_NUMBERWORDS_H

#include <array>
#include <charconv>
#include <cstdint>
#include <string_view>

namespace bench {

struct Base {
  std::string_view prefix;
  int radix;
};

constexpr std::array<Base, 3> bases{{{"", 10}, {"0x", 16}, {"0", 8}}};

/// A word that is made anew for each number, without touching the heap.
class NumberWord {
public:
  void assign(std::uint32_t number, const Base &base) {
    char *const digits =
        base.prefix.copy(text.data(), text.size()) + text.data();
    end =
        std::to_chars(digits, text.data() + text.size() - 1, number, base.radix)
            .ptr;
    *end = '\0';
  }
  std::string_view view() const {
    return {text.data(), static_cast<std::size_t>(end - text.data())};
  }
  const char *c_str() const { return text.data(); }

private:
  std::array<char, 24> text{};
  char *end = text.data();
};

} // namespace bench

#endif

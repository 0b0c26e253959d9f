// The bytes of an input as a sequence of choices.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>

namespace set32::fuzz {

// Ends the program where something doesn't hold.
inline void Require(bool holds) {
  if (!holds) std::abort();
}

inline std::span<const std::uint8_t> BytesOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

class Choices {
 public:
  explicit Choices(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

  bool IsEmpty() const { return rest_.empty(); }
  // 0 where the bytes end, as all that follows.
  std::uint8_t Next() {
    std::uint8_t byte = 0;
    Take({&byte, 1});
    return byte;
  }
  // 0 to bound - 1, one byte each; without a byte where there is nothing to choose.
  int Below(int bound) { return bound < 2 ? 0 : Next() % bound; }
  bool Maybe() { return Next() % 2 != 0; }
  template <typename T, std::size_t N>
  const T& OneOf(const T (&list)[N]) {
    return list[Below(static_cast<int>(N))];
  }
  // A length byte, then as many bytes.
  std::string_view Text(int most) {
    const auto wanted = static_cast<std::size_t>(Below(most + 1));
    const std::size_t size = std::min(wanted, rest_.size());
    const std::string_view text(reinterpret_cast<const char*>(rest_.data()), size);
    rest_ = rest_.subspan(size);
    return text;
  }
  // Writes over a few places of a record, each 1, 2, 4 or 8 bytes wide.
  template <typename T>
  void Bend(T& record) {
    static_assert(sizeof(record) % 8 == 0);
    const std::span bytes(reinterpret_cast<std::uint8_t*>(&record), sizeof(record));
    for (int left = Next() % 8; left > 0; --left) {
      const std::size_t width = std::size_t{1} << Next() % 4;
      Take(bytes.subspan(Next() * width % sizeof(record), width));
    }
  }

 private:
  void Take(std::span<std::uint8_t> into) {
    const std::size_t size = std::min(into.size(), rest_.size());
    std::copy_n(rest_.begin(), size, into.begin());
    rest_ = rest_.subspan(size);
  }

  std::span<const std::uint8_t> rest_;
};

}  // namespace set32::fuzz

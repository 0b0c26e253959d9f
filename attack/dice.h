// Choices of an attack, the same ones for the same seed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

namespace set32 {

class Dice {
 public:
  explicit Dice(std::uint32_t seed) : random_(seed) {}
  std::uint32_t Next() { return static_cast<std::uint32_t>(random_()); }
  // 0 to limit - 1.
  int Below(int limit) { return static_cast<int>(Next() % static_cast<std::uint32_t>(limit)); }
  bool OneIn(int times) { return Below(times) == 0; }
  template <typename Choices>
  decltype(auto) OneOf(Choices& choices) {
    return choices[static_cast<std::size_t>(Below(static_cast<int>(std::size(choices))))];
  }

 private:
  std::mt19937 random_;
};

}  // namespace set32

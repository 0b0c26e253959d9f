// Where random acts take their choices from.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

namespace set32 {

class Choices {
 public:
  virtual ~Choices() = default;
  virtual std::uint32_t Next() = 0;

  // 0 to limit - 1.
  int Below(int limit) { return static_cast<int>(Next() % static_cast<std::uint32_t>(limit)); }
  bool OneIn(int times) { return Below(times) == 0; }
  template <typename Range>
  auto& OneOf(Range& range) {
    return range[static_cast<std::size_t>(Below(static_cast<int>(std::size(range))))];
  }
};

// The same ones for the same seed.
class Dice : public Choices {
 public:
  explicit Dice(std::uint32_t seed) : random_(seed) {}
  std::uint32_t Next() override { return static_cast<std::uint32_t>(random_()); }

 private:
  std::mt19937 random_;
};

}  // namespace set32

// How sixteen pixels, three registers of 16 bytes, are split into bands and joined again.
#pragma once

#include <array>
#include <cstdint>

namespace set32 {

using Shuffle = std::array<std::uint8_t, 16>;
// The place of each byte in each of three registers; 0x80 gives zero, so that the three results can be joined by
// "or".
using Gather = std::array<Shuffle, 3>;

constexpr std::uint8_t nowhere = 0x80;

constexpr Gather GatherFrom(const std::array<unsigned, 16>& places) {
  Gather gather{};
  for (unsigned source = 0; source < 3; ++source) {
    for (unsigned i = 0; i < 16; ++i) {
      gather[source][i] = places[i] / 16 == source ? static_cast<std::uint8_t>(places[i] % 16) : nowhere;
    }
  }
  return gather;
}

constexpr Gather SplitBand(unsigned band) {
  std::array<unsigned, 16> places{};
  for (unsigned i = 0; i < 16; ++i) places[i] = 3 * i + band;
  return GatherFrom(places);
}

// Byte `i` of register `part` comes from band (16 part + i) % 3.
constexpr Gather JoinPart(unsigned part) {
  std::array<unsigned, 16> places{};
  for (unsigned i = 0; i < 16; ++i) places[i] = (16 * part + i) % 3 * 16 + (16 * part + i) / 3;
  return GatherFrom(places);
}

// Two signed weights for neighbouring bytes, as a word.
constexpr std::int16_t BytePair(int even, int odd) {
  return static_cast<std::int16_t>((odd & 0xFF) << 8 | (even & 0xFF));
}

inline constexpr std::array<Gather, 3> splitGather{SplitBand(0), SplitBand(1), SplitBand(2)};
inline constexpr std::array<Gather, 3> joinGather{JoinPart(0), JoinPart(1), JoinPart(2)};

}  // namespace set32

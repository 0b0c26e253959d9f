// How sixteen pixels, three registers of 16 bytes, are split into bands and joined again.
#pragma once

#include <array>
#include <cstdint>

namespace set32 {

using Shuffle = std::array<std::uint8_t, 16>;
using Places = std::array<unsigned, 16>;  // in three registers of 16 bytes one after the other
// The place of each byte in each of the three; 0x80 gives zero, so that the results can be joined by "or".
using Gather = std::array<Shuffle, 3>;

constexpr std::uint8_t nowhere = 0x80;

constexpr Gather GatherFrom(const Places& places) {
  Gather gather{};
  for (unsigned source = 0; source < 3; ++source) {
    for (unsigned i = 0; i < 16; ++i) {
      gather[source][i] = places[i] / 16 == source ? static_cast<std::uint8_t>(places[i] % 16) : nowhere;
    }
  }
  return gather;
}

// Eight blues and eight greens, from a pixel on.
constexpr Gather SplitBlueGreen(unsigned firstPixel) {
  Places places{};
  for (unsigned i = 0; i < 16; ++i) places[i] = 3 * (firstPixel + i % 8) + i / 8;
  return GatherFrom(places);
}

constexpr Gather SplitReds() {
  Places places{};
  for (unsigned i = 0; i < 16; ++i) places[i] = 3 * i + 2;
  return GatherFrom(places);
}

// Byte `i` of register `part` comes from band (16 part + i) % 3: blue and green of eight pixels in a register each,
// then all reds.
constexpr Gather JoinPart(unsigned part) {
  constexpr unsigned reds = 32;
  Places places{};
  for (unsigned i = 0; i < 16; ++i) {
    const unsigned pixel = (16 * part + i) / 3;
    const unsigned band = (16 * part + i) % 3;
    places[i] = band == 2 ? reds + pixel : pixel / 8 * 16 + pixel % 8 + 8 * band;
  }
  return GatherFrom(places);
}

inline constexpr Gather splitLow = SplitBlueGreen(0);
inline constexpr Gather splitHigh = SplitBlueGreen(8);
inline constexpr Gather splitRed = SplitReds();
inline constexpr Gather joinFirst = JoinPart(0);
inline constexpr Gather joinSecond = JoinPart(1);
inline constexpr Gather joinThird = JoinPart(2);

}  // namespace set32

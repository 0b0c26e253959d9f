// The work on pixels, a row or a whole buffer at a time, on several roads through the processor.
//
// A road is one way to do the same work: portable code, or code for a kind of processor, chosen at run time. All
// roads give the same bytes. Pixels are three bytes, blue, green, red; `from` and `to` may be the same place and
// don't overlap otherwise. No road reads or writes outside the pixels it was given. Any thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "dib.h"

namespace set32 {

// Three tables of 256 levels, for the bytes of a pixel in their order.
struct BandTables {
  const std::uint8_t* blue;
  const std::uint8_t* green;
  const std::uint8_t* red;
};

inline BandTables TablesOf(const CDib& dib) {
  return {dib.toneBlue, dib.toneGreen, dib.toneRed};
}

struct PixelRoad {
  const char* name;

  // Each byte through the table of its band.
  void (*tables)(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const BandTables& tables);

  // All three bytes become table[green]: gray, or black and white.
  void (*levels)(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const std::uint8_t* table);
};

// The roads that this processor can take, the portable one first, the fastest last.
std::span<const PixelRoad> UsableRoads();
const PixelRoad& BestRoad();

}  // namespace set32

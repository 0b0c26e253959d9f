// The work on pixels, a row at a time, on several roads through the processor.
//
// A road is one way to do the same work: portable code, or code for a kind of processor, chosen at run time. All
// roads give the same bytes. Pixels are three bytes, blue, green, red. `from` and `to` are the same place or don't
// overlap. No road reads or writes outside the pixels that it was given. Any thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "set32/dib.h"

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

// The tables as roads want them: as they are, and with each level where its byte stands in a pixel, so that a pixel
// is three words joined. Made once for many rows; the tables outlive it.
struct PixelTables {
  explicit PixelTables(const BandTables& tables);

  BandTables levels;
  bool alike;  // the bands have one table
  std::array<std::uint32_t, 256> blue, green, red;
};

// A row and its neighbours before any of them was sharpened. Each has its first pixel repeated before it and its last
// one behind it, and readSlack bytes more that may be read.
struct RowsToSharpen {
  const std::uint8_t* below;  // first pixel proper
  const std::uint8_t* middle;
  const std::uint8_t* above;
};

inline constexpr std::size_t readSlack = 64;

// What is done to the colours of a pixel, in whole numbers: first saturation, then the turn of the hue, the result of
// each rounded and held to 0 to 255. Zeros change nothing.
struct ColourRule {
  bool saturates = false;
  std::int16_t saturation = 0;  // distance from the luma is multiplied by 1 + saturation / 1024; -1024 to 1024
  bool turns = false;
  // A band's share of its distances to the two others, times 2048: red from green and blue, green from red and blue,
  // blue from red and green.
  std::int16_t turn[6] = {};
};

struct PixelRoad {
  const char* name;

  // Each byte through the table of its band.
  void (*tables)(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const PixelTables& tables);

  // The same where the bands have one table.
  void (*oneTable)(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const PixelTables& tables);

  // All three bytes become table[green]: gray, or black and white.
  void (*levels)(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const std::uint8_t* table);

  // The middle row plus its distance from the rows' 3 by 3 binomial mean times gain / 2048; gain -2048 to 4096. `to`
  // overlaps none of the rows.
  void (*sharpen)(const RowsToSharpen& rows, std::uint8_t* to, std::size_t pixels, std::int16_t gain);

  void (*colours)(std::uint8_t* row, std::size_t pixels, const ColourRule& rule);

  // Whichever of the two the tables allow.
  void Tone(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const PixelTables& with) const {
    (with.alike ? oneTable : tables)(from, to, pixels, with);
  }
};

// The roads that this processor can take: the portable one first, the fastest last.
std::span<const PixelRoad> UsableRoads();
const PixelRoad& BestRoad();

}  // namespace set32

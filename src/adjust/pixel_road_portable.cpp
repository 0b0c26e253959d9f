// The road that every processor can take. The other roads must give its bytes.
#include <cstring>

#include "adjust/pixel_road_kinds.h"

namespace set32 {

namespace {

constexpr std::size_t bytesPerPixel = 3;

// The product of two words, shifted down by 15 and rounded, as the vector roads have it in one instruction.
int RoundedProduct(int a, int b) {
  return ((a * b >> 14) + 1) >> 1;
}

int Held(int level) {
  return level < 0 ? 0 : level > 255 ? 255 : level;
}

void Tables(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const BandTables& tables) {
  for (std::size_t i = 0; i < pixels; ++i, from += bytesPerPixel, to += bytesPerPixel) {
    to[0] = tables.blue[from[0]];
    to[1] = tables.green[from[1]];
    to[2] = tables.red[from[2]];
  }
}

void Levels(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const std::uint8_t* table) {
  if (pixels == 0) return;
  // One store of four bytes a pixel; the fourth is the next pixel's blue, which is written after it.
  for (; pixels > 1; --pixels, from += bytesPerPixel, to += bytesPerPixel) {
    const std::uint32_t level = table[from[1]] * 0x010101U;
    std::memcpy(to, &level, sizeof(level));
  }
  to[0] = to[1] = to[2] = table[from[1]];
}

void Sharpen(const RowsToSharpen& rows, std::uint8_t* to, std::size_t pixels, std::int16_t gain) {
  const std::uint8_t* const below = rows.below;
  const std::uint8_t* const middle = rows.middle;
  const std::uint8_t* const above = rows.above;
  // The kernel 1 2 1 down the columns, then across, sums to 16.
  const auto column = [=](std::ptrdiff_t i) { return below[i] + 2 * middle[i] + above[i]; };
  const auto bytes = static_cast<std::ptrdiff_t>(pixels * bytesPerPixel);
  for (std::ptrdiff_t i = 0; i < bytes; ++i) {
    const int mean = column(i - 3) + 2 * column(i) + column(i + 3);
    to[i] = static_cast<std::uint8_t>(Held(middle[i] + RoundedProduct(16 * middle[i] - mean, gain)));
  }
}

struct Pixel {
  int blue;
  int green;
  int red;
};

int Saturated(int level, int luma, int share) {
  return Held(level + RoundedProduct((level - luma) * 32, share));
}

Pixel Saturate(const Pixel& pixel, int share) {
  const int luma = (19 * pixel.blue + 183 * pixel.green + 54 * pixel.red + 128) >> 8;
  return {Saturated(pixel.blue, luma, share), Saturated(pixel.green, luma, share), Saturated(pixel.red, luma, share)};
}

int Turned(int level, int other1, int other2, const std::int16_t* shares) {
  const int parts =
      RoundedProduct((other1 - level) * 64, shares[0]) + RoundedProduct((other2 - level) * 64, shares[1]);
  return Held(level + ((parts + 2) >> 2));
}

Pixel Turn(const Pixel& pixel, const std::int16_t (&shares)[6]) {
  return {Turned(pixel.blue, pixel.red, pixel.green, shares + 4),
          Turned(pixel.green, pixel.red, pixel.blue, shares + 2), Turned(pixel.red, pixel.green, pixel.blue, shares)};
}

void Colours(std::uint8_t* row, std::size_t pixels, const ColourRule& rule) {
  const ColourRule fixed = rule;  // what no store to a pixel can change
  for (std::size_t i = 0; i < pixels; ++i, row += bytesPerPixel) {
    Pixel pixel{row[0], row[1], row[2]};
    if (fixed.saturates) pixel = Saturate(pixel, fixed.saturation);
    if (fixed.turns) pixel = Turn(pixel, fixed.turn);
    row[0] = static_cast<std::uint8_t>(pixel.blue);
    row[1] = static_cast<std::uint8_t>(pixel.green);
    row[2] = static_cast<std::uint8_t>(pixel.red);
  }
}

}  // namespace

PixelRoad PortableRoad() {
  return {"portable", Tables, Levels, Sharpen, Colours};
}

}  // namespace set32

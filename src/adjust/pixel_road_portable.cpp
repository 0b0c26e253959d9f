// The road that every processor can take. The other roads must give its bytes.
#include <algorithm>
#include <cstring>

#include "adjust/pixel_road_kinds.h"

namespace set32 {

namespace {

constexpr std::size_t bytesPerPixel = 3;

// The product of two words, shifted down by 15 and rounded, as the vector roads have it in one instruction.
int RoundedProduct(int a, int b) {
  return ((a * b >> 14) + 1) >> 1;
}

std::uint8_t Held(int level) {
  return static_cast<std::uint8_t>(std::clamp(level, 0, 255));
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
  // The kernel 1 2 1 down the columns, then across, sums to 16.
  const auto column = [&rows](std::ptrdiff_t i) { return rows.below[i] + 2 * rows.middle[i] + rows.above[i]; };
  const auto bytes = static_cast<std::ptrdiff_t>(pixels * bytesPerPixel);
  for (std::ptrdiff_t i = 0; i < bytes; ++i) {
    const int mean = column(i - 3) + 2 * column(i) + column(i + 3);
    to[i] = Held(rows.middle[i] + RoundedProduct(16 * rows.middle[i] - mean, gain));
  }
}

void Saturate(std::uint8_t* pixel, int saturation) {
  const int luma = (19 * pixel[0] + 183 * pixel[1] + 54 * pixel[2] + 128) >> 8;
  for (std::size_t band = 0; band < bytesPerPixel; ++band) {
    pixel[band] = Held(pixel[band] + RoundedProduct((pixel[band] - luma) * 32, saturation));
  }
}

std::uint8_t Turned(int level, int other1, int other2, const std::int16_t* shares) {
  const int parts =
      RoundedProduct((other1 - level) * 64, shares[0]) + RoundedProduct((other2 - level) * 64, shares[1]);
  return Held(level + ((parts + 2) >> 2));
}

void Turn(std::uint8_t* pixel, const std::int16_t (&shares)[6]) {
  const int blue = pixel[0];
  const int green = pixel[1];
  const int red = pixel[2];
  pixel[2] = Turned(red, green, blue, shares);
  pixel[1] = Turned(green, red, blue, shares + 2);
  pixel[0] = Turned(blue, red, green, shares + 4);
}

void Colours(std::uint8_t* row, std::size_t pixels, const ColourRule& rule) {
  for (std::size_t i = 0; i < pixels; ++i, row += bytesPerPixel) {
    if (rule.saturates) Saturate(row, rule.saturation);
    if (rule.turns) Turn(row, rule.turn);
  }
}

}  // namespace

PixelRoad PortableRoad() {
  return {"portable", Tables, Levels, Sharpen, Colours};
}

}  // namespace set32

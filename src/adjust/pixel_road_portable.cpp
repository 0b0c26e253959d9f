// The road that every processor can take. The other roads must give its bytes.
#include <algorithm>
#include <array>
#include <cstring>

#include "adjust/pixel_road_kinds.h"

namespace set32 {

namespace {

constexpr std::size_t bytesPerPixel = 3;

// Rows are worked on in blocks that stay in the nearest cache, as words of 16 bits in loops without a branch: a
// compiler can do several at once on any processor.
constexpr std::size_t blockSize = 256;
using Block = std::array<std::int16_t, blockSize>;

std::int16_t Word(int value) {
  return static_cast<std::int16_t>(value);
}

// The product of two words, shifted down by 15 and rounded, as the vector roads have it in one instruction; from its
// two halves, since processors without that one have these.
std::int16_t RoundedProduct(std::int16_t a, std::int16_t b) {
  const std::int16_t high = Word(a * b >> 16);
  const auto low = static_cast<std::uint16_t>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
  const auto quarters = static_cast<std::uint16_t>(low >> 14);
  return Word(2 * high + ((quarters + 1) >> 1));
}

std::int16_t Held(std::int16_t level) {
  return std::clamp<std::int16_t>(level, 0, 255);
}

// Pixels between two requests for what lies ahead.
constexpr std::size_t blockPixels = 20;
static_assert(blockPixels * bytesPerPixel <= cacheLine);

// Four pixels are written as words when all are read, and nothing behind them: `from` and `to` may be one place.
constexpr std::size_t groupPixels = 4;
static_assert(blockPixels % groupPixels == 0);

std::uint32_t Word4(const std::uint8_t* from) {
  std::uint32_t word = 0;
  std::memcpy(&word, from, sizeof(word));
  return word;
}

void Write4(std::uint8_t* to, std::uint32_t word) {
  std::memcpy(to, &word, sizeof(word));
}

std::uint32_t Toned(const PixelTables& tables, std::uint32_t blue, std::uint32_t green, std::uint32_t red) {
  return tables.blue[blue] | tables.green[green] | tables.red[red];
}

// Half of the levels are taken from words: a processor has fewer units for reading than for arithmetic.
void ToneGroup(const std::uint8_t* from, std::uint8_t* to, const PixelTables& tables) {
  const std::uint32_t word0 = Word4(from);
  const std::uint32_t word6 = Word4(from + 6);
  const std::uint32_t pixel0 = Toned(tables, word0 & 0xFF, word0 >> 8 & 0xFF, from[2]);
  const std::uint32_t pixel1 = Toned(tables, word0 >> 24, from[4], from[5]);
  const std::uint32_t pixel2 = Toned(tables, word6 & 0xFF, word6 >> 8 & 0xFF, from[8]);
  const std::uint32_t pixel3 = Toned(tables, word6 >> 24, from[10], from[11]);
  Write4(to, pixel0);
  Write4(to + 3, pixel1);
  Write4(to + 6, pixel2);
  Write4(to + 8, pixel2 >> 16 | pixel3 << 8);
}

void Tables(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const PixelTables& tables) {
  for (; pixels >= blockPixels; pixels -= blockPixels) {
    AskAhead(from);
    AskAhead(to);
    for (std::size_t i = 0; i < blockPixels; i += groupPixels) {
      ToneGroup(from, to, tables);
      from += groupPixels * bytesPerPixel;
      to += groupPixels * bytesPerPixel;
    }
  }
  for (; pixels > 0; --pixels, from += bytesPerPixel, to += bytesPerPixel) {
    to[0] = tables.levels.blue[from[0]];
    to[1] = tables.levels.green[from[1]];
    to[2] = tables.levels.red[from[2]];
  }
}

// One store of four bytes a pixel; the fourth is the next pixel's blue, which nobody reads and the next store writes.
void LevelGroup(const std::uint8_t* from, std::uint8_t* to, const std::uint8_t* table) {
  for (std::size_t i = 0; i < groupPixels * bytesPerPixel; i += bytesPerPixel) {
    Write4(to + i, table[from[i + 1]] * 0x010101U);
  }
}

void Levels(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const std::uint8_t* table) {
  for (; pixels > blockPixels; pixels -= blockPixels) {
    AskAhead(from);
    AskAhead(to);
    for (std::size_t i = 0; i < blockPixels; i += groupPixels) {
      LevelGroup(from, to, table);
      from += groupPixels * bytesPerPixel;
      to += groupPixels * bytesPerPixel;
    }
  }
  for (; pixels > 0; --pixels, from += bytesPerPixel, to += bytesPerPixel) to[0] = to[1] = to[2] = table[from[1]];
}

// The kernel 1 2 1 down the columns, then across, sums to 16.
void SharpenBlock(const RowsToSharpen& rows, std::ptrdiff_t at, std::uint8_t* to, std::size_t bytes,
                  std::int16_t gain) {
  std::array<std::int16_t, blockSize + 2 * bytesPerPixel> columns;
  const std::uint8_t* const below = rows.below + at - bytesPerPixel;
  const std::uint8_t* const middle = rows.middle + at - bytesPerPixel;
  const std::uint8_t* const above = rows.above + at - bytesPerPixel;
  for (std::size_t i = 0; i < bytes + 2 * bytesPerPixel; ++i) columns[i] = Word(below[i] + 2 * middle[i] + above[i]);
  for (std::size_t i = 0; i < bytes; ++i) {
    const std::int16_t mean = Word(columns[i] + 2 * columns[i + bytesPerPixel] + columns[i + 2 * bytesPerPixel]);
    const int level = middle[i + bytesPerPixel];
    to[i] = static_cast<std::uint8_t>(Held(Word(level + RoundedProduct(Word(16 * level - mean), gain))));
  }
}

void Sharpen(const RowsToSharpen& rows, std::uint8_t* to, std::size_t pixels, std::int16_t gain) {
  const std::size_t bytes = pixels * bytesPerPixel;
  for (std::size_t at = 0; at < bytes; at += blockSize) {
    SharpenBlock(rows, static_cast<std::ptrdiff_t>(at), to + at, std::min(blockSize, bytes - at), gain);
  }
}

struct Bands {
  Block blue, green, red;
};

template <int factor>
std::int16_t Distance(std::int16_t from, std::int16_t to) {
  return static_cast<std::int16_t>((to - from) * factor);
}

std::int16_t Saturated(std::int16_t level, std::int16_t luma, std::int16_t share) {
  return Held(Word(level + RoundedProduct(Distance<32>(luma, level), share)));
}

void Saturate(Bands& bands, std::int16_t share) {
  for (std::size_t i = 0; i < blockSize; ++i) {
    const std::int16_t luma =
        Word(static_cast<std::uint16_t>(19 * bands.blue[i] + 183 * bands.green[i] + 54 * bands.red[i] + 128) >> 8);
    bands.blue[i] = Saturated(bands.blue[i], luma, share);
    bands.green[i] = Saturated(bands.green[i], luma, share);
    bands.red[i] = Saturated(bands.red[i], luma, share);
  }
}

std::int16_t Turned(std::int16_t level, std::int16_t other1, std::int16_t other2, std::int16_t share1,
                    std::int16_t share2) {
  const int parts =
      RoundedProduct(Distance<64>(level, other1), share1) + RoundedProduct(Distance<64>(level, other2), share2);
  return Held(Word(level + (Word(parts + 2) >> 2)));
}

void Turn(Bands& bands, const std::int16_t (&shares)[6]) {
  for (std::size_t i = 0; i < blockSize; ++i) {
    const std::int16_t blue = bands.blue[i];
    const std::int16_t green = bands.green[i];
    const std::int16_t red = bands.red[i];
    bands.blue[i] = Turned(blue, red, green, shares[4], shares[5]);
    bands.green[i] = Turned(green, red, blue, shares[2], shares[3]);
    bands.red[i] = Turned(red, green, blue, shares[0], shares[1]);
  }
}

void Split(const std::uint8_t* row, std::size_t pixels, Bands& bands) {
  for (std::size_t i = 0; i < pixels; ++i, row += bytesPerPixel) {
    bands.blue[i] = row[0];
    bands.green[i] = row[1];
    bands.red[i] = row[2];
  }
}

void Join(const Bands& bands, std::size_t pixels, std::uint8_t* row) {
  for (std::size_t i = 0; i < pixels; ++i, row += bytesPerPixel) {
    const auto whole = static_cast<std::uint32_t>(bands.blue[i] | bands.green[i] << 8 | bands.red[i] << 16);
    std::memcpy(row, &whole, i + 1 < pixels ? 4 : 3);
  }
}

void Colours(std::uint8_t* row, std::size_t pixels, const ColourRule& rule) {
  Bands bands{};
  while (pixels > 0) {
    const std::size_t here = std::min(blockSize, pixels);
    Split(row, here, bands);
    if (rule.saturates) Saturate(bands, rule.saturation);
    if (rule.turns) Turn(bands, rule.turn);
    Join(bands, here, row);
    pixels -= here;
    row += here * bytesPerPixel;
  }
}

}  // namespace

PixelRoad PortableRoad() {
  return {"portable", Tables, Tables, Levels, Sharpen, Colours};
}

}  // namespace set32

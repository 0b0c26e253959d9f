// Every road through the processor gives the bytes that the arithmetic says, and touches nothing beside them.
#include "adjust/pixel_roads.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "adjust/own_image_library.h"

namespace set32 {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint8_t guard = 0xA5;
constexpr std::size_t guardBytes = 80;

// The arithmetic as its header tells it, a pixel at a time and without a thought of speed.
namespace plain {

int Shifted(int product, int bits) {
  return (product + (1 << (bits - 1))) >> bits;
}

std::uint8_t Held(int level) {
  return static_cast<std::uint8_t>(std::clamp(level, 0, 255));
}

void Tables(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const PixelTables& tables) {
  const std::uint8_t* const bands[] = {tables.levels.blue, tables.levels.green, tables.levels.red};
  for (std::size_t i = 0; i < 3 * pixels; ++i) to[i] = bands[i % 3][from[i]];
}

void Levels(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const std::uint8_t* table) {
  for (std::size_t i = 0; i < pixels; ++i, to += 3) to[0] = to[1] = to[2] = table[from[3 * i + 1]];
}

void Sharpen(const RowsToSharpen& rows, std::uint8_t* to, std::size_t pixels, std::int16_t gain) {
  for (std::ptrdiff_t i = 0; i < static_cast<std::ptrdiff_t>(3 * pixels); ++i) {
    const auto across = [i](const std::uint8_t* row) { return row[i - 3] + 2 * row[i] + row[i + 3]; };
    const int mean = across(rows.below) + 2 * across(rows.middle) + across(rows.above);
    to[i] = Held(rows.middle[i] + Shifted((16 * rows.middle[i] - mean) * gain, 15));
  }
}

void Colours(std::uint8_t* row, std::size_t pixels, const ColourRule& rule) {
  for (; pixels > 0; --pixels, row += 3) {
    if (rule.saturates) {
      const int luma = Shifted(19 * row[0] + 183 * row[1] + 54 * row[2], 8);
      for (int band = 0; band < 3; ++band)
        row[band] = Held(row[band] + Shifted((row[band] - luma) * rule.saturation, 10));
    }
    if (!rule.turns) continue;
    const auto turned = [&rule, blue = row[0], green = row[1], red = row[2]](int level, int at) {
      const int others[6] = {green, blue, red, blue, red, green};
      const auto part = [&](int i) { return Shifted((others[i] - level) * rule.turn[i], 9); };  // in quarters
      return Held(level + Shifted(part(at) + part(at + 1), 2));
    };
    const std::uint8_t pixel[3] = {turned(row[0], 4), turned(row[1], 2), turned(row[2], 0)};
    std::memcpy(row, pixel, 3);
  }
}

constexpr PixelRoad road{"plain", Tables, Tables, Levels, Sharpen, Colours};

}  // namespace plain

class PixelRoads : public testing::Test {
 protected:
  // A road's work on a row that begins at any address: the pixels behind a guard, with another behind them.
  template <typename Work>
  Bytes Run(const Bytes& from, Work work, std::size_t lead) {
    Bytes to(lead + from.size() + guardBytes, guard);
    work(from.data(), to.data() + lead);
    for (std::size_t i = 0; i < lead; ++i) EXPECT_EQ(to[i], guard) << "before the row";
    for (std::size_t i = lead + from.size(); i < to.size(); ++i) EXPECT_EQ(to[i], guard) << "behind the row";
    return {to.begin() + static_cast<std::ptrdiff_t>(lead), to.end() - static_cast<std::ptrdiff_t>(guardBytes)};
  }

  template <typename Work>
  void ExpectAlike(const char* what, std::size_t width, const Bytes& from, Work workOf) {
    const Bytes expected = Run(from, workOf(plain::road), 1);
    for (const PixelRoad& road : UsableRoads()) {
      ASSERT_EQ(Run(from, workOf(road), width % 7), expected) << what << ", " << road.name << ", width " << width;
    }
  }

  // The guard of colours works in place.
  void ExpectAlikeColours(std::size_t width, const Bytes& row, const ColourRule& rule) {
    ExpectAlike("colours", width, row, [&](const PixelRoad& road) {
      return [&](const std::uint8_t* from, std::uint8_t* to) {
        std::memcpy(to, from, row.size());
        road.colours(to, width, rule);
      };
    });
  }

  Bytes RandomBytes(std::size_t count) {
    Bytes bytes(count);
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random_());
    return bytes;
  }

  std::mt19937 random_{20260117};
};

TEST_F(PixelRoads, GiveTheSameBytesAtEveryWidth) {
  const Bytes table[3] = {RandomBytes(256), RandomBytes(256), RandomBytes(256)};
  const PixelTables tables({table[0].data(), table[1].data(), table[2].data()});
  const PixelTables oneTable({table[1].data(), table[1].data(), table[1].data()});
  for (std::size_t width = 1; width <= 600; width += width < 200 ? 1 : 57) {
    const Bytes row = RandomBytes(width * 3);
    ExpectAlike("tables", width, row, [&](const PixelRoad& road) {
      return [&](const std::uint8_t* from, std::uint8_t* to) { road.Tone(from, to, width, tables); };
    });
    ExpectAlike("tables in place", width, row, [&](const PixelRoad& road) {
      return [&](const std::uint8_t* from, std::uint8_t* to) {
        std::memcpy(to, from, width * 3);
        road.Tone(to, to, width, tables);
      };
    });
    ExpectAlike("one table", width, row, [&](const PixelRoad& road) {
      return [&](const std::uint8_t* from, std::uint8_t* to) { road.Tone(from, to, width, oneTable); };
    });
    ExpectAlike("levels in place", width, row, [&](const PixelRoad& road) {
      return [&](const std::uint8_t* from, std::uint8_t* to) {
        std::memcpy(to, from, width * 3);
        road.levels(to, to, width, table[0].data());
      };
    });

    Bytes padded[3];
    for (auto& bytes : padded) bytes = RandomBytes(width * 3 + 6 + readSlack);
    const RowsToSharpen rows{padded[0].data() + 3, padded[1].data() + 3, padded[2].data() + 3};
    for (const std::int32_t amount : {-1000, -310, 10, 470, 1000}) {
      ExpectAlike("sharpen", width, row, [&](const PixelRoad& road) {
        return [&](const std::uint8_t*, std::uint8_t* to) { road.sharpen(rows, to, width, SharpenGain(amount)); };
      });
    }

    ColourRule rule;
    rule.saturates = width % 3 != 0;
    rule.saturation = SaturationShare(static_cast<std::int32_t>(width * 10) - 1000);
    SetTurn(rule, static_cast<std::int32_t>(width * 37 % 361) - 180);
    ExpectAlikeColours(width, row, rule);
  }
}

// All pairs of differences that the arithmetic on colours can meet, at the ends of its ranges.
TEST_F(PixelRoads, AgreeOnExtremeColours) {
  constexpr std::uint8_t levels[] = {0, 1, 127, 128, 254, 255};
  Bytes row;
  for (std::size_t i = 0; i < std::size_t{6} * 6 * 6; ++i) {
    row.insert(row.end(), {levels[i / 36], levels[i / 6 % 6], levels[i % 6]});
  }
  for (std::int32_t degrees = -180; degrees <= 180; degrees += 15) {
    ColourRule rule{.saturates = true, .saturation = SaturationShare(degrees > 0 ? 1000 : -1000)};
    SetTurn(rule, degrees);
    ExpectAlikeColours(row.size() / 3, row, rule);
  }
}

}  // namespace
}  // namespace set32

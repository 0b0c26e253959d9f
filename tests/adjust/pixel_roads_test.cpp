// Every road through the processor gives the bytes of the portable one, and touches nothing beside them.
#include "adjust/pixel_roads.h"

#include <gtest/gtest.h>

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
    const Bytes expected = Run(from, workOf(UsableRoads().front()), 1);
    for (const PixelRoad& road : UsableRoads()) {
      ASSERT_EQ(Run(from, workOf(road), width % 7), expected) << what << ", " << road.name << ", width " << width;
    }
  }

  // The filter of colours works in place.
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
  const BandTables tables{table[0].data(), table[1].data(), table[2].data()};
  for (std::size_t width = 1; width <= 200; ++width) {
    const Bytes row = RandomBytes(width * 3);
    ExpectAlike("tables", width, row, [&](const PixelRoad& road) {
      return [&](const std::uint8_t* from, std::uint8_t* to) { road.tables(from, to, width, tables); };
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

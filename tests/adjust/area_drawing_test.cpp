// The picture area pixel by pixel, the histogram behind it, and what the read-outs say.
#include "adjust/area_drawing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "apps/stage/model/raster_canvas.h"
#include "test_picture.h"

namespace set32 {
namespace {

using testing::ElementsAre;
using Rows = std::vector<std::string>;

Rows Drawn(const RasterCanvas& canvas) {
  const Picture& drawing = canvas.Drawing();
  const Colour face = canvas.ColourOf(SystemColour::buttonFace);
  Rows rows;
  for (int y = 0; y < drawing.size.height; ++y) {
    std::string& row = rows.emplace_back();
    for (int x = 0; x < drawing.size.width; ++x) {
      const std::uint8_t* pixel = &drawing.pixels[static_cast<std::size_t>(y * drawing.size.width + x) * 4];
      const Colour colour{pixel[2], pixel[1], pixel[0]};
      row += colour == face                ? '.'
             : colour == Colour{}          ? '#'
             : colour == Colour{255, 0, 0} ? 'r'
             : colour == Colour{0, 255, 0} ? 'g'
             : colour == Colour{0, 0, 255} ? 'b'
                                           : '?';
    }
  }
  return rows;
}

TEST(AreaDrawing, DottedGridAtTheQuarters) {
  RasterCanvas canvas({9, 8});
  canvas.Fill({0, 0, 9, 8}, {1, 2, 3});
  DrawGrid(canvas);
  const std::string blank(9, '.'), dots = "#.#.#.#.#";
  EXPECT_THAT(Drawn(canvas), ElementsAre("..#.#.#..", blank, dots, blank, dots, blank, dots, blank));
}

TEST(AreaDrawing, CurvesOfThreeGammasInTheirBandsColour) {
  // Lines reach up to their last point but don't hold it, so a step's end shows when the next line begins there.
  RasterCanvas canvas({8, 8});
  DrawGammaCurve(canvas, Band::red, 1.0);
  EXPECT_THAT(Drawn(canvas), ElementsAre("..#.#.#.",  //
                                         "........",  //
                                         "#.#.#.#.",  //
                                         "......r.",  //
                                         "#.#.#r#.",  //
                                         "....r...",  //
                                         "#.#r#.#.",  //
                                         "..r....."))
      << "columns of level 0 only move the drawing position, to just below the area";
  DrawGammaCurve(canvas, Band::blue, 10.0);
  EXPECT_THAT(Drawn(canvas), ElementsAre("..#.#.#.",  //
                                         "...bbbb.",  //
                                         "#bb.#.#.",  //
                                         ".b......",  //
                                         "#b#.#.#.",  //
                                         "b.......",  //
                                         "b.#.#.#.",  //
                                         "b......."));
  RasterCanvas low({4, 4});
  DrawGammaCurve(low, Band::all, 0.1);
  EXPECT_THAT(Drawn(low), ElementsAre(".###", "#.#.", "####", "#.#.")) << "levels that all come to nothing: the grid";
}

Histogram HistogramOf(std::initializer_list<std::pair<int, std::uint32_t>> counts, std::uint32_t peak) {
  Histogram histogram;
  for (const auto& [level, count] : counts) histogram.counts[2][static_cast<std::size_t>(level)] = count;
  histogram.peaks[2] = peak;
  return histogram;
}

TEST(AreaDrawing, HistogramBarsAreCutAtTheTop) {
  RasterCanvas canvas({8, 4});
  DrawHistogram(canvas, Band::green, HistogramOf({{0, 1}, {1, 2}, {3, 4}, {5, 9}, {7, 4000000000U}, {8, 4}}, 4));
  EXPECT_THAT(Drawn(canvas), ElementsAre("..#g#g#g",  //
                                         "#.#g#g#g",  //
                                         "#g#g#g#g",  //
                                         "gg#g#g#g"));
  DrawHistogram(canvas, Band::red, Histogram{});
  EXPECT_EQ(Drawn(canvas)[3], "#.#.#.#.") << "an empty grid";
}

TEST(AreaDrawing, HueWheelFillsTheArea) {
  Picture wheel{"117", {2, 1}, {0, 0, 255, 255, 0, 255, 0, 255}};
  RasterCanvas canvas({4, 2});
  DrawHueWheel(canvas, wheel);
  EXPECT_THAT(Drawn(canvas), ElementsAre("rrgg", "rrgg"));
}

struct CurveCase {
  Point pointer;
  double gamma;
  int x, y;
  bool nearCurve;
};

TEST(AreaReadouts, SayTheCurveUnderThePointer) {
  const Rect area{10, 20, 210, 120};
  for (const CurveCase& c : {CurveCase{{10, 119}, 1.0, 0, 0, true},
                             {{209, 20}, 1.0, 253, 253, true},
                             {{60, 20}, 2.0, 63, 126, false},
                             {{60, 36}, 2.0, 63, 126, true},
                             {{60, 35}, 2.0, 63, 126, false},
                             {{60, 104}, 2.0, 63, 126, true},
                             {{60, 105}, 2.0, 63, 126, false},
                             {{10, 85}, 0.0, 0, 0, false}}) {
    const auto place = CurveReadout(area, c.pointer, c.gamma);
    ASSERT_TRUE(place);
    EXPECT_EQ(static_cast<int>(place->readout.x), c.x);
    EXPECT_EQ(static_cast<int>(place->readout.y), c.y) << c.x;
    EXPECT_EQ(place->nearCurve, c.nearCurve) << c.pointer.y;
  }
  for (const Point outside : {Point{9, 50}, {210, 50}, {50, 19}, {50, 120}}) {
    EXPECT_FALSE(CurveReadout(area, outside, 1.0)) << outside.x << ", " << outside.y;
  }
  EXPECT_FALSE(CurveReadout({5, 5, 5, 5}, {5, 5}, 1.0)) << "an area without a size";
  const auto count = HistogramReadout(area, {60, 50}, Band::green, HistogramOf({{63, 77}}, 1));
  ASSERT_TRUE(count);
  EXPECT_EQ(count->y, 77U);
}

TEST(HistogramOfAPicture, CountsEveryPixelOfTheDisplayByBand) {
  TestPicture picture(37, 3, 8);
  picture.FillRandomly(5);
  // A blank stretch among the noise.
  std::fill_n(picture.Source(2, 1), 90, std::uint8_t{201});
  picture.display = picture.source;
  picture.Rebind();
  const Histogram histogram = ComputeHistogram(&picture.dib);
  Histogram expected;
  for (int byte = 0; byte < 3 * 37 * 3; ++byte) {
    const std::uint8_t level = picture.Display(byte / 3 % 37, byte / 111)[byte % 3];
    ++expected.counts[static_cast<std::size_t>(3 - byte % 3)][level];
    ++expected.counts[0][level];
  }
  EXPECT_EQ(histogram.counts, expected.counts);
  EXPECT_EQ(ComputeHistogram(nullptr).PeakOf(Band::all), 0U);
}

// The rule as five passes of exchanges, the way it is worked out by hand.
std::uint32_t PeakByPasses(Histogram::Counts counts) {
  for (std::size_t pass = 0; pass < 5; ++pass) {
    for (std::size_t i = 0; i < 255 - pass; ++i) {
      if (counts[i] > counts[i + 1]) std::swap(counts[i], counts[i + 1]);
    }
  }
  return counts[251] != 0 ? counts[251] : counts[255];
}

TEST(HistogramPeak, IsTheFifthLargestCount) {
  std::mt19937 random(11);
  for (int used = 0; used <= 256; used += used < 8 ? 1 : 31) {
    Histogram::Counts counts{};
    for (int i = 0; i < used; ++i) counts[random() % 256] = static_cast<std::uint32_t>(random() % 50);
    EXPECT_EQ(PeakOf(counts), PeakByPasses(counts)) << used;
  }
  Histogram::Counts flat{};
  flat[200] = 12;
  EXPECT_EQ(PeakOf(flat), 12U);
}

}  // namespace
}  // namespace set32

// The geometry of the windowed host: frames on a picture and the picture in its window.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

#include "apps/scan-desk/frames/auto_crop.h"
#include "apps/scan-desk/frames/frames.h"
#include "apps/scan-desk/frames/view_scale.h"

namespace scan_desk {
namespace {

using set32::Point;
using set32::Rect;
using set32::Size;

constexpr Size picture{850, 1169};

TEST(ViewScaleTest, PlacesThePictureInTheMiddleOfAnyWindow) {
  EXPECT_EQ(ShownPlace({866, 2000}, picture, 8), (Rect{8, 415, 858, 1584}));
  EXPECT_EQ(ShownPlace({500, 200}, {100, 100}, 10), (Rect{160, 10, 340, 190}));
  EXPECT_EQ(ShownPlace({0, 0}, {20000, 1}, 8).Width(), 1) << "a window too small for anything";
  EXPECT_EQ(ShownPlace({500, 200}, {}, 8), Rect{});
}

TEST(ViewScaleTest, ComesBackToTheSamePixelWhenThePictureIsEnlarged) {
  const Rect shown = ShownPlace({2000, 2600}, picture, 8);
  for (const Point at : {Point{0, 0}, Point{1, 1}, Point{333, 777}, Point{850, 1169}}) {
    const Rect placed = ToWindow({at.x, at.y, at.x, at.y}, shown, picture);
    EXPECT_EQ(ToPicture({placed.left, placed.top}, shown, picture), at);
  }
  EXPECT_EQ(ToPicture({5, 5}, {}, picture), Point{});
  EXPECT_EQ(ToWindow({1, 1, 2, 2}, shown, {}), Rect{});
}

TEST(ViewScaleTest, HoldsTheEdgesNearThePointer) {
  constexpr Rect placed{100, 100, 200, 300};
  const struct {
    Point at;
    Grip grip;
  } cases[] = {{{98, 150}, {.left = true}},
               {{202, 303}, {.right = true, .bottom = true}},
               {{150, 104}, {.top = true}},
               {{150, 200}, {}},
               {{90, 100}, {}},
               {{100, 320}, {}}};
  for (const auto& [at, grip] : cases) EXPECT_EQ(GripAt(placed, at, 4), grip) << at.x << ' ' << at.y;
  EXPECT_EQ(GripAt({10, 10, 11, 11}, {10, 10}, 4), (Grip{.right = true, .bottom = true})) << "so that it can grow";
}

TEST(ViewScaleTest, MakesAFrameOfWhateverARecordHolds) {
  constexpr double huge = std::numeric_limits<double>::infinity();
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  constexpr int far = std::numeric_limits<int>::max();
  EXPECT_EQ(FrameOf({10, 20}, 2.5, 1, 100, picture), (Rect{10, 20, 260, 120}));
  EXPECT_EQ(FrameOf({800, 0}, 8.5, 11, 100, picture), (Rect{800, 0, 850, 1100}));
  EXPECT_EQ(FrameOf({-far, far}, huge, huge, 100, picture), (Rect{0, 1169, 850, 1169}));
  EXPECT_EQ(FrameOf({5, 5}, none, -1, 100, picture), (Rect{5, 5, 5, 5}));
}

TEST(FramesTest, KeepsACurrentFrameWhicheverGoes) {
  const struct {
    int current, removed, after;
  } cases[] = {{0, 0, 0}, {2, 2, 1}, {2, 0, 1}, {1, 2, 1}, {1, 1, 1}, {1, 7, 1}};
  for (const auto& [current, removed, after] : cases) {
    Frames frames;
    frames.SetArea(picture);
    for (int i = 0; i < 3; ++i) frames.Add({i, i, i + 10, i + 10});
    frames.Select(current);
    frames.Remove(removed);
    EXPECT_EQ(frames.Current(), after) << current << " current, " << removed << " removed";
  }
  Frames one;
  one.SetArea(picture);
  one.Reset();
  one.Remove(0);
  EXPECT_EQ(one.Current(), -1);
  EXPECT_EQ(one.Under({5, 5}), -1);
}

TEST(FramesTest, MovesAndSizesWithinThePictureAndNotTooSmall) {
  Frames frames;
  frames.SetArea(picture, 30);
  EXPECT_EQ(frames.Between({900, -5}, {300, 20}), (Rect{300, 0, 850, 30}));
  EXPECT_EQ(frames.Between({840, 500}, {845, 495}), (Rect{820, 470, 850, 500}));
  EXPECT_EQ(frames.Moved({0, 0, 100, 100}, -10, 5000), (Rect{0, 1069, 100, 1169}));
  EXPECT_EQ(frames.Stretched({10, 10, 90, 90}, -100, 5), (Rect{10, 10, 40, 95}));
  const struct {
    const char* what;
    Grip grip;
    Point to;
    Rect sized;
  } cases[] = {{"past the right edge", {.left = true}, {500, 0}, {200, 100, 500, 200}},
               {"past both", {.right = true, .bottom = true}, {-9, 9999}, {0, 100, 100, 1169}},
               {"upwards", {.top = true}, {0, -50}, {100, 0, 200, 200}},
               {"near the other edge", {.left = true}, {190, 0}, {170, 100, 200, 200}},
               {"just past it", {.left = true, .top = true}, {205, 201}, {200, 200, 230, 230}},
               {"onto it", {.right = true}, {100, 0}, {100, 100, 130, 200}}};
  for (const auto& [what, grip, to, sized] : cases)
    EXPECT_EQ(frames.Resized({100, 100, 200, 200}, grip, to), sized) << what;
  EXPECT_EQ(frames.Resized({810, 0, 840, 40}, {.left = true}, {845, 0}), (Rect{820, 0, 850, 40})) << "at the border";
  frames.SetArea({20, 20}, 30);
  EXPECT_EQ(frames.Between({5, 5}, {9, 1}), (Rect{0, 0, 20, 20})) << "a picture smaller than the least";
}

TEST(AutoCropTest, FindsWhatStandsOutFromTheGround) {
  constexpr int width = 5, height = 4;
  constexpr std::size_t stride = 16;
  std::vector<std::uint8_t> pixels(stride * height, 240);
  const auto put = [&](int x, int y, std::uint8_t blue) {
    pixels[static_cast<std::size_t>(height - 1 - y) * stride + 3 * static_cast<std::size_t>(x)] = blue;
  };
  put(0, 3, 200);  // a shadow
  EXPECT_EQ(ContentOf(pixels, {width, height}, stride), (Rect{0, 0, width, height}));
  put(3, 1, 100);
  put(1, 2, 0);
  EXPECT_EQ(ContentOf(pixels, {width, height}, stride), (Rect{1, 1, 4, 3}));
  EXPECT_EQ(ContentOf({}, {}, 0), Rect{});
}

}  // namespace
}  // namespace scan_desk

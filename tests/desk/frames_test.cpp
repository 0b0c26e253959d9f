// The geometry of the windowed host: frames on a picture and the picture in its window.
#include <gtest/gtest.h>

#include <limits>

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

TEST(ViewScaleTest, KeepsResizedFramesInsideAndTheRightWayRound) {
  constexpr Rect frame{100, 100, 200, 200};
  EXPECT_EQ(Resized(frame, {.left = true}, {500, 0}, picture), (Rect{199, 100, 200, 200}));
  EXPECT_EQ(Resized(frame, {.right = true, .bottom = true}, {-9, 9999}, picture), (Rect{100, 100, 101, 1169}));
  EXPECT_EQ(Resized(frame, {.top = true}, {0, -50}, picture), (Rect{100, 0, 200, 200}));
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

TEST(FramesTest, MovesAndStretchesWithinThePicture) {
  Frames frames;
  frames.SetArea(picture);
  EXPECT_EQ(frames.Between({900, -5}, {300, 20}), (Rect{300, 0, 850, 20}));
  EXPECT_EQ(frames.Moved({0, 0, 100, 100}, -10, 5000), (Rect{0, 1069, 100, 1169}));
  EXPECT_EQ(frames.Stretched({10, 10, 20, 20}, -50, 5), (Rect{10, 10, 11, 25}));
}

}  // namespace
}  // namespace scan_desk

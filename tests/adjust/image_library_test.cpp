// What the filters of our own image library promise, whatever road they take: neutral stays neutral, flat stays flat,
// and filters done together give what they give one by one.
#include "adjust/own_image_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <tuple>
#include <vector>

#include "test_picture.h"

namespace set32 {
namespace {

using testing::ElementsAre;
using Steps = std::function<void(LibraryBitmap&)>;

void Filter(TestPicture& picture, const PixelRoad& road, const Steps& steps) {
  picture.display = picture.source;
  picture.Rebind();
  OwnImageLibrary library(road);
  const auto bitmap = library.Create(picture.dib.header->width, picture.dib.header->height, 24);
  bitmap->TakeOver(*ViewOf(picture.dib));
  steps(*bitmap);
  bitmap->GiveBack();
}

void FilterOn(TestPicture& picture, const Steps& steps) {
  Filter(picture, UsableRoads().front(), steps);
}

// Each on what the one before left.
void FilterInTurn(TestPicture& picture, std::initializer_list<Steps> filters) {
  for (const Steps& steps : filters) {
    FilterOn(picture, steps);
    picture.source = picture.display;
  }
}

Steps All(int sharpness, int saturation, int hue) {
  return [=](LibraryBitmap& bitmap) {
    bitmap.Sharpen(sharpness);
    bitmap.ChangeSaturation(saturation);
    bitmap.TurnHue(hue);
  };
}

double Luma(const std::vector<int>& pixel) {
  return 0.072 * pixel[0] + 0.715 * pixel[1] + 0.213 * pixel[2];
}

TEST(OwnImageLibrary, LeavesFlatPicturesAndNeutralGraysAlone) {
  TestPicture gray(256, 2);
  for (int x = 0; x < 256; ++x) {
    const auto level = static_cast<std::uint8_t>(x);
    gray.SetSource(x, 0, level, level, level);
    gray.SetSource(x, 1, level, level, level);
  }
  TestPicture flat(33, 5);
  for (int x = 0; x < 33; ++x) {
    for (int row = 0; row < 5; ++row) flat.SetSource(x, row, 12, 200, 77);
  }
  for (const int amount : {-1000, -333, 10, 1000}) {
    FilterOn(gray, [&](LibraryBitmap& bitmap) {
      bitmap.ChangeSaturation(amount);
      bitmap.TurnHue(amount * 180 / 1000);
    });
    EXPECT_EQ(gray.display, gray.source) << amount;
    FilterOn(flat, [&](LibraryBitmap& bitmap) { bitmap.Sharpen(amount); });
    EXPECT_EQ(flat.display, flat.source) << amount;
  }
}

TEST(OwnImageLibrary, SharpensAnEdgeAndSoftensItToTheMeanOfTheKernel) {
  TestPicture picture(4, 1);
  for (int x = 0; x < 4; ++x) {
    const auto level = static_cast<std::uint8_t>(x < 2 ? 100 : 140);
    picture.SetSource(x, 0, level, level, level);
  }
  for (const auto& [amount, second, third] : {std::tuple{-1000, 110, 130}, {500, 90, 150}, {1000, 80, 160}}) {
    FilterOn(picture, [&, by = amount](LibraryBitmap& bitmap) { bitmap.Sharpen(by); });
    const std::vector<int> levels = {*picture.Display(0, 0), *picture.Display(1, 0), *picture.Display(2, 0),
                                     *picture.Display(3, 0)};
    EXPECT_THAT(levels, ElementsAre(100, second, third, 140));
  }
}

TEST(OwnImageLibrary, SharpensDownColumnsAsAcrossRows) {
  TestPicture across(5, 5);
  TestPicture down(5, 5);
  for (int i = 0; i < 25; ++i) {
    const auto level = static_cast<std::uint8_t>(i * i % 251);
    across.SetSource(i % 5, i / 5, level, level, level);
    down.SetSource(i / 5, i % 5, level, level, level);
  }
  for (TestPicture* picture : {&across, &down}) FilterOn(*picture, [](LibraryBitmap& b) { b.Sharpen(700); });
  for (int i = 0; i < 25; ++i) EXPECT_EQ(*across.Display(i % 5, i / 5), *down.Display(i / 5, i % 5)) << i;
}

TEST(OwnImageLibrary, TurnsRedTowardsGreenAndKeepsTheLuma) {
  TestPicture picture(1, 1);
  picture.SetSource(0, 0, 90, 100, 130);  // a dull red, so that nothing is held to 0 or 255
  const double luma = Luma({90, 100, 130});
  for (int degrees = -180; degrees <= 180; degrees += 20) {
    FilterOn(picture, [&](LibraryBitmap& bitmap) { bitmap.TurnHue(degrees); });
    EXPECT_NEAR(Luma(picture.DisplayPixel(0, 0)), luma, 1.0) << degrees;
  }
  for (const auto& [degrees, most] : {std::pair{120, 1}, {-120, 0}}) {  // green, blue
    FilterOn(picture, All(0, 0, degrees));
    std::vector<int> bands = picture.DisplayPixel(0, 0);
    std::swap(bands[0], bands[static_cast<std::size_t>(most)]);
    EXPECT_GT(bands[0], std::max(bands[1], bands[2])) << degrees;
  }
  for (const int amount : {-1000, -400, 300}) {
    FilterOn(picture, [&](LibraryBitmap& bitmap) { bitmap.ChangeSaturation(amount); });
    EXPECT_NEAR(Luma(picture.DisplayPixel(0, 0)), luma, 1.5) << amount;
  }
  FilterOn(picture, [](LibraryBitmap& bitmap) { bitmap.ChangeSaturation(-1000); });
  EXPECT_THAT(picture.DisplayPixel(0, 0), testing::Each(*picture.Display(0, 0))) << "gray at the low end";
}

TEST(OwnImageLibrary, GivesTogetherWhatItGivesOneByOneOnEveryRoad) {
  for (const int width : {1, 2, 15, 31, 64, 101, 200}) {
    TestPicture picture(width, 7, width % 5 * 4);
    picture.FillRandomly(static_cast<std::uint32_t>(width));
    FilterOn(picture, All(330, -270, 75));
    const auto together = picture.display;

    TestPicture oneByOne(width, 7, width % 5 * 4);
    oneByOne.source = picture.source;
    FilterInTurn(oneByOne, {All(330, 0, 0), All(0, -270, 0), All(0, 0, 75)});
    EXPECT_EQ(together, oneByOne.display) << width;
    for (const PixelRoad& road : UsableRoads()) {
      Filter(picture, road, All(330, -270, 75));
      EXPECT_EQ(picture.display, together) << road.name << ", width " << width;
    }
  }
}

TEST(OwnImageLibrary, KeepsTheOrderThatItIsAskedFor) {
  TestPicture picture(9, 3);
  picture.FillRandomly(3);
  FilterOn(picture, [](LibraryBitmap& bitmap) {
    bitmap.TurnHue(90);
    bitmap.ChangeSaturation(500);
    bitmap.Sharpen(1000);
  });
  const auto backwards = picture.display;
  FilterInTurn(picture, {All(0, 0, 90), All(0, 500, 0), All(1000, 0, 0)});
  EXPECT_EQ(picture.display, backwards);
}

TEST(OwnImageLibrary, HoldsAmountsToTheirRange) {
  EXPECT_EQ(SharpenGain(2000000000), SharpenGain(1000));
  EXPECT_EQ(SaturationShare(-2000000000), SaturationShare(-1000));
  EXPECT_EQ(OwnImageLibrary().Create(4, 4, 8), nullptr);
  EXPECT_EQ(OwnImageLibrary().Create(0, 4, 24), nullptr);
}

}  // namespace
}  // namespace set32

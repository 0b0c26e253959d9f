// The tone tables, entry by entry where a host compares its own with them.
#include "adjust/tone_tables.h"

#include <gtest/gtest.h>

#include <limits>

namespace set32 {
namespace {

struct ToneCase {
  int brightness, contrast;
  double gamma;
  int firstLevel, lastLevel, expected;
};

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

constexpr ToneCase cases[] = {
    ToneCase{100, 0, 1.0, 0, 255, 255}, ToneCase{-100, 0, 1.0, 0, 255, 0}, ToneCase{0, 100, 1.0, 0, 126, 0},
    ToneCase{0, 100, 1.0, 127, 127, 127}, ToneCase{0, 100, 1.0, 128, 128, 128}, ToneCase{0, 100, 1.0, 129, 255, 255},
    ToneCase{0, -100, 1.0, 0, 127, 127}, ToneCase{0, -100, 1.0, 128, 255, 128}, ToneCase{0, 0, 2.0, 64, 64, 127},
    ToneCase{0, 0, 2.0, 128, 128, 180}, ToneCase{0, 0, 0.5, 64, 64, 16}, ToneCase{0, 0, 0.5, 128, 128, 64},
    ToneCase{0, 50, 1.0, 64, 64, 32}, ToneCase{0, 50, 1.0, 192, 192, 224}, ToneCase{0, -50, 1.0, 64, 64, 89},
    ToneCase{0, -50, 1.0, 192, 192, 166}, ToneCase{0, -50, 1.0, 5, 5, 24}, ToneCase{50, 0, 1.0, 0, 0, 126},
    ToneCase{-50, 0, 1.0, 128, 128, 64},
    // The last entry follows the one before it.
    ToneCase{0, 0, 1.0, 254, 255, 254},
    // Records from anywhere: values beyond the scale, gammas that say nothing.
    ToneCase{5000, 0, 1.0, 0, 255, 255}, ToneCase{std::numeric_limits<int>::min(), 0, 1.0, 0, 255, 0},
    ToneCase{0, 700, 1.0, 129, 255, 255}, ToneCase{0, 0, 0.0, 254, 255, 254}, ToneCase{0, 0, -3.0, 64, 64, 64},
    ToneCase{0, 0, notANumber, 64, 64, 64}, ToneCase{0, 0, infinite, 0, 255, 255}, ToneCase{0, 0, 5e-324, 0, 253, 0}};

TEST(ToneTables, AreExact) {
  for (const ToneCase& c : cases) {
    CDib dib;
    dib.brightness = c.brightness;
    dib.contrast = c.contrast;
    dib.gammaGreen = c.gamma;
    BuildToneTables(dib);
    for (int level = c.firstLevel; level <= c.lastLevel; ++level) {
      EXPECT_EQ(dib.toneGreen[level], c.expected) << "brightness " << c.brightness << " contrast " << c.contrast
                                                  << " gamma " << c.gamma << ", level " << level;
    }
  }
}

TEST(ToneSteps, TurnAtTheEndsOfTheScale) {
  EXPECT_EQ(BrightnessStep(100), 256);
  EXPECT_EQ(BrightnessStep(99), 252);
  EXPECT_EQ(BrightnessStep(-99), -252);
  EXPECT_EQ(BrightnessStep(-100), -255);
  EXPECT_EQ(ContrastStep(100), 127);
  EXPECT_EQ(ContrastStep(-100), -127);
}

}  // namespace
}  // namespace set32

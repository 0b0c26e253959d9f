// The rules of the adjustments at the ends of their scales and at each mode.
#include "adjust/adjustment_rules.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "platform/events.h"

namespace set32 {
namespace {

struct GammaCase {
  const GammaScale& scale;
  double value;
  int code, position;
  double expected;
  int expectedPosition;
};

TEST(AdjustmentRules, GammaScrollsOnTheScaleOfItsFrontEnd) {
  constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
  using namespace scroll_code;
  for (const GammaCase& c : {GammaCase{dialogGamma, 1.0, thumbTrack, 1000, 9.99, 999},
                             {dialogGamma, 1.0, thumbTrack, 1, 0.01, 1},
                             {dialogGamma, 9.99, lineRight, 0, 9.99, 999},
                             {dialogGamma, 0.02, lineLeft, 0, 0.01, 1},
                             {dialogGamma, 0.05, pageLeft, 0, 0.01, 1},
                             {dialogGamma, 0.29, endScroll, 700, 0.29, 28},
                             {pageGamma, 1.0, thumbTrack, 0, 0.1, 1},
                             {pageGamma, 1.0, thumbPosition, 100, 10.0, 100},
                             {pageGamma, 9.95, pageRight, 0, 10.0, 100},
                             {pageGamma, 0.29, endScroll, 0, 0.29, 2},
                             {dialogGamma, 1.0, thumbPosition, 500, 1.0, 100},
                             {dialogGamma, 12.0, endScroll, 1, 9.99, 999},
                             {pageGamma, 12.0, endScroll, 1, 12.0, 120},
                             {pageGamma, notANumber, lineLeft, 0, 0.1, 1},
                             {dialogGamma, -1e300, lineRight, 0, 0.01, 1}}) {
    const double result = GammaAfterScroll(c.scale, c.value, c.code, c.position);
    EXPECT_DOUBLE_EQ(result, c.expected) << c.value << " code " << c.code;
    EXPECT_EQ(c.scale.PositionOf(result), c.expectedPosition) << result;
  }
  EXPECT_TRUE(dialogGamma.Accepts(9.99) && dialogGamma.Accepts(0.01) && pageGamma.Accepts(10.0));
  EXPECT_FALSE(dialogGamma.Accepts(10.0) || pageGamma.Accepts(0.09) || pageGamma.Accepts(notANumber));
  EXPECT_EQ(dialogGamma.PositionOf(1e300), std::numeric_limits<std::int32_t>::max());
}

struct NumberCase {
  ValueRange range;
  ScrollHabit habit;
  int value, code, position, expected;
};

TEST(AdjustmentRules, NumbersScrollWithinTheirRange) {
  constexpr int least = std::numeric_limits<std::int32_t>::min();
  using namespace scroll_code;
  for (const NumberCase& c : {NumberCase{brightnessRange, dialogScroll, 95, pageRight, 0, 100},
                              {brightnessRange, pageScroll, -100, lineLeft, 0, -100},
                              {brightnessRange, dialogScroll, least, lineLeft, 0, -100},
                              {hueRange, pageScroll, 0, thumbTrack, -170, -170},
                              {hueRange, pageScroll, 0, thumbPosition, 170, 170},
                              {contrastRange, dialogScroll, 7, thumbTrack, 101, 100},
                              {contrastRange, dialogScroll, 7, thumbPosition, 50, 7},
                              {contrastRange, dialogScroll, 500, endScroll, 9, 100},
                              {hueRange, pageScroll, 500, endScroll, 9, 500}}) {
    EXPECT_EQ(NumberAfterScroll(c.range, c.habit, c.value, c.code, c.position), c.expected)
        << c.value << " code " << c.code << " at " << c.position;
  }
}

std::string Letters(const AllowedAdjustments& allowed) {
  const bool all[] = {allowed.brightness, allowed.contrast, allowed.gamma,   allowed.bandGamma,  allowed.sharpness,
                      allowed.colour,     allowed.descreen, allowed.highBit, allowed.jpegQuality};
  std::string letters = "bcgGshdHq";
  for (std::size_t i = 0; i < letters.size(); ++i) letters[i] = all[i] ? letters[i] : '.';
  return letters;
}

TEST(AdjustmentRules, EachModeAllowsItsOwn) {
  EXPECT_EQ(Letters(AllowedBy(mode::colour, false)), "bcgGshdH.");
  EXPECT_EQ(Letters(AllowedBy(mode::gray, false)), "bcg.s.d..");
  EXPECT_EQ(Letters(AllowedBy(mode::gray, true)), "bcg.s.dH.");
  EXPECT_EQ(Letters(AllowedBy(mode::blackWhite, true)), "b.g......");
  EXPECT_EQ(Letters(AllowedBy(mode::jpegColour, true)), "bcgGsh..q");
  EXPECT_EQ(Letters(AllowedBy(mode::jpegGray, true)), "bcg.s...q");
  EXPECT_EQ(Letters(AllowedBy(3, true)), ".........");
}

struct ExclusionCase {
  std::uint32_t mode, source;
  std::int32_t dpi;
  std::uint32_t highBit, descreen;
  bool dialogDescreen, dialogHighBit, pageDescreen, pageHighBit;
};

TEST(AdjustmentRules, DescreenAndHighBitExcludeEachOther) {
  for (const ExclusionCase& c : {ExclusionCase{mode::colour, 0, 600, 0, 0, true, true, true, true},
                                 {mode::colour, 0, 601, 0, 0, false, true, true, true},
                                 {mode::colour, 0, 300, 1, 0, false, true, false, true},
                                 {mode::colour, 0, 300, 0, 1, true, false, true, false},
                                 {mode::colour, 1, 300, 0, 0, false, true, true, true},
                                 {mode::gray, 2, 300, 0, 0, true, false, false, true},
                                 {mode::blackWhite, 0, 300, 0, 0, false, false, false, false},
                                 {mode::jpegColour, 0, 300, 0, 0, false, false, true, true}}) {
    ScanSettings settings{};
    settings.mode = c.mode;
    settings.paperSource = c.source;
    settings.dpi = c.dpi;
    settings.highBitDepth = c.highBit;
    settings.descreen = c.descreen;
    const auto where = testing::Message() << "mode " << c.mode << " source " << c.source << " dpi " << c.dpi;
    EXPECT_EQ(DescreenUsable(settings, 600), c.dialogDescreen) << where;
    EXPECT_EQ(HighBitUsable(settings, false, false), c.dialogHighBit) << where;
    EXPECT_EQ(PageDescreenUsable(settings), c.pageDescreen) << where;
    EXPECT_EQ(PageHighBitUsable(settings, false), c.pageHighBit) << where;
    EXPECT_FALSE(HighBitUsable(settings, true, true) || PageHighBitUsable(settings, true)) << where;
    EXPECT_EQ(DescreenForbidden(settings), c.mode == mode::blackWhite || c.source == paper_source::feeder) << where;
  }
}

TEST(AdjustmentRules, DefaultsReachTheBandsAndThePreview) {
  ScanSettings settings{};
  settings.mode = mode::blackWhite;
  settings.gammaRed = 3.0;
  CDib preview;
  LoadAdjustmentDefaults({.brightness = 4, .contrast = 9, .gamma = 1.5, .jpegQuality = 7}, settings, &preview);
  EXPECT_EQ(settings.contrast, 0) << "black and white has none";
  EXPECT_EQ(settings.gammaRed, 1.5);
  EXPECT_EQ(settings.jpegQuality, 7);
  EXPECT_EQ(preview.brightness, 4);
  EXPECT_EQ(preview.gammaBlue, 1.5);

  settings.bandGamma = 1;
  settings.gammaGreen = 2.0;
  CopyAdjustmentsToPreview(settings, preview);
  EXPECT_EQ(preview.gammaGreen, 2.0);
  for (const std::uint32_t other : {0U, 2U}) {
    settings.bandGamma = other;
    CopyAdjustmentsToPreview(settings, preview);
    EXPECT_EQ(preview.gammaGreen, 1.5) << "the band keeps its own value, the preview has the one for all";
  }
  EXPECT_EQ(settings.gammaGreen, 2.0);
  settings.descreen = settings.highBitDepth = settings.bandGamma = 1;
  settings.singleFile = 1;
  ChooseDefaults(settings);
  EXPECT_EQ(settings.useDefaults, 1U);
  EXPECT_EQ(settings.descreen + settings.highBitDepth + settings.singleFile, 0U);
  EXPECT_EQ(settings.bandGamma, 1U);
}

}  // namespace
}  // namespace set32

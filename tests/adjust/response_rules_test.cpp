// The working copy of the Advanced page against a record, and the values at the ends of their scales.
#include "adjust/response_rules.h"

#include <gtest/gtest.h>

#include <limits>

#include "controls/number_text.h"
#include "platform/events.h"

namespace set32 {
namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(ResponseRules, ACopyIsNarrowerThanItsRecord) {
  struct Case {
    double stored;
    float loaded;
    bool alike;
  };
  for (const Case& c : {Case{1.5, 1.5F, true},
                        {1.1, 1.1F, false},
                        {-0.0, -0.0F, true},
                        {notANumber, 1.0F, false},
                        {-infinite, 1.0F, false},
                        {1e308, 1.0F, false},
                        {1e-60, 0.0F, false}}) {
    ScanSettings settings{};
    settings.gammaAll = settings.gammaRed = settings.gammaBlue = 1.0;
    settings.gammaGreen = c.stored;
    settings.hue = -180;
    settings.saturation = 101;
    ResponseValues values = LoadedFrom(settings);
    EXPECT_EQ(values.gammaGreen, c.loaded) << c.stored;
    EXPECT_TRUE(Differ(values, settings)) << "a saturation out of range loads as 0";
    settings.saturation = 0;
    EXPECT_EQ(Differ(values, settings), !c.alike) << c.stored;
    StoreValues(values, Band::green, settings);
    EXPECT_FALSE(Differ(values, settings)) << c.stored;
    EXPECT_EQ(settings.hue, -180);
    EXPECT_EQ(settings.bandGamma * 10 + settings.useDefaults, 10U);
    values.descreenKind = 3;
    EXPECT_TRUE(Differ(values, settings));
  }
}

TEST(ResponseRules, ValuesStayOnTheirScales) {
  constexpr ShownValue red{Adjustment::gamma, Band::red};
  constexpr ShownValue hue{Adjustment::hue, Band::all};
  ResponseValues values;
  values.hue = std::numeric_limits<std::int32_t>::max();
  SpinValue(values, hue, -1);
  EXPECT_EQ(values.hue, 180);
  ScrollValue(values, hue, scroll_code::pageRight, 0);
  SpinValue(values, hue, 5);
  EXPECT_EQ(values.hue, 179);
  EXPECT_TRUE(TakeText(values, hue, "-180"));
  EXPECT_FALSE(TakeText(values, hue, "181"));
  EXPECT_EQ(values.hue, -180);

  ScrollValue(values, red, scroll_code::thumbTrack, 0);
  EXPECT_EQ(TextOf(values, red), "0.10");
  EXPECT_EQ(values.gammaAll, 1.0F);
  EXPECT_TRUE(TakeText(values, red, "0.1") && TakeText(values, red, "10.0"));
  EXPECT_FALSE(TakeText(values, red, "10.01") || TakeText(values, red, "0.09") || TakeText(values, red, "nan"));
  EXPECT_EQ(PositionOf(values, red), 100);
  values.gammaRed = 0.29F;
  EXPECT_EQ(PositionOf(values, red), 2);
}

TEST(ResponseRules, TwoDecimalsOfAnyDouble) {
  for (const auto& [number, text] : {std::pair{1.234, "1.23"},
                                     {0.125, "0.12"},
                                     {0.005, "0.01"},
                                     {-0.004, "-0.00"},
                                     {9.999, "10.00"},
                                     {notANumber, "nan"},
                                     {-infinite, "-inf"}}) {
    EXPECT_EQ(TwoDecimalsText(number), text);
  }
  EXPECT_EQ(TwoDecimalsText(-std::numeric_limits<double>::max()).size(), 313U);
}

TEST(ResponseRules, ThePreviewTakesWhatDiffers) {
  ResponseValues values;
  CDib preview;
  preview.gammaRed = preview.gammaGreen = preview.gammaBlue = 1.0;
  EXPECT_FALSE(GiveGamma(values, Band::all, preview));
  values.gammaBlue = 2.0F;
  EXPECT_FALSE(GiveGamma(values, Band::red, preview));
  EXPECT_TRUE(GiveGamma(values, Band::blue, preview));
  EXPECT_EQ(preview.gammaRed * 10 + preview.gammaBlue, 12.0);
  EXPECT_TRUE(GiveGamma(values, Band::all, preview));
  EXPECT_EQ(preview.gammaBlue, 1.0);
}

}  // namespace
}  // namespace set32

// The advanced dialog's rules at the ends of their ranges, for values that nobody typed, and off the screen.
#include "adjust/dialog_rules.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/events.h"

namespace set32 {
namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int greatest = std::numeric_limits<std::int32_t>::max();
constexpr int least = std::numeric_limits<std::int32_t>::min();

TEST(DialogRules, GammaTextsAreTaken) {
  for (const char* const good : {"0.01", "9.99", " 1.5 ", ".5"}) EXPECT_TRUE(TypedGamma(good)) << good;
  for (const char* const bad : {"", ".", "0", "0.005", "10", "1.2.3", "1,5", "-1", "nan", "1e0"}) {
    EXPECT_FALSE(TypedGamma(bad)) << bad;
  }
  EXPECT_EQ(TypedGamma(".5.5"), 0.5) << "a point in front makes room for another, where the number ends";
}

TEST(DialogRules, ARefusedTextGivesWayToTheValueWithItsDecimalsCut) {
  EXPECT_EQ(RestoredGammaText(1.0), "1.00");
  EXPECT_EQ(RestoredGammaText(2.079), "2.07");
  EXPECT_EQ(RestoredGammaText(0.29), "0.28") << "a hundred times this is a little less than 29";
  EXPECT_EQ(RestoredGammaText(12.499), "12.50") << "out of range it stands as it was shown";
  EXPECT_EQ(RestoredGammaText(-1.5), "-1.50");
  EXPECT_EQ(RestoredGammaText(notANumber), "nan");
}

TEST(DialogRules, ThePreviewTakesAGammaInItsBands) {
  CDib preview;
  EXPECT_FALSE(Take(gammaOfAll[0], 1.0, preview));
  EXPECT_TRUE(Take(GammaRowOf(id103::gammaGreenBar), 2.0, preview));
  EXPECT_EQ(preview.gammaRed, 1.0);
  EXPECT_EQ(preview.gammaGreen, 2.0);
  EXPECT_TRUE(Take(gammaOfAll[0], 1.0, preview)) << "one band had another";
  EXPECT_TRUE(Take(NumberRowOf(id103::contrastEdit), 7, preview));
  EXPECT_EQ(preview.contrast, 7);
  EXPECT_EQ(preview.brightness, 0);
}

TEST(DialogRules, QualityScrollsByPagesAndDragsAlone) {
  using namespace scroll_code;
  const struct {
    int quality, code, position, expected;
  } cases[] = {{5, pageLeft, 0, 4},   {0, pageLeft, 0, 0},     {5, pageRight, 0, 6},         {10, pageRight, 0, 10},
               {5, thumbTrack, 8, 8}, {5, lineLeft, 0, 5},     {5, lineRight, 0, 5},         {5, thumbPosition, 8, 5},
               {50, pageLeft, 0, 10}, {least, pageLeft, 0, 0}, {greatest, pageRight, 0, 10}, {50, endScroll, 0, 50}};
  for (const auto& c : cases) EXPECT_EQ(QualityAfterScroll(c.quality, c.code, c.position), c.expected) << c.code;
}

TEST(DialogRules, HighBitOutputIsWarnedOfByItsBits) {
  EXPECT_EQ(HighBitWarning(36, mode::gray), text::warning36Bits);
  EXPECT_EQ(HighBitWarning(0, mode::colour), text::warning36Bits);
  EXPECT_EQ(HighBitWarning(42, mode::gray), text::warning42Bits);
  EXPECT_EQ(HighBitWarning(48, mode::colour), text::warning48Bits);
  EXPECT_EQ(HighBitWarning(48, mode::gray), text::warning16Bits);
  EXPECT_EQ(HighBitWarning(48, mode::jpegColour), 0);
  EXPECT_EQ(HighBitWarning(47, mode::colour), 0);
}

TEST(DialogRules, TheTitleBarIsBroughtIntoTheWorkArea) {
  constexpr Rect area{10, 20, 810, 620};
  constexpr Size size{200, 400};
  constexpr int title = 25;
  const struct {
    Point corner;
    int left, top;
  } cases[] = {{{10, 20}, 10, 20},      {{610, 595}, 610, 595}, {{611, 596}, 610, 595},
               {{-5, 100}, 10, 100},    {{100, -900}, 100, 20}, {{greatest, greatest}, 610, 595},
               {{least, least}, 10, 20}};
  for (const auto& c : cases) {
    const Rect moved = MovedIntoWorkArea(WindowAt(c.corner, size), title, area);
    EXPECT_EQ(moved, (Rect{c.left, c.top, c.left + 200, c.top + 400})) << c.corner.x << " " << c.corner.y;
  }
  EXPECT_EQ(MovedIntoWorkArea(WindowAt({700, 0}, {900, 50}), title, area).left, 10) << "wider than the area";
  EXPECT_EQ(MovedIntoWorkArea(WindowAt({-5, -5}, size), title, {}).left, -5) << "an area that isn't known";
}

}  // namespace
}  // namespace set32

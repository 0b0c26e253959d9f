// The Advanced page where a script can't tell it: places in pixels, and records that no text can write.
#include <algorithm>
#include <cmath>
#include <limits>

#include "tests/support/page_scenario.h"

namespace set32 {
namespace {

class AdvancedPage : public PageScenario {
 protected:
  static constexpr int page = dialog::advanced;

  void OpenAtTab(int tab) {
    Open();
    Person().TurnTo(page);
    if (tab != 0) Person().Pick({page, id148::viewTabs}, tab);
  }

  Rect Area() { return TheSession().TheScene().Require(page).Get<Frame>(id148::pictureFrame).Place(); }

  // The read-outs with the pointer so far to the right of the area's left edge, half way down.
  std::string ReadOut(int x) {
    Person().MovePointer({Area().left + x, (Area().top + Area().bottom) / 2});
    return ReadOutText(id148::xValue) + ' ' + ReadOutText(id148::yValue);
  }
  std::string ReadOutText(int id) { return TheSession().TheScene().Require(page).Get<Label>(id).Text(); }

  // The picture area, a character a pixel; empty where drawings can't be seen.
  std::string Drawing() {
    const Shown drawing = TheSession().Eye().Show(SplitWords("drawing"));
    std::string pixels;
    for (std::size_t i = 1; i < drawing.lines.size(); ++i) pixels += drawing.lines[i] + '\n';
    return pixels;
  }
  std::ptrdiff_t Drawn(char pixel) { return std::ranges::count(Drawing(), pixel); }
};

TEST_F(AdvancedPage, ReadsTheCurveUnderThePointer) {
  OpenAtTab(0);
  EXPECT_EQ(ReadOut(-1), " ") << "outside";
  EXPECT_EQ(ReadOut(0), "0 0");
  Person().Pick({page, id148::bandCombo}, "綠色");
  Person().Scroll({page, id148::firstSlider}, scroll_code::thumbTrack, 20);
  const int width = Area().Width();
  ASSERT_GT(width, 0);
  const int middle = width / 2;
  const int x = middle * 255 / width;
  const int lifted = static_cast<int>(std::sqrt(x / 255.0) * 255.0);
  EXPECT_EQ(ReadOut(middle), std::to_string(x) + ' ' + std::to_string(lifted));
  Person().Pick({page, id148::bandCombo}, "紅色");
  EXPECT_NE(ReadOut(middle), std::to_string(x) + ' ' + std::to_string(lifted)) << "red has its own";
  const std::string last = ReadOut(width - 1);
  EXPECT_LT(std::stoi(last), 255);
  EXPECT_EQ(ReadOut(width), last) << "the right edge lies outside, and the texts stay";

  Person().Pick({page, id148::viewTabs}, 2);
  EXPECT_EQ(ReadOut(middle), last);
}

TEST_F(AdvancedPage, ReadsTheHistogramUnderThePointer) {
  Host().Preview().MakeBlank({6, 5}, 100);
  OpenAtTab(1);
  Person().Scroll({page, id148::firstSlider}, scroll_code::thumbTrack, -100);
  EXPECT_EQ(ReadOut(0), "0 90") << "all bands count each of the 30 black pixels";
  Person().Pick({page, id148::bandCombo}, "藍色");
  EXPECT_EQ(ReadOut(0), "0 30");
  Person().Scroll({page, id148::firstSlider}, scroll_code::thumbTrack, 0);
  EXPECT_EQ(ReadOut(0), "0 0") << "the histogram follows the preview";
}

TEST_F(AdvancedPage, DrawsItsTabInTheColourOfTheBand) {
  Host().Preview().MakeBlank({6, 5}, 100);
  OpenAtTab(0);
  if (Drawing().empty()) GTEST_SKIP() << "drawings are seen on the model alone";
  EXPECT_GE(Drawn('#'), Area().Width() / 2);
  Person().Pick({page, id148::bandCombo}, "紅色");
  const std::ptrdiff_t straight = Drawn('r');
  EXPECT_GT(straight, 0);
  Person().Scroll({page, id148::firstSlider}, scroll_code::thumbTrack, 100);
  EXPECT_NE(Drawn('r'), straight) << "the curve follows the slider";

  Person().Pick({page, id148::viewTabs}, 1);
  Person().Scroll({page, id148::firstSlider}, scroll_code::thumbTrack, -100);
  EXPECT_GE(Drawn('r'), Area().Height() / 2) << "one bar, as high as the area";
  Person().Pick({page, id148::bandCombo}, "藍色");
  EXPECT_GT(Drawn('b'), 0);
  EXPECT_EQ(Drawn('r'), 0);

  Person().Pick({page, id148::viewTabs}, 2);
  EXPECT_EQ(Drawn('b') + Drawn(':'), 0);
  EXPECT_GT(Drawn('?'), Area().Width()) << "the wheel";

  // What changed while the other page was in front is seen on turning back.
  Person().Pick({page, id148::viewTabs}, 0);
  Person().TurnTo(dialog::general);
  Person().Pick(id::modeCombo, "灰階");
  Person().TurnTo(page);
  EXPECT_GT(Drawn('#'), 0);
  EXPECT_EQ(Drawn('r'), 0);
  const std::string before = Drawing();
  Record().gammaAll = 5.0;
  Open();
  Person().MovePointer({0, 0});
  EXPECT_NE(Drawing(), before) << "and so is another record";
}

// Every event on every tab leaves a record that a scan can be made with, as far as it touched it.
TEST_F(AdvancedPage, TakesAnyRecord) {
  constexpr double infinite = std::numeric_limits<double>::infinity();
  constexpr double gammas[] = {
      std::numeric_limits<double>::quiet_NaN(), infinite, -infinite, 0.0, -3.0, 1e308, 4e-320};
  for (const double gamma : gammas) {
    for (const std::int32_t number :
         {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
      SCOPED_TRACE(testing::Message() << gamma << ' ' << number);
      ASSERT_TRUE(TheSession().Open());
      ScanSettings& record = Record();
      record.gammaAll = record.gammaRed = record.gammaGreen = record.gammaBlue = gamma;
      record.brightness = record.contrast = record.saturation = record.hue = record.sharpness = number;
      record.descreenKind = static_cast<std::uint32_t>(number);
      ASSERT_TRUE(TheSession().Open());
      Person().TurnTo(page);
      for (int tab = 2; tab >= 0; --tab) {
        Person().Pick({page, id148::viewTabs}, tab);
        Person().MovePointer({Area().left + 5, Area().top + 5});
        for (const int slider : {id148::firstSlider, id148::secondSlider}) {
          Person().Scroll({page, slider}, scroll_code::endScroll, {});
          Person().Scroll({page, slider}, scroll_code::lineRight, {});
        }
        for (const int edit : {id148::firstEdit, id148::secondEdit}) Person().Focus({page, edit});
        for (const int spin : {id148::firstSpin, id148::secondSpin}) Person().Spin({page, spin}, 1);
      }
      Person().Leave();
      for (const double left : {record.gammaAll, record.gammaRed, record.gammaGreen, record.gammaBlue}) {
        EXPECT_TRUE(left >= 0.1 && left <= 10.0) << left;
      }
      for (const std::int32_t left : {record.brightness, record.contrast, record.saturation, record.sharpness}) {
        EXPECT_LE(std::abs(static_cast<std::int64_t>(left)), 100);
      }
      EXPECT_LE(std::abs(static_cast<std::int64_t>(record.hue)), 180);
    }
  }
}

}  // namespace
}  // namespace set32

// Lengths in inches, centimetres and pixels, what may be typed, and where a page lies on the preview.
#include "panel/rules/size_rules.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "controls/format.h"
#include "controls/number_text.h"
#include "resources/ids.h"

namespace set32 {
namespace {

using namespace paper_source;

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

// A text's value in units of its last digit.
long long LastDigits(const std::string& text, std::uint32_t units) {
  return std::llround(ReadDecimalNumber(text) * (units == unit::pixel ? 1 : 100));
}

TEST(SizeText, EveryLengthReadsBack) {
  for (const FaceRules* rules : {&sheetFaceRules, &inlineFaceRules}) {
    for (const std::uint32_t units : {unit::inch, unit::centimetre, unit::pixel}) {
      for (const int dpi : {75, 100, 150, 200, 300, 333, 600, 1200, 4800, 19200}) {
        for (int hundredths = 30; hundredths <= 1400; ++hundredths) {
          const std::string shown = SizeText(hundredths / 100.0, units, dpi, *rules);
          const std::string again = SizeText(InchesOf(shown, units, dpi), units, dpi, *rules);
          ASSERT_LE(std::abs(LastDigits(shown, units) - LastDigits(again, units)), 1)
              << hundredths << " in unit " << units << " at " << dpi << ": " << shown << " then " << again;
          if (units != unit::inch) continue;
          ASSERT_EQ(LastDigits(shown, units), hundredths);
        }
      }
    }
  }
}

TEST(SizeText, Examples) {
  struct Case {
    double inches;
    std::uint32_t units;
    int dpi;
    const char* sheet;
    const char* inlined;
  };
  const Case cases[] = {
      {8.5, unit::inch, 100, "8.50", "8.50"},
      {8.249, unit::inch, 100, "8.25", "8.25"},
      {0.994, unit::inch, 100, "0.99", "0.99"},
      {0.996, unit::inch, 100, "1.00", "1.00"},
      {8.3, unit::centimetre, 100, "21.08", "21.08"},
      {0.3, unit::centimetre, 100, "0.77", "0.76"},
      {0.304, unit::centimetre, 100, "0.77", "0.77"},
      {0.31, unit::centimetre, 100, "0.78", "0.78"},
      {0.3, unit::pixel, 75, "23", "22"},
      {11.69, unit::pixel, 300, "3507", "3507"},
      {2.0, 7, 100, "2.00", "2.00"},  // a unit that is none
      // Records of no meaning.
      {noNumber, unit::inch, 100, "0.00", "0.00"},
      {noNumber, unit::pixel, 100, "0", "0"},
      {infinite, unit::inch, 100, "21474836.47", "21474836.47"},
      {infinite, unit::centimetre, 100, "21474836.47", "21474836.47"},
      {1e300, unit::pixel, 100, "2147483647", "2147483647"},
      {8.5, unit::pixel, 2147483647, "2147483647", "2147483647"},
      {-infinite, unit::inch, 100, "-21474836.48", "-21474836.48"},
      {-0.5, unit::inch, 100, "-0.49", "-0.49"},
      {-0.5, unit::centimetre, 100, "-1.27", "-1.27"},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.inches);
    EXPECT_EQ(SizeText(one.inches, one.units, one.dpi, sheetFaceRules), one.sheet);
    EXPECT_EQ(SizeText(one.inches, one.units, one.dpi, inlineFaceRules), one.inlined);
  }
}

TEST(TypedSize, IsJudgedInInches) {
  struct Case {
    const char* text;
    std::uint32_t units;
    int dpi;
    Dimension dimension;
    std::uint32_t source;
    double inches;
    bool good;
  };
  constexpr auto width = Dimension::width;
  constexpr auto height = Dimension::height;
  const Case cases[] = {
      {"2.54", unit::centimetre, 100, width, flatbed, 1.0, true},
      {"8.5", unit::inch, 100, width, flatbed, 8.5, true},
      {"8.51", unit::inch, 100, width, flatbed, 8.51, false},
      {"0.3", unit::inch, 100, width, feeder, 0.3, true},
      {"0.29", unit::inch, 100, width, feeder, 0.29, false},
      {"0.77", unit::centimetre, 100, width, flatbed, 0.77 * 0.39370078740157477, true},
      {"0.76", unit::centimetre, 100, width, flatbed, 0.76 * 0.39370078740157477, false},
      {"5.01", unit::inch, 100, width, positive, 5.01, false},
      {"7", unit::inch, 100, height, negative, 7.0, true},
      {"14", unit::inch, 100, height, flatbed, 14.0, false},
      {"14", unit::inch, 100, height, feeder, 14.0, true},
      {"850", unit::pixel, 100, width, flatbed, 8.5, true},
      {"851", unit::pixel, 100, width, flatbed, 8.51, false},
      {"3507", unit::pixel, 300, height, flatbed, 11.69, true},
      {" 2.5 ", unit::inch, 100, width, flatbed, 2.5, true},
      {"2.5.1", unit::inch, 100, width, flatbed, 2.5, false},
      {".5.5", unit::inch, 100, width, flatbed, 0.5, true},
      {"200.5.1", unit::pixel, 100, width, flatbed, 2.005, true},  // pixels take no test of the text
      {"", unit::inch, 100, width, flatbed, 0.0, false},
      {"", unit::pixel, 100, width, flatbed, 0.0, false},
      {"100", unit::pixel, 0, width, flatbed, 0.0, false},
      {"100", unit::pixel, -100, width, flatbed, -1.0, false},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.text);
    const double inches = InchesOf(one.text, one.units, one.dpi);
    EXPECT_DOUBLE_EQ(inches, one.inches);
    EXPECT_EQ(IsGoodSize(inches, one.text, one.dimension, one.source, one.units), one.good);
  }
  EXPECT_FALSE(IsGoodSize(noNumber, "1", width, flatbed, unit::inch));
  EXPECT_EQ(InchesOf(std::string(254, '0') + "12", unit::inch, 100), 1.0) << "255 characters are read";
}

TEST(TypedSize, MessagesNameTheirRange) {
  struct Case {
    Dimension dimension;
    std::uint32_t source;
    const char* inches;
    const char* centimetres;
    const char* pixels;  // at 75 dpi
  };
  const Case cases[] = {
      {Dimension::width, flatbed, "0.30 8.50", "0.77 21.59", "22 637"},
      {Dimension::width, feeder, "0.30 8.50", "0.77 21.59", "22 637"},
      {Dimension::width, positive, "0.30 5.00", "0.77 12.70", "22 375"},
      {Dimension::width, negative, "0.30 5.00", "0.77 12.70", "22 375"},
      {Dimension::height, flatbed, "0.30 11.69", "0.77 29.69", "22 876"},
      {Dimension::height, feeder, "0.30 14.00", "0.77 35.56", "22 1050"},
      {Dimension::height, positive, "0.30 7.00", "0.77 17.78", "22 525"},
      {Dimension::height, negative, "0.30 7.00", "0.77 17.78", "22 525"},
  };
  const auto shown = [](const RangeMessage& message) {
    const auto& n = message.numbers;
    return message.stringId == text::integerRange ? FormatText("%d %d", n[0], n[1])
                                                  : FormatText("%d.%02d %d.%02d", n[0], n[1], n[2], n[3]);
  };
  for (const Case& one : cases) {
    EXPECT_EQ(shown(SizeRangeMessage(one.dimension, one.source, unit::inch, 75)), one.inches);
    EXPECT_EQ(shown(SizeRangeMessage(one.dimension, one.source, unit::centimetre, 75)), one.centimetres);
    EXPECT_EQ(shown(SizeRangeMessage(one.dimension, one.source, unit::pixel, 75)), one.pixels);
  }
}

// Every entry of every list has dimensions that stand on its source, or is the user's own.
TEST(SizeList, EntriesFitTheirSource) {
  for (const FaceRules* rules : {&sheetFaceRules, &inlineFaceRules}) {
    for (std::uint32_t source = 0; source < 4; ++source) {
      for (const SizeEntry& entry : SizeList(source, *rules)) {
        const auto size = FindSize(entry.sizeId, source, *rules);
        ASSERT_EQ(size.has_value(), entry.sizeId != size_id::userDefined) << entry.sizeId;
        if (!size) continue;
        EXPECT_LE(size->width, HighestSize(Dimension::width, source)) << entry.sizeId;
        EXPECT_LE(size->height, HighestSize(Dimension::height, source)) << entry.sizeId;
      }
    }
  }
  EXPECT_EQ(FindSize(size_id::photo3x5, positive, inlineFaceRules)->width, 3.0);
  EXPECT_EQ(FindSize(size_id::photo3x5, flatbed, inlineFaceRules)->width, 5.0);
  EXPECT_EQ(FindSize(size_id::photo3x5, positive, sheetFaceRules)->width, 5.0);
  EXPECT_FALSE(FindSize(size_id::a5, flatbed, inlineFaceRules));
  EXPECT_FALSE(FindSize(size_id::none, flatbed, sheetFaceRules));
}

TEST(Preview, ResolutionAndEdges) {
  EXPECT_EQ(PreviewDpi(3937), 100);  // 99.9998
  EXPECT_EQ(PreviewDpi(2953), 75);   // 75.0062
  EXPECT_EQ(PreviewDpi(3917), 99);   // 99.4918
  EXPECT_EQ(PreviewDpi(2500), 63);   // 63.5: only more than a half counts
  EXPECT_EQ(PreviewDpi(-1), 0);

  constexpr PreviewFacts page{850, 1169, 100};
  constexpr auto width = Dimension::width;
  EXPECT_TRUE(FitsPreview(99.0, 0, width, page)) << "an area at the origin is never asked";
  EXPECT_TRUE(FitsPreview(7.49, 100, width, page)) << "749 + 100 + 1";
  EXPECT_FALSE(FitsPreview(7.5, 100, width, page));
  EXPECT_FALSE(FitsPreview(7.4949999, 100, width, page)) << "7.49500 first, then 750";
  EXPECT_TRUE(FitsPreview(10.68, 100, Dimension::height, page));
  EXPECT_FALSE(FitsPreview(infinite, 1, width, page));
  EXPECT_TRUE(FitsPreview(1.0, -2147483647, width, page));

  EXPECT_TRUE(LiesMidFeeder(size_id::a5, feeder, sheetFaceRules));
  EXPECT_FALSE(LiesMidFeeder(size_id::userDefined, feeder, sheetFaceRules));
  EXPECT_FALSE(LiesMidFeeder(size_id::a5, positive, sheetFaceRules));
  EXPECT_FALSE(LiesMidFeeder(size_id::a4, feeder, inlineFaceRules)) << "its pages begin at the edge on every source";
  EXPECT_EQ(CentredOnFeeder(8.27, page), 11);
  EXPECT_EQ(CentredOnFeeder(8.5, page), 0);
  EXPECT_EQ(CentredOnFeeder(20.0, page), 0);
  EXPECT_EQ(CentredOnFeeder(noNumber, page), 425);

  EXPECT_FALSE(FactsOf(nullptr));
  CDib empty;
  empty.header = nullptr;
  EXPECT_FALSE(FactsOf(&empty));
}

TEST(Report, SameSizeWithinTheFacesTolerance) {
  EXPECT_TRUE(IsSameSize(1.0, 1.0, 1.03, 0.97, sheetFaceRules));
  EXPECT_FALSE(IsSameSize(0.0, 1.0, 0.04, 1.0, sheetFaceRules)) << "0.04 itself is more than its single precision";
  EXPECT_TRUE(IsSameSize(0.0, 1.0, 0.04, 1.0, inlineFaceRules));
  EXPECT_FALSE(IsSameSize(1.0, 1.0, 1.0, 1.05, inlineFaceRules));
  EXPECT_FALSE(IsSameSize(1.0, 1.0, noNumber, 1.0, inlineFaceRules));
}

}  // namespace
}  // namespace set32

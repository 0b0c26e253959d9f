// The numeric edits' rules over texts and selections.
#include "controls/edit_rules.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "controls/number_text.h"

namespace set32 {
namespace {

using namespace std::string_literals;

TEST(IntEdit, RepairsAfterEachChange) {
  struct Case {
    const char* text;
    const char* shown;
    int lastGood;
  };
  // From -100 to 100, 12 stood last.
  const Case cases[] = {
      {"", "", 12},           {"-", "-", 12},  {"x", "x", 12}, {"7", "7", 12}, {"-5", "-5", -5},  {"100", "100", 100},
      {"-100", "-100", -100}, {"007", "7", 7}, {"00", "0", 0}, {"-0", "0", 0}, {"-07", "-7", -7},
  };
  const auto expect = [](const Case& one) {
    IntEditRules rules;
    rules.SetRange(-100, 100);
    rules.lastGood = 12;
    EXPECT_EQ(rules.Repair(one.text).value_or(one.text), one.shown) << one.text;
    EXPECT_EQ(rules.lastGood, one.lastGood) << one.text;
    EXPECT_FALSE(rules.Repair(one.shown)) << "a repaired text stands: " << one.text;
  };
  for (const Case& one : cases) expect(one);
  for (const char* bad :
       {"123", "101", "-101", "5-", "--5", "12a", " 5", "1.5", "99999999999999999999", "-9999999999"}) {
    expect({bad, "12", 12});
  }
}

TEST(IntEdit, LimitsTheWrongWayRoundEndAtTheFirst) {
  IntEditRules rules;
  rules.SetRange(100, 0);
  EXPECT_EQ(rules.Repair("50"), "100");
  EXPECT_FALSE(rules.Repair("100")) << "or the repair would call itself for ever";
}

TEST(RealEdit, JudgesWhatIsAdded) {
  using enum EditVerdict;
  struct Case {
    double low, high;
    EditState before;
    const char* added;
    EditVerdict verdict;
  };
  const Case cases[] = {
      {0.01, 9.99, {"", 0, 0}, "-", foreign},
      {0.01, 9.99, {"", 0, 0}, "x", foreign},
      {0.01, 9.99, {"", 0, 0}, "\x16", foreign},  // the keyboard's paste
      {0.01, 9.99, {"", 0, 0}, "\r", foreign},
      {0.01, 9.99, {"", 0, 0}, "0", taken},  // below the lowest: the owner's to test
      {0.01, 9.99, {"9.99", 4, 4}, "1", refused},
      {0.01, 9.99, {"9.99", 4, 4}, " ", taken},
      {0.01, 9.99, {"1.5", 3, 3}, ".", refused},
      {0.01, 9.99, {"1.5", 0, 2}, ".", taken},  // the first point goes with the selection
      {0.01, 9.99, {"2", 1, 1}, "1.5", refused},
      {0.01, 9.99, {"2", 0, 1}, "1.5", taken},
      {0.01, 9.99, {"2", 1, 1}, "", taken},
      {-1, 1, {"5", 0, 0}, "-", taken},
      {-1, 1, {"", 0, 0}, "-", taken},
      {-1, 1, {"-0", 2, 2}, "-", refused},
      {-1, 1, {"1", 1, 1}, "-", taken},  // anywhere: the number ends there
      {0, 1000, {"100", 3, 3}, "0", taken},
      {0, 1000, {"1000", 4, 4}, "0", refused},
      {0, 1000, {"1000", 4, 4}, ".", taken},
      {0, 1000, {"", 0, 0}, "99999999999999999999999999", refused},
  };
  for (const Case& one : cases) {
    RealEditRules rules;
    rules.SetRange(one.high, one.low);
    EXPECT_EQ(rules.Judge(one.before, one.added), one.verdict)
        << one.before.text << '[' << one.before.start << ',' << one.before.end << "] + " << one.added;
  }
  const std::string longest(RealEditRules::longestText, '0');
  EXPECT_EQ(RealEditRules{}.Judge({}, longest), taken);
  EXPECT_EQ(RealEditRules{}.Judge({longest, 0, 0}, "0"), refused);
}

TEST(DecimalText, OneNumberWellWritten) {
  for (const char* good : {"1.5", " 1.5 ", "5", ".5", ".5.5", " ", "1."}) EXPECT_TRUE(IsDecimalText(good)) << good;
  for (const char* bad : {"", "1.2.3", "-1", "1,5", "1e5", " .5.5"}) EXPECT_FALSE(IsDecimalText(bad)) << bad;
}

TEST(NumberText, ReadsWhatStandsFirst) {
  constexpr auto most = std::numeric_limits<std::int32_t>::max();
  struct Case {
    std::string text;
    std::int32_t whole;
    double decimal;
  };
  const Case cases[] = {
      {"300", 300, 300.0},
      {" 300 dpi", 300, 300.0},
      {"-5", -5, -5.0},
      {"+7", 7, 7.0},
      {"1 2", 1, 1.0},
      {"2.54", 2, 2.54},
      {".5.5", 0, 0.5},
      {"1.2.3", 1, 1.2},
      {"1,5", 1, 1.0},
      {"2147483648", most, 2147483648.0},
      {"-2147483649", -most - 1, -2147483649.0},
      {std::string(400, '9'), most, std::numeric_limits<double>::infinity()},
      {"-" + std::string(400, '9'), -most - 1, -std::numeric_limits<double>::infinity()},
  };
  const auto expect = [](const Case& one) {
    EXPECT_EQ(ReadWholeNumber(one.text), one.whole) << one.text;
    EXPECT_EQ(ReadDecimalNumber(one.text), one.decimal) << one.text;
  };
  for (const Case& one : cases) expect(one);
  const std::string tiny = "0." + std::string(400, '0') + "1";
  for (const std::string& none : {std::string(), tiny, "- 5"s, "--5"s, "."s, "nan"s, "inf"s, "0x10"s}) {
    expect({none, 0, 0.0});
  }
}

TEST(NumberText, CutsEveryDouble) {
  constexpr auto most = std::numeric_limits<std::int32_t>::max();
  constexpr double infinite = std::numeric_limits<double>::infinity();
  EXPECT_EQ(CutToInt(2.999), 2);
  EXPECT_EQ(CutToInt(-2.999), -2);
  EXPECT_EQ(CutToInt(2147483647.5), most);
  EXPECT_EQ(CutToInt(infinite), most);
  EXPECT_EQ(CutToInt(-infinite), -most - 1);
  EXPECT_EQ(CutToInt(std::numeric_limits<double>::quiet_NaN()), 0);
}

}  // namespace
}  // namespace set32

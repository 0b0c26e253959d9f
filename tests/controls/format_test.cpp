// Placeholders of the string table: what it holds, and what a bad translation might.
#include "controls/format.h"

#include <gtest/gtest.h>

#include <limits>

namespace set32 {
namespace {

TEST(FormatText, FillsEveryPattern) {
  EXPECT_EQ(FormatText("from %d to %d", 75, 4800), "from 75 to 4800");
  EXPECT_EQ(FormatText("%d.%02d to %d.%02d", 0, 3, 11, 69), "0.03 to 11.69");
  EXPECT_EQ(FormatText("%d", std::numeric_limits<std::int32_t>::min()), "-2147483648");
  EXPECT_EQ(FormatText("\"%s\"?", "100% of %d"), "\"100% of %d\"?") << "an argument is no pattern";
  EXPECT_EQ(FormatText("%3d|%03d|%3s", 7, -7, "a"), "  7|-07|  a");
  EXPECT_EQ(FormatText("%ld", 5), "5");
  EXPECT_EQ(FormatText("100%% %d", 1), "100% 1");
}

TEST(FormatText, LeavesWhatItCannotFill) {
  EXPECT_EQ(FormatText("%d and %s", 1), "1 and %s");
  EXPECT_EQ(FormatText("%s", 1), "1") << "a number stays a number";
  EXPECT_EQ(FormatText("%d", "x"), "x");
  EXPECT_EQ(FormatText("%n %f %", 1), "%n %f %");
  EXPECT_EQ(FormatText("%0", 1), "%0");
  EXPECT_EQ(FormatText("%99d", 1), "%99d") << "no pattern asks for a page of blanks";
  EXPECT_EQ(FormatText("", 1), "");
}

}  // namespace
}  // namespace set32

// Which row of the configuration list is meant: the rules over flags alone.
#include "profile/config_rules.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace set32 {
namespace {

// A letter a row: F factory, C custom, U the user's, - the fallback row.
std::vector<RowFlags> Rows(const std::string& letters) {
  std::vector<RowFlags> rows;
  for (const char letter : letters) {
    rows.push_back({letter == 'C' || letter == 'U', letter == 'U', letter != '-'});
  }
  return rows;
}

TEST(ConfigRules, ChangesOfAFactoryRowGoToTheCustomRow) {
  struct Case {
    std::string rows;
    int selected, target;
    bool deletable;
  };
  for (const Case& c : std::vector<Case>{
           {"FFFFFC", 2, 5, false},    // a fresh flatbed
           {"FFFFFC", 5, 5, false},    // the custom row takes its own changes
           {"FFFFFCUU", 1, 5, false},  // the user's rows follow the custom row
           {"FFFFFCUU", 7, 7, true},
           {"FFC", 0, 2, false},
           {"UU", 0, 0, true},
           {"FU", 0, 1, false},
       }) {
    const AutoSaveTarget target = FindAutoSaveTarget(Rows(c.rows), c.selected);
    EXPECT_EQ(target.row, c.target) << c.rows << " " << c.selected;
    EXPECT_TRUE(target.editable) << c.rows;
    EXPECT_EQ(target.deletable, c.deletable) << c.rows << " " << c.selected;
  }
}

TEST(ConfigRules, ChangesWithoutAnEditableRowGoNowhere) {
  // Nothing editable ends the list, the fallback row stores nothing, and none stands beside the rows.
  for (const auto& [rows, selected] :
       {std::pair{"FF", 0}, {"FUF", 0}, {"F", 0}, {"-", 0}, {"", 0}, {"FC", 2}, {"FC", -1}}) {
    EXPECT_EQ(FindAutoSaveTarget(Rows(rows), selected).row, -1) << rows << " " << selected;
  }
}

TEST(ConfigRules, RowZeroIsNeverTheReasonToStop) {
  for (const char* rows : {"CUU", "FUU", "C", ""}) EXPECT_EQ(CustomRow(Rows(rows)), 1) << rows;
  EXPECT_EQ(CustomRow(Rows("FFF")), 3);
  EXPECT_EQ(RowAfterDeletion(4, 8, 7), 4) << "the row that moved up, though others follow";
  EXPECT_EQ(RowAfterDeletion(-1, 8, 7), -1) << "no row, and none that moves up";
}

TEST(ConfigRules, ColumnLeavesRoomForAScrollBarOnceTheRowsDoNotFit) {
  constexpr ColumnRoom narrowBar{200, 196, 12}, usualBar{200, 196, 17}, thickBorder{200, 190, 17};
  EXPECT_EQ(ColumnWidthFor(narrowBar, 3, 4, 50), 195);
  EXPECT_EQ(ColumnWidthFor(narrowBar, 4, 4, 50), 181);
  EXPECT_EQ(ColumnWidthFor(usualBar, 4, 4, 219), 179);
  EXPECT_EQ(ColumnWidthFor(thickBorder, 3, 4, 50), 190);
  EXPECT_EQ(ColumnWidthFor(usualBar, 0, 4, 220), 220);
}

}  // namespace
}  // namespace set32

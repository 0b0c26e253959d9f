#include "tests/support/contract_case.h"

namespace set32 {
namespace {

enum Id { list = 30 };

constexpr ControlTemplate controls[] = {{list, ControlKind::list, "", 0, 0, 80, 60, 0}};
constexpr DialogTemplate page{1, "", {100, 100}, "Sans", 8, DialogStyle::child, controls};

const std::vector<std::string> nothing;

List& TheList(Stage& stage) {
  return stage.Get<List>(list);
}

void Fill(Stage& stage, int rows) {
  for (int i = 0; i < rows; ++i) {
    TheList(stage).Add("row " + std::to_string(i), i % 3, static_cast<std::uintptr_t>(i) + 100);
  }
}

TEST(ListContract, RaisesEachChangeOfARowsState) {
  const auto first = [](Stage& stage) {
    Fill(stage, 4);
    TheList(stage).SelectAndFocus(1);
  };
  const auto onlyFocused = [=](Stage& stage) {
    first(stage);
    stage.Hands().ClickRow(TheList(stage), -1);
  };
  RunContractCases(
      page,
      {
          {"filled", {}, [](Stage& s) { Fill(s, 3); }, nothing},
          {"first selection",
           [](Stage& s) { Fill(s, 3); },
           [](Stage& s) { TheList(s).SelectAndFocus(1); },
           {"30 row 1 none>both"}},
          {"another row, by the program",
           first,
           [](Stage& s) { TheList(s).SelectAndFocus(2); },
           {"30 row 1 both>focused", "30 row 1 focused>none", "30 row 2 none>both"}},
          {"same row", first, [](Stage& s) { TheList(s).SelectAndFocus(1); }, nothing},
          {"no such row", first, [](Stage& s) { TheList(s).SelectAndFocus(4); }, nothing},
          {"scrolled into view", first, [](Stage& s) { TheList(s).EnsureVisible(3); }, nothing},
          {"another row, clicked",
           first,
           [](Stage& s) { s.Hands().ClickRow(TheList(s), 0); },
           {"30 row 1 both>focused", "30 row 1 focused>none", "30 row 0 none>both", "30 row clicked 0"}},
          {"another row, by the keyboard",
           first,
           [](Stage& s) { s.Hands().ArrowTo(TheList(s), 2); },
           {"30 row 1 both>focused", "30 row 1 focused>none", "30 row 2 none>both"}},
          {"same row, clicked", first, [](Stage& s) { s.Hands().ClickRow(TheList(s), 1); }, {"30 row clicked 1"}},
          {"beside the rows",
           first,
           [](Stage& s) { s.Hands().ClickRow(TheList(s), -1); },
           {"30 row 1 both>focused", "30 row clicked -1"}},
          {"another row of a list too low to show it",
           [=](Stage& s) {
             first(s);
             TheList(s).Move({0, 0, 80, 6});
           },
           [](Stage& s) { s.Hands().ClickRow(TheList(s), 2); },
           {"30 row 1 both>focused", "30 row 1 focused>none", "30 row 2 none>both", "30 row clicked 2"}},
          {"beside the rows of a full list",
           [](Stage& s) {
             Fill(s, 40);
             TheList(s).SelectAndFocus(1);
           },
           [](Stage& s) { s.Hands().ClickRow(TheList(s), -1); },
           {"30 row 1 both>focused", "30 row clicked -1"}},
          {"beside the rows again",
           onlyFocused,
           [](Stage& s) { s.Hands().ClickRow(TheList(s), -1); },
           {"30 row clicked -1"}},
          {"another row than the one that kept the focus",
           onlyFocused,
           [](Stage& s) { TheList(s).SelectAndFocus(3); },
           {"30 row 1 focused>none", "30 row 3 none>both"}},
          {"selected row deleted", first, [](Stage& s) { TheList(s).Remove(1); }, {"30 row 1 both>none"}},
          {"other row deleted", first, [](Stage& s) { TheList(s).Remove(0); }, nothing},
          {"all rows deleted", first, [](Stage& s) { TheList(s).Clear(); }, nothing},
      });
}

// Some systems report a change before it that is none.
TEST(ListContract, TheRowThatKeptTheFocusIsSelectedAgain) {
  Stage stage(page);
  Fill(stage, 4);
  TheList(stage).SelectAndFocus(1);
  stage.Hands().ClickRow(TheList(stage), -1);
  stage.Heard();
  TheList(stage).SelectAndFocus(1);
  EXPECT_EQ(stage.Heard().back(), "30 row 1 focused>both");
}

TEST(ListContract, TheMarksStayWithTheirRow) {
  Stage stage(page);
  Fill(stage, 4);
  List& l = TheList(stage);
  l.SelectAndFocus(2);
  l.Remove(0);
  EXPECT_EQ(l.StateOf(1), (RowState{true, true}));
  EXPECT_EQ(l.RowText(1), "row 2");
  EXPECT_EQ(l.RowIcon(1), 2);
  EXPECT_EQ(l.RowData(1), 102U);
  l.Remove(1);
  EXPECT_EQ(l.StateOf(0), RowState{});
  EXPECT_EQ(l.StateOf(1), (RowState{false, true}));
  EXPECT_EQ(l.RowText(2), "");
}

TEST(ListContract, ScrollsByRowsWithinWhatThereIs) {
  Stage stage(page);
  Fill(stage, 30);
  List& l = TheList(stage);
  const int rows = l.RowsPerPage();
  ASSERT_GT(rows, 2);
  EXPECT_EQ(l.TopRow(), 0);
  l.EnsureVisible(rows);
  EXPECT_EQ(l.TopRow(), 1);
  l.EnsureVisible(rows - 1);
  EXPECT_EQ(l.TopRow(), 1);
  l.ScrollBy(900);
  EXPECT_EQ(l.TopRow(), 30 - rows);
  l.EnsureVisible(4);
  EXPECT_EQ(l.TopRow(), 4);
  l.ScrollBy(-100000);
  EXPECT_EQ(l.TopRow(), 0);
  l.SetColumnWidth(140);
  EXPECT_EQ(l.ColumnWidth(), 140);
}

TEST(ListContract, AColumnAsWideAsWhatTheListShowsNeedsNoHorizontalBar) {
  for (const int rows : {1, 40}) {
    SCOPED_TRACE(rows);
    Stage stage(page);
    List& l = TheList(stage);
    const int inside = l.InnerWidth();
    l.SetColumnWidth(10);
    Fill(stage, rows);
    EXPECT_EQ(l.InnerWidth(), inside);
    const int shownAtOnce = l.RowsPerPage();
    l.SetColumnWidth(rows > shownAtOnce ? inside - stage.TheWindows().ScrollBarWidth() : inside);
    EXPECT_EQ(l.RowsPerPage(), shownAtOnce);
  }
}

// The page fills its list anew inside a report of it.
TEST(ListContract, ARefillInsideAReportEndsTheChange) {
  Stage stage(page);
  Fill(stage, 4);
  TheList(stage).SelectAndFocus(3);
  stage.Heard();
  stage.handler.on = [&](const std::string& line) {
    if (line != "30 row 3 focused>none") return;
    TheList(stage).Clear();
    Fill(stage, 1);
  };
  TheList(stage).SelectAndFocus(2);
  EXPECT_THAT(stage.Heard(), testing::ElementsAre("30 row 3 both>focused", "30 row 3 focused>none"));
  EXPECT_EQ(TheList(stage).StateOf(0), RowState{});
}

}  // namespace
}  // namespace set32

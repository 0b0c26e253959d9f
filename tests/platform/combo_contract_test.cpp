#include "apps/stage/inspection.h"
#include "tests/support/contract_case.h"

namespace set32 {
namespace {

enum Id { combo = 20, tall = 21, edit = 22 };

constexpr ControlTemplate controls[] = {
    {combo, ControlKind::combo, "", 0, 0, 40, 60, 0},
    {tall, ControlKind::combo, "", 50, 0, 40, 200, 0},
    {edit, ControlKind::edit, "", 0, 70, 40, 12, 0},
};
constexpr DialogTemplate page{1, "", {100, 100}, "Sans", 8, DialogStyle::child, controls};

const std::vector<std::string> nothing;

Combo& TheCombo(Stage& stage) {
  return stage.Get<Combo>(combo);
}

void FillAndSelect(Stage& stage, int selected) {
  for (const char* text : {"100 dpi", "200 dpi", "Draft", "draft", "2"}) TheCombo(stage).Add(text);
  TheCombo(stage).SelectIndex(selected);
}

TEST(ComboContract, OnlyAPersonsChoiceIsTold) {
  const auto filled = [](Stage& stage) { FillAndSelect(stage, 1); };
  RunContractCases(
      page,
      {
          {"program", {}, filled, nothing},
          {"deleted", filled, [](Stage& stage) { TheCombo(stage).Remove(1); }, nothing},
          {"emptied", filled, [](Stage& stage) { TheCombo(stage).Clear(); }, nothing},
          {"picked", filled, [](Stage& s) { s.Hands().PickEntry(TheCombo(s), 2); }, {"20 gained", "20 chosen"}},
          {"picked again", filled, [](Stage& s) { s.Hands().PickEntry(TheCombo(s), 1); }, {"20 gained", "20 chosen"}},
          {"dropped",
           filled,
           [](Stage& s) { s.Hands().DropList(TheCombo(s)); },
           {"20 gained", "20 drop", "20 close up"}},
      });
}

TEST(ComboContract, TheSelectionFollowsItsEntry) {
  struct Change {
    const char* name;
    int selected;
    std::function<void(Combo&)> change;
    int becomes;
    const char* text;
  };
  const Change table[] = {
      {"inserted before", 1, [](Combo& c) { c.Insert(1, "new"); }, 2, "200 dpi"},
      {"inserted behind", 1, [](Combo& c) { c.Insert(2, "new"); }, 1, "200 dpi"},
      {"insertion refused", 1, [](Combo& c) { EXPECT_EQ(c.Insert(9, "new"), -1); }, 1, "200 dpi"},
      {"earlier one deleted", 2, [](Combo& c) { c.Remove(0); }, 1, "Draft"},
      {"selected one deleted", 2, [](Combo& c) { c.Remove(2); }, -1, ""},
      {"past the end", 2, [](Combo& c) { c.SelectIndex(5); }, -1, ""},
      {"none", 2, [](Combo& c) { c.SelectIndex(-1); }, -1, ""},
      {"emptied", 2, [](Combo& c) { c.Clear(); }, -1, ""},
  };
  for (const Change& change : table) {
    SCOPED_TRACE(change.name);
    Stage stage(page);
    FillAndSelect(stage, change.selected);
    change.change(TheCombo(stage));
    EXPECT_EQ(TheCombo(stage).Selected(), change.becomes);
    EXPECT_EQ(TheCombo(stage).Text(), change.text);
  }
}

TEST(ComboContract, FindsRoundTheEndWithoutLetterCase) {
  Stage stage(page);
  FillAndSelect(stage, 0);
  const Combo& c = TheCombo(stage);
  EXPECT_EQ(c.FindPrefix(-1, "2"), 1);
  EXPECT_EQ(c.FindPrefix(1, "2"), 4);
  EXPECT_EQ(c.FindPrefix(4, "2"), 1);
  EXPECT_EQ(c.FindExact(-1, "2"), 4);
  EXPECT_EQ(c.FindExact(2, "DRAFT"), 3);
  EXPECT_EQ(c.FindExact(3, "DRAFT"), 2);
  EXPECT_EQ(c.FindExact(-1, "Draf"), -1);
  EXPECT_EQ(c.FindPrefix(-1, "3"), -1);
}

TEST(ComboContract, KeepsAWordWithEachEntry) {
  Stage stage(page);
  FillAndSelect(stage, 0);
  TheCombo(stage).SetData(1, 77);
  TheCombo(stage).Insert(0, "first");
  EXPECT_EQ(TheCombo(stage).Data(2), 77U);
  EXPECT_EQ(TheCombo(stage).Data(1), 0U);
  EXPECT_EQ(TheCombo(stage).Data(9), 0U);
}

TEST(ComboContract, ScrollsASelectionIntoViewAsLittleAsNeeded) {
  Stage stage(page);
  Combo& c = TheCombo(stage);
  for (int i = 0; i < 40; ++i) c.Add(std::to_string(i));
  c.SelectIndex(39);
  const int lastTop = c.TopIndex();
  const int visible = 40 - lastTop;
  ASSERT_GT(visible, 1);
  c.SelectIndex(38);
  EXPECT_EQ(c.TopIndex(), lastTop);
  c.SelectIndex(3);
  EXPECT_EQ(c.TopIndex(), 3);
  c.SelectIndex(3 + visible);
  EXPECT_EQ(c.TopIndex(), 4);
  c.SetTopIndex(39);
  EXPECT_EQ(c.TopIndex(), lastTop);
  EXPECT_EQ(c.Selected(), 3 + visible);
}

TEST(ComboContract, RemembersItsDroppedWidth) {
  Stage stage(page);
  Combo& c = TheCombo(stage);
  const auto& drops = dynamic_cast<const DropsList&>(c);
  EXPECT_FALSE(drops.WasDropped());
  c.SetDroppedWidth(500);
  EXPECT_EQ(c.DroppedWidth(), 500);
  c.SetDroppedWidth(0);
  EXPECT_EQ(c.DroppedWidth(), c.Place().Width());
  stage.Hands().DropList(c);
  EXPECT_TRUE(drops.WasDropped());
}

TEST(ComboContract, ACallbackThatPicksElsewhereDoesNoHarm) {
  Stage stage(page);
  FillAndSelect(stage, 0);
  stage.handler.on = [&](const std::string& line) {
    if (line == "20 drop") TheCombo(stage).Clear();
  };
  stage.Hands().DropList(TheCombo(stage));
  stage.Hands().PickEntry(TheCombo(stage), 0);
  EXPECT_THAT(stage.Heard(), testing::ElementsAre("20 gained", "20 drop", "20 close up"));
}

}  // namespace
}  // namespace set32

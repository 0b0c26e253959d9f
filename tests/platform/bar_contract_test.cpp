// Tab bars, sliders, scroll bars and spins.
#include "tests/support/contract_case.h"

namespace set32 {
namespace {

enum Id { tabs = 40, slider = 41, scroll = 42, spin = 43, buddy = 44, check = 45, button = 46, address = 47 };

constexpr ControlTemplate controls[] = {
    {tabs, ControlKind::tab, "", 0, 0, 80, 40, 0},         {slider, ControlKind::slider, "", 0, 50, 80, 12, 0},
    {scroll, ControlKind::scroll, "", 0, 70, 80, 12, 0},   {buddy, ControlKind::edit, "", 0, 90, 30, 12, 0},
    {spin, ControlKind::spin, "", 30, 90, 10, 12, 0},      {check, ControlKind::check, "c", 0, 110, 30, 10, 0},
    {button, ControlKind::button, "b", 0, 130, 30, 12, 0}, {address, ControlKind::address, "", 0, 150, 80, 12, 0},
};
constexpr DialogTemplate page{1, "", {100, 180}, "Sans", 8, DialogStyle::child, controls};

const std::vector<std::string> nothing;

TabBar& Tabs(Stage& stage) {
  return stage.Get<TabBar>(tabs);
}
Slider& TheSlider(Stage& stage) {
  return stage.Get<Slider>(slider);
}
ScrollBar& TheScroll(Stage& stage) {
  return stage.Get<ScrollBar>(scroll);
}
Spin& TheSpin(Stage& stage) {
  return stage.Get<Spin>(spin);
}

void AddTabs(Stage& stage, int count) {
  for (int i = 0; i < count; ++i) Tabs(stage).Add("", i);
}

void SpinAt(Stage& stage, int position) {
  TheSpin(stage).SetRange(-10, 10);
  TheSpin(stage).SetBuddy(buddy);
  TheSpin(stage).SetPosition(position);
}

TEST(BarContract, RaisesWhatThePersonDoesAndNothingElse) {
  const auto threeTabs = [](Stage& stage) { AddTabs(stage, 3); };
  const auto spinAt5 = [](Stage& stage) { SpinAt(stage, 5); };
  RunContractCases(
      page,
      {
          {"tabs by the program", threeTabs,
           [](Stage& s) {
             Tabs(s).SetCurrent(2);
             Tabs(s).Remove(2);
             Tabs(s).Clear();
           },
           nothing},
          {"tab chosen",
           threeTabs,
           [](Stage& s) { s.Hands().ChooseTab(Tabs(s), 1); },
           {"40 tab changing", "40 tab changed"}},
          {"current tab chosen", threeTabs, [](Stage& s) { s.Hands().ChooseTab(Tabs(s), 0); }, nothing},
          {"slider by the program",
           {},
           [](Stage& s) {
             TheSlider(s).SetRange(0, 50);
             TheSlider(s).SetPosition(20);
           },
           nothing},
          {"slider's thumb", {}, [](Stage& s) { s.Hands().ScrollTo(TheSlider(s), 5, 30); }, {"41 scrolled 5 30"}},
          {"slider's page", {}, [](Stage& s) { s.Hands().ScrollTo(TheSlider(s), 3, {}); }, {"41 scrolled 3 0"}},
          {"slider let go", {}, [](Stage& s) { s.Hands().Release(TheSlider(s)); }, {"41 released"}},
          {"scroll bar's thumb",
           [](Stage& s) { TheScroll(s).SetRange(0, 10); },
           [](Stage& s) { s.Hands().ScrollTo(TheScroll(s), 4, 7); },
           {"42 scrolled 4 7"}},
          {"scroll bar's end", {}, [](Stage& s) { s.Hands().ScrollTo(TheScroll(s), 8, {}); }, {"42 scrolled 8 0"}},
          {"spin by the program", spinAt5, [](Stage& s) { TheSpin(s).SetPosition(6); }, {"44 update", "44 changed"}},
          {"spin at its position", spinAt5, [](Stage& s) { TheSpin(s).SetPosition(5); }, nothing},
          {"spin's arrow",
           spinAt5,
           [](Stage& s) { s.Hands().SpinBy(TheSpin(s), 2); },
           {"43 delta 5 2", "44 update", "44 changed", "43 scrolled 4 7", "43 scrolled 8 0"}},
          {"spin refused",
           [=](Stage& s) {
             spinAt5(s);
             s.handler.refuseSpin = true;
           },
           [](Stage& s) { s.Hands().SpinBy(TheSpin(s), 2); },
           {"43 delta 5 2", "43 scrolled 4 5", "43 scrolled 8 0"}},
          {"mark by the program", {}, [](Stage& s) { s.Get<CheckButton>(check).SetChecked(true); }, nothing},
          {"check clicked", {}, [](Stage& s) { s.Hands().Click(s.Get<CheckButton>(check)); }, {"45 clicked"}},
          {"button clicked", {}, [](Stage& s) { s.Hands().Click(s.Get<Button>(button)); }, {"46 clicked"}},
          {"hidden button poked",
           [](Stage& s) { s.Get<Button>(button).SetVisible(false); },
           [](Stage& s) { s.Hands().Poke(s.Get<Button>(button)); },
           {"46 clicked"}},
          {"disabled button clicked", [](Stage& s) { s.Get<Button>(button).SetEnabled(false); },
           [](Stage& s) { s.Hands().Click(s.Get<Button>(button)); }, nothing},
      });
}

TEST(BarContract, AClickSetsNoMark) {
  Stage stage(page);
  stage.Hands().Click(stage.Get<CheckButton>(check));
  EXPECT_FALSE(stage.Get<CheckButton>(check).IsChecked());
}

TEST(BarContract, TheCurrentTabFollowsItsTab) {
  Stage stage(page);
  EXPECT_EQ(Tabs(stage).Current(), -1);
  AddTabs(stage, 4);
  EXPECT_EQ(Tabs(stage).Current(), 0);
  Tabs(stage).SetCurrent(2);
  Tabs(stage).Remove(0);
  EXPECT_EQ(Tabs(stage).Current(), 1);
  EXPECT_EQ(Tabs(stage).TabImage(1), 2);
  Tabs(stage).Remove(1);
  EXPECT_EQ(Tabs(stage).Current(), -1);
  EXPECT_EQ(Tabs(stage).Count(), 2);
  Tabs(stage).SetCurrent(1);
  Tabs(stage).Clear();
  EXPECT_EQ(Tabs(stage).Current(), -1);
  AddTabs(stage, 1);
  EXPECT_EQ(Tabs(stage).Current(), 0);
}

TEST(BarContract, TheTabsLeaveAPageItsArea) {
  Stage stage(page);
  AddTabs(stage, 2);
  Tabs(stage).Move({0, 0, 300, 200});
  const Rect area = Tabs(stage).DisplayArea();
  EXPECT_GE(area.left, 0);
  EXPECT_GT(area.top, 10);
  EXPECT_LE(area.right, 300);
  EXPECT_LE(area.bottom, 200);
  EXPECT_GT(area.Width(), 250);
  EXPECT_GT(area.Height(), 130);
}

TEST(BarContract, PositionsAreHeldToTheRange) {
  Stage stage(page);
  Slider& s = TheSlider(stage);
  s.SetRange(10, 20);
  EXPECT_EQ(s.Position(), 10);
  s.SetPosition(25);
  EXPECT_EQ(s.Position(), 20);
  s.SetRange(0, 15);
  EXPECT_EQ(s.Position(), 15);
  stage.Hands().ScrollTo(s, 4, -3);
  EXPECT_EQ(s.Position(), 0);
  stage.Hands().ScrollTo(s, 1, {});
  EXPECT_EQ(s.Position(), 0);
  ScrollBar& bar = TheScroll(stage);
  bar.SetRange(-100, 100);
  bar.SetPosition(-200);
  EXPECT_EQ(bar.Position(), -100);
}

TEST(BarContract, ASpinReckonsFromTheNumberInItsBuddy) {
  struct Step {
    const char* text;
    int delta;
    const char* becomes;
  };
  const Step table[] = {{"7", 1, "8"},  {"-3", -2, "-5"}, {"10", 1, "10"},
                        {"9", 5, "10"}, {"x", 1, "6"},    {"99", 1, "6"}};
  for (const Step& step : table) {
    SCOPED_TRACE(step.text);
    Stage stage(page);
    SpinAt(stage, 5);
    stage.Get<Edit>(buddy).SetText(step.text);
    stage.Hands().SpinBy(TheSpin(stage), step.delta);
    EXPECT_EQ(stage.Get<Edit>(buddy).Text(), step.becomes);
  }
}

TEST(BarContract, AnAddressTellsItsFilledFields) {
  Stage stage(page);
  Address& where = stage.Get<Address>(address);
  std::array<std::uint8_t, 4> fields{};
  EXPECT_EQ(where.Fields(fields), 0);
  stage.Hands().FillAddress(where, {1, 300, 3, std::nullopt});
  EXPECT_EQ(where.Fields(fields), 3);
  EXPECT_EQ(fields, (std::array<std::uint8_t, 4>{1, 255, 3, 0}));
  stage.Hands().FillAddress(where, {10, 0, 0, 9});
  EXPECT_EQ(where.Fields(fields), 4);
  EXPECT_EQ(where.Text(), "10.0.0.9");
}

}  // namespace
}  // namespace set32

// What the keys that move things do in each control, and through which controls Tab runs.
#include "tests/support/contract_case.h"

namespace set32 {
namespace {

enum Id { slider = 60, combo, list, tabs, before, one, two, three, after };

constexpr ControlTemplate controls[] = {
    {slider, ControlKind::slider, "", 0, 0, 80, 12, 0},
    {combo, ControlKind::combo, "", 0, 20, 60, 80, 0},
    {list, ControlKind::list, "", 0, 40, 60, 60, 0},
    {tabs, ControlKind::tab, "", 0, 110, 80, 14, 0},
    {before, ControlKind::check, "b", 0, 130, 30, 10, 0},
    {one, ControlKind::radio, "1", 0, 140, 30, 10, control_flag::groupStart},
    {two, ControlKind::radio, "2", 0, 150, 30, 10, control_flag::disabled},
    {three, ControlKind::radio, "3", 0, 160, 30, 10, 0},
    {after, ControlKind::button, "a", 0, 170, 30, 12, 0},
};
constexpr DialogTemplate page{1, "", {100, 190}, "Sans", 8, DialogStyle::child, controls};
constexpr ControlTemplate sheetControls[] = {{tabs, ControlKind::tab, "", 0, 0, 0, 0, control_flag::fill}};
constexpr DialogTemplate sheet{2, "", {110, 200}, "Sans", 8, DialogStyle::sheet, sheetControls};

// Fills the controls and puts the focus on one of them.
std::function<void(Stage&)> On(int id) {
  return [id](Stage& stage) {
    stage.Get<Slider>(slider).SetRange(-100, 100);
    stage.Get<Slider>(slider).SetLineSize(10);
    for (const char* entry : {"a", "b", "c"}) {
      stage.Get<Combo>(combo).Add(entry);
      stage.Get<List>(list).Add(entry, -1, 0);
      stage.Get<TabBar>(tabs).Add(entry, -1);
    }
    stage.Get<Combo>(combo).SelectIndex(1);
    stage.Get<List>(list).SelectAndFocus(1);
    stage.Get<CheckButton>(one).SetChecked(true);
    stage.Get<CheckButton>(two).SetChecked(false);
    stage.Get<CheckButton>(three).SetChecked(false);
    stage.Hands().Focus(*stage.dialog->Find(id));
  };
}

std::function<void(Stage&)> Press(std::vector<Key> keys) {
  return [keys](Stage& stage) {
    for (const Key key : keys) stage.Hands().PressKey(key);
  };
}

TEST(KeyContract, MovesWhatHasTheFocusAndTellsIt) {
  using enum Key;
  RunContractCases(
      page, {
                {"slider's lines",
                 On(slider),
                 Press({Key::left, up, Key::right, down}),
                 {"60 scrolled 0 0", "60 scrolled 8 0", "60 scrolled 0 0", "60 scrolled 8 0", "60 scrolled 1 0",
                  "60 scrolled 8 0", "60 scrolled 1 0", "60 scrolled 8 0"}},
                {"slider's pages and ends",
                 On(slider),
                 Press({pageUp, pageDown, home, Key::end}),
                 {"60 scrolled 2 0", "60 scrolled 8 0", "60 scrolled 3 0", "60 scrolled 8 0", "60 scrolled 6 0",
                  "60 scrolled 8 0", "60 scrolled 7 0", "60 scrolled 8 0"}},
                {"slider at its ends",
                 On(slider),
                 Press({home, Key::left, pageUp}),
                 {"60 scrolled 6 0", "60 scrolled 8 0", "60 scrolled 8 0", "60 scrolled 8 0"}},
                {"combo", On(combo), Press({down, Key::left}), {"61 chosen", "61 chosen"}},
                {"combo at its end", On(combo), Press({Key::end, down}), {"61 chosen", "61 chosen"}},
                {"list",
                 On(list),
                 Press({down, down}),
                 {"62 row 1 both>focused", "62 row 1 focused>none", "62 row 2 none>both"}},
                {"list's ends",
                 On(list),
                 Press({home, Key::left, up}),
                 {"62 row 1 both>focused", "62 row 1 focused>none", "62 row 0 none>both"}},
                {"tabs", On(tabs), Press({Key::left, Key::right, down}), {"63 tab changing", "63 tab changed"}},
                {"check box", On(before), Press({down, up}), {}},
            });
}

TEST(KeyContract, ASliderMovesByItself) {
  Stage stage(page);
  On(slider)(stage);
  const struct {
    Key key;
    int position;
  } steps[] = {{Key::right, 10}, {Key::down, 20}, {Key::pageUp, -20},   {Key::left, -30}, {Key::home, -100},
               {Key::up, -100},  {Key::end, 100}, {Key::pageDown, 100}, {Key::pageUp, 60}};
  for (const auto& [key, position] : steps) {
    stage.Hands().PressKey(key);
    EXPECT_EQ(stage.Get<Slider>(slider).Position(), position);
  }
}

// The disabled one is passed over, and the arrows stay in the group.
TEST(KeyContract, AnArrowClicksTheNextRadioButton) {
  Stage stage(page);
  On(one)(stage);
  stage.Heard();
  Press({Key::down, Key::right, Key::up})(stage);
  EXPECT_THAT(stage.Heard(), testing::ElementsAre("67 clicked", "65 clicked", "67 clicked"));
}

TEST(KeyContract, TabStopsAtTheMarkedRadioButtonAndRunsThroughTheSheet) {
  RecordingHandler sheetHandler, pageHandler;
  Stage stage(page);  // its page stands beside, and isn't reached
  const auto outer = stage.TheWindows().Create(sheet, stage.host, sheetHandler);
  outer->Get<TabBar>(tabs).Add("page", -1);
  const auto hidden = stage.TheWindows().Create(page, outer->Handle(), pageHandler);
  hidden->SetVisible(false);
  const auto inner = stage.TheWindows().Create(page, outer->Handle(), pageHandler);
  for (const int id : {one, two, three}) inner->Get<CheckButton>(id).SetChecked(id == three);
  stage.Hands().Focus(*inner->Find(before));
  const auto reached = [&](Key key) {
    stage.Hands().PressKey(key);
    if (outer->Focused() != nullptr) return -outer->Focused()->Id();
    return inner->Focused() == nullptr ? 0 : inner->Focused()->Id();
  };
  for (const int id : {+three, +after, -tabs, +slider}) EXPECT_EQ(reached(Key::tab), id);
  for (const int id : {-tabs, +after, +three, +before}) EXPECT_EQ(reached(Key::backtab), id);
}

}  // namespace
}  // namespace set32

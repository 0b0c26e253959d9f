// Where the focus goes, who is told, and what the keys that a dialog answers do.
#include "tests/support/contract_case.h"

namespace set32 {
namespace {

enum Id { first = 50, second = 51, combo = 52, button = 53, off = 54, label = 55, usual = 56 };

constexpr ControlTemplate controls[] = {
    {label, ControlKind::label, "text", 0, 0, 40, 10, 0},
    {first, ControlKind::edit, "", 0, 20, 40, 12, 0},
    {off, ControlKind::edit, "", 0, 40, 40, 12, control_flag::disabled},
    {second, ControlKind::edit, "", 0, 60, 40, 12, 0},
    {combo, ControlKind::combo, "", 0, 80, 40, 60, 0},
    {button, ControlKind::button, "go", 0, 100, 40, 12, 0},
};
constexpr DialogTemplate page{1, "", {100, 140}, "Sans", 8, DialogStyle::child, controls};

const std::vector<std::string> nothing;

void FocusFirst(Stage& stage) {
  stage.Hands().Focus(stage.Get<Edit>(first));
}

TEST(FocusContract, TellsTheControlsBetweenWhichItMoves) {
  using Act = void (*)(Stage&);
  const Act disable = [](Stage& s) { s.Get<Edit>(first).SetEnabled(false); };
  RunContractCases(
      page,
      {
          {"gained", {}, FocusFirst, {"50 gained"}},
          {"gained again", FocusFirst, FocusFirst, nothing},
          {"to an edit", FocusFirst, [](Stage& s) { s.Get<Edit>(second).SetFocus(); }, {"50 lost", "51 gained"}},
          {"to a combo",
           FocusFirst,
           [](Stage& s) { s.Hands().Focus(s.Get<Combo>(combo)); },
           {"50 lost", "52 gained"}},
          {"to a button", FocusFirst, [](Stage& s) { s.Hands().Focus(s.Get<Button>(button)); }, {"50 lost"}},
          {"to a label", FocusFirst, [](Stage& s) { s.Get<Label>(label).SetFocus(); }, nothing},
          {"to a disabled edit", FocusFirst, [](Stage& s) { s.Get<Edit>(off).SetFocus(); }, nothing},
          {"to the page itself", FocusFirst, [](Stage& s) { s.dialog->TakeFocus(); }, {"50 lost"}},
          {"to the host", FocusFirst, [](Stage& s) { s.Hands().FocusHost(); }, {"50 lost"}},
          {"disabled", FocusFirst, disable, {"50 lost"}},
          {"disabled without it", {}, disable, nothing},
          {"hidden", FocusFirst, [](Stage& s) { s.Get<Edit>(first).SetVisible(false); }, {"50 lost"}},
          {"page hidden", FocusFirst, [](Stage& s) { s.dialog->SetVisible(false); }, {"not shown", "50 lost"}},
          {"page destroyed", FocusFirst, [](Stage& s) { s.dialog->Destroy(); }, {"destroying", "destroyed"}},
          {"host destroyed",
           FocusFirst,
           [](Stage& s) { s.Hands().DestroyHostWindow(s.host); },
           {"50 lost", "destroying", "destroyed"}},
          {"left by a click",
           FocusFirst,
           [](Stage& s) { s.Hands().Click(s.Get<Button>(button)); },
           {"50 lost", "53 clicked"}},
      });
}

// The control on the way had the focus, though it was never told so.
TEST(FocusContract, OneThatMovesInsideTheReportWins) {
  Stage stage(page);
  FocusFirst(stage);
  stage.Heard();
  stage.handler.on = [&](const std::string& line) {
    if (line == "50 lost") stage.Get<Combo>(combo).SetFocus();
  };
  stage.Get<Edit>(second).SetFocus();
  EXPECT_THAT(stage.Heard(), testing::ElementsAre("50 lost", "51 lost", "52 gained"));
  EXPECT_EQ(stage.dialog->Focused(), stage.dialog->Find(combo));
}

TEST(FocusContract, AControlThatLeavingTheEditDisabledTakesNoClick) {
  Stage stage(page);
  FocusFirst(stage);
  stage.Heard();
  stage.handler.on = [&](const std::string& line) {
    if (line == "50 lost") stage.Get<Button>(button).SetEnabled(false);
  };
  stage.Hands().Click(stage.Get<Button>(button));
  EXPECT_THAT(stage.Heard(), testing::ElementsAre("50 lost"));
}

TEST(FocusContract, TabRunsOverWhatCanTakeIt) {
  Stage stage(page);
  stage.Get<Combo>(combo).SetVisible(false);
  FocusFirst(stage);
  std::vector<int> visited;
  for (int i = 0; i < 3; ++i) {
    stage.Hands().PressKey(Key::tab);
    visited.push_back(stage.dialog->Focused() == nullptr ? 0 : stage.dialog->Focused()->Id());
  }
  EXPECT_THAT(visited, testing::ElementsAre(second, button, first));
}

TEST(FocusContract, TheFocusSelectsNothingByItselfButTabDoes) {
  Stage stage(page);
  stage.Get<Edit>(second).SetText("abc");
  stage.Get<Edit>(second).SetFocus();
  EXPECT_EQ(stage.Get<Edit>(second).Selection(), TextRange{});
  FocusFirst(stage);
  stage.Hands().PressKey(Key::tab);
  EXPECT_EQ(stage.Get<Edit>(second).Selection(), (TextRange{0, 3}));
}

TEST(FocusContract, KeysReachTheDialogThatHasIt) {
  RunContractCases(
      page, {
                {"enter in an edit", FocusFirst, [](Stage& s) { s.Hands().PressKey(Key::enter); }, {"ok"}},
                {"escape in an edit", FocusFirst, [](Stage& s) { s.Hands().PressKey(Key::escape); }, {"cancel"}},
                {"enter on a push button",
                 [](Stage& s) { s.Hands().Focus(s.Get<Button>(button)); },
                 [](Stage& s) { s.Hands().PressKey(Key::enter); },
                 {"53 clicked"}},
                {"at the host", [](Stage& s) { s.Hands().FocusHost(); },
                 [](Stage& s) {
                   s.Hands().PressKey(Key::enter);
                   s.Hands().PressKey(Key::escape);
                 },
                 nothing},
            });
}

constexpr ControlTemplate okControls[] = {
    {first, ControlKind::edit, "", 0, 0, 40, 12, 0},
    {usual, ControlKind::defaultButton, "usual", 0, 20, 40, 12, 0},
    {dialog_result::ok, ControlKind::button, "ok", 0, 40, 40, 12, 0},
    {dialog_result::cancel, ControlKind::button, "cancel", 0, 60, 40, 12, 0},
};
constexpr DialogTemplate okPage{2, "", {100, 100}, "Sans", 8, DialogStyle::child, okControls};

TEST(FocusContract, EnterClicksTheDefaultButtonAndButtonsOneAndTwoAreOkAndCancel) {
  const auto enter = [](Stage& s) { s.Hands().PressKey(Key::enter); };
  RunContractCases(
      okPage, {
                  {"default button", FocusFirst, enter, {"56 clicked"}},
                  {"disabled default button",
                   [](Stage& s) {
                     FocusFirst(s);
                     s.Get<Button>(usual).SetEnabled(false);
                   },
                   enter, nothing},
                  {"ok", {}, [](Stage& s) { s.Hands().Click(s.Get<Button>(dialog_result::ok)); }, {"ok"}},
                  {"cancel", {}, [](Stage& s) { s.Hands().Click(s.Get<Button>(dialog_result::cancel)); }, {"cancel"}},
                  {"enter on cancel",
                   [](Stage& s) { s.Hands().Focus(s.Get<Button>(dialog_result::cancel)); },
                   enter,
                   {"cancel"}},
              });
}

}  // namespace
}  // namespace set32

// What a handler throws goes no further than the window that told it.
#include "tests/support/contract_case.h"

namespace set32 {
namespace {

using testing::ElementsAre;

enum Id { edit = 60, field = 61 };

constexpr ControlTemplate controls[] = {{edit, ControlKind::edit, "", 7, 20, 40, 12, 0}};
constexpr DialogTemplate page{1, "page", {100, 100}, "Sans", 8, DialogStyle::child, controls};
constexpr ControlTemplate popUpControls[] = {{field, ControlKind::edit, "", 0, 0, 40, 12, 0}};
constexpr DialogTemplate modal{2, "modal", {80, 40}, "Sans", 8, DialogStyle::modalPopup, popUpControls};

struct Trouble {};

struct FailingHandler : testing::Test {
  FailingHandler() {
    stage.handler.on = popUp.on = [](const std::string&) { throw Trouble(); };
  }
  RecordingHandler popUp;
  Stage stage{page};

  struct Guard : EditGuard {
    bool OnCharacter(std::string_view) override { throw Trouble(); }
    bool OnPaste() override { throw Trouble(); }
    void OnEnterKey() override { throw Trouble(); }
  };
};

TEST_F(FailingHandler, LosesTheRestOfAnEventAndHearsTheNext) {
  stage.Get<Edit>(edit).SetText("x");
  stage.dialog->Move({0, 0, 300, 200});
  EXPECT_EQ(stage.TheWindows().Send(stage.dialog->Handle(), 0x410, 1, 2), 0);
  stage.dialog->Destroy();
  EXPECT_THAT(stage.Heard(), ElementsAre("60 update", "60 changed", "resize 300 200", "message 1040 1 2",
                                         "destroying", "destroyed"));
}

TEST_F(FailingHandler, OfAnEditsKeysRefusesThem) {
  Guard guard;
  auto& text = stage.Get<Edit>(edit);
  text.SetGuard(&guard);
  stage.Hands().Focus(text);
  stage.Hands().TypeText(text, "x");
  stage.Hands().PressKey(Key::enter);
  EXPECT_EQ(text.Text(), "");
}

TEST_F(FailingHandler, LeavesAModalRunToItsEnd) {
  stage.Watch().SetOpenedHook([](Dialog& dialog) {
    dialog.Get<Edit>(field).SetText("x");
    dialog.EndModal(dialog_result::ok);
  });
  EXPECT_EQ(stage.TheWindows().RunModal(modal, stage.dialog->Handle(), popUp), dialog_result::ok);
  stage.Get<Edit>(edit).SetFocus();
  EXPECT_TRUE(stage.Get<Edit>(edit).HasFocus());  // its window isn't disabled
}

TEST_F(FailingHandler, HasNoDialogWhenItsStartFails) {
  popUp.init = [](Dialog&) { throw Trouble(); };
  EXPECT_THROW(stage.TheWindows().Create(page, stage.host, popUp), Trouble);
  EXPECT_THROW(stage.TheWindows().RunModal(modal, stage.dialog->Handle(), popUp), Trouble);
  EXPECT_THAT(popUp.Take(), ElementsAre("init", "init"));
  EXPECT_THAT(stage.Watch().Standing(), ElementsAre(stage.dialog.get()));
  stage.Get<Edit>(edit).SetFocus();
  EXPECT_TRUE(stage.Get<Edit>(edit).HasFocus());
}

}  // namespace
}  // namespace set32

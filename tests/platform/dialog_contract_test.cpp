// How dialogs appear, run and end.
#include "apps/stage/inspection.h"
#include "tests/support/contract_case.h"

namespace set32 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

enum Id { edit = 60, field = 61, list = 62, button = 63 };

constexpr ControlTemplate controls[] = {
    {edit, ControlKind::edit, "", 7, 20, 40, 12, 0},
    {list, ControlKind::list, "", 0, 40, 40, 12, 0},
    {button, ControlKind::button, "go", 0, 60, 40, 12, control_flag::hidden},
};
constexpr DialogTemplate page{1, "page", {100, 100}, "Sans", 8, DialogStyle::child, controls};

constexpr ControlTemplate popUpControls[] = {
    {field, ControlKind::edit, "", 0, 0, 40, 12, 0},
    {dialog_result::ok, ControlKind::defaultButton, "ok", 0, 20, 40, 12, 0},
};
constexpr DialogTemplate modal{2, "modal", {80, 40}, "Sans", 8, DialogStyle::modalPopup, popUpControls};
constexpr DialogTemplate modeless{3, "modeless", {80, 40}, "Sans", 8, DialogStyle::modelessPopup, popUpControls};
constexpr DialogTemplate notice{6, "notice", {80, 40}, "Sans", 8, DialogStyle::notePopup, popUpControls};
constexpr DialogTemplate bare{4, "", {80, 40}, "Sans", 8, DialogStyle::bare, {}};
constexpr DialogTemplate sheet{5, "", {0, 0}, "Sans", 8, DialogStyle::sheet, {}};

struct DialogContract : public testing::Test {
  Stage stage{page};
  RecordingHandler popUp;
};

TEST_F(DialogContract, AChildIsShownOnceItStandsAndTakesNoFocus) {
  RecordingHandler handler;
  handler.init = [](Dialog& dialog) {
    EXPECT_FALSE(dialog.IsVisible());
    EXPECT_TRUE(dialog.Get<Edit>(edit).Exists());
  };
  const auto child = stage.TheWindows().Create(page, stage.host, handler);
  EXPECT_THAT(handler.Take(), ElementsAre("init", "shown"));
  EXPECT_TRUE(child->IsVisible());
  EXPECT_TRUE(child->IsChild());
  EXPECT_EQ(child->Focused(), nullptr);
  EXPECT_FALSE(child->Get<Button>(button).IsVisible());
}

TEST_F(DialogContract, NothingIsCreatedWithoutAParentOrThatDiesAtItsStart) {
  EXPECT_EQ(stage.TheWindows().Create(page, 0, popUp), nullptr);
  EXPECT_EQ(stage.TheWindows().Create(modeless, 0xDEAD, popUp), nullptr);
  popUp.init = [](Dialog& dialog) { dialog.Destroy(); };
  EXPECT_EQ(stage.TheWindows().Create(page, stage.host, popUp), nullptr);
  EXPECT_THAT(popUp.Take(), ElementsAre("init", "destroying", "destroyed"));
  EXPECT_EQ(stage.TheWindows().RunModal(modal, 0xDEAD, popUp), dialog_result::cancel);
}

TEST_F(DialogContract, AResizeIsToldWhenTheClientSizeChanges) {
  stage.dialog->Move({10, 20, 210, 320});
  stage.dialog->Move({30, 20, 230, 320});
  stage.Hands().Resize(*stage.dialog, {150, 160});
  EXPECT_THAT(stage.Heard(), ElementsAre("resize 200 300", "resize 150 160"));
  EXPECT_EQ(stage.dialog->ClientSize(), (Size{150, 160}));
  EXPECT_EQ(stage.dialog->Place().left, 30);
}

TEST_F(DialogContract, ControlsOfOtherIdsOrTypesDoNothing) {
  EXPECT_EQ(stage.dialog->Find(999), nullptr);
  EXPECT_FALSE(stage.Get<Combo>(edit).Exists());
  stage.Get<Combo>(edit).SetText("x");
  EXPECT_EQ(stage.Get<Combo>(edit).Add("x"), -1);
  EXPECT_EQ(stage.Get<Edit>(edit).Text(), "");
}

TEST_F(DialogContract, AModalRunTakesTheFocusAndGivesItBackWithoutAWord) {
  stage.Get<Edit>(edit).SetFocus();
  stage.Heard();
  std::vector<std::string> order;
  stage.Watch().SetOpeningHook([&](Dialog& dialog) {
    EXPECT_THAT(popUp.Take(), IsEmpty());
    order.push_back("opening " + std::to_string(dialog.TemplateId()));
  });
  stage.Watch().SetOpenedHook([&](Dialog& dialog) {
    order.emplace_back("opened");
    EXPECT_THAT(stage.Heard(), ElementsAre("60 lost"));
    EXPECT_THAT(popUp.Take(), ElementsAre("init", "shown", "61 gained"));
    EXPECT_TRUE(dialog.Get<Edit>(field).HasFocus());
    stage.Get<Edit>(edit).SetFocus();  // its window is disabled meanwhile
    EXPECT_TRUE(dialog.Get<Edit>(field).HasFocus());
    stage.Hands().PressKey(Key::enter);
    EXPECT_FALSE(dialog.IsVisible());
    EXPECT_THAT(popUp.Take(), ElementsAre("ok", "61 lost"));
  });
  stage.Watch().SetClosedHook([&](Dialog& dialog, int result) {
    order.push_back("closed " + std::to_string(dialog.TemplateId()) + " " + std::to_string(result));
    EXPECT_THAT(popUp.Take(), IsEmpty());
  });
  EXPECT_EQ(stage.TheWindows().RunModal(modal, stage.dialog->Handle(), popUp), dialog_result::ok);
  EXPECT_THAT(order, ElementsAre("opening 2", "opened", "closed 2 1"));
  EXPECT_THAT(popUp.Take(), ElementsAre("destroying", "destroyed"));
  EXPECT_TRUE(stage.Get<Edit>(edit).HasFocus());
  EXPECT_THAT(stage.Heard(), IsEmpty());
}

TEST_F(DialogContract, AModalRunEndsByWhatHappensInside) {
  struct Ending {
    const char* name;
    std::function<void(Dialog&)> atStart, inside;
    int result;
  };
  const Ending table[] = {
      {"any result", {}, [](Dialog& dialog) { dialog.EndModal(42); }, 42},
      {"escape", {}, [&](Dialog&) { stage.Hands().PressKey(Key::escape); }, dialog_result::cancel},
      {"close message", {}, [&](Dialog& dialog) { stage.Hands().SendClose(dialog); }, dialog_result::cancel},
      {"at its start", [](Dialog& dialog) { dialog.EndModal(7); }, [](Dialog&) { ADD_FAILURE() << "shown"; }, 7},
      {"its owner dies", {}, [&](Dialog&) { stage.dialog->Destroy(); }, dialog_result::cancel},
  };
  for (const Ending& ending : table) {
    SCOPED_TRACE(ending.name);
    RecordingHandler handler;
    handler.init = ending.atStart;
    stage.Watch().SetOpenedHook(ending.inside);
    EXPECT_EQ(stage.TheWindows().RunModal(modal, stage.dialog->Handle(), handler), ending.result);
    EXPECT_EQ(handler.Take().back(), "destroyed");
  }
}

TEST_F(DialogContract, AModelessPopUpIsHiddenByOkAndShownAgain) {
  int opened = 0, closed = 0;
  stage.Watch().SetOpenedHook([&](Dialog&) { ++opened; });
  stage.Watch().SetClosedHook([&](Dialog&, int) { ++closed; });
  const auto dialog = stage.TheWindows().Create(modeless, stage.host, popUp);
  EXPECT_FALSE(dialog->IsVisible());
  EXPECT_EQ(opened, 0);
  for (int round = 1; round <= 2; ++round) {
    popUp.Take();
    dialog->SetVisible(true);
    EXPECT_THAT(popUp.Take(), ElementsAre("shown", "61 gained"));
    EXPECT_EQ(opened, round);
    stage.Hands().PressKey(Key::enter);
    EXPECT_FALSE(dialog->IsVisible());
    EXPECT_EQ(closed, round);
    EXPECT_THAT(popUp.Take(), ElementsAre("ok", "not shown", "61 lost"));
  }
  dialog->Destroy();
  EXPECT_EQ(closed, 2);
  EXPECT_THAT(popUp.Take(), ElementsAre("destroying", "destroyed"));
}

TEST_F(DialogContract, APopUpCentresOnThePointerWithinTheScreen) {
  const auto placeAt = [&](Point pointer) {
    stage.Hands().MovePointer(*stage.dialog, pointer);
    RecordingHandler handler;
    handler.init = [](Dialog& dialog) { dialog.CentreOnPointer(); };
    return stage.TheWindows().Create(modeless, stage.host, handler)->Place();
  };
  const Rect first = placeAt({200, 210});
  const Rect second = placeAt({240, 230});
  EXPECT_EQ(second.left - first.left, 40);
  EXPECT_EQ(second.top - first.top, 20);
  EXPECT_EQ(placeAt({-500, 210}).left, 0);
  EXPECT_EQ(placeAt({200, -500}).top, 0);
  const Rect corner = placeAt({30000, 30000});
  EXPECT_GT(corner.left, second.left);
  EXPECT_LE(corner.right, stage.TheWindows().FullScreen().width);
}

TEST_F(DialogContract, AModelessPopUpIsMovedOnTheScreenAndKeepsItsKeys) {
  const auto dialog = stage.TheWindows().Create(modeless, stage.host, popUp);
  const Rect place = dialog->Place();
  dialog->Move({70, 80, 70 + place.Width(), 80 + place.Height()});
  EXPECT_EQ(dialog->Place(), (Rect{70, 80, 70 + place.Width(), 80 + place.Height()}));
  dialog->SetVisible(true);
  stage.Hands().PressKey(Key::tab);
  EXPECT_TRUE(dialog->Find(dialog_result::ok)->HasFocus());
  stage.Hands().PressKey(Key::tab);
  EXPECT_TRUE(dialog->Find(field)->HasFocus());
  popUp.Take();
  popUp.runDefaults = false;
  stage.Hands().PressKey(Key::escape);
  stage.Hands().SendClose(*dialog);
  EXPECT_THAT(popUp.Take(), ElementsAre("cancel", "cancel"));
  EXPECT_THAT(stage.Heard(), IsEmpty());
}

TEST_F(DialogContract, APopUpBehindOthersTakesAClickOnOneControlAlone) {
  stage.Get<Edit>(edit).SetFocus();
  const auto dialog = stage.TheWindows().Create(modeless, stage.host, popUp);
  dialog->SetVisible(true);
  stage.Hands().FocusHost();
  popUp.Take();
  stage.Hands().Focus(*dialog->Find(dialog_result::ok));
  stage.Hands().Pump();
  EXPECT_THAT(popUp.Take(), IsEmpty());
  EXPECT_TRUE(dialog->Find(dialog_result::ok)->HasFocus());
  stage.Hands().FocusHost();
  stage.Heard();
  dialog->Destroy();
  EXPECT_FALSE(stage.Get<Edit>(edit).HasFocus()) << "a person has moved the focus elsewhere";
}

TEST_F(DialogContract, APopUpWithoutControlsTakesTheFocusItself) {
  stage.Get<Edit>(edit).SetFocus();
  stage.Heard();
  const auto dialog = stage.TheWindows().Create(bare, stage.dialog->Handle(), popUp);
  dialog->SetVisible(true);
  EXPECT_THAT(stage.Heard(), ElementsAre("60 lost"));
  dialog->Destroy();
  EXPECT_TRUE(stage.Get<Edit>(edit).HasFocus());
  EXPECT_THAT(stage.Heard(), IsEmpty());
}

TEST_F(DialogContract, ANoteLeavesTheFocusUntilAPersonTurnsToIt) {
  stage.Get<Edit>(edit).SetFocus();
  stage.Heard();
  const auto dialog = stage.TheWindows().Create(notice, stage.host, popUp);
  for (int round = 1; round <= 2; ++round) {
    popUp.Take();
    dialog->SetVisible(true);
    EXPECT_TRUE(stage.Get<Edit>(edit).HasFocus());
    EXPECT_THAT(stage.Heard(), IsEmpty());
    stage.Hands().Click(dialog->Get<Button>(dialog_result::ok));
    EXPECT_THAT(stage.Heard(), ElementsAre("60 lost"));
    EXPECT_THAT(popUp.Take(), ElementsAre("shown", "ok", "not shown"));
    EXPECT_FALSE(dialog->IsVisible());
    EXPECT_TRUE(stage.Get<Edit>(edit).HasFocus());
  }
}

TEST_F(DialogContract, TheWorkAreaLiesOnTheScreen) {
  const Rect area = stage.TheWindows().WorkAreaAt({0, 0, 10, 10});
  EXPECT_GT(area.Width(), 0);
  EXPECT_EQ(stage.TheWindows().WorkAreaAt({area.right + 5000, 0, area.right + 5010, 10}), area) << "the nearest";
}

TEST_F(DialogContract, WindowsDieWithTheirParents) {
  RecordingHandler sheetHandler, pageHandler;
  const auto outer = stage.TheWindows().Create(sheet, stage.host, sheetHandler);
  const auto inner = stage.TheWindows().Create(page, outer->Handle(), pageHandler);
  const auto owned = stage.TheWindows().Create(modeless, inner->Handle(), popUp);
  const WindowHandle handle = inner->Handle();
  inner->Get<Edit>(edit).SetText("abc");
  std::vector<std::string> order;
  const auto note = [&](const char* who) {
    return [&order, who](const std::string& line) { order.push_back(who + (" " + line)); };
  };
  sheetHandler.on = note("sheet");
  pageHandler.on = note("page");
  popUp.on = note("pop-up");

  stage.Hands().DestroyHostWindow(stage.host);
  EXPECT_THAT(order, ElementsAre("pop-up destroying", "pop-up destroyed", "sheet destroying", "page destroying",
                                 "page destroyed", "sheet destroyed"));
  EXPECT_FALSE(inner->IsAlive());
  EXPECT_EQ(inner->Handle(), 0U);
  EXPECT_FALSE(stage.TheWindows().IsWindow(handle));
  EXPECT_EQ(stage.TheWindows().Send(handle, 0x403, 1, 2), 0);
  EXPECT_THAT(stage.Watch().Standing(), IsEmpty());

  Edit& dead = inner->Get<Edit>(edit);
  dead.SetText("x");
  dead.SetFocus();
  EXPECT_FALSE(dead.Exists() || dead.HasFocus() || dead.IsEnabled());
  EXPECT_EQ(dead.Text(), "");
  EXPECT_EQ(inner->Get<List>(list).Add("row", 0, 0), -1);
  EXPECT_EQ(inner->Place(), Rect{});
}

TEST_F(DialogContract, EverythingStandsWhileItsEndIsAnnounced) {
  stage.Get<Edit>(edit).SetText("abc");
  std::string seen;
  stage.handler.on = [&](const std::string& line) {
    if (line == "destroying") seen = stage.Get<Edit>(edit).Text();
    if (line == "destroyed") seen += stage.Get<Edit>(edit).Exists() ? "!" : ".";
  };
  stage.dialog->Destroy();
  EXPECT_EQ(seen, "abc.");
}

TEST_F(DialogContract, ReleasingTheObjectTellsNobody) {
  stage.Heard();
  const WindowHandle handle = stage.dialog->Handle();
  stage.dialog.reset();
  EXPECT_THAT(stage.Heard(), IsEmpty());
  EXPECT_FALSE(stage.TheWindows().IsWindow(handle));
}

// Handlers release their dialog, or end its parent, inside whatever they hear.
TEST_F(DialogContract, ADialogCanGoInsideEachOfItsEvents) {
  struct End {
    const char* event;
    std::function<void(Stage&)> act;
  };
  const End table[] = {
      {"60 update", [](Stage& s) { s.Get<Edit>(edit).SetText("x"); }},
      {"60 changed", [](Stage& s) { s.Hands().TypeText(s.Get<Edit>(edit), "xyz"); }},
      {"60 lost", [](Stage& s) { s.Hands().ClickRow(s.Get<List>(list), 0); }},
      {"62 row 0 none>both", [](Stage& s) { s.Hands().ClickRow(s.Get<List>(list), 0); }},
      {"resize 50 60",
       [](Stage& s) {
         s.dialog->Move({0, 0, 50, 60});
       }},
      {"not shown", [](Stage& s) { s.dialog->SetVisible(false); }},
      {"disabled", [](Stage& s) { s.dialog->SetEnabled(false); }},
      {"ok", [](Stage& s) { s.Hands().PressKey(Key::enter); }},
      {"cancel", [](Stage& s) { s.Hands().SendClose(*s.dialog); }},
      {"pointer 3 4",
       [](Stage& s) {
         s.Hands().MovePointer(*s.dialog, {3, 4});
       }},
      {"message 1027 5 6", [](Stage& s) { s.TheWindows().Send(s.dialog->Handle(), 0x403, 5, 6); }},
      {"destroying", [](Stage& s) { s.dialog->Destroy(); }},
      {"destroyed", [](Stage& s) { s.dialog->Destroy(); }},
  };
  for (const End& end : table) {
    for (const bool release : {true, false}) {
      SCOPED_TRACE(std::string(end.event) + (release ? ", released" : ", host destroyed"));
      Stage one(page);
      one.Get<List>(list).Add("row", 0, 0);
      one.Get<Edit>(edit).SetFocus();
      one.Heard();
      one.handler.on = [&](const std::string& line) {
        if (line != end.event) return;
        one.handler.on = nullptr;
        one.handler.runDefaults = !release;
        if (release) {
          one.dialog.reset();
        } else {
          one.Hands().DestroyHostWindow(one.host);
        }
      };
      end.act(one);
      EXPECT_FALSE(one.handler.on) << "the event never came";
      EXPECT_THAT(one.Watch().Standing(), IsEmpty());
    }
  }
}

TEST_F(DialogContract, MessagesReachTheirWindow) {
  EXPECT_EQ(stage.TheWindows().Send(stage.dialog->Handle(), 0x403, 1, -2), 7);
  EXPECT_THAT(stage.Heard(), ElementsAre("message 1027 1 -2"));
  stage.TheWindows().Invalidate(stage.host);
  stage.Hands().Pump();
  EXPECT_EQ(stage.hostHandler.repaints, 1);
}

TEST_F(DialogContract, RepaintsWaitForTheLoopOrTheUpdate) {
  stage.handler.recordPaint = true;
  stage.dialog->Invalidate();
  stage.dialog->Update();
  EXPECT_THAT(stage.Heard(), ElementsAre("0 paint"));
  stage.dialog->Update();
  stage.Hands().Pump();
  EXPECT_THAT(stage.Heard(), IsEmpty());
  stage.dialog->Invalidate();
  stage.dialog->SetVisible(false);
  stage.Hands().Pump();
  stage.dialog->SetVisible(true);
  stage.Hands().Pump();
  EXPECT_THAT(stage.Heard(), ElementsAre("not shown", "shown", "0 paint"));
}

TEST_F(DialogContract, TipsAreKeptByControl) {
  stage.dialog->Tips().Activate();
  stage.dialog->Tips().AddTool(edit, "width");
  stage.dialog->Tips().AddTool(edit, Rect{0, 0, 5, 5}, "part");
  const auto& tips = dynamic_cast<const TellsTips&>(stage.dialog->Tips());
  EXPECT_EQ(tips.TextAt(edit, 0), "width");
  EXPECT_EQ(tips.TextAt(list, 0), "");
}

}  // namespace
}  // namespace set32

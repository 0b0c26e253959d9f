// What the mouse itself does to sliders, scroll bars and spins, and what a frame shows between two drawings.
#include "platform/win32/handle.h"
#include "platform/win32/rects.h"
#include "tests/support/contract_case.h"

#include <commctrl.h>

namespace set32 {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Ge;
using testing::IsEmpty;

enum Id { slider = 70, combo, scroll, freeSpin, spin, buddy, frame };

constexpr ControlTemplate controls[] = {
    {slider, ControlKind::slider, "", 0, 0, 120, 16, 0},  {combo, ControlKind::combo, "", 0, 20, 60, 80, 0},
    {scroll, ControlKind::scroll, "", 0, 40, 100, 12, 0}, {freeSpin, ControlKind::spin, "", 0, 60, 10, 20, 0},
    {buddy, ControlKind::edit, "", 0, 90, 30, 20, 0},     {spin, ControlKind::spin, "", 30, 90, 10, 20, 0},
    {frame, ControlKind::frame, "", 60, 90, 40, 40, 0},
};
constexpr DialogTemplate page{1, "", {140, 140}, "Sans", 8, DialogStyle::child, controls};

constexpr Colour red{255, 0, 0};

class HandsOnControls : public testing::Test {
 protected:
  HandsOnControls() {
    TheSlider().SetRange(-100, 100);
    stage.Get<ScrollBar>(scroll).SetRange(0, 100000);
    stage.Get<ScrollBar>(scroll).SetPosition(50000);
    for (const char* entry : {"a", "b", "c"}) stage.Get<Combo>(combo).Add(entry);
    stage.Get<Combo>(combo).SelectIndex(1);
    stage.Get<Spin>(spin).SetBuddy(buddy);
    stage.Get<Spin>(spin).SetRange(0, 10);
    stage.Get<Spin>(spin).SetPosition(5);
    stage.Heard();
  }

  Slider& TheSlider() { return stage.Get<Slider>(slider); }
  HWND Page() const { return reinterpret_cast<HWND>(stage.dialog->Handle()); }
  HWND At(int id) const { return GetDlgItem(Page(), id); }
  static LPARAM Where(Point at) { return MAKELPARAM(at.x, at.y); }
  Point MiddleOf(int id) const {
    const Size size = win32::ClientSizeOf(At(id));
    return {size.width / 2, size.height / 2};
  }
  void Turn(int delta) const {
    SendMessageW(At(slider), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), Where({0, 0}));
  }
  // Scroll bars wait in a loop of their own until the button is up.
  void Press(int id, Point at, Point up) {
    PostMessageW(At(id), WM_MOUSEMOVE, MK_LBUTTON, Where(up));
    PostMessageW(At(id), WM_LBUTTONUP, 0, Where(up));
    SendMessageW(At(id), WM_LBUTTONDOWN, MK_LBUTTON, Where(at));
    stage.Hands().Pump();
  }

  Stage stage{page};
};

TEST_F(HandsOnControls, ANotchOfTheWheelIsOneLineAndTheSliderStays) {
  Turn(WHEEL_DELTA);
  EXPECT_THAT(stage.Heard(), ElementsAre("70 scrolled 1 0", "70 scrolled 8 0"));
  Turn(-2 * WHEEL_DELTA);
  EXPECT_THAT(stage.Heard(), ElementsAre("70 scrolled 0 0", "70 scrolled 8 0", "70 scrolled 0 0", "70 scrolled 8 0"));
  for (const int part : {80, 80, -80}) Turn(part);
  EXPECT_THAT(stage.Heard(), ElementsAre("70 scrolled 1 0", "70 scrolled 8 0"));
  EXPECT_EQ(TheSlider().Position(), 0);
}

TEST_F(HandsOnControls, TheWheelGoesToTheSliderUnderThePointer) {
  const auto turnOver = [this](int id) {
    POINT at{MiddleOf(id).x, MiddleOf(id).y};
    ClientToScreen(At(id), &at);
    PostMessageW(GetFocus(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), Where({at.x, at.y}));
    stage.Hands().Pump();
    return stage.Heard();
  };
  stage.Get<Combo>(combo).SetFocus();
  stage.Heard();
  EXPECT_THAT(turnOver(slider), ElementsAre("70 scrolled 1 0", "70 scrolled 8 0"));
  EXPECT_EQ(stage.Get<Combo>(combo).Selected(), 1);
  TheSlider().SetEnabled(false);
  EXPECT_THAT(turnOver(slider), testing::Each(testing::Not(testing::StartsWith("70"))));
}

TEST_F(HandsOnControls, ADialogThatEndsInsideANotchHearsNoMore) {
  stage.handler.on = [this](const std::string&) { stage.dialog.reset(); };
  Turn(3 * WHEEL_DELTA);
  EXPECT_THAT(stage.Heard(), ElementsAre("70 scrolled 1 0"));
}

// Some systems tell the end of a scroll more than once.
TEST_F(HandsOnControls, ASliderIsDraggedAndPaged) {
  RECT thumb{};
  SendMessageW(At(slider), TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
  const Point on{(thumb.left + thumb.right) / 2, (thumb.top + thumb.bottom) / 2};
  SendMessageW(At(slider), WM_LBUTTONDOWN, MK_LBUTTON, Where(on));
  SendMessageW(At(slider), WM_MOUSEMOVE, MK_LBUTTON, Where({on.x + 20, on.y}));
  const std::string reached = std::to_string(TheSlider().Position());
  EXPECT_GT(TheSlider().Position(), 0);
  EXPECT_THAT(stage.Heard(), ElementsAre("70 scrolled 5 " + reached));
  SendMessageW(At(slider), WM_LBUTTONUP, 0, Where({on.x + 20, on.y}));
  EXPECT_THAT(stage.Heard(), AllOf(Contains("70 scrolled 4 " + reached), Contains("70 scrolled 8 0").Times(Ge(1)),
                                   Contains("70 released").Times(1)));

  TheSlider().SetPosition(0);
  SendMessageW(At(slider), WM_LBUTTONDOWN, MK_LBUTTON, Where({on.x + 60, on.y}));
  SendMessageW(At(slider), WM_LBUTTONUP, 0, Where({on.x + 60, on.y}));
  EXPECT_EQ(TheSlider().Position(), 40);  // a fifth of the range
  EXPECT_THAT(stage.Heard(), AllOf(Contains("70 scrolled 3 0"), Contains("70 scrolled 8 0").Times(Ge(1))));
}

TEST_F(HandsOnControls, AScrollBarTellsItsWholePositionAndStays) {
  const Size size = win32::ClientSizeOf(At(scroll));
  Press(scroll, {size.width - 4, size.height / 2}, {size.width - 4, size.height / 2});
  EXPECT_THAT(stage.Heard(), ElementsAre("72 scrolled 1 0", "72 scrolled 8 0"));
  const Point on = MiddleOf(scroll);
  int farthest = 0;
  stage.handler.on = [&](const std::string& line) {
    if (line.starts_with("72 scrolled 5 ")) farthest = std::max(farthest, std::stoi(line.substr(14)));
  };
  Press(scroll, on, {on.x + 30, on.y});
  EXPECT_GT(farthest, 0xFFFF);
  EXPECT_LE(farthest, 100000);
  EXPECT_EQ(stage.Heard().back(), "72 scrolled 8 0");
  EXPECT_EQ(stage.Get<ScrollBar>(scroll).Position(), 50000);
}

TEST_F(HandsOnControls, ASpinTellsItsStepAndCanBeRefused) {
  stage.Get<Edit>(buddy).SetFocus();
  stage.Heard();
  const Point up{MiddleOf(spin).x, 3};
  Press(spin, up, up);
  EXPECT_THAT(stage.Heard(),
              ElementsAre("74 delta 5 1", "75 update", "75 changed", "74 scrolled 4 6", "74 scrolled 8 0"));
  stage.handler.refuseSpin = true;
  Press(spin, up, up);
  EXPECT_EQ(stage.Get<Edit>(buddy).Text(), "6");
  stage.Heard();
  const Point down{MiddleOf(freeSpin).x, MiddleOf(freeSpin).y * 2 - 3};
  const int before = stage.Get<Spin>(freeSpin).Position();
  Press(freeSpin, down, down);
  EXPECT_TRUE(stage.Heard().front().starts_with("73 delta "));
  EXPECT_EQ(stage.Get<Spin>(freeSpin).Position(), before);
}

TEST_F(HandsOnControls, APopUpThatIsActivatedAgainHasItsFocusBack) {
  static constexpr ControlTemplate fields[] = {{buddy, ControlKind::edit, "", 0, 0, 30, 12, 0},
                                               {combo, ControlKind::combo, "", 0, 20, 30, 40, 0}};
  constexpr DialogTemplate source{2, "", {60, 40}, "Sans", 8, DialogStyle::modelessPopup, fields};
  RecordingHandler handler;
  const auto popUp = stage.TheWindows().Create(source, stage.host, handler);
  popUp->SetVisible(true);
  popUp->Find(combo)->SetFocus();
  stage.Hands().FocusHost();
  handler.Take();
  SetActiveWindow(reinterpret_cast<HWND>(popUp->Handle()));
  stage.Hands().Pump();
  EXPECT_TRUE(popUp->Find(combo)->HasFocus());
  EXPECT_THAT(handler.Take(), ElementsAre("71 gained"));
}

TEST_F(HandsOnControls, AFrameThatIsUncoveredShowsWhatWasDrawn) {
  Frame& area = stage.Get<Frame>(frame);
  stage.handler.recordPaint = true;
  stage.dialog->Invalidate();
  stage.Hands().Pump();
  EXPECT_THAT(stage.Heard(), ElementsAre("0 paint"));
  area.Draw([](Canvas& canvas) { canvas.Fill({0, 0, 500, 500}, red); });
  RedrawWindow(Page(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  EXPECT_THAT(stage.Heard(), IsEmpty());
  const win32::WindowDc shown(At(frame));
  EXPECT_EQ(GetPixel(shown.Get(), 5, 5), win32::ToCOLORREF(red));
}

TEST_F(HandsOnControls, ABackgroundThatIsErasedSparesFrames) {
  const Size size = win32::ClientSizeOf(Page());
  const win32::OwnedDc memory(CreateCompatibleDC(nullptr));
  const win32::OwnedBitmap bitmap(CreateBitmap(size.width, size.height, 1, 32, nullptr));
  const win32::Selected selected(memory.Get(), bitmap.Get());
  const RECT all{0, 0, size.width, size.height};
  FillRect(memory.Get(), &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
  SendMessageW(Page(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(memory.Get()), 0);
  const Rect place = stage.Get<Frame>(frame).Place();
  EXPECT_EQ(GetPixel(memory.Get(), place.left, place.top), RGB(0, 0, 0));
  EXPECT_EQ(GetPixel(memory.Get(), place.left - 1, place.top), GetSysColor(COLOR_BTNFACE));
}

}  // namespace
}  // namespace set32

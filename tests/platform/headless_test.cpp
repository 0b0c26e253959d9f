// What is the model's alone: its geometry, what can't be made in it, its boxes, its raster.
#include <gmock/gmock.h>

#include "apps/stage/model/model_windows.h"
#include "apps/stage/model/raster_canvas.h"
#include "tests/support/stage.h"

namespace set32 {
namespace {

using testing::ElementsAre;

enum Id { edit = 1, combo = 2, frame = 3, filling = 4, list = 5 };

constexpr ControlTemplate controls[] = {
    {edit, ControlKind::edit, "", 7, 5, 33, 11, 0},   {combo, ControlKind::combo, "", 10, 20, 50, 60, 0},
    {frame, ControlKind::frame, "", 0, 0, 20, 16, 0}, {filling, ControlKind::tab, "", 0, 0, 0, 0, control_flag::fill},
    {list, ControlKind::list, "", 0, 0, 80, 60, 0},
};
constexpr DialogTemplate page{1, "", {101, 61}, "Sans", 8, DialogStyle::child, controls};

struct Headless : public testing::Test {
  ModelWindows screen;
  SilentHost host;
  RecordingHandler handler;
  WindowHandle parent = screen.input.MakeHostWindow({600, 500}, host);
};

TEST_F(Headless, DialogUnitsAreRoundedToTheNearestPixel) {
  const auto dialog = screen.windows.Create(page, parent, handler);
  EXPECT_EQ(dialog->ClientSize(), (Size{152, 99}));
  // 7 units: 10.5; 5 down: 8.1; 33 wide: 49.5; 11 high: 17.9
  EXPECT_EQ(dialog->Find(edit)->Place(), (Rect{11, 8, 61, 26}));
  EXPECT_EQ(dialog->Find(combo)->Place(), (Rect{15, 33, 90, 54}));
  EXPECT_EQ(dialog->Find(filling)->Place(), (Rect{0, 0, 152, 99}));
  EXPECT_EQ(dialog->Get<List>(list).RowsPerPage(), 5);
  EXPECT_EQ(dialog->Find(edit)->TextWidth("ab一"), 24);
  // A template 60 units high: 98 pixels, of which the list has 77.
  Combo& entries = dialog->Get<Combo>(combo);
  for (int i = 0; i < 20; ++i) entries.Add("x");
  entries.SelectIndex(19);
  EXPECT_EQ(entries.TopIndex(), 15);
  entries.Move({0, 0, 40, 90});
  EXPECT_EQ(entries.Place(), (Rect{0, 0, 40, 21}));
}

TEST_F(Headless, WhatCantBeMadeIsLeftOut) {
  screen.windows.failures = {.dialogs = {7}, .controls = {edit}, .tips = true};
  const auto dialog = screen.windows.Create(page, parent, handler);
  ASSERT_NE(dialog, nullptr);
  EXPECT_FALSE(dialog->Get<Edit>(edit).Exists());
  EXPECT_TRUE(dialog->Get<Combo>(combo).Exists());
  dialog->Tips().AddTool(combo, "tip");
  EXPECT_EQ(dynamic_cast<const TellsTips*>(&dialog->Tips()), nullptr);
  DialogTemplate failing = page;
  failing.id = 7;
  EXPECT_EQ(screen.windows.Create(failing, parent, handler), nullptr);
}

TEST_F(Headless, DialogsOutliveTheWindowsThatMadeThem) {
  auto windows = std::make_unique<HeadlessWindows>();
  const WindowHandle over = windows->MakeHost({10, 10}, host);
  const auto dialog = windows->Create(page, over, handler);
  windows.reset();
  EXPECT_FALSE(dialog->IsAlive());
  dialog->Get<Edit>(edit).SetText("x");
  EXPECT_EQ(dialog->Get<Edit>(edit).Text(), "");
}

TEST_F(Headless, WhoHearsOfALostPopUpMayReleaseIt) {
  DialogTemplate popUp = page;
  popUp.style = DialogStyle::modelessPopup;
  auto owner = screen.windows.Create(popUp, parent, handler);
  auto owned = screen.windows.Create(popUp, owner->Handle(), handler);
  owner->SetVisible(true);
  owned->SetVisible(true);
  screen.windows.SetClosedHook([&](Dialog& closed, int) {
    if (&closed == owned.get()) owned.reset();
  });
  owner.reset();
  EXPECT_EQ(owned, nullptr);
  EXPECT_TRUE(screen.windows.Standing().empty());
}

TEST_F(Headless, BoxesAreToldThenAnswered) {
  std::vector<std::string> told;
  screen.boxes.SetListener(
      [&](const ShownBox& box) { told.push_back(box.caption + "/" + box.text + (box.onThread ? "/thread" : "")); });
  EXPECT_EQ(screen.boxes.Show(parent, "sure?", "t", box_style::yesNo), BoxAnswer::yes);
  EXPECT_EQ(screen.boxes.Show(parent, "well", "t", box_style::stop), BoxAnswer::ok);
  screen.boxes.SetAnswerer([](const ShownBox&) { return BoxAnswer::no; });
  EXPECT_EQ(screen.boxes.Show(0, "sure?", "t", box_style::yesNo), BoxAnswer::no);
  screen.boxes.ShowOnThread(0, "bad", "t", box_style::stop);
  EXPECT_THAT(told, ElementsAre("t/sure?", "t/well", "t/sure?", "t/bad/thread"));
}

constexpr Colour black{0, 0, 0};
constexpr Colour red{255, 0, 0};

// A row of text for each row of pixels: '#' black, 'r' red, '.' anything else.
std::vector<std::string> Rows(const Picture& picture) {
  std::vector<std::string> rows;
  for (int y = 0; y < picture.size.height; ++y) {
    std::string row;
    for (int x = 0; x < picture.size.width; ++x) {
      const auto at = static_cast<std::size_t>(y * picture.size.width + x) * 4;
      const Colour colour{picture.pixels[at + 2], picture.pixels[at + 1], picture.pixels[at]};
      row += colour == black ? '#' : colour == red ? 'r' : '.';
    }
    rows.push_back(row);
  }
  return rows;
}

TEST(RasterCanvasTest, LinesEndBeforeTheirLastPoint) {
  RasterCanvas canvas({6, 4});
  canvas.Line({0, 0}, {4, 0}, {Pen::Style::solid, black});
  canvas.Line({5, 3}, {5, 0}, {Pen::Style::dotted, red});
  canvas.Line({0, 1}, {3, 4}, {Pen::Style::solid, red});
  canvas.Line({3, 2}, {3, 2}, {Pen::Style::solid, black});
  canvas.Line({-2, 3}, {2, 3}, {Pen::Style::dotted, black});
  EXPECT_THAT(Rows(canvas.Drawing()), ElementsAre("####..", "r....r", ".r....", "#.r..r"));
}

TEST(RasterCanvasTest, CutsOffWhatLiesOutside) {
  RasterCanvas canvas({3, 2});
  canvas.Fill({-5, 1, 2, 9}, black);
  canvas.Draw({.name = "", .size = {2, 1}, .pixels = {0, 0, 255, 255, 0, 0, 255, 0}}, {1, 0});
  canvas.Draw({.name = "", .size = {2, 2}, .pixels = {1, 2, 3}}, {0, 0});  // fewer bytes than its size says
  canvas.Text("一", {2, -20, 900, 900}, black);
  EXPECT_THAT(Rows(canvas.Drawing()), ElementsAre(".r.", "##."));
}

TEST(RasterCanvasTest, StretchingAveragesWhenItShrinks) {
  RasterCanvas canvas({4, 1});
  const Picture source{
      .name = "", .size = {4, 1}, .pixels = {10, 0, 0, 255, 30, 0, 0, 255, 0, 0, 200, 255, 0, 0, 100, 255}};
  canvas.Stretch(source, {0, 0, 2, 1});
  EXPECT_EQ(canvas.Drawing().pixels[0], 20);
  EXPECT_EQ(canvas.Drawing().pixels[4 + 2], 150);
  canvas.Stretch(source, {0, 0, 8, 1});
  EXPECT_EQ(canvas.Drawing().pixels[0], 10);
  EXPECT_EQ(canvas.Drawing().pixels[4 + 0], 10);
  EXPECT_EQ(canvas.Drawing().pixels[8 + 0], 30);
}

TEST_F(Headless, AFrameKeepsItsLastDrawing) {
  const auto dialog = screen.windows.Create(page, parent, handler);
  Frame& area = dialog->Get<Frame>(frame);
  const auto& kept = dynamic_cast<const KeepsDrawing&>(area);
  EXPECT_TRUE(kept.Drawing().Empty());
  area.Draw([](Canvas& canvas) { canvas.Fill({0, 0, 1, 1}, black); });
  area.Draw([](Canvas& canvas) { canvas.Fill({1, 0, 2, 1}, red); });
  const Picture drawn = kept.Drawing();
  EXPECT_EQ(drawn.size, (Size{28, 24}));
  EXPECT_EQ(Rows(drawn)[0].substr(0, 3), "#r.");
}

}  // namespace
}  // namespace set32

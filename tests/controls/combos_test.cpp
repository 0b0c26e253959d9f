// The combo classes: how wide a list drops, and what an entry with an icon looks like in each of its states.
#include <gmock/gmock.h>

#include "apps/stage/model/raster_canvas.h"
#include "controls/icon_combo.h"
#include "controls/wide_drop_combo.h"
#include "resources/ids.h"
#include "tests/support/stage.h"

namespace set32 {
namespace {

enum Id { plain = 10, icons = 11 };

constexpr ControlTemplate controls[] = {
    {plain, ControlKind::combo, "", 0, 0, 60, 90, 0},
    {icons, ControlKind::iconCombo, "", 0, 20, 60, 90, 0},
};
constexpr DialogTemplate page{1, "", {100, 100}, "Sans", 8, DialogStyle::child, controls};

class WidthRecorder : public Combo {
 public:
  explicit WidthRecorder(std::vector<int> widths) : Combo(plain, ControlKind::combo), widths_(std::move(widths)) {}
  int Count() const override { return static_cast<int>(widths_.size()); }
  std::string EntryText(int index) const override { return std::to_string(index); }
  int TextWidth(std::string_view text) const override {
    return widths_[static_cast<std::size_t>(std::stoi(std::string(text)))];
  }
  void SetDroppedWidth(int pixels) override { dropped = pixels; }
  int dropped = -1;

 private:
  std::vector<int> widths_;
};

TEST(WideDropCombo, IsAsWideAsItsWidestEntryAndAScrollBar) {
  Stage stage(page);
  const int bar = stage.TheWindows().ScrollBarWidth();
  struct Case {
    std::vector<int> widths;
    int dropped;
  };
  for (const auto& [widths, dropped] : {Case{{40, 2000, 70}, 2000 + bar}, Case{{0}, bar}, Case{{}, 0}}) {
    WidthRecorder combo(widths);
    CWideDropCombo wide(stage.TheWindows());
    wide.Attach(combo);
    wide.OnDropDown();
    EXPECT_EQ(combo.dropped, dropped);
  }
}

class IconComboTest : public testing::Test {
 protected:
  IconComboTest() { iconCombo_.Attach(combo_); }

  Picture Drawn(const ItemToDraw& item) {
    RasterCanvas canvas({item.place.right, item.place.bottom});
    iconCombo_.DrawItem(canvas, item);
    return canvas.Drawing();
  }

  CIconCombo iconCombo_;  // before the stage: it outlives the combo
  Stage stage_{page};
  Combo& combo_ = stage_.Get<Combo>(icons);
};

Colour At(const Picture& picture, int x, int y) {
  const std::uint8_t* pixel = &picture.pixels[static_cast<std::size_t>(y * picture.size.width + x) * 4];
  return {pixel[2], pixel[1], pixel[0]};
}

// The first column, of those from `left` on, that holds anything but the ground; its first such colour.
struct Ink {
  int left = -1;
  Colour colour;
};
Ink FirstInk(const Picture& picture, int left) {
  const Colour ground = At(picture, 0, 0);
  for (int x = left; x < picture.size.width; ++x) {
    for (int y = 0; y < picture.size.height; ++y) {
      if (At(picture, x, y) != ground) return {x, At(picture, x, y)};
    }
  }
  return {};
}

TEST_F(IconComboTest, DrawsIconAndTextInTheColoursOfTheState) {
  iconCombo_.AddResourceIcon(picture::modeColour, "Colour");
  combo_.SelectIndex(0);
  constexpr auto colourOf = RasterCanvas::ModelColour;
  struct Case {
    const char* what;
    ItemToDraw item;
    Colour ground, ink;
  };
  const Rect place{0, 0, 120, 24};
  const Colour window = colourOf(SystemColour::window), windowText = colourOf(SystemColour::windowText);
  const Colour chosen = colourOf(SystemColour::highlight), chosenText = colourOf(SystemColour::highlightText);
  const Case cases[] = {
      {"selected", {.index = 0, .place = place, .selected = true}, chosen, chosenText},
      {"not selected", {.index = 0, .place = place}, window, windowText},
      {"change", {.index = 0, .place = place, .entire = false, .selectionChanged = true}, window, windowText},
      {"disabled",
       {.index = 0, .place = place, .selected = true, .disabled = true},
       colourOf(SystemColour::buttonFace),
       {192, 192, 192}},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.what);
    const Picture drawn = Drawn(one.item);
    EXPECT_EQ(At(drawn, 0, 0), one.ground);
    const Ink text = FirstInk(drawn, 5 + 16);
    EXPECT_EQ(text.left, 16 + 9);
    EXPECT_EQ(text.colour, one.ink);
    const int icon = FirstInk(drawn, 0).left;
    EXPECT_GE(icon, 5);
    EXPECT_LT(icon, 5 + 16);
    for (int x = 0; x < 5 + 16; ++x) {
      EXPECT_EQ(At(drawn, x, 3), one.ground) << "the icon is centred: its 16 rows begin at 4";
      EXPECT_EQ(At(drawn, x, 20), one.ground);
    }
  }
}

TEST_F(IconComboTest, DrawsNothingWithoutSelectionOrWish) {
  iconCombo_.AddResourceIcon(picture::modeGray, "Gray");
  const Rect place{0, 0, 120, 18};
  EXPECT_EQ(FirstInk(Drawn({.index = 0, .place = place}), 0).left, -1) << "nothing is selected";
  combo_.SelectIndex(0);
  EXPECT_EQ(FirstInk(Drawn({.index = -1, .place = place}), 0).left, -1);
  EXPECT_EQ(FirstInk(Drawn({.index = 5, .place = place}), 0).left, -1);
  const Picture focus = Drawn({.index = 0, .place = place, .entire = false, .focusChanged = true});
  EXPECT_EQ(At(focus, 60, 9), RasterCanvas::ModelColour(SystemColour::buttonFace)) << "the frame alone";
  EXPECT_NE(FirstInk(focus, 0).left, -1);
  EXPECT_EQ(iconCombo_.ItemHeight(), 18);
}

TEST_F(IconComboTest, EntriesComeAndGoByText) {
  EXPECT_EQ(iconCombo_.AddResourceIcon(picture::modeColour, "Colour"), 0);
  EXPECT_EQ(iconCombo_.AddResourceIcon("no such picture", "Nothing"), -1);
  EXPECT_EQ(iconCombo_.AddResourceIcon(picture::modeGray, "Gray"), 1);
  EXPECT_EQ(combo_.Count(), 2);
  iconCombo_.RemoveByText("Colour");
  iconCombo_.RemoveByText("Colour");
  EXPECT_EQ(combo_.Count(), 1);
  EXPECT_TRUE(iconCombo_.Has("Gray"));
  EXPECT_FALSE(iconCombo_.Has("Gra"));
  EXPECT_EQ(iconCombo_.AddResourceIcon(picture::modeColour, "Colour"), 1) << "what comes back stands last";
}

}  // namespace
}  // namespace set32

// Frames on the preview, by mouse and by keys, and what the panel makes of them.
#include "apps/scan-desk/window/host_lines.h"
#include "set32/host_records.h"
#include "tests/desk_window/desk_fixture.h"

namespace scan_desk {
namespace {

using set32::Point;
using set32::Rect;
namespace id = set32::id;
namespace action = set32::frame_action;

std::wstring Line(int index, std::uint32_t what, const Rect& frame = {}) {
  return LineOfReport({index, what}, frame).substr(23);
}

class FramesByHand : public Desk {
 protected:
  // What a drag from one point of the picture to another draws.
  Rect Between(Point from, Point to) const {
    const Point low = At(from), high = At(to);
    return {low.x, low.y, high.x, high.y};
  }
  Rect Moved(Rect frame, Point from, Point to) const {
    const int across = At(to).x - At(from).x, down = At(to).y - At(from).y;
    return {frame.left + across, frame.top + down, frame.right + across, frame.bottom + down};
  }
};

TEST_F(FramesByHand, ByMouse) {
  ASSERT_TRUE(Open());
  const Rect first = Between({100, 100}, {300, 400}), second = Between({400, 500}, {700, 900});
  const Rect third = Between({150, 150}, {250, 250});
  Drag({100, 100}, {300, 400});
  EXPECT_EQ(Reported(), Line(0, action::select, first)) << "in the place of the one that nobody drew";
  EXPECT_EQ(Tabs(), 1);
  Drag({400, 500}, {700, 900});
  EXPECT_EQ(Reported(), Line(1, action::added, second));
  EXPECT_EQ(Tabs(), 2);
  EXPECT_EQ(Tab(), 1);
  wchar_t inches[16] = L"";
  swprintf(inches, 16, L"%.2f", second.Width() / 100.0);
  EXPECT_EQ(Text(Control(id::widthEdit)), inches);

  const Rect moved = Moved(second, {500, 600}, {450, 650});
  Drag({500, 600}, {450, 650});
  EXPECT_EQ(Reported(), Line(1, action::select, moved));
  Drag({moved.right, moved.bottom}, {800, 1000});
  EXPECT_EQ(Reported(), Line(1, action::select, {moved.left, moved.top, At({800, 0}).x, At({0, 1000}).y}));
  Drag({200, 200}, {200, 200});
  EXPECT_EQ(Reported(), Line(0, action::select, first)) << "a click selects";
  EXPECT_EQ(Tab(), 0);
  Drag({150, 150}, {250, 250}, MK_CONTROL);
  EXPECT_EQ(Reported(), Line(2, action::added, third)) << "inside another";

  Button(WM_LBUTTONDOWN, {500, 700}, MK_LBUTTON);
  Button(WM_MOUSEMOVE, {550, 750}, MK_LBUTTON);
  Press(VK_ESCAPE);
  Button(WM_LBUTTONUP, {550, 750});
  EXPECT_EQ(Reported(), Line(2, action::added, third)) << "the drag was given up";
  EXPECT_EQ(Tabs(), 3);
}

TEST_F(FramesByHand, ByKeys) {
  ASSERT_TRUE(Open());
  Drag({100, 100}, {300, 400});
  const Rect first = Between({100, 100}, {300, 400});
  constexpr Rect laid{212, 292, 637, 876};
  const struct {
    WPARAM key;
    bool control, shift;
    std::wstring line;
    int tabs;
  } cases[] = {{VK_INSERT, false, false, Line(1, action::added, laid), 2},
               {VK_RIGHT, false, false, Line(1, action::select, {222, 292, 647, 876}), 2},
               {VK_UP, true, false, Line(1, action::select, {222, 291, 647, 875}), 2},
               {VK_DOWN, false, true, Line(1, action::select, {222, 291, 647, 885}), 2},
               {VK_LEFT, true, true, Line(1, action::select, {222, 291, 646, 885}), 2},
               {VK_NEXT, false, false, Line(0, action::select, first), 2},
               {VK_PRIOR, false, false, Line(1, action::select, {222, 291, 646, 885}), 2},
               {VK_DELETE, false, false, Line(0, action::select, first), 1},
               {VK_DELETE, false, false, Line(0, action::allGone), 0},
               {VK_DELETE, false, false, Line(0, action::allGone), 0},
               {VK_RIGHT, false, false, Line(0, action::allGone), 0},
               {VK_INSERT, false, false, Line(0, action::added, laid), 1}};
  for (const auto& [key, control, shift, line, tabs] : cases) {
    Press(key, control, shift);
    EXPECT_EQ(Reported(), line) << key;
    EXPECT_EQ(Tabs(), tabs) << key;
  }
}

// A chosen configuration takes all frames away; a report then makes the panel save into its custom row and refresh
// itself from there.
TEST_F(FramesByHand, MakeWayForAConfigurationAndKeepTheirPlaceInTheNext) {
  ASSERT_TRUE(Open());
  const HWND list = Control(id::configList);
  RECT row{};
  row.left = LVIR_LABEL;
  SendMessageW(list, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
  Click(list, row.left + 2, row.top + 2);
  Pump();
  EXPECT_EQ(Tabs(), 1) << "the chosen configuration's area lies there";
  EXPECT_EQ(Reported(), Line(0, action::added, {0, 0, 850, 1100}));
  const Rect drawn = Between({100, 100}, {300, 400});
  Drag({100, 100}, {300, 400});
  EXPECT_EQ(ListView_GetNextItem(list, -1, LVNI_SELECTED), 5) << "the custom row";
  SetFocus(preview_);
  Press(VK_RIGHT);
  EXPECT_EQ(Reported(), Line(0, action::select, {drawn.left + 10, drawn.top, drawn.right + 10, drawn.bottom}));
}

TEST_F(FramesByHand, FollowThePanelsTabsAndButtons) {
  ASSERT_TRUE(Open());
  Drag({100, 100}, {300, 400});
  Press(VK_INSERT);
  const Rect first = Between({100, 100}, {300, 400});
  RECT tab{};
  SendMessageW(Control(id::frameTabs), TCM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&tab));
  Click(Control(id::frameTabs), tab.left + 4, tab.top + 4);
  Pump();
  EXPECT_EQ(Reported(), Line(0, action::select, first)) << "the panel learns the size of the frame that it turned to";
  SendMessageW(Control(id::removeFrameButton), BM_CLICK, 0, 0);
  Pump();
  EXPECT_EQ(Reported(), Line(0, action::select, {212, 292, 637, 876})) << "the one that was left";
  EXPECT_EQ(Tabs(), 1);
}

}  // namespace
}  // namespace scan_desk

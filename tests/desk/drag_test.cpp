// A person's drags over the frames, and how the desk is shared, without any window.
#include <gtest/gtest.h>

#include "apps/scan-desk/frames/desk_layout.h"
#include "apps/scan-desk/frames/frame_drag.h"
#include "set32/host_records.h"

namespace scan_desk {
namespace {

using set32::Point;
using set32::Rect;
namespace action = set32::frame_action;

constexpr Rect first{100, 100, 300, 300}, second{400, 100, 600, 300};

// Two frames that the person drew, the first of them current.
Frames TwoFrames() {
  Frames frames;
  frames.SetArea({850, 1169});
  frames.Add(first);
  frames.Add(second);
  frames.Select(0);
  return frames;
}

struct Stroke {
  const char* what;
  Point from;
  Grip grip;
  bool wantsNew;
  Point to;
  std::optional<FrameChange> told;
  int count;
  Rect after;  // of the current frame
};

TEST(FrameDragTest, DrawsMovesSizesAndSelects) {
  const Stroke strokes[] = {
      {"drawn backwards", {700, 900}, {}, false, {620, 800}, FrameChange{2, action::added}, 3, {620, 800, 700, 900}},
      {"drawn inside another",
       {110, 110},
       {},
       true,
       {150, 190},
       FrameChange{2, action::added},
       3,
       {110, 110, 150, 190}},
      {"drawn over an edge",
       {100, 110},
       {.left = true},
       true,
       {150, 190},
       FrameChange{2, action::added},
       3,
       {100, 110, 150, 190}},
      {"too small", {700, 900}, {}, false, {703, 980}, {}, 2, first},
      {"moved against the edge",
       {200, 200},
       {},
       false,
       {-900, 210},
       FrameChange{0, action::select},
       2,
       {0, 110, 200, 310}},
      {"a click on the current frame", {200, 200}, {}, false, {200, 200}, {}, 2, first},
      {"a click on the other", {500, 200}, {}, false, {500, 200}, FrameChange{1, action::select}, 2, second},
      {"the other moved", {500, 200}, {}, false, {501, 202}, FrameChange{1, action::select}, 2, {401, 102, 601, 302}},
      {"sized",
       {300, 300},
       {.right = true, .bottom = true},
       false,
       {350, 400},
       FrameChange{0, action::select},
       2,
       {100, 100, 350, 400}},
      {"sized back", {300, 200}, {.right = true}, false, {300, 250}, {}, 2, first}};
  for (const Stroke& stroke : strokes) {
    SCOPED_TRACE(stroke.what);
    for (const bool cancels : {false, true}) {
      Frames frames = TwoFrames();
      FrameDrag drag;
      drag.Begin(frames, stroke.from, stroke.grip, stroke.wantsNew);
      drag.To(frames, {stroke.to.x + 40, stroke.to.y + 1});
      drag.To(frames, stroke.to);
      if (cancels) drag.Cancel(frames);
      const std::optional<FrameChange> told = drag.End(frames);
      EXPECT_EQ(told, cancels ? std::nullopt : stroke.told);
      EXPECT_EQ(frames.Count(), cancels ? 2 : stroke.count);
      EXPECT_EQ(frames.At(frames.Current()), cancels ? first : stroke.after);
      EXPECT_EQ(drag.Now(), FrameDrag::Kind::none);
    }
  }
}

TEST(FrameDragTest, PutsTheFirstDrawnFrameInThePlaceOfTheOneThatNobodyDrew) {
  Frames frames;
  frames.SetArea({850, 1169});
  frames.Reset();
  frames.PutAsTold(0, first);
  const auto draw = [&](Point from, Point to) {
    FrameDrag drag;
    drag.Begin(frames, from, {}, false);
    drag.To(frames, to);
    return drag.End(frames);
  };
  EXPECT_EQ(draw({150, 150}, {250, 260}), (FrameChange{0, action::select}));
  EXPECT_EQ(frames.At(0), (Rect{150, 150, 250, 260}));
  // From now on it is the person's: the same drag moves it, and one outside draws a second.
  EXPECT_EQ(draw({160, 160}, {170, 160}), (FrameChange{0, action::select}));
  EXPECT_EQ(frames.At(0), (Rect{160, 150, 260, 260}));
  EXPECT_EQ(draw({300, 300}, {400, 400}), (FrameChange{1, action::added}));
  frames.Lay(second);
  EXPECT_TRUE(frames.IsUntouched());
}

TEST(DeskLayoutTest, LetsThePanelHaveItsRoom) {
  const set32::Size panel{280, 460};
  const struct {
    set32::Size client;
    bool showsLog;
    Rect picture, log;
  } cases[] = {{{900, 600}, true, {0, 0, 620, 500}, {0, 500, 900, 600}},
               {{900, 600}, false, {0, 0, 620, 600}, {0, 600, 900, 600}},
               {{900, 500}, true, {0, 0, 620, 460}, {0, 460, 900, 500}},  // the log makes way
               {{200, 300}, true, {0, 0, 0, 300}, {0, 300, 200, 300}},
               {{0, 0}, true, {0, 0, 0, 0}, {0, 0, 0, 0}}};
  for (const auto& [client, showsLog, picture, log] : cases) {
    const DeskLayout layout = LayDesk(client, panel, showsLog);
    EXPECT_EQ(layout.picture, picture);
    EXPECT_EQ(layout.log, log);
    EXPECT_EQ(layout.panel, (Rect{picture.right, 0, picture.right + panel.width, picture.bottom}));
  }
}

}  // namespace
}  // namespace scan_desk

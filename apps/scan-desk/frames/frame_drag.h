// One drag of the mouse over the frames, from the button's press to its release, free of any window.
#pragma once

#include <cstdint>
#include <optional>

#include "apps/scan-desk/frames/frames.h"
#include "apps/scan-desk/frames/view_scale.h"

namespace scan_desk {

// What a person did to the frames, in the words of a host's report.
struct FrameChange {
  int index;
  std::uint32_t action;  // one of frame_action::
  bool operator==(const FrameChange&) const = default;
};

class FrameDrag {
 public:
  enum class Kind { none, draws, moves, resizes };

  // The button went down at a point of the picture, holding these edges of the current frame or none. Inside a frame
  // the drag moves it, unless a new one is wanted there or the frame is one that nobody drew.
  void Begin(Frames& frames, set32::Point at, Grip grip, bool wantsNew);
  void To(const Frames& frames, set32::Point now);
  // The button was released. Result: what there is to tell; nothing after a press that changed nothing.
  std::optional<FrameChange> End(Frames& frames);
  // The frames are as they were before the press.
  void Cancel(Frames& frames);

  Kind Now() const { return kind_; }
  // The frame that is drawn, moved or resized, as it stands under the pointer.
  const set32::Rect& Shape() const { return shape_; }

 private:
  Kind kind_ = Kind::none;
  int before_ = -1;  // the current frame when the button went down
  set32::Point start_, end_;
  set32::Rect shape_;
  Grip grip_;
};

}  // namespace scan_desk

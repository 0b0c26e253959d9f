#include "apps/scan-desk/frames/frame_drag.h"

#include <cstdlib>
#include <utility>

#include "set32/host_records.h"

namespace scan_desk {

namespace {

constexpr int shortest = 4;  // pixels of the picture; a shorter drag is a click

}  // namespace

void FrameDrag::Begin(Frames& frames, set32::Point at, Grip grip, bool wantsNew) {
  const int under = frames.Under(at);
  before_ = frames.Current();
  start_ = end_ = at;
  grip_ = wantsNew ? Grip{} : grip;
  if (grip_.Any()) {
    kind_ = Kind::resizes;
  } else if (under >= 0 && !wantsNew && !frames.IsUntouched()) {
    kind_ = Kind::moves;
    frames.Select(under);
  } else {
    kind_ = Kind::draws;
  }
  shape_ = kind_ == Kind::draws ? set32::Rect{} : frames.At(frames.Current());
}

void FrameDrag::To(const Frames& frames, set32::Point now) {
  end_ = now;
  switch (kind_) {
    case Kind::draws:
      shape_ = frames.Between(start_, now);
      break;
    case Kind::moves:
      shape_ = frames.Moved(frames.At(frames.Current()), now.x - start_.x, now.y - start_.y);
      break;
    case Kind::resizes:
      shape_ = frames.Resized(frames.At(frames.Current()), grip_, now);
      break;
    case Kind::none:
      break;
  }
}

std::optional<FrameChange> FrameDrag::End(Frames& frames) {
  const Kind kind = std::exchange(kind_, Kind::none);
  if (kind == Kind::none) return {};
  if (kind == Kind::draws) {
    if (std::abs(end_.x - start_.x) < shortest || std::abs(end_.y - start_.y) < shortest) return {};
    if (!frames.IsUntouched()) return FrameChange{frames.Add(shape_), set32::frame_action::added};
    frames.Put(0, shape_);  // in the place of the one that nobody drew
    return FrameChange{0, set32::frame_action::select};
  }
  const int current = frames.Current();
  if (current == before_ && shape_ == frames.At(current)) return {};
  if (shape_ != frames.At(current)) frames.Put(current, shape_);
  return FrameChange{current, set32::frame_action::select};
}

void FrameDrag::Cancel(Frames& frames) {
  if (std::exchange(kind_, Kind::none) != Kind::none) frames.Select(before_);
}

}  // namespace scan_desk

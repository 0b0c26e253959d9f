#include "apps/scan-desk/frames/frames.h"

#include <algorithm>
#include <cstdlib>

namespace scan_desk {

using set32::Point;
using set32::Rect;

namespace {

struct Span {
  int low, high;
};

// From an edge that stays to one that moves, inside 0 to `limit` and at least so long; where both are at one place
// the moving edge keeps its side.
Span SpanOf(int stays, int moves, bool movesLow, int least, int limit) {
  const int to = std::clamp(moves, 0, limit);
  const bool isLow = to == stays ? movesLow : to < stays;
  const int length = std::min(std::max(std::abs(to - stays), least), limit);
  const int low = std::clamp(isLow ? stays - length : stays, 0, limit - length);
  return {low, low + length};
}

}  // namespace

void Frames::SetArea(set32::Size area, int least) {
  area_ = area;
  least_ = least;
}

void Frames::Lay(const Rect& frame) {
  frames_.assign(1, frame);
  current_ = 0;
  untouched_ = true;
}

int Frames::Add(const Rect& frame) {
  frames_.push_back(frame);
  current_ = Count() - 1;
  untouched_ = false;
  return current_;
}

void Frames::Remove(int index) {
  if (!Holds(index)) return;
  frames_.erase(frames_.begin() + index);
  if (current_ > index || current_ == Count()) --current_;
}

void Frames::Select(int index) {
  if (Holds(index)) current_ = index;
}

void Frames::Put(int index, const Rect& frame) {
  PutAsTold(index, frame);
  untouched_ = false;
}

void Frames::PutAsTold(int index, const Rect& frame) {
  if (Holds(index)) frames_[static_cast<std::size_t>(index)] = frame;
}

int Frames::Under(Point point) const {
  if (Holds(current_) && At(current_).Contains(point)) return current_;
  for (int index = Count() - 1; index >= 0; --index) {
    if (At(index).Contains(point)) return index;
  }
  return -1;
}

Rect Frames::Between(Point from, Point to) const {
  const Span across = SpanOf(std::clamp(from.x, 0, area_.width), to.x, false, least_, area_.width);
  const Span down = SpanOf(std::clamp(from.y, 0, area_.height), to.y, false, least_, area_.height);
  return {across.low, down.low, across.high, down.high};
}

Rect Frames::Resized(const Rect& frame, Grip grip, Point to) const {
  const Span across = grip.left    ? SpanOf(frame.right, to.x, true, least_, area_.width)
                      : grip.right ? SpanOf(frame.left, to.x, false, least_, area_.width)
                                   : Span{frame.left, frame.right};
  const Span down = grip.top      ? SpanOf(frame.bottom, to.y, true, least_, area_.height)
                    : grip.bottom ? SpanOf(frame.top, to.y, false, least_, area_.height)
                                  : Span{frame.top, frame.bottom};
  return {across.low, down.low, across.high, down.high};
}

Rect Frames::Moved(const Rect& frame, int across, int down) const {
  const int left = std::clamp(frame.left + across, 0, std::max(area_.width - frame.Width(), 0));
  const int top = std::clamp(frame.top + down, 0, std::max(area_.height - frame.Height(), 0));
  return {left, top, left + frame.Width(), top + frame.Height()};
}

Rect Frames::Stretched(const Rect& frame, int across, int down) const {
  Rect stretched = frame;
  const int right = frame.left + least_, bottom = frame.top + least_;
  stretched.right = std::clamp(frame.right + across, right, std::max(area_.width, right));
  stretched.bottom = std::clamp(frame.bottom + down, bottom, std::max(area_.height, bottom));
  return stretched;
}

}  // namespace scan_desk

#include "apps/scan-desk/frames/frames.h"

#include <algorithm>

namespace scan_desk {

using set32::Point;
using set32::Rect;

void Frames::SetArea(set32::Size area) {
  area_ = area;
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

Rect Frames::Between(Point one, Point other) const {
  const auto across = [this](int x) { return std::clamp(x, 0, area_.width); };
  const auto down = [this](int y) { return std::clamp(y, 0, area_.height); };
  return {across(std::min(one.x, other.x)), down(std::min(one.y, other.y)), across(std::max(one.x, other.x)),
          down(std::max(one.y, other.y))};
}

Rect Frames::Moved(const Rect& frame, int across, int down) const {
  const int left = std::clamp(frame.left + across, 0, std::max(area_.width - frame.Width(), 0));
  const int top = std::clamp(frame.top + down, 0, std::max(area_.height - frame.Height(), 0));
  return {left, top, left + frame.Width(), top + frame.Height()};
}

Rect Frames::Stretched(const Rect& frame, int across, int down) const {
  Rect stretched = frame;
  stretched.right = std::clamp(frame.right + across, frame.left + 1, std::max(area_.width, frame.left + 1));
  stretched.bottom = std::clamp(frame.bottom + down, frame.top + 1, std::max(area_.height, frame.top + 1));
  return stretched;
}

}  // namespace scan_desk

// The frames that a person lays on the preview: rectangles in pixels of the picture, free of any window.
#pragma once

#include <vector>

#include "apps/scan-desk/frames/view_scale.h"
#include "platform/geometry.h"

namespace scan_desk {

class Frames {
 public:
  // What a hand draws or sizes lies inside this area from now on, and is at least so wide and high.
  void SetArea(set32::Size area, int least = 1);
  set32::Size Area() const { return area_; }
  // One frame alone, which nobody drew: a given one, or one over the whole area.
  void Lay(const set32::Rect& frame);
  void Reset() { Lay({0, 0, area_.width, area_.height}); }

  int Count() const { return static_cast<int>(frames_.size()); }
  int Current() const { return current_; }  // -1 for none
  const set32::Rect& At(int index) const { return frames_[static_cast<std::size_t>(index)]; }
  // There is one frame alone, and the person has not laid a hand on it.
  bool IsUntouched() const { return untouched_ && Count() == 1; }

  // The new one becomes current. Result: its index.
  int Add(const set32::Rect& frame);
  // The one behind it becomes current when the current one goes, else the last.
  void Remove(int index);
  void Select(int index);
  // A frame's new place by the person's hand, or by the panel's word.
  void Put(int index, const set32::Rect& frame);
  void PutAsTold(int index, const set32::Rect& frame);
  // The frame under a point, the current one before others; -1 for none.
  int Under(set32::Point point) const;

  // A rectangle from one corner towards another, in any direction.
  set32::Rect Between(set32::Point from, set32::Point to) const;
  // A frame whose held edges went to a point; past the opposite edge the frame turns over.
  set32::Rect Resized(const set32::Rect& frame, Grip grip, set32::Point to) const;
  // The frame moved as far as the area lets it.
  set32::Rect Moved(const set32::Rect& frame, int across, int down) const;
  // Right and bottom edge moved.
  set32::Rect Stretched(const set32::Rect& frame, int across, int down) const;

 private:
  bool Holds(int index) const { return index >= 0 && index < Count(); }

  set32::Size area_;
  int least_ = 1;
  std::vector<set32::Rect> frames_;
  int current_ = -1;
  bool untouched_ = false;
};

}  // namespace scan_desk

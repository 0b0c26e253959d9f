// How the picture lies in its window, and frames in inches: free functions without any window.
#pragma once

#include "platform/geometry.h"

namespace scan_desk {

// The edges of a frame that a pointer holds; both of a pair never.
struct Grip {
  bool left = false, top = false, right = false, bottom = false;
  bool Any() const { return left || top || right || bottom; }
  bool operator==(const Grip&) const = default;
};

// Where a picture is shown in a window: as large as the margin lets it, in the middle, its shape kept. Empty for an
// empty picture.
set32::Rect ShownPlace(set32::Size window, set32::Size picture, int margin);

// From the window's pixels to the picture's and back; the origin for an empty picture or place.
set32::Point ToPicture(set32::Point at, const set32::Rect& shown, set32::Size picture);
set32::Rect ToWindow(const set32::Rect& frame, const set32::Rect& shown, set32::Size picture);

// The edges of a frame on the window that lie within `reach` of a point on it.
Grip GripAt(const set32::Rect& placed, set32::Point at, int reach);

// A frame in pixels of the picture from a record's corner and inches, cut to the picture, whatever the record holds.
set32::Rect FrameOf(set32::Point corner, double width, double height, double dotsPerInch, set32::Size picture);

}  // namespace scan_desk

#include "apps/scan-desk/frames/view_scale.h"

#include <algorithm>
#include <cstdint>

namespace scan_desk {

using set32::Point;
using set32::Rect;
using set32::Size;

namespace {

// Rounded to the nearest; `whole` isn't 0, and the result is held to what a window can have.
int Scaled(int value, int share, int whole) {
  constexpr std::int64_t farthest = 1 << 24;
  const std::int64_t product = std::int64_t{value} * share;
  const std::int64_t half = product < 0 ? -(whole / 2) : whole / 2;
  return static_cast<int>(std::clamp((product + half) / whole, -farthest, farthest));
}

bool IsNear(int one, int other, int reach) {
  return one - other <= reach && other - one <= reach;
}

// Pixels of a length, 0 for anything that isn't one, at most `most`.
int Pixels(double inches, double dotsPerInch, int most) {
  const double pixels = inches * dotsPerInch + 0.5;
  if (!(pixels >= 0)) return 0;
  return pixels >= most ? most : static_cast<int>(pixels);
}

}  // namespace

Rect ShownPlace(Size window, Size picture, int margin) {
  if (picture.width <= 0 || picture.height <= 0) return {};
  const int across = std::max(window.width - 2 * margin, 1);
  const int down = std::max(window.height - 2 * margin, 1);
  const double scale =
      std::min(static_cast<double>(across) / picture.width, static_cast<double>(down) / picture.height);
  const int width = std::max(static_cast<int>(picture.width * scale), 1);
  const int height = std::max(static_cast<int>(picture.height * scale), 1);
  const int left = (window.width - width) / 2;
  const int top = (window.height - height) / 2;
  return {left, top, left + width, top + height};
}

Point ToPicture(Point at, const Rect& shown, Size picture) {
  if (shown.Width() <= 0 || shown.Height() <= 0) return {};
  return {Scaled(at.x - shown.left, picture.width, shown.Width()),
          Scaled(at.y - shown.top, picture.height, shown.Height())};
}

Rect ToWindow(const Rect& frame, const Rect& shown, Size picture) {
  if (picture.width <= 0 || picture.height <= 0) return {};
  const auto across = [&](int x) { return shown.left + Scaled(x, shown.Width(), picture.width); };
  const auto down = [&](int y) { return shown.top + Scaled(y, shown.Height(), picture.height); };
  return {across(frame.left), down(frame.top), across(frame.right), down(frame.bottom)};
}

Grip GripAt(const Rect& placed, Point at, int reach) {
  const Rect around{placed.left - reach, placed.top - reach, placed.right + reach, placed.bottom + reach};
  if (!around.Contains(at)) return {};
  Grip grip;
  // In a frame smaller than the reach the right and bottom edges win, so that it can grow again.
  grip.right = IsNear(at.x, placed.right, reach);
  grip.left = !grip.right && IsNear(at.x, placed.left, reach);
  grip.bottom = IsNear(at.y, placed.bottom, reach);
  grip.top = !grip.bottom && IsNear(at.y, placed.top, reach);
  return grip;
}

Rect FrameOf(Point corner, double width, double height, double dotsPerInch, Size picture) {
  const int left = std::clamp(corner.x, 0, picture.width);
  const int top = std::clamp(corner.y, 0, picture.height);
  return {left, top, left + Pixels(width, dotsPerInch, picture.width - left),
          top + Pixels(height, dotsPerInch, picture.height - top)};
}

}  // namespace scan_desk

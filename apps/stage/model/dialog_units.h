// The model's geometry: one font, one kind of frame.
#pragma once

#include <cstdint>

#include "platform/dialog_template.h"
#include "platform/geometry.h"

namespace set32 {

// A dialog unit is a quarter of 6 pixels across and an eighth of 13 down.
constexpr int ScaledToNearest(int units, int pixels, int perUnits) {
  const std::int64_t product = std::int64_t{units} * pixels;
  const int half = perUnits / 2;
  return static_cast<int>((product < 0 ? product - half : product + half) / perUnits);
}
constexpr int AcrossInPixels(int units) {
  return ScaledToNearest(units, 6, 4);
}
constexpr int DownInPixels(int units) {
  return ScaledToNearest(units, 13, 8);
}

// Left, top, width and height are rounded each for itself.
constexpr Rect PlaceInPixels(int x, int y, int width, int height) {
  const int left = AcrossInPixels(x);
  const int top = DownInPixels(y);
  return {left, top, left + AcrossInPixels(width), top + DownInPixels(height)};
}

constexpr bool IsChildStyle(DialogStyle style) {
  return style == DialogStyle::child || style == DialogStyle::sheet;
}

// What a window's frame and title bar take.
constexpr int frameWidth = 3;
constexpr int captionHeight = 19;

}  // namespace set32

// Places and colours, free of any window system.
#pragma once

#include <algorithm>
#include <cstdint>

namespace set32 {

struct Point {
  int x = 0;
  int y = 0;
  bool operator==(const Point&) const = default;
};

struct Size {
  int width = 0;
  int height = 0;
  bool operator==(const Size&) const = default;
};

// Right and bottom lie outside.
struct Rect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  constexpr int Width() const { return right - left; }
  constexpr int Height() const { return bottom - top; }
  bool Contains(Point point) const {
    return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
  }
  bool operator==(const Rect&) const = default;
};

// The rectangle, moved as little as needed to lie inside an area; from the area's upper left corner on where it is
// larger.
constexpr Rect MovedInto(const Rect& area, const Rect& place) {
  const int left = std::max(std::min(place.left, area.right - place.Width()), area.left);
  const int top = std::max(std::min(place.top, area.bottom - place.Height()), area.top);
  return {left, top, left + place.Width(), top + place.Height()};
}

// A rectangle of this size in the middle of an area.
constexpr Rect CentredIn(const Rect& area, Size size) {
  const int left = area.left + (area.Width() - size.width) / 2;
  const int top = area.top + (area.Height() - size.height) / 2;
  return {left, top, left + size.width, top + size.height};
}

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const Colour&) const = default;
};

// The system's colours by the window system's own numbers.
enum class SystemColour {
  window = 5,
  windowText = 8,
  highlight = 13,
  highlightText = 14,
  buttonFace = 15,
};

}  // namespace set32

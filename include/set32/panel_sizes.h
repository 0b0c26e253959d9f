// How large each face is by itself, in pixels, at three common resolutions of the screen: open the panel with a place
// of this size. At it every control has the room that its font asks for; a place that a later call passes may be
// larger.
#pragma once

#include <cstdint>

namespace set32 {

struct PanelSize {
  std::int32_t dpi;  // of the screen: 96, 120 and 144 are the system's 100, 125 and 150 percent
  std::int32_t width;
  std::int32_t height;
};

// The sheet face, with its tabs.
inline constexpr PanelSize sheetSizes[] = {{96, 285, 463}, {120, 333, 534}, {144, 428, 677}};
// The inline face, without its dialog.
inline constexpr PanelSize inlineSizes[] = {{96, 270, 424}, {120, 315, 489}, {144, 405, 620}};

// The size for a screen of `dpi`: that of the nearest resolution not below it, or the largest.
constexpr PanelSize SizeAt(const PanelSize (&sizes)[3], std::int32_t dpi) {
  for (const PanelSize& size : sizes) {
    if (size.dpi >= dpi) return size;
  }
  return sizes[2];
}

}  // namespace set32

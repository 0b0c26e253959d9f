// How the preview is drawn: the picture in the middle of its window, over it the frames with their numbers.
#pragma once

#include <windows.h>

#include "apps/scan-desk/frames/frame_drag.h"
#include "apps/scan-desk/frames/frames.h"
#include "platform/geometry.h"
#include "set32/dib.h"

namespace scan_desk {

struct PreviewLook {
  const set32::CDib& dib;  // 24 bits a pixel, or empty
  const Frames& frames;
  const FrameDrag& drag;
  set32::Rect shown;  // where the picture lies in the window
  bool hasFocus;
  HFONT font;  // null for the system's own
};

// Window pixels for a length at 96 dots an inch, at least one.
int WidePixels(HDC dc, int pixels);

// Fills the whole client area, in memory first, so that a dragged frame doesn't flicker.
void PaintPreview(HDC dc, const RECT& client, const PreviewLook& look);

}  // namespace scan_desk

// Between the window system's rectangles and the project's.
#pragma once

#include "platform/geometry.h"
#include "platform/win32/windows_api.h"

namespace set32::win32 {

inline Rect FromRECT(const RECT& rect) {
  return {rect.left, rect.top, rect.right, rect.bottom};
}

inline RECT ToRECT(const Rect& rect) {
  return {rect.left, rect.top, rect.right, rect.bottom};
}

// A rectangle on the screen in client coordinates of a window; as it is when there is no window.
inline Rect FromScreen(RECT rect, HWND window) {
  if (window != nullptr) MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&rect), 2);
  return FromRECT(rect);
}

inline Size ClientSizeOf(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return {client.right, client.bottom};
}

inline COLORREF ToCOLORREF(Colour colour) {
  return RGB(colour.red, colour.green, colour.blue);
}

}  // namespace set32::win32

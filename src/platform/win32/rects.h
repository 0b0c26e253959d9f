// Between the window system's rectangles and the project's.
#pragma once

#include <algorithm>

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

// The screen without the task bar. Some systems tell of more than the screen shows.
inline Size FullScreenSize() {
  RECT area{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
  const Size told{GetSystemMetrics(SM_CXFULLSCREEN), GetSystemMetrics(SM_CYFULLSCREEN)};
  if (IsRectEmpty(&area)) return told;
  return {std::min<int>(told.width, area.right - area.left), std::min<int>(told.height, area.bottom - area.top)};
}

inline COLORREF ToCOLORREF(Colour colour) {
  return RGB(colour.red, colour.green, colour.blue);
}

}  // namespace set32::win32

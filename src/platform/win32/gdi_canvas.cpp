#include "platform/win32/gdi_canvas.h"

#include <algorithm>
#include <cstdlib>

#include "platform/win32/code_page.h"
#include "platform/win32/rects.h"

namespace set32::win32 {

GdiCanvas::GdiCanvas(HDC dc, Size area) : dc_(dc), area_(area), state_(SaveDC(dc)) {
  SetBkMode(dc, TRANSPARENT);
}

GdiCanvas::~GdiCanvas() {
  RestoreDC(dc_, state_);
  GdiFlush();
}

Colour GdiCanvas::ColourOf(SystemColour colour) const {
  const DWORD value = GetSysColor(static_cast<int>(colour));
  return {GetRValue(value), GetGValue(value), GetBValue(value)};
}

void GdiCanvas::Fill(const Rect& rect, Colour colour) {
  const RECT place = ToRECT(rect);
  SetDCBrushColor(dc_, ToCOLORREF(colour));
  FillRect(dc_, &place, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void GdiCanvas::Line(Point from, Point to, const Pen& pen) {
  if (pen.style == Pen::Style::dotted) {
    Dots(from, to, pen.colour);
    return;
  }
  const Selected selected(dc_, GetStockObject(DC_PEN));
  SetDCPenColor(dc_, ToCOLORREF(pen.colour));
  MoveToEx(dc_, from.x, from.y, nullptr);
  LineTo(dc_, to.x, to.y);
}

// Every other pixel: the window system's dotted pens are too coarse for a grid this small.
void GdiCanvas::Dots(Point from, Point to, Colour colour) {
  const std::int64_t across = std::int64_t{to.x} - from.x;
  const std::int64_t down = std::int64_t{to.y} - from.y;
  const std::int64_t steps = std::max(std::abs(across), std::abs(down));
  for (std::int64_t i = 0; i < steps; i += 2) {
    const int x = from.x + static_cast<int>(across * i / steps);
    const int y = from.y + static_cast<int>(down * i / steps);
    Dot({x, y}, colour);
  }
}

void GdiCanvas::Dot(Point at, Colour colour) {
  SetPixelV(dc_, at.x, at.y, ToCOLORREF(colour));
}

void GdiCanvas::Draw(const Picture& picture, Point at) {
  DrawOver(dc_, picture, at);
}

void GdiCanvas::Stretch(const Picture& picture, const Rect& over) {
  if (!IsSound(picture) || over.Width() <= 0 || over.Height() <= 0) return;
  const PixelBitmap bitmap(picture.size);
  const OwnedDc memory(CreateCompatibleDC(dc_));
  if (!bitmap || !memory) return;
  bitmap.Fill(picture);
  const Selected selected(memory.Get(), bitmap.Handle());
  SetStretchBltMode(dc_, HALFTONE);
  SetBrushOrgEx(dc_, 0, 0, nullptr);
  StretchBlt(dc_, over.left, over.top, over.Width(), over.Height(), memory.Get(), 0, 0, picture.size.width,
             picture.size.height, SRCCOPY);
}

void GdiCanvas::Text(std::string_view text, const Rect& inside, Colour colour) {
  RECT place = ToRECT(inside);
  const std::wstring wide = ModuleText().Wide(text);
  SetTextColor(dc_, ToCOLORREF(colour));
  DrawTextW(dc_, wide.data(), static_cast<int>(wide.size()), &place, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

void GdiCanvas::FocusRect(const Rect& rect) {
  const RECT place = ToRECT(rect);
  SetTextColor(dc_, GetSysColor(COLOR_WINDOWTEXT));
  DrawFocusRect(dc_, &place);
}

}  // namespace set32::win32

#include "apps/scan-desk/window/preview_painting.h"

#include <algorithm>
#include <string>

#include "apps/scan-desk/frames/view_scale.h"
#include "platform/win32/handle.h"

namespace scan_desk {

using set32::Rect;
using set32::win32::Selected;

namespace {

constexpr COLORREF currentColour = RGB(208, 32, 32), otherColour = RGB(32, 96, 208),
                   numberColour = RGB(255, 255, 255);

class Painter {
 public:
  Painter(HDC dc, const PreviewLook& look) : dc_(dc), look_(look) {}

  void Picture() const {
    const set32::CDib& dib = look_.dib;
    if (dib.header == nullptr || dib.displayPixels == nullptr) return;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = dib.header->width;
    info.bmiHeader.biHeight = dib.header->height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = dib.header->bitCount;
    SetStretchBltMode(dc_, HALFTONE);
    SetBrushOrgEx(dc_, 0, 0, nullptr);
    StretchDIBits(dc_, look_.shown.left, look_.shown.top, look_.shown.Width(), look_.shown.Height(), 0, 0,
                  dib.header->width, dib.header->height, dib.displayPixels, &info, DIB_RGB_COLORS, SRCCOPY);
  }

  // The current one last, since it lies on top.
  void Frames() const {
    const int current = look_.frames.Current();
    for (int i = 0; i < look_.frames.Count(); ++i) {
      if (i != current) Frame(i, look_.frames.At(i), otherColour);
    }
    if (current < 0) return;
    const bool isDragged = look_.drag.Now() == FrameDrag::Kind::moves || look_.drag.Now() == FrameDrag::Kind::resizes;
    const Rect& frame = isDragged ? look_.drag.Shape() : look_.frames.At(current);
    Frame(current, frame, currentColour);
    Handles(Placed(frame));
    if (look_.hasFocus) Dots(frame, Wide(3));
  }

  // A frame that is being drawn.
  void Drawn() const {
    if (look_.drag.Now() == FrameDrag::Kind::draws) Dots(look_.drag.Shape(), 0);
  }

 private:
  int Wide(int pixels) const { return WidePixels(dc_, pixels); }

  RECT Placed(const Rect& frame) const {
    const Rect place = ToWindow(frame, look_.shown, {look_.dib.header->width, look_.dib.header->height});
    return {place.left, place.top, place.right, place.bottom};
  }

  void Fill(const RECT& place, COLORREF colour) const {
    SetDCBrushColor(dc_, colour);
    FillRect(dc_, &place, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
  }

  void Frame(int index, const Rect& frame, COLORREF colour) const {
    RECT place = Placed(frame);
    SetDCBrushColor(dc_, colour);
    for (int line = 0; line < Wide(2); ++line) {
      FrameRect(dc_, &place, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
      InflateRect(&place, -1, -1);
    }
    Number(index, place, colour);
  }

  // In the frame's corner, on a ground of its colour, cut where the frame is smaller.
  void Number(int index, const RECT& inside, COLORREF colour) const {
    const std::wstring number = std::to_wstring(index);
    const Selected selected(dc_, look_.font != nullptr ? look_.font : GetStockObject(DEFAULT_GUI_FONT));
    SIZE size{};
    GetTextExtentPoint32W(dc_, number.c_str(), static_cast<int>(number.size()), &size);
    const int margin = Wide(4);
    const RECT ground{inside.left, inside.top, std::min(inside.left + size.cx + 2 * margin, inside.right),
                      std::min(inside.top + size.cy, inside.bottom)};
    Fill(ground, colour);
    SetBkMode(dc_, TRANSPARENT);
    SetTextColor(dc_, numberColour);
    ExtTextOutW(dc_, inside.left + margin, inside.top, ETO_CLIPPED, &ground, number.c_str(),
                static_cast<UINT>(number.size()), nullptr);
  }

  // On the corners and in the middle of the edges, to say that they can be dragged.
  void Handles(const RECT& place) const {
    const int half = Wide(3);
    const LONG across[] = {place.left, (place.left + place.right) / 2, place.right - 1};
    const LONG down[] = {place.top, (place.top + place.bottom) / 2, place.bottom - 1};
    for (const LONG x : across) {
      for (const LONG y : down) {
        if (x == across[1] && y == down[1]) continue;
        Fill({x - half, y - half, x + half + 1, y + half + 1}, currentColour);
        Fill({x - half + 1, y - half + 1, x + half, y + half}, numberColour);
      }
    }
  }

  void Dots(const Rect& frame, int inset) const {
    RECT place = Placed(frame);
    InflateRect(&place, -inset, -inset);
    DrawFocusRect(dc_, &place);
  }

  HDC dc_;
  const PreviewLook& look_;
};

}  // namespace

int WidePixels(HDC dc, int pixels) {
  return std::max(MulDiv(pixels, GetDeviceCaps(dc, LOGPIXELSX), USER_DEFAULT_SCREEN_DPI), 1);
}

void PaintPreview(HDC dc, const RECT& client, const PreviewLook& look) {
  const set32::win32::OwnedDc memory(CreateCompatibleDC(dc));
  const set32::win32::OwnedBitmap bitmap(
      CreateCompatibleBitmap(dc, std::max<int>(client.right, 1), std::max<int>(client.bottom, 1)));
  const bool buffered = memory && bitmap;
  const HDC target = buffered ? memory.Get() : dc;  // where memory is short it may flicker
  const Selected selected(memory.Get(), bitmap.Get());
  FillRect(target, &client, GetSysColorBrush(COLOR_APPWORKSPACE));
  if (look.dib.header != nullptr) {
    const Painter painter(target, look);
    painter.Picture();
    painter.Frames();
    painter.Drawn();
  }
  if (buffered) BitBlt(dc, 0, 0, client.right, client.bottom, target, 0, 0, SRCCOPY);
}

}  // namespace scan_desk

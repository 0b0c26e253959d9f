// A canvas on a device context.
#pragma once

#include "platform/canvas.h"
#include "platform/win32/picture_bitmap.h"

namespace set32::win32 {

class GdiCanvas : public Canvas {
 public:
  // `pixels` is the bitmap that the context draws into, if it is one of ours: dotted pens then leave the mark
  // `dottedAlpha` in it. Both must outlive the canvas.
  GdiCanvas(HDC dc, Size area, const PixelBitmap* pixels = nullptr);
  ~GdiCanvas() override;

  Size Area() const override { return area_; }
  Colour ColourOf(SystemColour colour) const override;
  void Fill(const Rect& rect, Colour colour) override;
  void Line(Point from, Point to, const Pen& pen) override;
  void Draw(const Picture& picture, Point at) override;
  void Stretch(const Picture& picture, const Rect& over) override;
  void Text(std::string_view text, const Rect& inside, Colour colour) override;
  void FocusRect(const Rect& rect) override;

 private:
  void Dots(Point from, Point to, Colour colour);

  HDC dc_;
  Size area_;
  const PixelBitmap* pixels_;
  int state_;
};

}  // namespace set32::win32

// A canvas on a device context.
#pragma once

#include "platform/canvas.h"
#include "platform/win32/picture_bitmap.h"

namespace set32::win32 {

class GdiCanvas : public Canvas {
 public:
  // The context must outlive the canvas.
  GdiCanvas(HDC dc, Size area);
  ~GdiCanvas() override;
  GdiCanvas(const GdiCanvas&) = delete;
  GdiCanvas& operator=(const GdiCanvas&) = delete;

  Size Area() const override { return area_; }
  Colour ColourOf(SystemColour colour) const override;
  void Fill(const Rect& rect, Colour colour) override;
  void Line(Point from, Point to, const Pen& pen) override;
  void Draw(const Picture& picture, Point at) override;
  void Stretch(const Picture& picture, const Rect& over) override;
  void Text(std::string_view text, const Rect& inside, Colour colour) override;
  void FocusRect(const Rect& rect) override;

 protected:
  // One pixel of a dotted pen.
  virtual void Dot(Point at, Colour colour);

 private:
  void Dots(Point from, Point to, Colour colour);

  HDC dc_;
  Size area_;
  int state_;
};

}  // namespace set32::win32

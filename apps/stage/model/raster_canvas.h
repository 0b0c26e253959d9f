// A canvas on a raster in memory, pixel by pixel what a window system draws; text alone is drawn as marks.
#pragma once

#include "platform/canvas.h"

namespace set32 {

class RasterCanvas : public Canvas {
 public:
  // Begins in the face colour; negative sizes count as 0.
  explicit RasterCanvas(Size area);

  Size Area() const override { return raster_.size; }
  Colour ColourOf(SystemColour colour) const override { return ModelColour(colour); }
  void Fill(const Rect& rect, Colour colour) override;
  void Line(Point from, Point to, const Pen& pen) override;
  void Draw(const Picture& picture, Point at) override;
  void Stretch(const Picture& picture, const Rect& over) override;
  void Text(std::string_view text, const Rect& inside, Colour colour) override;
  void FocusRect(const Rect& rect) override;

  // Rows top-down. Every pixel is opaque, one that a dotted pen laid has the alpha dottedAlpha.
  const Picture& Drawing() const { return raster_; }

  // The model's system colours.
  static Colour ModelColour(SystemColour colour);

 private:
  std::uint8_t* PixelAt(std::int64_t x, std::int64_t y);  // null outside
  void Put(std::int64_t x, std::int64_t y, Colour colour, std::uint8_t alpha = 255);
  void Invert(int x, int y);

  Picture raster_;
};

}  // namespace set32

// Drawing: onto a control's client area, or onto an item that a control asks its owner to draw.
#pragma once

#include <string_view>

#include "platform/geometry.h"
#include "platform/picture.h"

namespace set32 {

struct Pen {
  enum class Style { solid, dotted };
  Style style = Style::solid;
  Colour colour;
};

// Coordinates are pixels of the area that is drawn, from its upper left corner; what lies outside is cut off. A
// canvas lives for the call that hands it out. Host's thread only. No operation fails visibly.
class Canvas {
 public:
  virtual ~Canvas() = default;

  virtual Size Area() const = 0;
  virtual Colour ColourOf(SystemColour colour) const = 0;

  virtual void Fill(const Rect& rect, Colour colour) = 0;

  // A line of width 1 from the first point up to but not including the last, as window systems draw lines.
  virtual void Line(Point from, Point to, const Pen& pen) = 0;

  // The picture at its own size; transparent pixels leave what is there.
  virtual void Draw(const Picture& picture, Point at) = 0;

  // The picture stretched over the rectangle; shrinking averages.
  virtual void Stretch(const Picture& picture, const Rect& over) = 0;

  // One line of text, vertically centred, cut at the rectangle.
  virtual void Text(std::string_view text, const Rect& inside, Colour colour) = 0;

  // The rectangle that marks an item with the focus.
  virtual void FocusRect(const Rect& rect) = 0;
};

}  // namespace set32

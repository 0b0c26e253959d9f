// The picture area of the Advanced page: the gamma curve, the histogram or the hue wheel, and what the read-outs say
// of the place under the pointer. Drawn on whatever canvas the control hands out; host's thread.
#pragma once

#include <cstdint>
#include <optional>

#include "adjust/histogram.h"
#include "platform/canvas.h"
#include "platform/geometry.h"
#include "platform/picture.h"

namespace set32 {

Colour ColourOf(Band band);

// Face colour, and three dotted lines each way.
void DrawGrid(Canvas& canvas);

// The band's gamma alone; brightness and contrast don't show. A gamma that is zero, negative or no number draws as 1.
void DrawGammaCurve(Canvas& canvas, Band band, double gamma);

// A column a level, unscaled: a narrow area shows the lower levels alone. A band without a pixel is an empty grid.
void DrawHistogram(Canvas& canvas, Band band, const Histogram& histogram);

// Over the whole area; an empty picture draws nothing.
void DrawHueWheel(Canvas& canvas, const Picture& wheel);

struct Readout {
  std::uint32_t x;
  std::uint32_t y;
};

struct CurvePlace {
  Readout readout;
  bool nearCurve;  // so near that the curve is drawn anew
};

// Of a pointer inside the area (both in the same coordinates); nothing outside.
std::optional<CurvePlace> CurveReadout(const Rect& area, Point pointer, double gamma);
std::optional<Readout> HistogramReadout(const Rect& area, Point pointer, Band band, const Histogram& histogram);

}  // namespace set32

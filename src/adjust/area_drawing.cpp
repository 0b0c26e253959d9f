#include "adjust/area_drawing.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>

namespace set32 {

namespace {

constexpr double levelScale = 0.00392156862745098;  // 1/255
constexpr int topLevel = 255;
constexpr int nearPixels = 35;
// 1/255 as a 32-bit float of just this value.
constexpr float curveScale = std::bit_cast<float>(std::uint32_t{0x3B808081});

int CurveLevel(int level, double gamma) {
  const double exponent = 1.0 / (gamma > 0.0 ? gamma : 1.0);
  return static_cast<int>(std::pow(level * levelScale, exponent) * 255.0);
}

// The level under a pointer that lies inside.
int LevelAt(const Rect& area, Point pointer) {
  return static_cast<int>(std::int64_t{pointer.x - area.left} * topLevel / area.Width());
}

}  // namespace

Colour ColourOf(Band band) {
  switch (band) {
    case Band::red:
      return {255, 0, 0};
    case Band::green:
      return {0, 255, 0};
    case Band::blue:
      return {0, 0, 255};
    case Band::all:
      break;
  }
  return {};
}

void DrawGrid(Canvas& canvas) {
  const auto [width, height] = canvas.Area();
  canvas.Fill({0, 0, width, height}, canvas.ColourOf(SystemColour::buttonFace));
  const Pen pen{Pen::Style::dotted, {}};
  for (int k = 1; k <= 3; ++k) {
    const int y = height / 4 * k;
    const int x = width / 4 * k;
    canvas.Line({0, y}, {width, y}, pen);
    canvas.Line({x, 0}, {x, height}, pen);
  }
}

void DrawGammaCurve(Canvas& canvas, Band band, double gamma) {
  DrawGrid(canvas);
  const auto [width, height] = canvas.Area();
  const Pen pen{Pen::Style::solid, ColourOf(band)};
  Point drawn{0, height - 1};
  for (int i = 0; i < width; ++i) {
    const int level = CurveLevel(i * topLevel / width, gamma);
    const int bar = level * height / topLevel;
    const Point next{i, height - bar};
    if (bar != 0) canvas.Line(drawn, next, pen);
    drawn = next;
  }
}

void DrawHistogram(Canvas& canvas, Band band, const Histogram& histogram) {
  DrawGrid(canvas);
  const std::uint32_t peak = histogram.PeakOf(band);
  if (peak == 0) return;
  const auto [width, height] = canvas.Area();
  const Pen pen{Pen::Style::solid, ColourOf(band)};
  const int columns = std::min(width, topLevel + 1);
  for (int i = 0; i < columns; ++i) {
    const std::uint64_t count = histogram.Of(band)[static_cast<std::size_t>(i)];
    const auto tall = static_cast<std::uint64_t>(height);
    const auto bar = static_cast<int>(std::min(tall * count / peak, tall));
    canvas.Line({i, height - bar}, {i, height}, pen);
  }
}

void DrawHueWheel(Canvas& canvas, const Picture& wheel) {
  if (wheel.Empty()) return;
  const auto [width, height] = canvas.Area();
  canvas.Stretch(wheel, {0, 0, width, height});
}

std::optional<CurvePlace> CurveReadout(const Rect& area, Point pointer, double gamma) {
  if (!area.Contains(pointer)) return {};
  const int x = LevelAt(area, pointer);
  const int y = CurveLevel(x, gamma);
  const int curveY = static_cast<int>((topLevel - y) * double{curveScale} * area.Height()) + area.top;
  return CurvePlace{{static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)},
                    std::abs(curveY - pointer.y) < nearPixels};
}

std::optional<Readout> HistogramReadout(const Rect& area, Point pointer, Band band, const Histogram& histogram) {
  if (!area.Contains(pointer)) return {};
  const int x = LevelAt(area, pointer);
  return Readout{static_cast<std::uint32_t>(x), histogram.Of(band)[static_cast<std::size_t>(x)]};
}

}  // namespace set32

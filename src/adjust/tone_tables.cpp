#include "adjust/tone_tables.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace set32 {

namespace {

constexpr double levelScale = 0.00392156862745098;      // 1/255
constexpr double halfScale = 0.00784313725490196;       // 2/255
constexpr double contrastScale = 0.007874015748031496;  // 1/127
constexpr int middle = 127;
constexpr int top = 255;
constexpr int divisorScale = 65536;

using Levels = std::array<int, 256>;

// Brightness and contrast are common to the bands.
Levels LevelsBeforeGamma(std::int32_t brightness, std::int32_t contrast) {
  const int brightnessStep = BrightnessStep(brightness);
  const int contrastStep = ContrastStep(contrast);
  Levels levels;
  for (int i = 0; i < 256; ++i) {
    levels[static_cast<std::size_t>(i)] = ToneContrast(ToneBrightness(i, brightnessStep), contrastStep);
  }
  return levels;
}

ToneTable ThroughGamma(const Levels& levels, double gamma) {
  const double exponent = 1.0 / (gamma > 0.0 ? gamma : 1.0);
  ToneTable table;
  for (std::size_t i = 0; i < table.size(); ++i) {
    table[i] = static_cast<std::uint8_t>(static_cast<int>(std::pow(levels[i] * levelScale, exponent) * 255.0));
  }
  table[255] = table[254];  // white is never lifted past the level below it
  return table;
}

void Store(const ToneTable& table, std::uint8_t (&into)[256]) {
  std::copy(table.begin(), table.end(), into);
}

}  // namespace

int BrightnessStep(std::int32_t brightness) {
  // Only the ends of the scale give these two: 100 x 2.55 is a little less than 255.
  const int step = static_cast<int>(std::clamp(brightness, -100, 100) * 2.55);
  if (step == -254) return -255;
  if (step == 254) return 256;
  return step;
}

int ContrastStep(std::int32_t contrast) {
  return static_cast<int>(std::clamp(contrast, -100, 100) * 1.27);
}

int ToneBrightness(int level, int step) {
  level = std::clamp(level, 0, top);
  step = std::clamp(step, -255, 256);
  if (step < 0) return level * 256 / (divisorScale / (step + 256));
  if (step > 0) return (top - level) * 256 / (divisorScale / step) + level;
  return level;
}

int ToneContrast(int level, int step) {
  level = std::clamp(level, 0, top);
  step = std::clamp(step, -middle, middle);
  if (step == 0) return level;
  const int fromEnd = level <= middle ? level : top - level;
  const double x = fromEnd * halfScale;
  int toned = 0;
  if (step < 0) {
    toned = static_cast<int>(std::pow(x, (middle + step) * contrastScale) * 127.0);
  } else if (step < middle) {
    toned = static_cast<int>(std::pow(x, 127.0 / (middle - step)) * 127.0);
  } else {
    toned = fromEnd < middle ? 0 : middle;
  }
  return level <= middle ? toned : top - toned;
}

void BuildToneTables(CDib& dib) {
  const Levels levels = LevelsBeforeGamma(dib.brightness, dib.contrast);
  const ToneTable red = ThroughGamma(levels, dib.gammaRed);
  // One gamma for all bands is the ordinary case.
  const ToneTable green = dib.gammaGreen == dib.gammaRed ? red : ThroughGamma(levels, dib.gammaGreen);
  const ToneTable blue = dib.gammaBlue == dib.gammaRed ? red : ThroughGamma(levels, dib.gammaBlue);
  Store(red, dib.toneRed);
  Store(green, dib.toneGreen);
  Store(blue, dib.toneBlue);
}

void ApplyToneTables(CDib& dib, const Rect& rect, ToneUse use, const PixelRoad& road) {
  const auto view = ViewOf(dib);
  if (!view || rect.bottom <= rect.top) return;
  const int missing = dib.header->height - view->height;
  const int left = std::clamp(rect.left, 0, view->width);
  const int right = std::clamp(rect.right, left, view->width);
  const int first = std::max(rect.top, missing);
  const int last = std::min(rect.bottom, dib.header->height);
  const std::size_t offset = static_cast<std::size_t>(left) * 3;
  const auto pixels = static_cast<std::size_t>(right - left);
  const PixelTables tables(TablesOf(dib));
  for (int row = first; row < last; ++row) {
    const std::uint8_t* from = view->SourceRow(row - missing) + offset;
    std::uint8_t* to = view->DisplayRow(row - missing) + offset;
    if (use == ToneUse::copyUnchanged) {
      std::memcpy(to, from, pixels * 3);
    } else {
      road.Tone(from, to, pixels, tables);
    }
  }
  if (dib.kind == dib_kind::keepsToned && dib.savedPixels) {
    std::memcpy(dib.savedPixels, dib.displayPixels, dib.imageSize);
  }
}

void ToneRows(const PictureView& picture, const PixelTables& tables, const PixelRoad& road) {
  for (int row = 0; row < picture.height; ++row) {
    road.Tone(picture.SourceRow(row), picture.DisplayRow(row), static_cast<std::size_t>(picture.width), tables);
  }
}

}  // namespace set32

#include "apps/data-source/scanner/exposure.h"

#include <algorithm>
#include <cmath>

#include "adjust/adjustment_rules.h"
#include "adjust/own_image_library.h"
#include "adjust/preview.h"

namespace data_source {

using set32::ScanSettings;

namespace {

constexpr std::size_t bands = 3;
constexpr float deepLevels = 257;  // of 16 bits in one of 8

std::size_t StrideOf(int width) {
  return (bands * static_cast<std::size_t>(width) + 3) / 4 * 4;
}

// From -1 to 1, without pattern from one number to the next.
float Grain(std::uint32_t number) {
  std::uint32_t mixed = number * 0x9E3779B1U;
  mixed = (mixed ^ mixed >> 15) * 0x85EBCA77U;
  mixed = (mixed ^ mixed >> 13) * 0xC2B2AE3DU;
  mixed ^= mixed >> 16;
  return static_cast<float>(mixed) / 2147483648.0F - 1;
}

bool IsFiltered(const ScanSettings& settings) {
  const bool colours =
      set32::saturationRange.HeldOrZero(settings.saturation) != 0 || set32::hueRange.HeldOrZero(settings.hue) != 0;
  return settings.sharpness != 0 || (set32::IsColourMode(settings.mode) && colours);
}

// Between two levels of the table, as far as the lower byte says.
std::uint16_t Toned(const std::uint8_t* table, std::uint16_t level) {
  const int low = level / 257, part = level % 257;
  const int next = std::min(low + 1, 255);
  return static_cast<std::uint16_t>(table[low] * (257 - part) + table[next] * part);
}

}  // namespace

Exposure::Exposure(const ImageShape& shape, int noise)
    : shape_(shape), noise_(noise), stride_(StrideOf(shape.width)) {
  const std::size_t size = stride_ * static_cast<std::size_t>(shape.height);
  source_.resize(size);
  display_.resize(size);
  if (IsDeep()) deep_.resize(bands * static_cast<std::size_t>(shape.width) * static_cast<std::size_t>(shape.height));
}

void Exposure::TakeRow(int row, std::span<const float> levels) {
  std::uint8_t* into = source_.data() + static_cast<std::size_t>(shape_.height - 1 - row) * stride_;
  const std::size_t first = static_cast<std::size_t>(row) * levels.size();
  for (std::size_t i = 0; i < levels.size(); ++i) {
    float level = levels[i];
    if (noise_ != 0) level += static_cast<float>(noise_) * Grain(static_cast<std::uint32_t>(first + i));
    level = std::clamp(level, 0.0F, 255.0F);
    into[i] = static_cast<std::uint8_t>(std::lround(level));
    if (IsDeep()) deep_[first + i] = static_cast<std::uint16_t>(std::lround(level * deepLevels));
  }
}

ScannedImage Exposure::Develop(const ScanOrder& order) {
  if (order.settings.descreen != 0)
    Descreen(source_, shape_.width, shape_.height, stride_, ScreenCell(order.settings.descreenKind, shape_.dpi));
  RunPipeline(order);
  ScannedImage image = EmptyImage(shape_.kind, shape_.width, shape_.height, shape_.dpi);
  for (int row = 0; row < shape_.height; ++row) WriteRow(image, row);
  return image;
}

// The picture's record leans on this object's memory and frees none of it.
void Exposure::RunPipeline(const ScanOrder& order) {
  set32::BitmapInfoHeader header{};
  header.headerSize = sizeof header;
  header.width = shape_.width;
  header.height = shape_.height;
  header.planes = 1;
  header.bitCount = 24;
  set32::CDib dib;
  dib.header = &header;
  dib.ComputeMetrics();
  dib.sourcePixels = source_.data();
  dib.displayPixels = display_.data();
  set32::CopyAdjustmentsToPreview(order.settings, dib);
  set32::OwnImageLibrary library;
  set32::PreviewRenderer(set32::sheetPreview, library).Render(order.settings, dib, order.threshold);
  if (!IsDeep()) return;
  // Filters, and the mean over a screen, work on 8 bits: their result is spread over 16.
  if (order.settings.descreen != 0 || IsFiltered(order.settings)) {
    deep_.clear();
    return;
  }
  const set32::BandTables tables = set32::TablesOf(dib);
  const std::uint8_t* const ofBand[bands] = {tables.blue, tables.green, tables.red};
  for (std::size_t i = 0; i < deep_.size(); ++i) deep_[i] = Toned(ofBand[i % bands], deep_[i]);
}

std::uint8_t* Exposure::DisplayRow(int rowFromTop) {
  return display_.data() + static_cast<std::size_t>(shape_.height - 1 - rowFromTop) * stride_;
}

// In gray and black and white all bands of a pixel are the same by now; the deep ones are not, and green is what the
// adjustments look at.
void Exposure::WriteRow(ScannedImage& image, int row) {
  std::uint8_t* into = image.Row(row).data();
  const std::uint8_t* from = DisplayRow(row);
  const auto width = static_cast<std::size_t>(shape_.width);
  const std::uint16_t* deep = deep_.empty() ? nullptr : deep_.data() + bands * width * static_cast<std::size_t>(row);
  const auto sample = [&](std::size_t pixel, std::size_t band) -> unsigned {
    const std::size_t at = pixel * bands + band;
    return deep != nullptr ? deep[at] : from[at] * 257U;
  };
  const std::size_t samples = SamplesOf(image.kind) == 1 ? 1 : bands;
  for (std::size_t x = 0; x < width; ++x) {
    if (image.kind == PixelKind::blackWhite) {
      if (from[x * bands] != 0) into[x / 8] = static_cast<std::uint8_t>(into[x / 8] | 0x80 >> x % 8);
      continue;
    }
    for (std::size_t i = 0; i < samples; ++i) {
      const std::size_t band = samples == 1 ? 1 : bands - 1 - i;
      if (!IsDeep()) {
        *into++ = from[x * bands + band];
        continue;
      }
      const unsigned level = sample(x, band);
      *into++ = static_cast<std::uint8_t>(level);
      *into++ = static_cast<std::uint8_t>(level >> 8);
    }
  }
}

int ScreenCell(std::uint32_t descreenKind, int dpi) {
  // Lines an inch, as such prints have them.
  const int lines = descreenKind == set32::descreen_kind::newspaper  ? 85
                    : descreenKind == set32::descreen_kind::magazine ? 133
                                                                     : 175;
  return std::max((dpi + lines / 2) / lines, 1);
}

namespace {

// The mean over `cell` neighbours in a line of levels that are `step` bytes apart; beyond its ends stand the last
// ones.
void SmoothLine(std::uint8_t* line, int count, std::size_t step, int cell, std::vector<std::uint8_t>& copy) {
  for (int i = 0; i < count; ++i) copy[static_cast<std::size_t>(i)] = line[static_cast<std::size_t>(i) * step];
  const auto at = [&](int i) { return copy[static_cast<std::size_t>(std::clamp(i, 0, count - 1))]; };
  const int before = (cell - 1) / 2;
  int sum = 0;
  for (int i = 0; i < cell; ++i) sum += at(i - before);
  for (int i = 0; i < count; ++i) {
    line[static_cast<std::size_t>(i) * step] = static_cast<std::uint8_t>((sum + cell / 2) / cell);
    sum += at(i + cell - before) - at(i - before);
  }
}

}  // namespace

void Descreen(std::span<std::uint8_t> pixels, int width, int height, std::size_t stride, int cell) {
  if (cell < 2) return;
  std::vector<std::uint8_t> copy(static_cast<std::size_t>(std::max(width, height)));
  for (int y = 0; y < height; ++y) {
    for (std::size_t band = 0; band < bands; ++band)
      SmoothLine(pixels.data() + static_cast<std::size_t>(y) * stride + band, width, bands, cell, copy);
  }
  for (std::size_t column = 0; column < static_cast<std::size_t>(width) * bands; ++column)
    SmoothLine(pixels.data() + column, height, stride, cell, copy);
}

}  // namespace data_source

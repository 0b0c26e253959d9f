#include "adjust/histogram.h"

#include <algorithm>
#include <cstring>
#include <functional>

#include "adjust/picture_view.h"
#include "adjust/pixel_road_kinds.h"

namespace set32 {

namespace {

// Neighbouring pixels are often alike; each counts in a set of its own, so that no addition waits for the one before.
constexpr std::size_t setCount = 4;
constexpr std::size_t bandCount = 3;

struct PixelCounts {
  Histogram::Counts sets[setCount][bandCount]{};  // by set, and by the byte of a pixel

  void Count(const std::uint8_t* pixel, std::size_t set, std::uint32_t times) {
    for (std::size_t band = 0; band < bandCount; ++band) sets[set][band][pixel[band]] += times;
  }
};

constexpr std::size_t blockPixels = 16;
constexpr std::size_t blockBytes = blockPixels * bandCount;
static_assert(blockBytes <= cacheLine);

// Blank paper is most of many scans.
bool IsFlat(const std::uint8_t* block) {
  return std::memcmp(block, block + bandCount, blockBytes - bandCount) == 0;
}

void CountBlock(const std::uint8_t* pixels, PixelCounts& counts) {
  for (std::size_t i = 0; i < blockPixels; i += setCount) {
    for (std::size_t set = 0; set < setCount; ++set) counts.Count(pixels + (i + set) * bandCount, set, 1);
  }
}

void CountRow(const std::uint8_t* pixels, std::size_t width, PixelCounts& counts) {
  for (; width >= blockPixels; width -= blockPixels, pixels += blockBytes) {
    AskAhead(pixels);
    if (IsFlat(pixels)) {
      counts.Count(pixels, 0, blockPixels);
    } else {
      CountBlock(pixels, counts);
    }
  }
  for (; width > 0; --width, pixels += bandCount) counts.Count(pixels, 0, 1);
}

Histogram::Counts SumOf(const PixelCounts& counts, std::size_t band) {
  Histogram::Counts sum{};
  for (const auto& set : counts.sets) {
    std::transform(sum.begin(), sum.end(), set[band].begin(), sum.begin(), std::plus<>());
  }
  return sum;
}

}  // namespace

Histogram ComputeHistogram(const CDib* preview) {
  Histogram histogram;
  const auto view = preview ? ViewOf(*preview) : std::nullopt;
  if (!view) return histogram;
  PixelCounts counted;
  for (int row = 0; row < view->height; ++row) {
    CountRow(view->DisplayRow(row), static_cast<std::size_t>(view->width), counted);
  }
  auto& [all, red, green, blue] = histogram.counts;
  blue = SumOf(counted, 0);
  green = SumOf(counted, 1);
  red = SumOf(counted, 2);
  for (std::size_t level = 0; level < all.size(); ++level) all[level] = red[level] + green[level] + blue[level];
  std::transform(histogram.counts.begin(), histogram.counts.end(), histogram.peaks.begin(), PeakOf);
  return histogram;
}

std::uint32_t PeakOf(const Histogram::Counts& counts) {
  std::array<std::uint32_t, 5> largest{};
  std::partial_sort_copy(counts.begin(), counts.end(), largest.begin(), largest.end(), std::greater<>());
  return largest[4] != 0 ? largest[4] : largest[0];
}

}  // namespace set32

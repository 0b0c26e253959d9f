// The histogram of a picture: how many pixels have each level, by band. Free functions, any thread.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "set32/dib.h"

namespace set32 {

// Also the entries of the band combo.
enum class Band { all, red, green, blue };

struct Histogram {
  using Counts = std::array<std::uint32_t, 256>;

  std::array<Counts, 4> counts{};  // by Band and level; all: the sum of the three, so a pixel counts three times
  std::array<std::uint32_t, 4> peaks{};  // by Band: the count that fills a picture's height

  const Counts& Of(Band band) const { return counts[static_cast<std::size_t>(band)]; }
  std::uint32_t PeakOf(Band band) const { return peaks[static_cast<std::size_t>(band)]; }
};

// Every pixel of the display pixels; empty for no preview, and for one that isn't certain (ViewOf).
Histogram ComputeHistogram(const CDib* preview);

// The fifth largest count, so that four outlying levels may go past the top of a picture; the largest when fewer than
// five levels are in use.
std::uint32_t PeakOf(const Histogram::Counts& counts);

}  // namespace set32

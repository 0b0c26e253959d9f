// A picture for the works on pixels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "adjust/tone_tables.h"

namespace set32 {

struct PageSize {
  int width;
  int height;
  const char* name;
};

inline constexpr PageSize fullPage{2550, 3507, "2550 x 3507"};
inline constexpr PageSize smallPage{850, 1169, "850 x 1169"};

// Noise in short runs: neither flat nor wholly without likeness between neighbours.
class Page {
 public:
  explicit Page(const PageSize& size) : width(size.width), height(size.height) {
    header_ = {40, width, height, 1, 24, 0, 0, 0, 0, 0, 0};
    dib.header = &header_;
    dib.ComputeMetrics();
    source.resize(dib.imageSize);
    std::mt19937 random(1);
    std::uint8_t level = 0;
    for (auto& byte : source) {
      if (random() % 4 == 0) level = static_cast<std::uint8_t>(random());
      byte = level;
    }
    display = source;
    dib.sourcePixels = source.data();
    dib.displayPixels = display.data();
    dib.brightness = 20;
    dib.contrast = 10;
    SetGammas(1.1, 1.2, 1.3);
  }
  ~Page() { dib.header = nullptr; }
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  void SetGammas(double red, double green, double blue) {
    dib.gammaRed = red;
    dib.gammaGreen = green;
    dib.gammaBlue = blue;
    BuildToneTables(dib);
  }
  std::uint8_t* SourceRow(int row) { return source.data() + static_cast<std::size_t>(row) * dib.stride; }
  std::uint8_t* DisplayRow(int row) { return display.data() + static_cast<std::size_t>(row) * dib.stride; }

  int width;
  int height;
  CDib dib;
  std::vector<std::uint8_t> source;
  std::vector<std::uint8_t> display;

 private:
  BitmapInfoHeader header_;
};

}  // namespace set32

// Pictures for the tests of this folder: made in memory, with every byte known.
#pragma once

#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

#include "set32/dib.h"

namespace set32 {

// A picture that a host filled itself: the object frees nothing.
class TestPicture {
 public:
  // `extraStride` bytes lie between the rows beside the usual padding. Source pixels are white, display pixels 7.
  TestPicture(int width, int height, int extraStride = 0) {
    header_ = {40, width, height, 1, 24, 0, 0, 3937, 3937, 0, 0};
    dib.header = &header_;
    dib.stride = static_cast<std::uint32_t>((width * 3 + 3) / 4 * 4 + extraStride);
    dib.imageSize = dib.stride * static_cast<std::uint32_t>(height);
    header_.imageSize = dib.imageSize;
    source.assign(dib.imageSize, 255);
    display.assign(dib.imageSize, untouched);
    saved.assign(dib.imageSize, untouched);
    Rebind();
  }
  ~TestPicture() { dib.header = nullptr; }
  TestPicture(const TestPicture&) = delete;
  TestPicture& operator=(const TestPicture&) = delete;

  void Rebind() {
    dib.sourcePixels = source.data();
    dib.displayPixels = display.data();
    dib.savedPixels = saved.data();
  }

  void FillRandomly(std::uint32_t seed) {
    std::mt19937 random(seed);
    for (auto& byte : source) byte = static_cast<std::uint8_t>(random());
  }

  // Rows count as they lie in memory.
  std::uint8_t* Source(int x, int row) { return &source[At(x, row)]; }
  const std::uint8_t* Display(int x, int row) const { return &display[At(x, row)]; }
  std::vector<int> DisplayPixel(int x, int row) const {
    const std::uint8_t* pixel = Display(x, row);
    return {pixel[0], pixel[1], pixel[2]};
  }
  void SetSource(int x, int row, std::uint8_t blue, std::uint8_t green, std::uint8_t red) {
    const std::uint8_t pixel[3] = {blue, green, red};
    std::memcpy(Source(x, row), pixel, 3);
  }

  static constexpr std::uint8_t untouched = 7;

  CDib dib;
  std::vector<std::uint8_t> source;
  std::vector<std::uint8_t> display;
  std::vector<std::uint8_t> saved;

 private:
  std::size_t At(int x, int row) const {
    return static_cast<std::size_t>(row) * dib.stride + static_cast<std::size_t>(x) * 3;
  }

  BitmapInfoHeader header_;
};

}  // namespace set32

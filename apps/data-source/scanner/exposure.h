// What the scanner does with the light of one image: noise, descreening, and the adjustments of the record.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "apps/data-source/scanner/scanned_image.h"
#include "apps/data-source/scanner/scanner.h"

namespace data_source {

class Exposure {
 public:
  // `noise` is how many levels a pixel may be off by: the same for the same pixel, so that a scan can be repeated.
  Exposure(const ImageShape& shape, int noise);

  // Rows from the top, as Resample gives them.
  void TakeRow(int row, std::span<const float> levels);
  // The image as the order wants it, once all rows were taken.
  ScannedImage Develop(const ScanOrder& order);

 private:
  bool IsDeep() const { return BitsOf(shape_.kind) == 16; }
  void RunPipeline(const ScanOrder& order);
  std::uint8_t* DisplayRow(int rowFromTop);
  void WriteRow(ScannedImage& image, int row);

  ImageShape shape_;
  int noise_;
  std::size_t stride_;
  std::vector<std::uint8_t> source_, display_;  // rows bottom-up, blue, green, red, as the adjustments take them
  std::vector<std::uint16_t> deep_;             // rows from the top, the same bands; empty for 8 bits
};

// Smooths a printed screen away: each level becomes the mean over one cell of the screen. Rows are `stride` bytes.
void Descreen(std::span<std::uint8_t> pixels, int width, int height, std::size_t stride, int cell);
// Pixels of one cell of the screen of a kind of print, at a resolution; 1 for a screen finer than a pixel.
int ScreenCell(std::uint32_t descreenKind, int dpi);

}  // namespace data_source

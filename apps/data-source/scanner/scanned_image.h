// What the scanner delivers: rows from the top, as an application takes them strip by strip, and as a device
// independent bitmap.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace data_source {

enum class PixelKind { blackWhite, gray8, colour24, gray16, colour48 };

// Bands of a pixel, and bits of one of them.
int SamplesOf(PixelKind kind);
int BitsOf(PixelKind kind);

struct ScannedImage {
  PixelKind kind = PixelKind::colour24;
  int width = 0;
  int height = 0;
  int dpi = 0;
  std::size_t stride = 0;  // a multiple of 4
  // Bands in the order red, green, blue, samples of 16 bits with their low byte first. In black and white the highest
  // bit is the left pixel, and 1 is white.
  std::vector<std::uint8_t> rows;

  std::span<const std::uint8_t> Row(int row) const {
    return std::span(rows).subspan(static_cast<std::size_t>(row) * stride, stride);
  }
  std::span<std::uint8_t> Row(int row) {
    return std::span(rows).subspan(static_cast<std::size_t>(row) * stride, stride);
  }
};

// With its rows still to be written.
ScannedImage EmptyImage(PixelKind kind, int width, int height, int dpi);

// A bitmap of the system's kind: header, colour table, rows from the bottom. It knows no samples of 16 bits; of
// those the upper 8 remain.
std::size_t BitmapSize(const ScannedImage& image);
void WriteBitmap(const ScannedImage& image, std::span<std::uint8_t> into);
// The head of a file before these bytes.
std::vector<std::uint8_t> BitmapFileHead(const ScannedImage& image);

}  // namespace data_source

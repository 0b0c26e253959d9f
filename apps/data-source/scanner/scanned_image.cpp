#include "apps/data-source/scanner/scanned_image.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "set32/dib.h"

namespace data_source {

namespace {

std::size_t StrideOf(PixelKind kind, int width) {
  const auto bits = static_cast<std::size_t>(SamplesOf(kind) * BitsOf(kind)) * static_cast<std::size_t>(width);
  return (bits + 31) / 32 * 4;
}

// As a bitmap holds it.
PixelKind Shallow(PixelKind kind) {
  switch (kind) {
    case PixelKind::gray16:
      return PixelKind::gray8;
    case PixelKind::colour48:
      return PixelKind::colour24;
    default:
      return kind;
  }
}

std::size_t ColoursOf(PixelKind kind) {
  return kind == PixelKind::blackWhite ? 2 : kind == PixelKind::gray8 ? 256 : 0;
}

std::size_t PixelsStart(PixelKind kind) {
  return sizeof(set32::BitmapInfoHeader) + sizeof(set32::ColourEntry) * ColoursOf(kind);
}

set32::BitmapInfoHeader HeaderOf(const ScannedImage& image) {
  constexpr double metresAnInch = 0.0254;
  const PixelKind kind = Shallow(image.kind);
  set32::BitmapInfoHeader header{};
  header.headerSize = sizeof header;
  header.width = image.width;
  header.height = image.height;
  header.planes = 1;
  header.bitCount = static_cast<std::uint16_t>(SamplesOf(kind) * BitsOf(kind));
  header.imageSize = static_cast<std::uint32_t>(StrideOf(kind, image.width) * static_cast<std::size_t>(image.height));
  header.pixelsPerMetreX = header.pixelsPerMetreY = static_cast<std::int32_t>(std::lround(image.dpi / metresAnInch));
  header.coloursUsed = static_cast<std::uint32_t>(ColoursOf(kind));
  return header;
}

void WriteRow(const ScannedImage& image, int row, std::uint8_t* into) {
  const std::uint8_t* from = image.Row(row).data();
  const std::ptrdiff_t samples = SamplesOf(image.kind), step = BitsOf(image.kind) == 16 ? 2 : 1;
  if (samples == 1 && step == 1) {
    std::memcpy(into, from, image.stride);
    return;
  }
  const std::uint8_t* high = from + step - 1;  // of each sample
  for (int x = 0; x < image.width; ++x) {
    for (std::ptrdiff_t band = 0; band < samples; ++band) into[samples - 1 - band] = high[band * step];
    into += samples;
    high += samples * step;
  }
}

}  // namespace

int SamplesOf(PixelKind kind) {
  return kind == PixelKind::colour24 || kind == PixelKind::colour48 ? 3 : 1;
}

int BitsOf(PixelKind kind) {
  switch (kind) {
    case PixelKind::blackWhite:
      return 1;
    case PixelKind::gray16:
    case PixelKind::colour48:
      return 16;
    default:
      return 8;
  }
}

ScannedImage EmptyImage(PixelKind kind, int width, int height, int dpi) {
  const std::size_t stride = StrideOf(kind, width);
  return {kind, width, height, dpi, stride, std::vector<std::uint8_t>(stride * static_cast<std::size_t>(height))};
}

std::size_t BitmapSize(const ScannedImage& image) {
  const PixelKind kind = Shallow(image.kind);
  return PixelsStart(kind) + StrideOf(kind, image.width) * static_cast<std::size_t>(image.height);
}

void WriteBitmap(const ScannedImage& image, std::span<std::uint8_t> into) {
  const PixelKind kind = Shallow(image.kind);
  const set32::BitmapInfoHeader header = HeaderOf(image);
  std::memset(into.data(), 0, into.size());  // what lies behind the rows' pixels too
  std::memcpy(into.data(), &header, sizeof header);
  for (std::size_t i = 0; i < ColoursOf(kind); ++i) {
    const auto level = static_cast<std::uint8_t>(i * 255 / (ColoursOf(kind) - 1));
    std::memset(into.data() + sizeof header + sizeof(set32::ColourEntry) * i, level, 3);
  }
  const std::size_t stride = StrideOf(kind, image.width);
  for (int row = 0; row < image.height; ++row) {
    WriteRow(image, row, into.data() + PixelsStart(kind) + static_cast<std::size_t>(image.height - 1 - row) * stride);
  }
}

std::vector<std::uint8_t> BitmapFileHead(const ScannedImage& image) {
  constexpr std::size_t size = 14;
  std::vector<std::uint8_t> head(size);
  const auto whole = static_cast<std::uint32_t>(size + BitmapSize(image));
  const auto pixels = static_cast<std::uint32_t>(size + PixelsStart(Shallow(image.kind)));
  head[0] = 'B';
  head[1] = 'M';
  std::memcpy(&head[2], &whole, sizeof whole);
  std::memcpy(&head[10], &pixels, sizeof pixels);
  return head;
}

}  // namespace data_source

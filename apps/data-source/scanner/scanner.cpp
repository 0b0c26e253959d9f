#include "apps/data-source/scanner/scanner.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "adjust/adjustment_rules.h"
#include "apps/data-source/scanner/exposure.h"
#include "apps/data-source/scanner/resample.h"

namespace data_source {

namespace fs = std::filesystem;
using set32::ScanSettings;

namespace {

PixelKind KindOf(const ScanSettings& settings) {
  if (settings.mode == set32::mode::blackWhite) return PixelKind::blackWhite;
  const bool deep = settings.highBitDepth != 0;
  switch (settings.mode) {
    case set32::mode::gray:
      return deep ? PixelKind::gray16 : PixelKind::gray8;
    case set32::mode::jpegGray:
      return PixelKind::gray8;
    case set32::mode::jpegColour:
      return PixelKind::colour24;
    default:
      return deep ? PixelKind::colour48 : PixelKind::colour24;
  }
}

bool IsCompressed(const ScanSettings& settings) {
  return settings.mode == set32::mode::jpegColour || settings.mode == set32::mode::jpegGray;
}

// The nearest length from one pixel to the device's own; one that is no number counts as the device's.
int Pixels(double inches, double most, int dpi) {
  const double held = inches >= 0 && inches <= most ? inches : inches < 0 ? 0 : most;
  return std::max(static_cast<int>(std::lround(held * dpi)), 1);
}

double Offset(double inches, double most) {
  return inches >= 0 && inches <= most ? inches : 0;
}

ScanResult ScanPage(const PagePicture& page, const DeviceTraits& traits, const ScanOrder& order) {
  const ImageShape shape = ShapeOf(order);
  const PageGrid grid{
      .left = (Offset(order.area.left, device::glassWidth) - traits.margin) * page.dpiX,
      .top = (Offset(order.area.top, device::feederHeight) - traits.margin) * page.dpiY,
      .stepX = page.dpiX / shape.dpi,
      .stepY = page.dpiY / shape.dpi,
  };
  Exposure exposure(shape, traits.noise);
  Resample(page, grid, shape.width, shape.height,
           [&](int row, std::span<const float> levels) { exposure.TakeRow(row, levels); });
  return {exposure.Develop(order)};
}

}  // namespace

ImageShape ShapeOf(const ScanOrder& order) {
  const int dpi = std::clamp(order.settings.dpi, device::lowestDpi, device::highestDpi);
  return {KindOf(order.settings), Pixels(order.area.width, device::glassWidth, dpi),
          Pixels(order.area.height, device::feederHeight, dpi), dpi};
}

std::vector<fs::path> Scanner::Pages(std::uint32_t paperSource) const {
  if (paperSource == set32::paper_source::feeder) return BitmapsIn(folder_ / "feeder");
  std::vector<fs::path> pages = BitmapsIn(folder_);
  if (pages.size() > 1) pages.resize(1);
  return pages;
}

ScanResult Scanner::Scan(const fs::path& page, const ScanOrder& order) const try {
  const std::optional<PagePicture> picture = ReadPage(page);
  if (!picture) return {{}, ScanTrouble::unreadablePage};
  ScanResult scanned = ScanPage(*picture, ReadTraits(folder_ / "scanner.txt"), order);
  if (codec_ == nullptr || !IsCompressed(order.settings)) return scanned;
  // The device sends it compressed.
  const std::vector<std::uint8_t> sent = codec_->Encode(scanned.image, order.settings.jpegQuality);
  if (sent.empty() || !codec_->Decode(sent, scanned.image)) return {{}, ScanTrouble::notCompressed};
  return scanned;
} catch (const std::bad_alloc&) {
  return {{}, ScanTrouble::lowMemory};
}

std::vector<std::uint8_t> Scanner::Compress(const ScannedImage& image, int quality) const {
  return codec_ == nullptr ? std::vector<std::uint8_t>() : codec_->Encode(image, quality);
}

ScanResult Scanner::ScanPreview() const try {
  ScanOrder order{};
  order.settings.mode = set32::mode::colour;
  order.settings.dpi = device::previewDpi;
  order.settings.gammaAll = 1;
  order.area = {0, 0, device::glassWidth, device::glassHeight};
  const std::vector<fs::path> pages = Pages(set32::paper_source::flatbed);
  if (!pages.empty()) return Scan(pages.front(), order);
  const PagePicture nothing{0, 0, device::previewDpi, device::previewDpi, {}};
  return ScanPage(nothing, ReadTraits(folder_ / "scanner.txt"), order);
} catch (const std::bad_alloc&) {
  return {{}, ScanTrouble::lowMemory};
}

}  // namespace data_source

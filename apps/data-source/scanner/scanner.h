// A scanner that stands for a device: it scans pages given as bitmap files, with the adjustments of the record
// applied at scan size by the same steps that render the panel's preview.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "apps/data-source/scanner/jpeg_codec.h"
#include "apps/data-source/scanner/page_picture.h"
#include "apps/data-source/scanner/scanned_image.h"
#include "set32/host_records.h"

namespace data_source {

// A place on the glass, in inches from its upper left corner.
struct Area {
  double left = 0, top = 0, width = 0, height = 0;
  bool operator==(const Area&) const = default;
};

// What the device can do.
namespace device {
inline constexpr int lowestDpi = 75, highestDpi = 600, previewDpi = 100;
inline constexpr double glassWidth = 8.5, glassHeight = 11.69, feederHeight = 14;
}  // namespace device

struct ScanOrder {
  set32::ScanSettings settings;
  Area area;
  std::uint32_t threshold = 128;  // of black and white
};

// The kind and size in pixels of what an order gives. Areas and resolutions that the device doesn't have count as the
// nearest that it has.
struct ImageShape {
  PixelKind kind;
  int width, height, dpi;
};
ImageShape ShapeOf(const ScanOrder& order);

enum class ScanTrouble { none, unreadablePage, notCompressed, lowMemory };

struct ScanResult {
  ScannedImage image;
  ScanTrouble trouble = ScanTrouble::none;
};

class Scanner {
 public:
  // page_picture.h tells what lies in the folder. It is looked at anew each time. Without a codec the images of the
  // two JPEG modes lose nothing.
  explicit Scanner(std::filesystem::path folder, JpegCodec* codec = nullptr)
      : folder_(std::move(folder)), codec_(codec) {}

  // What lies there for a paper source, first what is scanned first: at most one page on the glass.
  std::vector<std::filesystem::path> Pages(std::uint32_t paperSource) const;
  ScanResult Scan(const std::filesystem::path& page, const ScanOrder& order) const;
  // A JPEG file of an image; empty where there can be none.
  std::vector<std::uint8_t> Compress(const ScannedImage& image, int quality) const;
  // The whole glass in colour at the preview's resolution, without adjustments; white where no page lies.
  ScanResult ScanPreview() const;

 private:
  std::filesystem::path folder_;
  JpegCodec* codec_;
};

}  // namespace data_source

// The pages that a scanner without a device scans: bitmap files in a folder.
//
//   FOLDER/*.bmp         the first by its name lies on the glass
//   FOLDER/feeder/*.bmp  the feeder's stack, in the order of their names
//   FOLDER/scanner.txt   may say what the device adds: lines "noise LEVELS" and "margin INCHES"
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace data_source {

// One page, 24 bits a pixel in the order blue, green, red, rows from the top without a gap.
struct PagePicture {
  int width = 0;
  int height = 0;
  double dpiX = 0;
  double dpiY = 0;
  std::vector<std::uint8_t> pixels;
};

struct DeviceTraits {
  int noise = 0;      // levels that a pixel may be off by
  double margin = 0;  // inches of the glass beside and above the page
};

// The bitmap files right in a folder, by name. Empty for a folder that isn't there.
std::vector<std::filesystem::path> BitmapsIn(const std::filesystem::path& folder);

// None for a file that is no bitmap of 1, 4, 8, 24 or 32 bits without compression. Without a resolution it has 100
// dpi.
std::optional<PagePicture> ReadPage(const std::filesystem::path& file);

// What isn't told, or is out of range (0 to 128 levels, 0 to 4 inches), is 0.
DeviceTraits ReadTraits(const std::filesystem::path& file);

}  // namespace data_source

// A record that a host can open the panel with: colour, 100 dpi, the flatbed, neutral adjustments.
//
// Size and resolution are what a fresh configuration has; the panel derives lengths and resolution from their codes
// when it opens, and lays what the person used last over the record where that is stored. All of the rest is zero.
#pragma once

#include <set32/host_records.h>

namespace set32 {

// `sizeId` is one of size_id::, A4 outside of the countries that scan Letter.
inline ScanSettings NewSettings(std::uint32_t sizeId = size_id::a4) {
  ScanSettings settings{};
  settings.mode = mode::colour;
  settings.resolutionId = resolution::dpi100;
  settings.dpi = 100;
  settings.paperSource = paper_source::flatbed;
  settings.useDefaults = 1;
  settings.gammaAll = settings.gammaRed = settings.gammaGreen = settings.gammaBlue = 1.0;
  settings.sizeId = sizeId;
  settings.width = settings.customWidth = 8.5;
  settings.height = settings.customHeight = 11.0;
  settings.jpegQuality = 9;
  return settings;
}

}  // namespace set32

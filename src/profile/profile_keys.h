// Sections and keys of the profile of scan configurations.
#pragma once

#include <cstdint>

#include "set32/host_records.h"

namespace set32::profile_key {

inline constexpr const char* configItems = "Config Items";  // a key a configuration: 200 bytes in hexadecimal text
inline constexpr const char* tmpSection = "Tmp";
inline constexpr const char* tmp = "Tmp";  // the settings at the last close of the sheet face
inline constexpr const char* selected = "Selected";

// The key that holds the selected row of a paper source; the flatbed's for a source that isn't known.
constexpr const char* SelectedKey(std::uint32_t source) {
  switch (source) {
    case paper_source::feeder:
      return "ADFActive";
    case paper_source::positive:
      return "TAActive";
    case paper_source::negative:
      return "NTAActive";
    default:
      return "Active";
  }
}

inline constexpr const char* defaultSettings = "Default Settings";  // the adjustments that a mode begins with
inline constexpr const char* jpegQuality = "JPEGQualityFactor";     // a double

// Keys of the default adjustments, null where there is none and the value is neutral. The gamma is a double.
struct AdjustmentKeys {
  const char* brightness = nullptr;
  const char* contrast = nullptr;
  const char* gamma = nullptr;
};

constexpr AdjustmentKeys AdjustmentKeysOf(std::uint32_t scanMode) {
  switch (scanMode) {
    case mode::colour:
    case mode::jpegColour:
      return {"ColorBrightness", "ColorContrast", "ColorGamma"};
    case mode::gray:
    case mode::jpegGray:
      return {"GrayBrightness", "GrayContrast", "GrayGamma"};
    case mode::blackWhite:
      return {"B&WBrightness", nullptr, "B&WGamma"};
    default:
      return {};
  }
}

}  // namespace set32::profile_key

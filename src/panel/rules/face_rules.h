// Where the two faces differ in resolution, size and mode, as one record.
//
// Each face has one constant of it. The rules beside this file take the record and never ask which face they serve,
// so a difference stands here or nowhere.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "set32/host_records.h"

namespace set32 {

// An entry of the size list.
struct SizeEntry {
  int stringId;
  std::uint32_t sizeId;  // size_id::, the entry's data
};

// A fixed page size, inches.
struct SizeRow {
  std::uint32_t sizeId;
  double width;
  double height;
};

// A number for each of paper_source::; any other code takes the flatbed's.
template <typename T>
struct BySource {
  std::array<T, 4> values;

  constexpr const T& operator[](std::uint32_t source) const { return values[source < values.size() ? source : 0]; }
};

constexpr bool IsTransparency(std::uint32_t source) {
  return source == paper_source::positive || source == paper_source::negative;
}

// Fields that a choice of mode resets, or-ed; see mode_rules.h.
namespace mode_reset {
inline constexpr unsigned none = 0;
inline constexpr unsigned descreen = 1U << 0;
inline constexpr unsigned highBitDepth = 1U << 1;
inline constexpr unsigned hue = 1U << 2;
inline constexpr unsigned saturation = 1U << 3;
inline constexpr unsigned sharpness = 1U << 4;
inline constexpr unsigned contrast = 1U << 5;
inline constexpr unsigned gammas = 1U << 6;  // all four to 1.0
}  // namespace mode_reset

struct FaceRules {
  // Size.
  BySource<std::span<const SizeEntry>> sizeLists;
  std::span<const SizeRow> sizes;              // user-defined has no row
  std::span<const SizeRow> transparencySizes;  // looked at first on the transparency sources
  BySource<bool> sizeEditsEnabled;
  BySource<std::int32_t> frameLeftOfChoice;  // preview pixels: `frameLeft` after a size was chosen
  bool centresOnFeeder;                      // a chosen page then lies in the middle of the feeder
  bool smallestSizeHasOwnText;               // 0.30 inch shows as 0.77 cm, and its pixels are rounded, not cut
  bool typedSizeKeepsToPreview;              // a typed size may not pass the preview's edge
  double reportTolerance;                    // inches by which a reported size may differ and still be the same

  // Resolution.
  BySource<std::uint32_t> barredResolutions;  // bits of entries that never stand, whatever the device offers
  // On the negative source: lowest dpi of the edit, and what a dpi below `negativeFloor` becomes.
  std::int32_t negativeLow;
  std::int32_t negativeFloor;
  std::int32_t negativeDpi;
  std::uint32_t negativeResolutionId;
  bool dpiAboveListIsCorrected;                  // a dpi above the highest entry comes down to it
  BySource<std::uint16_t> minDpiAtBinding;       // set by each call of the host
  BySource<std::uint16_t> minDpiAtSourceChange;  // set by the person's change of source
  std::uint16_t resolutionMaskWithoutLimits;     // entries on offer when the host gives no limits

  // Mode: fields reset by the choice of gray and of black and white.
  unsigned grayResets;
  unsigned blackWhiteResets;
};

extern const FaceRules sheetFaceRules;
extern const FaceRules inlineFaceRules;

}  // namespace set32

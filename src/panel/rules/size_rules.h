// Size: page dimensions, their texts in the three units, what may be typed, and where a page lies on the preview.
//
// Lengths are inches in doubles; centimetres and pixels exist in the edits alone. A length comes from the host's
// record or from typing, so it may be anything: every function is defined for every double and every dpi. A unit that
// is none of unit:: counts as inches. Free functions over values; no window, no state, any thread.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "panel/rules/face_rules.h"
#include "set32/dib.h"
#include "set32/host_records.h"

namespace set32 {

enum class Dimension { width, height };

// Inches; the lower limit is the same on all sources.
inline constexpr double lowestSize = 0.3;
double HighestSize(Dimension dimension, std::uint32_t source);

// The size list of a source: its entries in order.
std::span<const SizeEntry> SizeList(std::uint32_t source, const FaceRules& rules);

// The dimensions of a page size; none for the user-defined one and for a code that is none on this face.
std::optional<SizeRow> FindSize(std::uint32_t sizeId, std::uint32_t source, const FaceRules& rules);

// The text of a length in an edit. A length that is too great for the text shows the greatest number there is,
// one that isn't a number shows 0.
std::string SizeText(double inches, std::uint32_t units, std::int32_t dpi, const FaceRules& rules);

// The typing range of an edit in its unit. The smaller limits of the transparency sources are no part of it: they are
// enforced when the edit is left.
struct TypingRange {
  double low;
  double high;
};
TypingRange SizeTypingRange(Dimension dimension, std::uint32_t source, std::uint32_t units, std::int32_t dpi);

// What stands in an edit, in inches: its first 255 characters up to where the number ends, 0.0 without one.
double InchesOf(std::string_view text, std::uint32_t units, std::int32_t dpi);

// Whether a typed length stands: in its limits and, unless the unit is pixels, well written.
bool IsGoodSize(double inches, std::string_view text, Dimension dimension, std::uint32_t source, std::uint32_t units);

// The message about a length that doesn't: its string and the numbers in it.
struct RangeMessage {
  int stringId;
  std::array<std::int32_t, 4> numbers;
  int count;  // 2 or 4
};
RangeMessage SizeRangeMessage(Dimension dimension, std::uint32_t source, std::uint32_t units, std::int32_t dpi);

// The preview picture as the size rules see it.
struct PreviewFacts {
  std::int32_t width;   // pixels
  std::int32_t height;  // pixels
  std::int32_t dpi;     // see PreviewDpi
};

// None without a preview, or while it holds no picture.
std::optional<PreviewFacts> FactsOf(const CDib* preview);

// Dots per inch of a picture from its pixels per metre.
std::int32_t PreviewDpi(std::int32_t pixelsPerMetre);

// Whether an area that starts at `frameStart` (preview pixels) with this length ends inside the preview. One that
// starts at 0 always does; the caller asks nothing when there is no preview.
bool FitsPreview(double inches, std::int32_t frameStart, Dimension dimension, const PreviewFacts& preview);

// Whether a chosen size lies in the middle of the feeder, and its `frameLeft` there.
bool LiesMidFeeder(std::uint32_t sizeId, std::uint32_t source, const FaceRules& rules);
std::int32_t CentredOnFeeder(double width, const PreviewFacts& preview);

// Whether a size reported by the host is the one that the record holds.
bool IsSameSize(double width, double height, double reportedWidth, double reportedHeight, const FaceRules& rules);

}  // namespace set32

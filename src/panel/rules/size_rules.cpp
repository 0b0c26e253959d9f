#include "panel/rules/size_rules.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "controls/edit_rules.h"
#include "controls/format.h"
#include "controls/number_text.h"
#include "resources/ids.h"

namespace set32 {

namespace {

constexpr BySource<double> highestWidth = {{8.5, 8.5, 5.0, 5.0}};
constexpr BySource<double> highestHeight = {{11.69, 14.0, 7.0, 7.0}};

// The numbers that a message names in hundredths of the unit. In centimetres the lowest is the first that the edit
// accepts and shows, 0.762 cut and one more.
constexpr std::int32_t lowestNamedInch = 30;
constexpr std::int32_t lowestNamedCentimetre = 77;
constexpr BySource<std::int32_t> highestWidthNamedInch = {{850, 850, 500, 500}};
constexpr BySource<std::int32_t> highestWidthNamedCentimetre = {{2159, 2159, 1270, 1270}};
constexpr BySource<std::int32_t> highestHeightNamedInch = {{1169, 1400, 700, 700}};
constexpr BySource<std::int32_t> highestHeightNamedCentimetre = {{2969, 3556, 1778, 1778}};

constexpr double inchesPerCentimetre = 0.39370078740157477;
constexpr std::size_t longestRead = 255;
constexpr std::int32_t smallestHundredths = 30;  // 0.30 inch

// A number of hundredths as "%d.%02d", with its sign in front.
std::string HundredthsText(std::int32_t whole, std::int32_t hundredths) {
  const bool negative = whole < 0 || hundredths < 0;
  return FormatText(negative ? "-%d.%02d" : "%d.%02d", std::abs(whole), std::abs(hundredths));
}

std::string HundredthsText(std::int32_t hundredths) {
  return HundredthsText(hundredths / 100, hundredths % 100);
}

std::int32_t RoundedHundredths(double inches) {
  return CutToInt((inches + 0.005) * 100);
}

std::string InchText(double inches) {
  const std::int32_t hundredths = RoundedHundredths(inches);
  // Where hundredths no longer fit, their greatest number stands for all of the text.
  if (std::abs(static_cast<std::int64_t>(hundredths)) >= std::numeric_limits<std::int32_t>::max()) {
    return HundredthsText(hundredths);
  }
  // The whole part is cut on its own: the product above may round up to the next hundred.
  return HundredthsText(CutToInt(inches + 0.005), hundredths % 100);
}

std::string CentimetreText(double inches, bool smallest) {
  return HundredthsText(smallest ? lowestNamedCentimetre : CutToInt(inches * 254.0));
}

std::string PixelText(double inches, std::int32_t dpi, bool smallest) {
  return WholeNumberText(smallest ? CutToInt(dpi * lowestSize + 0.5) : CutToInt(dpi * inches));
}

double HighestTyped(Dimension dimension, std::uint32_t source, std::uint32_t units) {
  const bool centimetres = units == unit::centimetre;
  if (dimension == Dimension::width) return centimetres ? 21.59 : 8.5;
  if (source == paper_source::feeder) return centimetres ? 35.56 : 14.0;
  return centimetres ? 29.6926 : 11.69;
}

std::int32_t HighestNamed(Dimension dimension, std::uint32_t source, std::uint32_t units) {
  const bool centimetres = units == unit::centimetre;
  if (dimension == Dimension::width) {
    return centimetres ? highestWidthNamedCentimetre[source] : highestWidthNamedInch[source];
  }
  return centimetres ? highestHeightNamedCentimetre[source] : highestHeightNamedInch[source];
}

std::int32_t ExtentOf(const PreviewFacts& preview, Dimension dimension) {
  return dimension == Dimension::width ? preview.width : preview.height;
}

}  // namespace

double HighestSize(Dimension dimension, std::uint32_t source) {
  return dimension == Dimension::width ? highestWidth[source] : highestHeight[source];
}

std::span<const SizeEntry> SizeList(std::uint32_t source, const FaceRules& rules) {
  return rules.sizeLists[source];
}

std::optional<SizeRow> FindSize(std::uint32_t sizeId, std::uint32_t source, const FaceRules& rules) {
  const auto in = [sizeId](std::span<const SizeRow> rows) -> std::optional<SizeRow> {
    const auto found = std::ranges::find(rows, sizeId, &SizeRow::sizeId);
    if (found == rows.end()) return {};
    return *found;
  };
  if (IsTransparency(source)) {
    if (const auto found = in(rules.transparencySizes)) return found;
  }
  return in(rules.sizes);
}

std::string SizeText(double inches, std::uint32_t units, std::int32_t dpi, const FaceRules& rules) {
  const bool smallest = rules.smallestSizeHasOwnText && RoundedHundredths(inches) == smallestHundredths;
  if (units == unit::centimetre) return CentimetreText(inches, smallest);
  if (units == unit::pixel) return PixelText(inches, dpi, smallest);
  return InchText(inches);
}

TypingRange SizeTypingRange(Dimension dimension, std::uint32_t source, std::uint32_t units, std::int32_t dpi) {
  const double highest = HighestTyped(dimension, source, units);
  if (units == unit::centimetre) return {0.762, highest};
  if (units == unit::pixel) return {dpi * lowestSize, dpi * highest};
  return {lowestSize, highest};
}

double InchesOf(std::string_view text, std::uint32_t units, std::int32_t dpi) {
  const double value = ReadDecimalNumber(text.substr(0, longestRead));
  if (units == unit::centimetre) return value * inchesPerCentimetre;
  if (units == unit::pixel) return dpi == 0 ? 0.0 : value / dpi;
  return value;
}

bool IsGoodSize(double inches, std::string_view text, Dimension dimension, std::uint32_t source,
                std::uint32_t units) {
  if (units != unit::pixel && !IsDecimalText(text)) return false;
  return inches >= lowestSize && inches <= HighestSize(dimension, source);
}

RangeMessage SizeRangeMessage(Dimension dimension, std::uint32_t source, std::uint32_t units, std::int32_t dpi) {
  if (units == unit::pixel) {
    return {text::integerRange, {CutToInt(dpi * lowestSize), CutToInt(dpi * HighestSize(dimension, source))}, 2};
  }
  const std::int32_t low = units == unit::centimetre ? lowestNamedCentimetre : lowestNamedInch;
  const std::int32_t high = HighestNamed(dimension, source, units);
  return {text::decimalRange, {low / 100, low % 100, high / 100, high % 100}, 4};
}

std::optional<PreviewFacts> FactsOf(const CDib* preview) {
  if (preview == nullptr || preview->header == nullptr) return {};
  const BitmapInfoHeader& header = *preview->header;
  // A height that says "rows top-down" counts as its amount; the lowest number there is has none.
  const std::int32_t height = std::max(header.height, -std::numeric_limits<std::int32_t>::max());
  return PreviewFacts{header.width, std::abs(height), PreviewDpi(header.pixelsPerMetreX)};
}

std::int32_t PreviewDpi(std::int32_t pixelsPerMetre) {
  const double dpi = pixelsPerMetre * 0.0254;
  const std::int32_t whole = CutToInt(dpi);
  return dpi - whole > 0.5 ? whole + 1 : whole;
}

bool FitsPreview(double inches, std::int32_t frameStart, Dimension dimension, const PreviewFacts& preview) {
  if (frameStart == 0) return true;
  const double thousandths = CutToInt(inches * 100000 + 0.5);
  const std::int64_t pixels = CutToInt(thousandths * preview.dpi * 0.00001 + 0.5);
  return pixels + frameStart + 1 <= ExtentOf(preview, dimension);
}

bool LiesMidFeeder(std::uint32_t sizeId, std::uint32_t source, const FaceRules& rules) {
  return rules.centresOnFeeder && source == paper_source::feeder && sizeId != size_id::userDefined;
}

std::int32_t CentredOnFeeder(double width, const PreviewFacts& preview) {
  const std::int64_t left = (std::int64_t{preview.width} - CutToInt(preview.dpi * width)) / 2;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(left, 0, std::numeric_limits<std::int32_t>::max()));
}

bool IsSameSize(double width, double height, double reportedWidth, double reportedHeight, const FaceRules& rules) {
  return std::abs(width - reportedWidth) <= rules.reportTolerance &&
         std::abs(height - reportedHeight) <= rules.reportTolerance;
}

}  // namespace set32

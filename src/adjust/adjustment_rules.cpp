#include "adjust/adjustment_rules.h"

#include <bit>

#include "controls/number_text.h"
#include "platform/events.h"

namespace set32 {

namespace {

constexpr double gammaLineStep = 0.01;
constexpr double gammaPageStep = 0.1;
constexpr double gammaCeiling = 10.0;
constexpr std::int64_t numberPageStep = 10;

bool TakesPosition(const ScrollHabit& habit, int code) {
  return code == scroll_code::thumbTrack || (habit.takesRelease && code == scroll_code::thumbPosition);
}

}  // namespace

double GammaScale::Held(double value) const {
  if (!(value > low)) return low;
  return value >= gammaCeiling ? high : value;
}

std::int32_t GammaScale::PositionOf(double value) const {
  return CutToInt(value * positions);
}

double GammaAfterScroll(const GammaScale& scale, double value, int code, std::int32_t position) {
  switch (code) {
    case scroll_code::lineLeft:
      return scale.Held(value - gammaLineStep);
    case scroll_code::lineRight:
      return scale.Held(value + gammaLineStep);
    case scroll_code::pageLeft:
      return scale.Held(value - gammaPageStep);
    case scroll_code::pageRight:
      return scale.Held(value + gammaPageStep);
    default:
      if (TakesPosition(scale.scroll, code)) return scale.Held(scale.ValueAt(position));
      return scale.scroll.alwaysHolds ? scale.Held(value) : value;
  }
}

std::int32_t NumberAfterScroll(const ValueRange& range, const ScrollHabit& habit, std::int32_t value, int code,
                               std::int32_t position) {
  const std::int64_t wide = value;
  switch (code) {
    case scroll_code::lineLeft:
      return range.Held(wide - 1);
    case scroll_code::lineRight:
      return range.Held(wide + 1);
    case scroll_code::pageLeft:
      return range.Held(wide - numberPageStep);
    case scroll_code::pageRight:
      return range.Held(wide + numberPageStep);
    default:
      if (TakesPosition(habit, code)) return range.Held(position);
      return habit.alwaysHolds ? range.Held(wide) : value;
  }
}

double GammaAfterSpin(const GammaScale& scale, double value, int delta) {
  if (delta == 0) return value;
  return GammaAfterScroll(scale, value, delta > 0 ? scroll_code::lineLeft : scroll_code::lineRight, 0);
}

std::int32_t NumberAfterSpin(const ValueRange& range, std::int32_t value, int delta) {
  if (delta == 0) return value;
  return range.Held(std::int64_t{value} + (delta > 0 ? -1 : 1));
}

std::optional<double> GammaFromText(const GammaScale& scale, std::string_view text) {
  const double value = ReadDecimalNumber(text);
  return scale.Accepts(value) ? std::optional(value) : std::nullopt;
}

std::optional<std::int32_t> NumberFromText(const ValueRange& range, std::string_view text) {
  const std::int32_t value = ReadWholeNumber(text);
  return range.Holds(value) ? std::optional(value) : std::nullopt;
}

bool SameBits(double left, double right) {
  return std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}

bool IsKnownMode(std::uint32_t scanMode) {
  return scanMode == mode::colour || scanMode == mode::gray || scanMode == mode::blackWhite ||
         scanMode == mode::jpegColour || scanMode == mode::jpegGray;
}

bool IsColourMode(std::uint32_t scanMode) {
  return scanMode == mode::colour || scanMode == mode::jpegColour;
}

AllowedAdjustments AllowedBy(std::uint32_t scanMode, bool hasLowLevelDriver) {
  const bool colour = IsColourMode(scanMode);
  const bool jpeg = scanMode == mode::jpegColour || scanMode == mode::jpegGray;
  const bool known = IsKnownMode(scanMode);
  const bool levels = known && scanMode != mode::blackWhite;
  return {.brightness = known,
          .contrast = levels,
          .gamma = known,
          .bandGamma = colour,
          .sharpness = levels,
          .colour = colour,
          .descreen = levels && !jpeg,
          .highBit = scanMode == mode::colour || (scanMode == mode::gray && hasLowLevelDriver),
          .jpegQuality = jpeg};
}

bool DescreenUsable(const ScanSettings& settings, std::uint32_t restrictedMaxDpi) {
  return (settings.mode == mode::colour || settings.mode == mode::gray) && settings.highBitDepth == 0 &&
         settings.paperSource != paper_source::feeder && std::int64_t{settings.dpi} <= restrictedMaxDpi;
}

bool HighBitUsable(const ScanSettings& settings, bool highBitRestricted, bool hasLowLevelDriver) {
  return settings.descreen == 0 && !highBitRestricted && AllowedBy(settings.mode, hasLowLevelDriver).highBit;
}

bool OnTransparency(const ScanSettings& settings) {
  return settings.paperSource == paper_source::positive || settings.paperSource == paper_source::negative;
}

bool PageDescreenUsable(const ScanSettings& settings) {
  return IsKnownMode(settings.mode) && settings.mode != mode::blackWhite && settings.highBitDepth == 0 &&
         !OnTransparency(settings);
}

bool PageHighBitUsable(const ScanSettings& settings, bool highBitRestricted) {
  return IsKnownMode(settings.mode) && settings.mode != mode::blackWhite && settings.descreen == 0 &&
         !highBitRestricted;
}

bool DescreenForbidden(const ScanSettings& settings) {
  return settings.mode == mode::blackWhite || settings.paperSource == paper_source::feeder;
}

void LoadAdjustmentDefaults(const AdjustmentDefaults& defaults, ScanSettings& settings, CDib* preview) {
  if (IsKnownMode(settings.mode)) {
    settings.brightness = defaults.brightness;
    settings.contrast = settings.mode == mode::blackWhite ? 0 : defaults.contrast;
    settings.gammaAll = defaults.gamma;
  }
  settings.gammaRed = settings.gammaGreen = settings.gammaBlue = settings.gammaAll;
  settings.jpegQuality = defaults.jpegQuality;
  if (preview != nullptr) CopyAdjustmentsToPreview(settings, *preview);
}

void ChooseDefaults(ScanSettings& settings) {
  settings.useDefaults = 1;
  settings.singleFile = 0;
  ClearOutputOptions(settings);
}

void ClearOutputOptions(ScanSettings& settings) {
  settings.descreen = 0;
  settings.highBitDepth = 0;
}

void CopyAdjustmentsToPreview(const ScanSettings& settings, CDib& preview) {
  preview.brightness = settings.brightness;
  preview.contrast = settings.contrast;
  const bool byBand = settings.bandGamma == 1;
  preview.gammaRed = byBand ? settings.gammaRed : settings.gammaAll;
  preview.gammaGreen = byBand ? settings.gammaGreen : settings.gammaAll;
  preview.gammaBlue = byBand ? settings.gammaBlue : settings.gammaAll;
}

}  // namespace set32

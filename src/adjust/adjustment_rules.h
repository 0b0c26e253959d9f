// What the adjustments of a scan mean, whatever front end edits them: ranges and scales, what a mode allows, how one
// option excludes another, and where values go. Functions of values, without windows; any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "boundary/adjustment_defaults.h"
#include "set32/dib.h"
#include "set32/host_records.h"

namespace set32 {

struct ValueRange {
  std::int32_t low;
  std::int32_t high;

  constexpr bool Holds(std::int32_t value) const { return value >= low && value <= high; }
  constexpr std::int32_t Held(std::int64_t value) const {
    return static_cast<std::int32_t>(value < low ? low : value > high ? high : value);
  }
  // A stored value outside the range says nothing.
  constexpr std::int32_t HeldOrZero(std::int32_t value) const { return Holds(value) ? value : 0; }
};

inline constexpr ValueRange brightnessRange{-100, 100};
inline constexpr ValueRange contrastRange{-100, 100};
inline constexpr ValueRange sharpnessRange{-100, 100};
inline constexpr ValueRange saturationRange{-100, 100};
inline constexpr ValueRange hueRange{-180, 180};
inline constexpr ValueRange jpegQualityRange{0, 10};

// How a front end answers scroll events.
struct ScrollHabit {
  bool takesRelease;  // the position where a drag ends counts too, not those of the drag alone
  bool alwaysHolds;   // a stored value beyond its range is brought back by any event, else by those that change it
};

inline constexpr ScrollHabit dialogScroll{.takesRelease = false, .alwaysHolds = true};
inline constexpr ScrollHabit pageScroll{.takesRelease = true, .alwaysHolds = false};

// Gamma as a control shows it. A control's positions count the value's hundredths or tenths.
struct GammaScale {
  double low;  // what an edit accepts, both included; a step or a drag past an end gives the end
  double high;
  int positions;  // of the control, for a gamma of 1
  double valueOfPosition;
  ValueRange range;  // of the control
  ScrollHabit scroll;

  bool Accepts(double value) const { return value >= low && value <= high; }
  // Of a step or a drag: 10 and more give the high end, the low end and less the low one, and so does no number.
  double Held(double value) const;
  // Truncated; the nearest whole number where the value is beyond all.
  std::int32_t PositionOf(double value) const;
  double ValueAt(std::int32_t position) const { return position * valueOfPosition; }
};

inline constexpr GammaScale dialogGamma{0.01, 9.99, 100, 0.01, {1, 1000}, dialogScroll};
inline constexpr GammaScale pageGamma{0.1, 10.0, 10, 0.1, {0, 100}, pageScroll};

// A value after a scroll event (scroll_code::) of its control at that position.
double GammaAfterScroll(const GammaScale& scale, double value, int code, std::int32_t position);
std::int32_t NumberAfterScroll(const ValueRange& range, const ScrollHabit& habit, std::int32_t value, int code,
                               std::int32_t position);

// A value after one step of a spin: down for a positive delta, up for a negative one.
double GammaAfterSpin(const GammaScale& scale, double value, int delta);
std::int32_t NumberAfterSpin(const ValueRange& range, std::int32_t value, int delta);

// What the text of an edit says; none where it isn't in the range.
std::optional<double> GammaFromText(const GammaScale& scale, std::string_view text);
std::optional<std::int32_t> NumberFromText(const ValueRange& range, std::string_view text);

// Double or not, the same bits: a value that is no number equals itself, and 0 differs from -0.
bool SameBits(double left, double right);

bool IsKnownMode(std::uint32_t scanMode);
bool IsColourMode(std::uint32_t scanMode);

// What a mode lets a person adjust. A mode that isn't known lets nothing.
struct AllowedAdjustments {
  bool brightness = false;
  bool contrast = false;
  bool gamma = false;
  bool bandGamma = false;  // elsewhere the record's bandGamma is forced to 0
  bool sharpness = false;
  bool colour = false;  // saturation and hue
  bool descreen = false;
  bool highBit = false;
  bool jpegQuality = false;
};

AllowedAdjustments AllowedBy(std::uint32_t scanMode, bool hasLowLevelDriver);

// Descreen and high-bit output exclude each other. These are the rules of the dialog, by the device's limit too.
bool DescreenUsable(const ScanSettings& settings, std::uint32_t restrictedMaxDpi);
bool HighBitUsable(const ScanSettings& settings, bool highBitRestricted, bool hasLowLevelDriver);
// And these the ones of the Advanced page, which asks neither resolution nor feeder, and lets JPEG modes descreen.
bool OnTransparency(const ScanSettings& settings);
bool PageDescreenUsable(const ScanSettings& settings);
bool PageHighBitUsable(const ScanSettings& settings, bool highBitRestricted);
// No descreen in black and white and on the feeder; a refresh of the dialog clears it there.
bool DescreenForbidden(const ScanSettings& settings);

// The defaults of the record's mode into the record, the bands taking the gamma for all, and into a preview.
void LoadAdjustmentDefaults(const AdjustmentDefaults& defaults, ScanSettings& settings, CDib* preview);

// The choice "default": the options that have no stored default are off. The values come from LoadAdjustmentDefaults;
// bandGamma stays.
void ChooseDefaults(ScanSettings& settings);
// A JPEG mode has neither of the two options.
void ClearOutputOptions(ScanSettings& settings);

// Brightness, contrast and the gammas of the bands into the preview's own copy.
void CopyAdjustmentsToPreview(const ScanSettings& settings, CDib& preview);

}  // namespace set32

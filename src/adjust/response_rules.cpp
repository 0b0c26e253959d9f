#include "adjust/response_rules.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

#include "controls/number_text.h"

namespace set32 {

namespace {

// Where a band's gamma lies; by Band.
struct GammaFields {
  float ResponseValues::*copy;
  double ScanSettings::*record;
  double CDib::*preview;  // null for all bands: it has none of its own there
};

constexpr GammaFields gammaFields[] = {
    {&ResponseValues::gammaAll, &ScanSettings::gammaAll, nullptr},
    {&ResponseValues::gammaRed, &ScanSettings::gammaRed, &CDib::gammaRed},
    {&ResponseValues::gammaGreen, &ScanSettings::gammaGreen, &CDib::gammaGreen},
    {&ResponseValues::gammaBlue, &ScanSettings::gammaBlue, &CDib::gammaBlue},
};

// Where a whole number lies.
struct NumberFields {
  Adjustment adjustment;
  std::int32_t ResponseValues::*copy;
  std::int32_t ScanSettings::*record;
  ValueRange range;
};

constexpr NumberFields numberFields[] = {
    {Adjustment::sharpness, &ResponseValues::sharpness, &ScanSettings::sharpness, sharpnessRange},
    {Adjustment::brightness, &ResponseValues::brightness, &ScanSettings::brightness, brightnessRange},
    {Adjustment::contrast, &ResponseValues::contrast, &ScanSettings::contrast, contrastRange},
    {Adjustment::saturation, &ResponseValues::saturation, &ScanSettings::saturation, saturationRange},
    {Adjustment::hue, &ResponseValues::hue, &ScanSettings::hue, hueRange},
};

const GammaFields& FieldsOf(Band band) {
  return gammaFields[static_cast<std::size_t>(band)];
}

const NumberFields& FieldsOf(Adjustment adjustment) {
  return *std::ranges::find(numberFields, adjustment, &NumberFields::adjustment);
}

float Narrowed(double gamma) {
  const bool holds = std::abs(gamma) <= static_cast<double>(std::numeric_limits<float>::max());
  return holds ? static_cast<float>(gamma) : 1.0F;
}

double GammaIn(const ResponseValues& values, Band band) {
  return static_cast<double>(values.*FieldsOf(band).copy);
}
double GammaIn(const ScanSettings& settings, Band band) {
  return settings.*FieldsOf(band).record;
}
std::int32_t NumberIn(const ResponseValues& values, Adjustment adjustment) {
  return values.*FieldsOf(adjustment).copy;
}
std::int32_t NumberIn(const ScanSettings& settings, Adjustment adjustment) {
  return settings.*FieldsOf(adjustment).record;
}

template <typename Values>
std::string TextIn(const Values& values, ShownValue shown) {
  if (shown.adjustment == Adjustment::gamma) return TwoDecimalsText(GammaIn(values, shown.band));
  return WholeNumberText(NumberIn(values, shown.adjustment));
}

template <typename Values>
std::int32_t PositionIn(const Values& values, ShownValue shown) {
  if (shown.adjustment == Adjustment::gamma) return pageGamma.PositionOf(GammaIn(values, shown.band));
  return NumberIn(values, shown.adjustment);
}

// The modes of a row, and for which high-bit output it is.
struct EnablingRow {
  View view;
  std::uint32_t modes;  // or-ed
  std::optional<bool> highBit;
  ValueEnabling enabling;
};

constexpr std::uint32_t colourModes = mode::colour | mode::jpegColour;
constexpr std::uint32_t levelModes = colourModes | mode::gray | mode::jpegGray;
constexpr std::uint32_t colourlessModes = mode::gray | mode::blackWhite | mode::jpegGray;

constexpr Enabling on = Enabling::on;
constexpr Enabling off = Enabling::off;
constexpr Enabling unchanged = Enabling::unchanged;

constexpr EnablingRow enablingRows[] = {
    {View::gammaCurve, levelModes, false, {on, on, on, on}},
    {View::gammaCurve, levelModes, true, {on, off, off, off}},
    {View::gammaCurve, mode::blackWhite, {}, {off, off, off, off}},
    {View::histogram, levelModes, {}, {on, on, on, on}},
    {View::histogram, mode::blackWhite, {}, {on, off, unchanged, off}},
    {View::hueWheel, colourModes, false, {on, on, on, on}},
    {View::hueWheel, colourModes, true, {off, off, off, off}},
    {View::hueWheel, colourlessModes, {}, {off, off, off, off}},
};

}  // namespace

ResponseValues LoadedFrom(const ScanSettings& settings) {
  return {.sharpness = settings.sharpness,
          .brightness = settings.brightness,
          .contrast = settings.contrast,
          .gammaAll = Narrowed(settings.gammaAll),
          .gammaRed = Narrowed(settings.gammaRed),
          .gammaGreen = Narrowed(settings.gammaGreen),
          .gammaBlue = Narrowed(settings.gammaBlue),
          .saturation = saturationRange.HeldOrZero(settings.saturation),
          .hue = hueRange.HeldOrZero(settings.hue),
          .descreen = settings.descreen,
          .descreenKind = settings.descreenKind,
          .highBitDepth = settings.highBitDepth};
}

bool Differ(const ResponseValues& values, const ScanSettings& settings) {
  const auto numberDiffers = [&](const NumberFields& fields) {
    return values.*fields.copy != settings.*fields.record;
  };
  const auto gammaDiffers = [&](const GammaFields& fields) {
    return !SameBits(static_cast<double>(values.*fields.copy), settings.*fields.record);
  };
  return values.highBitDepth != settings.highBitDepth || values.descreen != settings.descreen ||
         values.descreenKind != settings.descreenKind || std::ranges::any_of(numberFields, numberDiffers) ||
         std::ranges::any_of(gammaFields, gammaDiffers);
}

void StoreValues(const ResponseValues& values, Band selected, ScanSettings& settings) {
  settings.bandGamma = selected == Band::all ? 0 : 1;
  settings.useDefaults = selected == Band::all ? 1 : 0;
  settings.highBitDepth = values.highBitDepth;
  settings.descreen = values.descreen;
  settings.descreenKind = values.descreenKind;
  for (const NumberFields& fields : numberFields) settings.*fields.record = values.*fields.copy;
  for (const GammaFields& fields : gammaFields) settings.*fields.record = static_cast<double>(values.*fields.copy);
}

double GammaOf(const ResponseValues& values, Band band) {
  return GammaIn(values, band);
}

void SpreadGammaAll(ResponseValues& values) {
  values.gammaRed = values.gammaGreen = values.gammaBlue = values.gammaAll;
}

bool GiveGamma(const ResponseValues& values, Band band, CDib& preview) {
  const double gamma = GammaIn(values, band);
  bool differed = false;
  for (const GammaFields& fields : gammaFields) {
    const bool serves = band == Band::all || &fields == &FieldsOf(band);
    if (fields.preview == nullptr || !serves || SameBits(preview.*fields.preview, gamma)) continue;
    preview.*fields.preview = gamma;
    differed = true;
  }
  return differed;
}

std::string TextOf(const ResponseValues& values, ShownValue shown) {
  return TextIn(values, shown);
}
std::string TextOf(const ScanSettings& settings, ShownValue shown) {
  return TextIn(settings, shown);
}
std::int32_t PositionOf(const ResponseValues& values, ShownValue shown) {
  return PositionIn(values, shown);
}
std::int32_t PositionOf(const ScanSettings& settings, ShownValue shown) {
  return PositionIn(settings, shown);
}

void ScrollValue(ResponseValues& values, ShownValue shown, int code, std::int32_t position) {
  if (shown.adjustment == Adjustment::gamma) {
    const double gamma = GammaAfterScroll(pageGamma, GammaIn(values, shown.band), code, position);
    values.*FieldsOf(shown.band).copy = static_cast<float>(gamma);
  } else {
    const NumberFields& fields = FieldsOf(shown.adjustment);
    values.*fields.copy = NumberAfterScroll(fields.range, pageScroll, values.*fields.copy, code, position);
  }
}

void SpinValue(ResponseValues& values, ShownValue shown, int delta) {
  if (shown.adjustment == Adjustment::gamma) {
    const double gamma = GammaAfterSpin(pageGamma, GammaIn(values, shown.band), delta);
    values.*FieldsOf(shown.band).copy = static_cast<float>(gamma);
  } else {
    const NumberFields& fields = FieldsOf(shown.adjustment);
    values.*fields.copy = NumberAfterSpin(fields.range, values.*fields.copy, delta);
  }
}

bool TakeText(ResponseValues& values, ShownValue shown, std::string_view text) {
  if (shown.adjustment == Adjustment::gamma) {
    const auto gamma = GammaFromText(pageGamma, text);
    if (gamma) values.*FieldsOf(shown.band).copy = static_cast<float>(*gamma);
    return gamma.has_value();
  }
  const NumberFields& fields = FieldsOf(shown.adjustment);
  const auto number = NumberFromText(fields.range, text);
  if (number) values.*fields.copy = *number;
  return number.has_value();
}

bool GiveNumber(const ResponseValues& values, Adjustment adjustment, ScanSettings& settings) {
  const NumberFields& fields = FieldsOf(adjustment);
  const bool differed = settings.*fields.record != values.*fields.copy;
  settings.*fields.record = values.*fields.copy;
  return differed;
}

std::optional<ValueEnabling> EnablingOf(View view, std::uint32_t scanMode, bool highBit) {
  if (!IsKnownMode(scanMode)) return {};
  const auto row = std::ranges::find_if(enablingRows, [&](const EnablingRow& candidate) {
    return candidate.view == view && (candidate.modes & scanMode) != 0 &&
           candidate.highBit.value_or(highBit) == highBit;
  });
  return row->enabling;
}

std::optional<OptionEnabling> EnablingOfOptions(const ScanSettings& settings, bool highBitRestricted) {
  if (!IsKnownMode(settings.mode)) return {};
  return OptionEnabling{.descreen = PageDescreenUsable(settings),
                        .descreenKinds = settings.mode != mode::blackWhite && settings.descreen != 0,
                        .highBit = PageHighBitUsable(settings, highBitRestricted)};
}

int HighBitCaption(std::uint32_t scanMode) {
  return IsColourMode(scanMode) ? text::output48Bits : text::output16Bits;
}

}  // namespace set32

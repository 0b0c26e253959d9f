// What the Advanced page holds, shows and lets a person do, as data and functions of values: the working copy, the
// three tabs, and what a tab and a mode enable. Without windows; any thread.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "adjust/adjustment_rules.h"
#include "adjust/histogram.h"
#include "resources/ids.h"
#include "set32/dib.h"
#include "set32/host_records.h"

namespace set32 {

// The working copy. Its gammas are narrower than the record's.
struct ResponseValues {
  std::int32_t sharpness = 0;
  std::int32_t brightness = 0;
  std::int32_t contrast = 0;
  float gammaAll = 1.0F;
  float gammaRed = 1.0F;
  float gammaGreen = 1.0F;
  float gammaBlue = 1.0F;
  std::int32_t saturation = 0;
  std::int32_t hue = 0;
  std::uint32_t descreen = 0;
  std::uint32_t descreenKind = 0;
  std::uint32_t highBitDepth = 0;
};

// A saturation or hue out of range says nothing and loads as 0, a gamma that no float holds as 1. Everything else
// loads as it is.
ResponseValues LoadedFrom(const ScanSettings& settings);

// Gammas differ where their bits do, so one with more digits than a float has differs from its own copy.
bool Differ(const ResponseValues& values, const ScanSettings& settings);

// A selected band states that the bands have their own gammas, and that these are the user's.
void StoreValues(const ResponseValues& values, Band selected, ScanSettings& settings);

double GammaOf(const ResponseValues& values, Band band);
void SpreadGammaAll(ResponseValues& values);

// The gamma of the band into the preview's own copy; the one for all goes into its three. Result: whether it
// differed.
bool GiveGamma(const ResponseValues& values, Band band, CDib& preview);

enum class Adjustment { gamma, sharpness, brightness, contrast, saturation, hue };

// What a pair of edit and slider shows.
struct ShownValue {
  Adjustment adjustment;
  Band band;  // of a gamma
};

// The text of the edit, and where the slider stands; of the copy, or of a record that isn't loaded yet.
std::string TextOf(const ResponseValues& values, ShownValue shown);
std::string TextOf(const ScanSettings& settings, ShownValue shown);
std::int32_t PositionOf(const ResponseValues& values, ShownValue shown);
std::int32_t PositionOf(const ScanSettings& settings, ShownValue shown);

// What the controls do to the value that they show. A text out of range leaves it alone; result: whether it was
// taken.
void ScrollValue(ResponseValues& values, ShownValue shown, int code, std::int32_t position);
void SpinValue(ResponseValues& values, ShownValue shown, int delta);
bool TakeText(ResponseValues& values, ShownValue shown, std::string_view text);

// A whole number of the copy into the record. Result: whether it differed.
bool GiveNumber(const ResponseValues& values, Adjustment adjustment, ScanSettings& settings);

// The tabs by their place, and the picture of each.
enum class View { gammaCurve, histogram, hueWheel };

struct SliderShape {
  ValueRange range;
  int tick;
  int line;
};

struct TabValue {
  Adjustment adjustment;
  int label;  // string
  SliderShape slider;
};

struct ResponseTab {
  int tip;            // string
  int bandLabel;      // string; 0: neither the bands nor the read-outs are shown
  bool showsScale;    // the ends of the sharpness scale
  TabValue value[2];  // of the upper and of the lower controls
};

inline constexpr SliderShape gammaSlider{pageGamma.range, 10, 1};
inline constexpr SliderShape numberSlider{{-100, 100}, 20, 10};
inline constexpr SliderShape hueSlider{hueRange, 20, 10};

inline constexpr std::array<ResponseTab, 3> responseTabs{{
    {text::gammaSharpnessTip,
     text::bandLabel,
     true,
     {{Adjustment::gamma, text::gammaLabel, gammaSlider},
      {Adjustment::sharpness, text::sharpnessLabel, numberSlider}}},
    {text::brightnessContrastTip,
     text::histogramLabel,
     false,
     {{Adjustment::brightness, text::brightnessLabel, numberSlider},
      {Adjustment::contrast, text::contrastLabel, numberSlider}}},
    {text::saturationHueTip,
     0,
     false,
     {{Adjustment::saturation, text::saturationLabel, numberSlider}, {Adjustment::hue, text::hueLabel, hueSlider}}},
}};

// What a tab and a mode do to the controls of the values.
enum class Enabling { off, on, unchanged };

struct ValueEnabling {
  Enabling first;  // all of the upper controls
  Enabling second;
  Enabling secondLabel;
  Enabling scale;  // the ends of the sharpness scale
};

// None for a mode that isn't known.
std::optional<ValueEnabling> EnablingOf(View view, std::uint32_t scanMode, bool highBit);

struct OptionEnabling {
  bool descreen;
  bool descreenKinds;
  bool highBit;
};

std::optional<OptionEnabling> EnablingOfOptions(const ScanSettings& settings, bool highBitRestricted);

// Caption of the check box of high-bit output; string.
int HighBitCaption(std::uint32_t scanMode);

}  // namespace set32

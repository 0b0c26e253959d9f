#include "adjust/dialog_rules.h"

#include <algorithm>
#include <cstddef>

#include "controls/edit_rules.h"
#include "controls/format.h"
#include "controls/number_text.h"
#include "platform/events.h"

namespace set32 {

namespace {

constexpr ModeLook modeLooks[] = {
    {mode::colour, picture::gammaColour, text::colourBalance, text::output48Bits},
    {mode::gray, picture::gammaGray, text::gammaBalance, text::output16Bits},
    {mode::blackWhite, picture::gammaBw, text::gammaBalance, 0},
    {mode::jpegColour, picture::gammaColour, text::colourBalance, 0},
    {mode::jpegGray, picture::gammaGray, text::gammaBalance, 0},
};

template <typename Row, std::size_t count>
const Row& RowOf(const Row (&rows)[count], int controlId) {
  const Row* const last = std::end(rows) - 1;
  return *std::find_if(std::begin(rows), last,
                       [=](const Row& row) { return row.edit == controlId || row.bar == controlId; });
}

template <typename T>
bool Replace(T& shown, T value) {
  const bool differs = shown != value;
  shown = value;
  return differs;
}

// The nearest place for a length that starts there; at the start of what is too narrow for it.
int Into(int start, int length, int areaStart, int areaEnd) {
  return std::max(std::min(start, areaEnd - length), areaStart);
}

}  // namespace

const ModeLook* FindModeLook(std::uint32_t scanMode) {
  const auto* found = std::ranges::find(modeLooks, scanMode, &ModeLook::mode);
  return found != std::end(modeLooks) ? found : nullptr;
}

const NumberRow& NumberRowOf(int controlId) {
  return RowOf(numberRows, controlId);
}

const GammaRow& GammaRowOf(int controlId) {
  return RowOf(gammaRows, controlId);
}

bool Take(const NumberRow& row, std::int32_t value, CDib& preview) {
  return Replace(preview.*row.shown, value);
}

bool Take(const GammaRow& row, double value, CDib& preview) {
  bool differs = false;
  for (double CDib::*const band : row.bands) differs |= Replace(preview.*band, value);
  return differs;
}

bool RefreshClearsDescreen(const ScanSettings& settings) {
  return DescreenForbidden(settings) || (settings.useDefaults == 1 && settings.highBitDepth == 1);
}

std::optional<double> TypedGamma(std::string_view text) {
  return IsDecimalText(text) ? GammaFromText(dialogGamma, text) : std::nullopt;
}

std::string RestoredGammaText(double value) {
  if (!dialogGamma.Accepts(value)) return TwoDecimalsText(value);
  return FormatText("%d.%02d", CutToInt(value), dialogGamma.PositionOf(value) % dialogGamma.positions);
}

std::int32_t QualityAfterScroll(std::int32_t quality, int code, std::int32_t position) {
  const std::int64_t wide = quality;
  switch (code) {
    case scroll_code::pageLeft:
      return jpegQualityRange.Held(wide - 1);
    case scroll_code::pageRight:
      return jpegQualityRange.Held(wide + 1);
    case scroll_code::thumbTrack:
      return jpegQualityRange.Held(position);
    default:
      return quality;
  }
}

int HighBitWarning(std::uint32_t outputBits, std::uint32_t scanMode) {
  if (outputBits < output_bits::fourteenABand) return text::warning36Bits;
  if (outputBits == output_bits::fourteenABand) return text::warning42Bits;
  if (outputBits != output_bits::sixteenABand) return 0;
  if (scanMode == mode::colour) return text::warning48Bits;
  return scanMode == mode::gray ? text::warning16Bits : 0;
}

Rect WindowAt(Point corner, Size size) {
  constexpr ValueRange reach{-0x8000, 0x7FFF};
  const int left = reach.Held(corner.x);
  const int top = reach.Held(corner.y);
  return {left, top, left + size.width, top + size.height};
}

Rect MovedIntoWorkArea(const Rect& window, int titleHeight, const Rect& workArea) {
  if (workArea.Width() <= 0 || workArea.Height() <= 0) return window;
  const int left = Into(window.left, window.Width(), workArea.left, workArea.right);
  const int top = Into(window.top, titleHeight, workArea.top, workArea.bottom);
  return {left, top, left + window.Width(), top + window.Height()};
}

}  // namespace set32

// The advanced dialog's own rules: the tables of its values and modes, its texts, and where it stands. What it shares
// with the Advanced page is in adjustment_rules.h. Functions of values, without windows; any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "adjust/adjustment_rules.h"
#include "platform/geometry.h"
#include "resources/ids.h"
#include "set32/dib.h"
#include "set32/host_records.h"

namespace set32 {

// ModuleState::outputBits. Any less than these is told as 36.
namespace output_bits {
inline constexpr std::uint32_t fourteenABand = 42;
inline constexpr std::uint32_t sixteenABand = 48;
}  // namespace output_bits

// A whole number with its edit, its bar and the preview's own copy.
struct NumberRow {
  int edit;
  int bar;
  std::int32_t ScanSettings::*field;
  std::int32_t CDib::*shown;
  ValueRange range;
};

inline constexpr NumberRow numberRows[] = {
    {id103::brightnessEdit, id103::brightnessBar, &ScanSettings::brightness, &CDib::brightness, brightnessRange},
    {id103::contrastEdit, id103::contrastBar, &ScanSettings::contrast, &CDib::contrast, contrastRange},
};

// A gamma with its edit, its bar and its picture, and the bands of the preview that take it.
struct GammaRow {
  int edit;
  int bar;
  int picture;
  double ScanSettings::*field;
  std::span<double CDib::*const> bands;
};

inline constexpr double CDib::*gammaBands[] = {&CDib::gammaRed, &CDib::gammaGreen, &CDib::gammaBlue};

// The gamma for all bands first.
inline constexpr GammaRow gammaRows[] = {
    {id103::gammaAllEdit, id103::gammaAllBar, id103::gammaAllPicture, &ScanSettings::gammaAll, gammaBands},
    {id103::gammaRedEdit, id103::gammaRedBar, id103::gammaRedPicture, &ScanSettings::gammaRed, {&gammaBands[0], 1}},
    {id103::gammaGreenEdit,
     id103::gammaGreenBar,
     id103::gammaGreenPicture,
     &ScanSettings::gammaGreen,
     {&gammaBands[1], 1}},
    {id103::gammaBlueEdit,
     id103::gammaBlueBar,
     id103::gammaBluePicture,
     &ScanSettings::gammaBlue,
     {&gammaBands[2], 1}},
};

inline constexpr std::span<const GammaRow> gammaOfAll = std::span(gammaRows).first(1);
inline constexpr std::span<const GammaRow> gammasOfBands = std::span(gammaRows).subspan(1);

// What a mode shows; what it allows is AllowedBy.
struct ModeLook {
  std::uint32_t mode;
  std::string_view picture;  // beside the gamma for all bands
  int gammaCaption;          // of its radio button
  int sixteenBitCaption;     // of the high-bit check box with 16 bits a band; 0: as it stands
};

// Null for a mode that isn't known.
const ModeLook* FindModeLook(std::uint32_t scanMode);

// The values of a bar or an edit. Each is there for its ids alone.
const NumberRow& NumberRowOf(int controlId);
const GammaRow& GammaRowOf(int controlId);

// The preview takes a value. Result: whether it had another one.
bool Take(const NumberRow& row, std::int32_t value, CDib& preview);
bool Take(const GammaRow& row, double value, CDib& preview);

// Descreen is to be cleared in a refresh, with word to the host.
bool RefreshClearsDescreen(const ScanSettings& settings);

// Gamma from what was typed; none where it isn't in the range or isn't well written.
std::optional<double> TypedGamma(std::string_view text);
// What an edit shows once a bad text was refused: the decimals cut off. A value that was out of range from the start
// is shown as it was.
std::string RestoredGammaText(double value);

std::int32_t QualityAfterScroll(std::int32_t quality, int code, std::int32_t position);

// The text that tells which applications take the output; 0 where there is none.
int HighBitWarning(std::uint32_t outputBits, std::uint32_t scanMode);

// A window with its corner there, as far as windows reach.
Rect WindowAt(Point corner, Size size);
// The same window, moved the least distance until its uppermost rows, `titleHeight` of them, lie in the work area;
// the left ends count where it is too wide. An empty area moves nothing.
Rect MovedIntoWorkArea(const Rect& window, int titleHeight, const Rect& workArea);

}  // namespace set32

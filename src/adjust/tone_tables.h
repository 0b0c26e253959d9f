// Brightness, contrast and gamma as three tables of 256 levels.
//
// The tables are worked out in double precision with conversions towards zero, in the order brightness, contrast,
// gamma: hosts compare their own results with these to the byte. Any thread, one picture at a time.
#pragma once

#include <array>
#include <cstdint>

#include "adjust/picture_view.h"
#include "adjust/pixel_roads.h"
#include "platform/geometry.h"
#include "set32/dib.h"

namespace set32 {

using ToneTable = std::array<std::uint8_t, 256>;

// Steps of a value in -100 to 100; a value outside counts as the nearest inside.
int BrightnessStep(std::int32_t brightness);  // -255 to 256
int ContrastStep(std::int32_t contrast);      // -127 to 127

// A level, 0 to 255, after the step. What lies outside its range counts as the nearest inside.
int ToneBrightness(int level, int step);
int ToneContrast(int level, int step);

// toneRed, toneGreen and toneBlue from the picture's own values. A gamma that is zero, negative or not a number says
// nothing and counts as 1.0; an infinite one sends every level to 255.
void BuildToneTables(CDib& dib);

enum class ToneUse { copyUnchanged, useTables };

// Source pixels of the rectangle through the tables, or unchanged, into display pixels. The rectangle's rows count as
// they lie in memory, from the picture's lower edge up; right and bottom lie outside. An empty rectangle does
// nothing, what lies outside the picture is left out, and a picture that isn't certain (ViewOf) is left alone. With
// dib_kind::keepsToned the display pixels are then copied to the saved ones.
void ApplyToneTables(CDib& dib, const Rect& rect, ToneUse use, const PixelRoad& road = BestRoad());

// All of a picture's source pixels through the tables into its display pixels.
void ToneRows(const PictureView& picture, const PixelTables& tables, const PixelRoad& road = BestRoad());

namespace dib_kind {
inline constexpr std::uint32_t keepsToned = 3;
}  // namespace dib_kind

}  // namespace set32

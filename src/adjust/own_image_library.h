// The image library that comes with the panel. It works in place, and keeps a filter until the next one or GiveBack
// shows that it can't be done together with others: sharpness, saturation and hue, in this order, take one pass.
//
// Sharpness is an unsharp mask: a level moves away from the mean of its neighbourhood, or towards it to soften. The
// mean is the binomial kernel 1 2 1 in both directions, the smallest that treats all directions nearly alike. At 1000
// a level moves twice its distance, at -1000 it becomes the mean. The edge pixels stand for what lies beyond them.
//
// Saturation and hue are the matrices of the web's filter effects (feColorMatrix, "saturate" and "hueRotate"): a
// colour is its luma, 0.213 red + 0.715 green + 0.072 blue, and its distances from it. Saturation stretches the
// distances, by 0 at -1000 (gray) and by 2 at 1000; hue turns them about the axis of grays. Both keep the luma, as
// far as results between 0 and 255 allow. The arithmetic works on differences between the bands, so a neutral gray is
// unchanged to the last bit.
//
// Amounts outside their range count as the nearest inside.
#pragma once

#include "adjust/image_library.h"
#include "adjust/pixel_roads.h"

namespace set32 {

class OwnImageLibrary final : public ImageLibrary {
 public:
  // The road is for tests; by default the best one of this processor.
  explicit OwnImageLibrary(const PixelRoad& road = BestRoad()) : road_(road) {}

  // Pictures of 24 bits alone; null for others.
  std::unique_ptr<LibraryBitmap> Create(int width, int height, int bitsPerPixel) override;

 private:
  const PixelRoad& road_;
};

// Exposed as values, for tests and other users of the roads.
std::int16_t SharpenGain(std::int32_t amount);
std::int16_t SaturationShare(std::int32_t amount);
// Fills in the turn of a rule.
void SetTurn(ColourRule& rule, std::int32_t degrees);

}  // namespace set32

// Filters on a bitmap: sharpness, saturation and hue.
//
// An interface, so that a host's build may put another library in the place of our own. Seven operations: make a
// bitmap, take a picture over, three filters, give the picture back, and free the bitmap (its destructor). Host's
// thread.
#pragma once

#include <cstdint>
#include <memory>

#include "adjust/picture_view.h"
#include "adjust/pixel_roads.h"

namespace set32 {

class LibraryBitmap {
 public:
  virtual ~LibraryBitmap() = default;

  // The display pixels of a picture of the bitmap's geometry. They stay the caller's, who leaves them alone until
  // GiveBack; a bitmap may copy them or work on them in place.
  virtual void TakeOver(const PictureView& picture) = 0;

  // The same, as if the source pixels had gone through the tables into the display pixels; the tables stay until
  // GiveBack. A bitmap that works by rows tones them on its way, and by default all are toned first.
  virtual void TakeOverToned(const PictureView& picture, const PixelTables& tables);

  virtual void Sharpen(std::int32_t amount) = 0;           // -1000 to 1000; negative softens
  virtual void ChangeSaturation(std::int32_t amount) = 0;  // -1000 to 1000
  virtual void TurnHue(std::int32_t degrees) = 0;          // -180 to 180

  // The filtered picture into the display pixels that were taken over. Padding behind a row is left as it is.
  virtual void GiveBack() = 0;
};

class ImageLibrary {
 public:
  virtual ~ImageLibrary() = default;
  // Null when the library has none; the picture then stays unfiltered.
  virtual std::unique_ptr<LibraryBitmap> Create(int width, int height, int bitsPerPixel) = 0;
};

}  // namespace set32

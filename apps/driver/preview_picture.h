// The host's preview: one picture object for the host's whole life, refilled when the preview changes, so that the
// pointer that the panel keeps stays good.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/boxes.h"
#include "platform/files.h"
#include "platform/geometry.h"
#include "set32/dib.h"

namespace set32 {

class PreviewPicture {
 public:
  // A white picture. Throws NotPossible for a size that no preview has.
  void MakeBlank(Size size, int dpi);
  // A BMP file; what is wrong with it the picture object says in a box. Throws NotPossible when it can't be read.
  void ReadFile(Files& files, Boxes& boxes, const std::string& path);
  // The panel gets no picture from its next opening on.
  void TakeAway() { given_ = false; }

  CDib* Dib() { return given_ ? &dib_ : nullptr; }

  // Pixels of the picture; row 0 is the top one. Nothing outside, or when there is no picture of 24 bits.
  struct Pixel {
    Colour source, display;
  };
  std::optional<Pixel> PixelAt(int x, int y) const;

  // CRC-32 of the display pixels without the padding of the rows; nothing when there is no picture of 24 bits.
  std::optional<std::uint32_t> DisplaySum() const;

 private:
  CDib dib_;
  bool given_ = false;
};

}  // namespace set32

// Bitmaps of every kind that files hold, turned into the one kind that the panel works on: 24 bits a pixel.
#pragma once

#include "dib.h"

namespace scan_desk {

enum class TrueColour {
  made,
  unknownKind,  // a compression that holds no rows of pixels, or a size out of all proportion to the codes
  noRoom        // memory is short
};

// `held` is a picture that CDib::Read took from a file: 1, 4, 8, 16, 24 or 32 bits, bit fields and run-length
// encoding too, whatever its bytes are. `into` must be empty; after anything but `made` it is empty again. Pixels
// that the file leaves out are of its first colour; a colour beyond its table is black.
TrueColour MakeTrueColour(const set32::CDib& held, set32::CDib& into);

// Hands over a picture that MakeTrueColour made: `to` frees what it held and takes header and pixels of `from`, which
// is empty afterwards. The adjustment values stay.
void HandOver(set32::CDib& from, set32::CDib& to);

}  // namespace scan_desk

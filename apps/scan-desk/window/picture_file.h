// Picture files of every kind that the system can decode, as the one kind that the panel works on: 24 bits a pixel.
#pragma once

#include <string>

#include "set32/dib.h"

namespace scan_desk {

// Makes an empty object a white picture with room for what is shown. False when memory is short, and it is empty
// again.
bool MakeTrueColour(set32::CDib& empty, int width, int height, double dotsPerInchX, double dotsPerInchY);

// Reads a file's first picture into an empty object, its resolution too. On false the object is empty and `trouble`
// is a sentence that says why.
bool ReadPicture(const std::wstring& path, set32::CDib& into, std::wstring& trouble);

}  // namespace scan_desk

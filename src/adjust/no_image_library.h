// An image library without operations: pictures stay unfiltered.
#pragma once

#include <memory>

#include "adjust/image_library.h"

namespace set32 {

class NoImageLibrary : public ImageLibrary {
 public:
  std::unique_ptr<LibraryBitmap> Create(int, int, int) override { return nullptr; }
};

}  // namespace set32

// One area of a page at another resolution: each pixel is the mean of what it covers.
#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "apps/data-source/scanner/page_picture.h"

namespace data_source {

// Where the scanned pixels lie on the page: the first one's upper left corner and the size of each, in the page's
// pixels.
struct PageGrid {
  double left = 0, top = 0;
  double stepX = 1, stepY = 1;
};

// Row by row from the top, three bands a pixel in the page's order, levels from 0 to 255 with fractions. What lies
// beside the page is white.
void Resample(const PagePicture& page, const PageGrid& grid, int width, int height,
              const std::function<void(int row, std::span<const float> levels)>& take);

}  // namespace data_source

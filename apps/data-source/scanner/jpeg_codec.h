// How images are compressed with loss: by the system's encoder, which a scanner is given.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "apps/data-source/scanner/scanned_image.h"

namespace data_source {

class JpegCodec {
 public:
  virtual ~JpegCodec() = default;
  // A whole file of an image of 8 bits a sample; quality from 0 to 10. Empty on a failure.
  virtual std::vector<std::uint8_t> Encode(const ScannedImage& image, int quality) = 0;
  // The rows of a file that Encode made of this very image. On false they are as they were.
  virtual bool Decode(std::span<const std::uint8_t> file, ScannedImage& into) = 0;
};

}  // namespace data_source

// The system's own JPEG encoder and decoder.
#pragma once

#include "apps/data-source/scanner/jpeg_codec.h"

namespace data_source {

class SystemJpeg final : public JpegCodec {
 public:
  std::vector<std::uint8_t> Encode(const ScannedImage& image, int quality) override;
  bool Decode(std::span<const std::uint8_t> file, ScannedImage& into) override;
};

}  // namespace data_source

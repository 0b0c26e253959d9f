// A picture as a host fills one itself: a header, and buffers of exactly the size that it names.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "set32/dib.h"

namespace set32::fuzz {

// A size that isn't given follows from the others.
struct PictureShape {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::uint16_t bitCount = 24;
  std::uint32_t compression = 0;
  std::int32_t pixelsPerMetreX = 3937;
  std::int32_t pixelsPerMetreY = 3937;
  std::int64_t stride = -1;
  std::int64_t imageSize = -1;
};

class HostPicture {
 public:
  explicit HostPicture(const PictureShape& shape) : stride_(static_cast<std::uint32_t>(shape.stride)) {
    header_.headerSize = sizeof(BitmapInfoHeader);
    header_.width = shape.width;
    header_.height = shape.height;
    header_.planes = 1;
    header_.bitCount = shape.bitCount;
    header_.compression = shape.compression;
    header_.pixelsPerMetreX = shape.pixelsPerMetreX;
    header_.pixelsPerMetreY = shape.pixelsPerMetreY;
    const std::int64_t row = (std::int64_t{shape.width} * shape.bitCount + 31) / 32 * 4;
    if (shape.stride < 0) stride_ = static_cast<std::uint32_t>(row);
    const std::int64_t size = shape.imageSize < 0 ? std::int64_t{stride_} * shape.height : shape.imageSize;
    source_.resize(static_cast<std::size_t>(size));
    for (std::size_t i = 0; i < source_.size(); ++i) source_[i] = static_cast<std::uint8_t>(i * 37 + i / 64);
    display_ = saved_ = scanned_ = source_;
  }

  // Into the object, which owns none of it.
  void Lend(CDib& dib) {
    dib.header = &header_;
    dib.sourcePixels = source_.data();
    dib.displayPixels = display_.data();
    dib.savedPixels = saved_.data();
    dib.stride = stride_;
    dib.imageSize = static_cast<std::uint32_t>(source_.size());
  }
  bool IsAsScanned() const { return source_ == scanned_; }

 private:
  BitmapInfoHeader header_{};
  std::uint32_t stride_;
  std::vector<std::uint8_t> source_, display_, saved_, scanned_;
};

}  // namespace set32::fuzz
